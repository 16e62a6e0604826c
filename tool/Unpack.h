// SPDX-License-Identifier: MIT
#pragma once

namespace CLI {
class App;
}

/// Adds the command "unpack", which writes the parts of a package to files, to `app`; running it
/// sets `status`.
void addUnpack(CLI::App& app, int& status);
