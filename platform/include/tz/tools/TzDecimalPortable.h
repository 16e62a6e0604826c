// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <iosfwd>
#include <string_view>

/// A decimal number of any length, kept digit by digit: "1.50" stays "1.50".
///
/// A plain value, not locked.
class TZ_PLATFORM_API TzDecimalPortable {
public:
    /// The largest exponent, in either direction, that a text may have.
    static constexpr unsigned ExponentLimit = 1000;

    /// The number 0.
    TzDecimalPortable() : text_("0") {}
    /// The number that `text` states: digits with an optional sign, point and exponent.
    /// `TzBadValueError` when it is anything else, a null pointer or its exponent exceeds
    /// `ExponentLimit`.
    explicit TzDecimalPortable(const char* text);
    /// The number that `text` states: digits with an optional sign, point and exponent.
    explicit TzDecimalPortable(std::string_view text);

    /// The number without "+", leading zeros and exponent; trailing zeros of the fraction stay,
    /// zero has no sign.
    const TzCString& asString() const noexcept { return text_; }

    /// Writes what `asString` returns, whatever the width, fill and locale of `stream`.
    friend TZ_PLATFORM_API std::ostream& operator<<(std::ostream& stream,
                                                    const TzDecimalPortable& number);

private:
    TzCString text_;
};
