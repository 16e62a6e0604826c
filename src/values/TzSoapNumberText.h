// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <string_view>

/// Numbers as texts, whatever the global locale.
namespace TzSoapNumberText {

/// The whole number at the beginning of `text`, read as the C library's `strtoll` does in base 10:
/// white space and a sign may come first, what follows is ignored, no digits give 0, a number too
/// large gives the nearest limit. O(text).
long long toInteger(std::string_view text) noexcept;

/// The number at the beginning of `text`, read as the C library's `strtod` does in the classic
/// locale. O(text).
double toReal(std::string_view text) noexcept;

/// The text that a default stream in the classic locale makes of a number.
template <typename Number> TzCString fromNumber(Number number);

extern template TzCString fromNumber(int number);
extern template TzCString fromNumber(unsigned int number);
extern template TzCString fromNumber(short number);
extern template TzCString fromNumber(unsigned short number);
extern template TzCString fromNumber(long number);
extern template TzCString fromNumber(unsigned long number);
extern template TzCString fromNumber(long long number);
extern template TzCString fromNumber(unsigned long long number);
extern template TzCString fromNumber(float number);
extern template TzCString fromNumber(double number);

} // namespace TzSoapNumberText
