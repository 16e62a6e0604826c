// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <cstdint>
#include <string_view>

/// A span of time of XML Schema: a sign and seven parts that are never converted into each other.
///
/// A plain value, not locked.
class TZ_PLATFORM_API TzXmlDuration {
public:
    /// The parts, all counted without sign.
    struct Parts {
        std::uint64_t years = 0;       ///< Years.
        std::uint64_t months = 0;      ///< Months, not limited to 12.
        std::uint64_t days = 0;        ///< Days.
        std::uint64_t hours = 0;       ///< Hours, not limited to 24.
        std::uint64_t minutes = 0;     ///< Minutes, not limited to 60.
        std::uint64_t seconds = 0;     ///< Seconds, not limited to 60.
        std::uint32_t nanoseconds = 0; ///< Fraction of the seconds, below 1,000,000,000.

        /// All parts equal.
        friend bool operator==(const Parts&, const Parts&) noexcept = default;
    };

    /// The duration 0.
    TzXmlDuration() noexcept = default;
    /// The duration of `parts`, backwards when `negative`; `TzXmlBadArgError` when the fraction is
    /// a second or more.
    explicit TzXmlDuration(const Parts& parts, bool negative = false);
    /// The duration that `text` states as "PnYnMnDTnHnMnS", "-" before it for a negative one;
    /// `TzXmlBadArgError` for anything else and for a part above 2^64 - 1. Digits of the fraction
    /// after the ninth are dropped.
    explicit TzXmlDuration(std::string_view text);
    /// The duration that `text` states as "PnYnMnDTnHnMnS", "-" before it for a negative one.
    explicit TzXmlDuration(const char* text) : TzXmlDuration(std::string_view(text)) {}

    /// The parts.
    const Parts& getParts() const noexcept { return parts_; }
    /// Whether the duration goes backwards; zero never does.
    bool isNegative() const noexcept { return negative_; }
    /// The text "PnYnMnDTnHnMnS" without the parts that are 0; "PT0S" for the duration 0.
    TzCString asString() const;

    /// Sign and parts equal: "P1Y" and "P12M" differ.
    friend bool operator==(const TzXmlDuration&, const TzXmlDuration&) noexcept = default;

private:
    Parts parts_;
    bool negative_ = false;
};
