// SPDX-License-Identifier: MIT
#include <tz/tools/TzDateTime.h>

#include <tuple>

namespace {

// An instant in two parts: 64 bits of nanoseconds do not reach from year 1 to year 9999.
using Rank = std::tuple<bool, std::chrono::sys_seconds, unsigned, bool>;

Rank rankOf(const TzDateTime& time) noexcept {
    if (!time.isValid()) {
        return {};
    }
    std::chrono::sys_seconds second = std::chrono::sys_days(time.getDate().getCalendarDay());
    second += std::chrono::hours(time.getHour()) + std::chrono::minutes(time.getMinute()) +
              std::chrono::seconds(time.getSecond());
    if (time.getOffset()) {
        second -= time.getOffset()->getMinutes();
    }
    return {true, second, time.getNanosecond(), time.getOffset().has_value()};
}

} // namespace

TzDateTime::TzDateTime(int year, unsigned month, unsigned day, unsigned hour, unsigned minute,
                       unsigned second, unsigned nanosecond,
                       std::optional<TzUtcOffset> offset) noexcept
    : TzDateTime(TzDate(year, month, day, offset), hour, minute, second, nanosecond) {}

TzDateTime::TzDateTime(const TzDate& date, unsigned hour, unsigned minute, unsigned second,
                       unsigned nanosecond) noexcept
    : date_(date), hour_(hour), minute_(minute), second_(second), nanosecond_(nanosecond) {}

bool TzDateTime::isValid() const noexcept {
    return date_.isValid() && hour_ < 24 && minute_ < 60 && second_ < 60 &&
           nanosecond_ < 1'000'000'000;
}

std::weak_ordering operator<=>(const TzDateTime& left, const TzDateTime& right) noexcept {
    return rankOf(left) <=> rankOf(right);
}
