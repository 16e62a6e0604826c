// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// What the tool can do. Each returns the exit status: 0, or 1 when a file could not be read; then the
/// reason stands on standard error with file, line and column.
namespace commands {

/// Prints each file (standard input when there is none) as a tree.
int show(const std::vector<std::string>& files);

/// Reads `file` and writes the message again to standard output.
int echo(const std::string& file);

} // namespace commands
