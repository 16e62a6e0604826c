// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The files that the commands read and write. A failure is a `std::runtime_error` that says why.
namespace files {

/// The name that stands for standard input or standard output.
inline constexpr const char* Standard = "-";

/// How messages call `file`.
std::string shownName(const std::string& file);

/// The bytes of `file`, of standard input for "-".
std::string read(const std::string& file);

} // namespace files
