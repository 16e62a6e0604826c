// SPDX-License-Identifier: MIT
#pragma once

/// Sockets of this machine, for services and clients that are made by hand. `std::system_error`
/// without one.
namespace loopback {

/// A socket that listens on a free port, which becomes `port`.
int listener(int& port);
/// A connection to that port.
int connection(int port);

} // namespace loopback
