// SPDX-License-Identifier: MIT
#pragma once

namespace CLI {
class App;
}

/// Adds the command "echo", which reads a message and writes it again, to `app`; running it sets
/// `status`.
void addEcho(CLI::App& app, int& status);
