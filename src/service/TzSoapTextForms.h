// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <optional>
#include <string_view>

class TzDate;
class TzDateTime;
class TzDecimalPortable;
class TzSoapTypeImp;
class TzXmlDuration;

/// What the texts of other programs' values mean: every lexical form of XML Schema. The texts have
/// no white space around them.
namespace TzSoapTextForms {

/// What errors say that a text is not, such as "a double". The primary one is that of
/// `std::chrono::sys_time<std::chrono::nanoseconds>`.
template <typename Value> inline constexpr const char* Wanted = "a date and time from 1678 to 2261";
template <> inline constexpr const char* Wanted<bool> = "a boolean";
template <> inline constexpr const char* Wanted<signed char> = "a byte";
template <> inline constexpr const char* Wanted<unsigned char> = "an unsigned byte";
template <> inline constexpr const char* Wanted<short> = "a short";
template <> inline constexpr const char* Wanted<unsigned short> = "an unsigned short";
template <> inline constexpr const char* Wanted<int> = "an int";
template <> inline constexpr const char* Wanted<unsigned int> = "an unsigned int";
template <> inline constexpr const char* Wanted<long> = "a long";
template <> inline constexpr const char* Wanted<unsigned long> = "an unsigned long";
template <> inline constexpr const char* Wanted<long long> = "a long long";
template <> inline constexpr const char* Wanted<unsigned long long> = "an unsigned long long";
template <> inline constexpr const char* Wanted<float> = "a float";
template <> inline constexpr const char* Wanted<double> = "a double";
template <> inline constexpr const char* Wanted<long double> = "a number";
template <> inline constexpr const char* Wanted<TzDecimalPortable> = "a decimal";
template <> inline constexpr const char* Wanted<TzDate> = "a date";
template <> inline constexpr const char* Wanted<TzDateTime> = "a date and time";
template <> inline constexpr const char* Wanted<TzXmlDuration> = "a duration";

/// What the whole of `text` states; nothing when it states no `Value`. `Value` is bool, an integral
/// type, a floating-point type, `TzDecimalPortable`, `TzDate`, `TzDateTime`, `TzXmlDuration` or
/// `std::chrono::sys_time<std::chrono::nanoseconds>`. O(text).
template <typename Value> std::optional<Value> read(std::string_view text);

/// What errors say that a text is not, which states no bytes.
inline const char* wantedBytes(bool hex) noexcept { return hex ? "hexadecimal digits" : "base64"; }

/// The bytes that base64 or, with `hex`, hexadecimal digits stand for; nothing for other texts.
std::optional<TzCString> readBytes(std::string_view text, bool hex);

/// Whether the value is nil: xsi:nil (or the older xsi:null) is "1" or "true", or it is the
/// placeholder of an array.
bool isNil(const TzSoapTypeImp& value);

} // namespace TzSoapTextForms
