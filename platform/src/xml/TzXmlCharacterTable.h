// SPDX-License-Identifier: MIT
#pragma once

/// Fills `codes` with the Unicode character of each byte of the encoding `name`, -1 for bytes that
/// have none. False when the encoding is unknown or does not stand for each character by one byte.
bool tzFillCharacterTable(const char* name, int (&codes)[256]) noexcept;
