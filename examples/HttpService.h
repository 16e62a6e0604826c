// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

class TzSoapDispatcher;

/// Serves `service` with cpp-httplib at the root of 127.0.0.1 until SIGTERM or SIGINT comes, and
/// prints where; requests under way get their answers. Requests of more than `largestRequest`
/// bytes, counted after they were unzipped, are refused. Port 0 is any that is free.
/// `std::runtime_error` for a port that cannot be had. To be called first of all in `main`, by a
/// program without other threads.
void serveUntilSignal(const TzSoapDispatcher& service, int port = 0,
                      std::size_t largestRequest = 8U << 20U);
