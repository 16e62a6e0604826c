// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <string_view>

/// The whole number at the beginning of `text`, read as the C library's `strtoll` does in base 10:
/// white space and a sign may come first, what follows is ignored, no digits give 0, a number too
/// large gives the nearest limit. O(text).
long long tzSoapToInteger(std::string_view text) noexcept;

/// The number at the beginning of `text`, read as the C library's `strtod` does in the classic
/// locale. O(text).
double tzSoapToReal(std::string_view text) noexcept;

/// The text that a default stream in the classic locale makes of a number.
template <typename Number> TzCString tzSoapFromNumber(Number number);

extern template TzCString tzSoapFromNumber(int number);
extern template TzCString tzSoapFromNumber(unsigned int number);
extern template TzCString tzSoapFromNumber(short number);
extern template TzCString tzSoapFromNumber(unsigned short number);
extern template TzCString tzSoapFromNumber(long number);
extern template TzCString tzSoapFromNumber(unsigned long number);
extern template TzCString tzSoapFromNumber(long long number);
extern template TzCString tzSoapFromNumber(unsigned long long number);
extern template TzCString tzSoapFromNumber(float number);
extern template TzCString tzSoapFromNumber(double number);
