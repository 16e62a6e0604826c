// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Texts from messages and packages, made safe for where they are printed.
namespace escape {

/// `text` without characters that would break a line or control a terminal: they become "\n", "\t",
/// "\x1b" and the like. Everything else, quotes and backslashes included, stays.
std::string forTerminal(std::string_view text);
/// `text` in quotes without such characters; quotes and backslashes within get a backslash before
/// them.
std::string quoted(std::string_view text);
/// `text` as a JSON string with its quotes (RFC 8259). Bytes that are not UTF-8 become U+FFFD.
std::string json(std::string_view text);

} // namespace escape
