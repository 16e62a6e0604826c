// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzUtcOffset.h>

#include <chrono>
#include <compare>
#include <concepts>
#include <optional>

/// A day of the proleptic Gregorian calendar, years 1 to 9999, with an optional offset from UTC.
///
/// Texts are read and written by `TzXmlUtils`. A plain value, not locked.
class TZ_PLATFORM_API TzDate {
public:
    /// 1970-01-01 without offset.
    TzDate() noexcept = default;
    /// The given day, which need not exist (`isValid`); an impossible field is kept as 0.
    TzDate(int year, unsigned month, unsigned day, std::optional<TzUtcOffset> offset = {}) noexcept;
    /// The given day, which need not exist (`isValid`).
    explicit TzDate(std::chrono::year_month_day day,
                    std::optional<TzUtcOffset> offset = {}) noexcept
        : day_(day), offset_(offset) {}
    /// The given day; one outside of the years 1 to 9999 becomes one that does not exist.
    explicit TzDate(std::same_as<std::chrono::sys_days> auto day,
                    std::optional<TzUtcOffset> offset = {}) noexcept
        : TzDate(dayOf(day), offset) {}

    /// The year.
    int getYear() const noexcept { return static_cast<int>(day_.year()); }
    /// The month, 1 to 12.
    unsigned getMonth() const noexcept { return static_cast<unsigned>(day_.month()); }
    /// The day of the month, from 1.
    unsigned getDay() const noexcept { return static_cast<unsigned>(day_.day()); }
    /// Year, month and day.
    std::chrono::year_month_day getCalendarDay() const noexcept { return day_; }
    /// The same day as a number of days, whatever the offset; `TzBadValueError` for a day that does
    /// not exist.
    std::chrono::sys_days getSysDays() const;
    /// The offset from UTC, empty when none is stated.
    std::optional<TzUtcOffset> getOffset() const noexcept { return offset_; }
    /// Whether the day exists, in the years 1 to 9999, and the offset is possible.
    bool isValid() const noexcept;

    /// Order by the instant at which the day begins; a day without offset is taken as UTC and comes
    /// before the equal one with an offset. Invalid dates are equivalent to each other and come
    /// first.
    friend TZ_PLATFORM_API std::weak_ordering operator<=>(const TzDate& left,
                                                          const TzDate& right) noexcept;
    /// Equivalent in that order.
    friend bool operator==(const TzDate& left, const TzDate& right) noexcept {
        return std::is_eq(left <=> right);
    }

private:
    static std::chrono::year_month_day dayOf(std::chrono::sys_days day) noexcept;

    std::chrono::year_month_day day_{std::chrono::sys_days()};
    std::optional<TzUtcOffset> offset_;
};
