// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// The files that the commands read and write. A failure is a `std::runtime_error` that says why.
namespace files {

/// The name that stands for standard input or standard output.
inline constexpr const char* Standard = "-";

/// The name of the input `file` in messages.
std::string shownName(const std::string& file);

/// The bytes of `file`, of standard input for "-".
std::string read(const std::string& file);
/// Makes `bytes` the content of `file`, whatever it held; of standard output for "-".
void write(const std::string& file, std::string_view bytes);
/// Makes a new file of `bytes`. Fails if `path` exists, even as a link.
void create(const std::filesystem::path& path, std::string_view bytes);

} // namespace files
