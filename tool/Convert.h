// SPDX-License-Identifier: MIT
#pragma once

namespace CLI {
class App;
}

/// Adds the command "convert", which rewrites a message for the other version, to `app`; running it
/// sets `status`.
void addConvert(CLI::App& app, int& status);
