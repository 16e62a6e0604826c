// SPDX-License-Identifier: MIT
#include <tz/tools/TzDateTime.h>

#include <tz/tools/TzBadValueError.h>

#include <limits>
#include <tuple>

namespace {

using namespace std::chrono;

// An instant in two parts: 64 bits of nanoseconds do not reach from year 1 to year 9999.
using Rank = std::tuple<bool, std::chrono::sys_seconds, unsigned, bool>;

Rank rankOf(const TzDateTime& time) noexcept {
    if (!time.isValid()) {
        return {};
    }
    return {true, time.getSysSeconds(), time.getNanosecond(), time.getOffset().has_value()};
}

} // namespace

TzDateTime::TzDateTime(int year, unsigned month, unsigned day, unsigned hour, unsigned minute,
                       unsigned second, unsigned nanosecond,
                       std::optional<TzUtcOffset> offset) noexcept
    : TzDateTime(TzDate(year, month, day, offset), hour, minute, second, nanosecond) {}

TzDateTime::TzDateTime(const TzDate& date, unsigned hour, unsigned minute, unsigned second,
                       unsigned nanosecond) noexcept
    : date_(date), hour_(hour), minute_(minute), second_(second), nanosecond_(nanosecond) {}

TzDateTime::TzDateTime(std::chrono::seconds sinceEpoch, std::chrono::minutes ahead,
                       std::chrono::nanoseconds fraction,
                       std::optional<TzUtcOffset> offset) noexcept
    : nanosecond_(static_cast<unsigned>(fraction.count())) {
    const auto day = floor<days>(sinceEpoch + ahead);
    const hh_mm_ss clock(sinceEpoch + ahead - day);
    date_ = TzDate(sys_days(day), offset);
    hour_ = static_cast<unsigned>(clock.hours().count());
    minute_ = static_cast<unsigned>(clock.minutes().count());
    second_ = static_cast<unsigned>(clock.seconds().count());
}

std::chrono::sys_seconds TzDateTime::getSysSeconds() const {
    if (!isValid()) {
        throw TzBadValueError("a time that does not exist is no instant");
    }
    const sys_seconds local =
        sys_days(date_.getCalendarDay()) + hours(hour_) + minutes(minute_) + seconds(second_);
    return local - (getOffset() ? getOffset()->getMinutes() : minutes(0));
}

std::chrono::sys_time<std::chrono::nanoseconds> TzDateTime::getSysTime() const {
    const sys_seconds instant = getSysSeconds();
    // The first and the last second are there in part: they are left out.
    constexpr auto earliest = ceil<seconds>(nanoseconds::min());
    constexpr auto latest = floor<seconds>(nanoseconds::max());
    if (instant.time_since_epoch() < earliest || instant.time_since_epoch() >= latest) {
        throw TzBadValueError("64 bits of nanoseconds do not reach the year " +
                              std::to_string(getYear()));
    }
    return instant + nanoseconds(nanosecond_);
}

bool TzDateTime::isValid() const noexcept {
    return date_.isValid() && hour_ < 24 && minute_ < 60 && second_ < 60 &&
           nanosecond_ < 1'000'000'000;
}

std::weak_ordering operator<=>(const TzDateTime& left, const TzDateTime& right) noexcept {
    return rankOf(left) <=> rankOf(right);
}
