// SPDX-License-Identifier: MIT
#pragma once

namespace CLI {
class App;
}

/// Adds the command "call", which posts a message over HTTP and prints the answer, to `app`;
/// running it sets `status`.
void addCall(CLI::App& app, int& status);
