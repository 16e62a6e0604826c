// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// Fills `codes` with the Unicode character of each byte of the single-byte encoding `name`, -1 for
/// bytes that have none. The case of the name does not matter. False for an unknown encoding.
bool tzFillCharacterTable(std::string_view name, int (&codes)[256]) noexcept;
