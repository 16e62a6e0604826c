// SPDX-License-Identifier: MIT
#pragma once

namespace CLI {
class App;
}

/// Adds the command "show", which prints messages as trees, to `app`; running it sets `status`.
void addShow(CLI::App& app, int& status);
