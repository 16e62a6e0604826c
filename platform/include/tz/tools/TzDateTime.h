// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzDate.h>

#include <chrono>
#include <compare>
#include <concepts>
#include <optional>

/// A day and a time of day to the nanosecond, with an optional offset from UTC. No leap seconds.
///
/// Texts are read and written by `TzXmlUtils`. A plain value, not locked.
class TZ_PLATFORM_API TzDateTime {
public:
    /// 1970-01-01 00:00:00 without offset.
    TzDateTime() noexcept = default;
    /// The given day and time, which need not exist (`isValid`).
    TzDateTime(int year, unsigned month, unsigned day, unsigned hour, unsigned minute,
               unsigned second, unsigned nanosecond = 0,
               std::optional<TzUtcOffset> offset = {}) noexcept;
    /// The given time on `date`, with the offset of `date`; it need not exist (`isValid`).
    TzDateTime(const TzDate& date, unsigned hour, unsigned minute, unsigned second,
               unsigned nanosecond = 0) noexcept;

    /// The instant `time`, with the offset `offset`: UTC unless another one is given. Fractions
    /// of a nanosecond are left out; an instant outside of the years 1 to 9999 gives a
    /// time that does not exist (`isValid`).
    template <typename Duration>
    requires std::integral<typename Duration::rep>
    explicit TzDateTime(std::chrono::sys_time<Duration> time, TzUtcOffset offset = {}) noexcept
        : TzDateTime(time.time_since_epoch(), offset.getMinutes(), offset) {}
    /// The local time `time` without an offset; fractions of a nanosecond are left out.
    template <typename Duration>
    requires std::integral<typename Duration::rep>
    explicit TzDateTime(std::chrono::local_time<Duration> time) noexcept
        : TzDateTime(time.time_since_epoch(), std::chrono::minutes(0), {}) {}

    /// The day, with the offset.
    const TzDate& getDate() const noexcept { return date_; }
    /// The year.
    int getYear() const noexcept { return date_.getYear(); }
    /// The month, 1 to 12.
    unsigned getMonth() const noexcept { return date_.getMonth(); }
    /// The day of the month, from 1.
    unsigned getDay() const noexcept { return date_.getDay(); }
    /// The hour, 0 to 23.
    unsigned getHour() const noexcept { return hour_; }
    /// The minute, 0 to 59.
    unsigned getMinute() const noexcept { return minute_; }
    /// The second, 0 to 59.
    unsigned getSecond() const noexcept { return second_; }
    /// The fraction of the second in nanoseconds, 0 when none is stated.
    unsigned getNanosecond() const noexcept { return nanosecond_; }
    /// The offset from UTC, empty when none is stated.
    std::optional<TzUtcOffset> getOffset() const noexcept { return date_.getOffset(); }
    /// The instant to the second, the fraction left out; a time without offset is taken as UTC.
    /// `TzBadValueError` for a time that does not exist.
    std::chrono::sys_seconds getSysSeconds() const;
    /// The instant; a time without offset is taken as UTC. `TzBadValueError` for a time that does
    /// not exist and for one that 64 bits of nanoseconds cannot hold: before 1677-09-21T00:12:44Z
    /// and after 2262-04-11T23:47:16Z.
    std::chrono::sys_time<std::chrono::nanoseconds> getSysTime() const;
    /// Whether the day exists and every field of the time is in its range.
    bool isValid() const noexcept;

    /// Order by instant; a time without offset is taken as UTC and comes before the equal one with
    /// an offset. Invalid times are equivalent to each other and come first.
    friend TZ_PLATFORM_API std::weak_ordering operator<=>(const TzDateTime& left,
                                                          const TzDateTime& right) noexcept;
    /// Equivalent in that order: the same instant, both with an offset or both without.
    friend bool operator==(const TzDateTime& left, const TzDateTime& right) noexcept {
        return std::is_eq(left <=> right);
    }

private:
    /// The time `sinceEpoch` as clocks show it that are `ahead` of the clock it was read from.
    template <typename Duration>
    TzDateTime(Duration sinceEpoch, std::chrono::minutes ahead,
               std::optional<TzUtcOffset> offset) noexcept
        : TzDateTime(std::chrono::floor<std::chrono::seconds>(sinceEpoch), ahead,
                     std::chrono::floor<std::chrono::nanoseconds>(
                         sinceEpoch - std::chrono::floor<std::chrono::seconds>(sinceEpoch)),
                     offset) {}
    TzDateTime(std::chrono::seconds sinceEpoch, std::chrono::minutes ahead,
               std::chrono::nanoseconds fraction, std::optional<TzUtcOffset> offset) noexcept;

    TzDate date_;
    unsigned hour_ = 0;
    unsigned minute_ = 0;
    unsigned second_ = 0;
    unsigned nanosecond_ = 0;
};
