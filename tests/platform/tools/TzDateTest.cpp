// SPDX-License-Identifier: MIT
#include <tz/tools/TzDate.h>

#include <tz/tools/TzBadValueError.h>

#include "support/Throws.h"

#include <gtest/gtest.h>

using std::chrono::hours;

TEST(TzDate, KeepsItsFields) {
    const TzDate date(2001, 2, 3, TzUtcOffset(hours(5)));
    EXPECT_EQ(date.getYear(), 2001);
    EXPECT_EQ(date.getMonth(), 2U);
    EXPECT_EQ(date.getDay(), 3U);
    EXPECT_EQ(date.getOffset(), TzUtcOffset(hours(5)));
    EXPECT_TRUE(date.isValid());
}

TEST(TzDate, IsTheEpochByDefault) {
    EXPECT_EQ(TzDate(), TzDate(1970, 1, 1));
    EXPECT_FALSE(TzDate().getOffset());
    EXPECT_TRUE(TzDate().isValid());
}

TEST(TzDate, IsMadeFromACalendarDay) {
    using namespace std::chrono;
    EXPECT_EQ(TzDate(year(2001) / 2 / 3), TzDate(2001, 2, 3));
    EXPECT_EQ(TzDate(2001, 2, 3).getCalendarDay(), year(2001) / 2 / 3);
    EXPECT_FALSE(TzDate(year(10000) / 1 / 1).isValid());
    EXPECT_FALSE(TzDate(year(0) / 1 / 1).isValid());
    EXPECT_FALSE(TzDate(year(-1) / 1 / 1).isValid());
}

TEST(TzDate, KnowsTheProlepticGregorianCalendar) {
    EXPECT_TRUE(TzDate(1, 1, 1).isValid());
    EXPECT_TRUE(TzDate(9999, 12, 31).isValid());
    EXPECT_TRUE(TzDate(2000, 2, 29).isValid());
    EXPECT_FALSE(TzDate(1900, 2, 29).isValid());
    EXPECT_TRUE(TzDate(1582, 10, 10).isValid());
    EXPECT_TRUE(TzDate(4, 2, 29).isValid());
}

TEST(TzDate, RefusesDaysThatDoNotExist) {
    EXPECT_FALSE(TzDate(0, 1, 1).isValid());
    EXPECT_FALSE(TzDate(-1, 1, 1).isValid());
    EXPECT_FALSE(TzDate(10000, 1, 1).isValid());
    EXPECT_FALSE(TzDate(2001, 0, 1).isValid());
    EXPECT_FALSE(TzDate(2001, 13, 1).isValid());
    EXPECT_FALSE(TzDate(2001, 4, 31).isValid());
    EXPECT_FALSE(TzDate(2001, 1, 0).isValid());
    EXPECT_FALSE(TzDate(2001, 1, 32).isValid());
    EXPECT_FALSE(TzDate(2001, 1, 1, TzUtcOffset(hours(15))).isValid());
}

TEST(TzDate, NeverWrapsFieldsIntoOtherDays) {
    EXPECT_FALSE(TzDate(2001, 257, 1).isValid());
    EXPECT_FALSE(TzDate(2001, 1, 257).isValid());
    EXPECT_FALSE(TzDate(65536 + 2001, 1, 1).isValid());
    EXPECT_EQ(TzDate(65536 + 2001, 257, 257).getYear(), 0);
    EXPECT_EQ(TzDate(65536 + 2001, 257, 257).getMonth(), 0U);
    EXPECT_EQ(TzDate(65536 + 2001, 257, 257).getDay(), 0U);
}

TEST(TzDate, IsOrderedByDay) {
    EXPECT_LT(TzDate(2001, 2, 3), TzDate(2001, 2, 4));
    EXPECT_LT(TzDate(2001, 2, 28), TzDate(2001, 3, 1));
    EXPECT_LT(TzDate(1, 1, 1), TzDate(9999, 12, 31));
    EXPECT_EQ(TzDate(2001, 2, 3), TzDate(2001, 2, 3));
    EXPECT_NE(TzDate(2001, 2, 3), TzDate(2001, 2, 4));
}

TEST(TzDate, IsOrderedByInstantWithOffsets) {
    const TzDate east(2001, 2, 3, TzUtcOffset(hours(12)));
    const TzDate utc(2001, 2, 3, TzUtcOffset());
    const TzDate west(2001, 2, 2, TzUtcOffset(hours(-12)));
    EXPECT_LT(east, utc);
    EXPECT_EQ(east, west);
    EXPECT_LT(TzDate(2001, 2, 3), utc);
    EXPECT_NE(TzDate(2001, 2, 3), utc);
}

TEST(TzDate, InvalidOnesComeFirstAndAreEquivalent) {
    EXPECT_LT(TzDate(2001, 2, 30), TzDate(1, 1, 1));
    EXPECT_EQ(TzDate(2001, 2, 30), TzDate(0, 0, 0));
}

TEST(TzDate, IsMadeFromANumberOfDays) {
    EXPECT_EQ(TzDate(std::chrono::sys_days(std::chrono::days(-1))), TzDate(1969, 12, 31));
}

TEST(TzDate, DaysOutsideOfTheCalendarDoNotExist) {
    using std::chrono::sys_days;
    const sys_days last = std::chrono::year(9999) / 12 / 31;
    const sys_days first = std::chrono::year(1) / 1 / 1;
    EXPECT_TRUE(TzDate(last).isValid() && TzDate(first).isValid());
    for (const sys_days day : {last + std::chrono::days(1), first - std::chrono::days(1),
                               sys_days::max(), sys_days::min()}) {
        EXPECT_FALSE(TzDate(day).isValid()) << day.time_since_epoch().count();
    }
}

TEST(TzDate, IsANumberOfDaysWhateverItsOffset) {
    const TzUtcOffset ahead{std::chrono::hours(14)};
    EXPECT_EQ(TzDate(1970, 1, 3, ahead).getSysDays(), std::chrono::sys_days(std::chrono::days(2)));
    EXPECT_EQ(TzDate(9999, 12, 31).getSysDays().time_since_epoch().count(), 2932896);
}

TEST(TzDate, ADateThatDoesNotExistIsNoNumberOfDays) {
    EXPECT_EQ(textThrown<TzBadValueError>([] { TzDate(2001, 2, 29).getSysDays(); }),
              "a date that does not exist is no number of days");
}
