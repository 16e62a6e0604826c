// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <string_view>

/// Encodings of one byte for each character.
namespace TzXmlCharacterTable {

/// Fills `codes` with the Unicode character of each byte of the single-byte encoding `name`, -1 for
/// bytes without one. The case of the name does not matter. False for an unknown encoding.
bool fill(std::string_view name, int (&codes)[256]) noexcept;

/// `text` of the encoding `name` in UTF-8. A text whose encoding is not one of a single byte is
/// UTF-8 already and stays as it is. O(length).
TzCString toUtf8(std::string_view name, std::string_view text);

} // namespace TzXmlCharacterTable
