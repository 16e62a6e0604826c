// SPDX-License-Identifier: MIT
#pragma once

namespace CLI {
class App;
}

/// Adds the command "pack", which makes a package of an envelope and attachments, to `app`; running
/// it sets `status`.
void addPack(CLI::App& app, int& status);
