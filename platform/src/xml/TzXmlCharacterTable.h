// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// Encodings of one byte for each character.
namespace TzXmlCharacterTable {

/// Fills `codes` with the Unicode character of each byte of the single-byte encoding `name`, -1 for
/// bytes without one. The case of the name does not matter. False for an unknown encoding.
bool fill(std::string_view name, int (&codes)[256]) noexcept;

} // namespace TzXmlCharacterTable
