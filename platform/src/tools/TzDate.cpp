// SPDX-License-Identifier: MIT
#include <tz/tools/TzDate.h>

#include <tz/tools/TzBadValueError.h>
#include <tz/tools/TzDateTime.h>

namespace {

// The calendar types keep only a few bits of a field: a value that does not fit must not become
// another day.
std::chrono::year_month_day calendarDay(int year, unsigned month, unsigned day) noexcept {
    return {std::chrono::year(year >= 1 && year <= 9999 ? year : 0),
            std::chrono::month(month <= 12 ? month : 0), std::chrono::day(day <= 31 ? day : 0)};
}

} // namespace

// Nor can they hold every year.
std::chrono::year_month_day TzDate::dayOf(std::chrono::sys_days day) noexcept {
    using std::chrono::year;
    constexpr std::chrono::sys_days first = year(1) / 1 / 1;
    constexpr std::chrono::sys_days last = year(9999) / 12 / 31;
    return day >= first && day <= last ? std::chrono::year_month_day(day) : year(0) / 0 / 0;
}

TzDate::TzDate(int year, unsigned month, unsigned day, std::optional<TzUtcOffset> offset) noexcept
    : TzDate(calendarDay(year, month, day), offset) {}

std::chrono::sys_days TzDate::getSysDays() const {
    if (!isValid()) {
        throw TzBadValueError("a date that does not exist is no number of days");
    }
    return day_;
}

bool TzDate::isValid() const noexcept {
    return day_.ok() && getYear() >= 1 && getYear() <= 9999 && (!offset_ || offset_->isValid());
}

std::weak_ordering operator<=>(const TzDate& left, const TzDate& right) noexcept {
    return TzDateTime(left, 0, 0, 0) <=> TzDateTime(right, 0, 0, 0);
}
