// SPDX-License-Identifier: MIT
#include <tz/tools/TzDateTime.h>

#include <tz/tools/TzBadValueError.h>

#include "support/Throws.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using std::chrono::hours;
using std::chrono::minutes;

TEST(TzDateTime, KeepsItsFields) {
    const TzDateTime time(2001, 2, 3, 4, 5, 6, 7, TzUtcOffset());
    EXPECT_EQ(time.getYear(), 2001);
    EXPECT_EQ(time.getMonth(), 2U);
    EXPECT_EQ(time.getDay(), 3U);
    EXPECT_EQ(time.getHour(), 4U);
    EXPECT_EQ(time.getMinute(), 5U);
    EXPECT_EQ(time.getSecond(), 6U);
    EXPECT_EQ(time.getNanosecond(), 7U);
    EXPECT_EQ(time.getOffset(), TzUtcOffset());
    EXPECT_EQ(time.getDate(), TzDate(2001, 2, 3, TzUtcOffset()));
    EXPECT_TRUE(time.isValid());
}

TEST(TzDateTime, IsTheEpochByDefault) {
    EXPECT_EQ(TzDateTime(), TzDateTime(1970, 1, 1, 0, 0, 0));
    EXPECT_FALSE(TzDateTime().getOffset());
}

TEST(TzDateTime, TakesTheOffsetOfItsDate) {
    const TzDateTime time(TzDate(2001, 2, 3, TzUtcOffset(hours(1))), 4, 5, 6);
    EXPECT_EQ(time, TzDateTime(2001, 2, 3, 4, 5, 6, 0, TzUtcOffset(hours(1))));
    EXPECT_EQ(time.getOffset(), TzUtcOffset(hours(1)));
}

TEST(TzDateTime, ChecksEveryField) {
    EXPECT_TRUE(TzDateTime(2001, 2, 3, 23, 59, 59, 999'999'999).isValid());
    EXPECT_FALSE(TzDateTime(2001, 2, 29, 0, 0, 0).isValid());
    EXPECT_FALSE(TzDateTime(2001, 2, 3, 24, 0, 0).isValid());
    EXPECT_FALSE(TzDateTime(2001, 2, 3, 0, 60, 0).isValid());
    EXPECT_FALSE(TzDateTime(2001, 2, 3, 0, 0, 60).isValid());
    EXPECT_FALSE(TzDateTime(2001, 2, 3, 0, 0, 0, 1'000'000'000).isValid());
    EXPECT_FALSE(TzDateTime(2001, 2, 3, 0, 0, 0, 0, TzUtcOffset(hours(-15))).isValid());
}

TEST(TzDateTime, IsOrderedByField) {
    const std::vector<TzDateTime> rising = {
        TzDateTime(1, 1, 1, 0, 0, 0),         TzDateTime(2001, 2, 3, 4, 5, 6),
        TzDateTime(2001, 2, 3, 4, 5, 6, 1),   TzDateTime(2001, 2, 3, 4, 5, 7),
        TzDateTime(2001, 2, 3, 4, 6, 0),      TzDateTime(2001, 2, 3, 5, 0, 0),
        TzDateTime(2001, 2, 4, 0, 0, 0),      TzDateTime(2001, 3, 1, 0, 0, 0),
        TzDateTime(9999, 12, 31, 23, 59, 59),
    };
    for (std::size_t i = 0; i < rising.size(); ++i) {
        for (std::size_t j = 0; j < rising.size(); ++j) {
            EXPECT_EQ(rising[i] < rising[j], i < j) << i << ' ' << j;
            EXPECT_EQ(rising[i] == rising[j], i == j) << i << ' ' << j;
        }
    }
}

TEST(TzDateTime, IsOrderedByInstantWithOffsets) {
    const TzDateTime utc(2001, 2, 3, 10, 0, 0, 0, TzUtcOffset());
    EXPECT_EQ(utc, TzDateTime(2001, 2, 3, 12, 0, 0, 0, TzUtcOffset(hours(2))));
    EXPECT_EQ(utc, TzDateTime(2001, 2, 3, 10, 0, 0, 0, TzUtcOffset(minutes(0))));
    EXPECT_EQ(utc, TzDateTime(2001, 2, 2, 20, 0, 0, 0, TzUtcOffset(hours(-14))));
    EXPECT_LT(TzDateTime(2001, 2, 3, 11, 59, 59, 0, TzUtcOffset(hours(2))), utc);
    EXPECT_GT(TzDateTime(2001, 2, 3, 9, 0, 0, 0, TzUtcOffset(hours(-2))), utc);
}

TEST(TzDateTime, ComparesInstantsAtTheEndsOfTheRange) {
    EXPECT_LT(TzDateTime(1, 1, 1, 0, 0, 0, 0, TzUtcOffset(hours(14))),
              TzDateTime(1, 1, 1, 0, 0, 0, 0, TzUtcOffset()));
    EXPECT_GT(TzDateTime(9999, 12, 31, 23, 0, 0, 0, TzUtcOffset(hours(-14))),
              TzDateTime(9999, 12, 31, 23, 59, 59, 0, TzUtcOffset()));
}

TEST(TzDateTime, MixedTimesHaveOneOrder) {
    // Comparing fields of times without offset and instants of the others would go in circles.
    std::vector<TzDateTime> times = {
        TzDateTime(2001, 2, 3, 10, 0, 0),
        TzDateTime(2001, 2, 3, 10, 30, 0, 0, TzUtcOffset(hours(5))),
        TzDateTime(2001, 2, 3, 9, 0, 0, 0, TzUtcOffset()),
    };
    std::sort(times.begin(), times.end());
    EXPECT_EQ(times[0].getMinute(), 30U);
    EXPECT_EQ(times[1].getHour(), 9U);
    EXPECT_FALSE(times[2].getOffset());
    EXPECT_NE(TzDateTime(2001, 2, 3, 9, 0, 0), times[1]);
    EXPECT_LT(TzDateTime(2001, 2, 3, 9, 0, 0), times[1]);
}

TEST(TzDateTime, InvalidOnesComeFirstAndAreEquivalent) {
    EXPECT_LT(TzDateTime(2001, 2, 3, 25, 0, 0), TzDateTime(1, 1, 1, 0, 0, 0));
    EXPECT_EQ(TzDateTime(2001, 2, 3, 25, 0, 0), TzDateTime(2001, 2, 30, 0, 0, 0));
}

TEST(TzDateTime, IsMadeFromAnInstant) {
    using namespace std::chrono_literals;
    const std::chrono::sys_time<std::chrono::milliseconds> before(-1ms);
    EXPECT_EQ(TzDateTime(before), TzDateTime(1969, 12, 31, 23, 59, 59, 999'000'000, TzUtcOffset()));
}

TEST(TzDateTime, IsMadeFromAnInstantInAZone) {
    using namespace std::chrono_literals;
    const TzDateTime time(std::chrono::sys_seconds(-1s), TzUtcOffset(90min));
    EXPECT_EQ(time.getDay(), 1U);
    EXPECT_EQ(time.getHour(), 1U);
    EXPECT_EQ(time.getMinute(), 29U);
    EXPECT_EQ(time.getSecond(), 59U);
    EXPECT_EQ(time.getOffset(), TzUtcOffset(90min));
    EXPECT_EQ(time.getSysSeconds(), std::chrono::sys_seconds(-1s));
}

TEST(TzDateTime, IsMadeFromALocalTime) {
    using namespace std::chrono_literals;
    const TzDateTime time{std::chrono::local_seconds(61s)};
    EXPECT_EQ(time, TzDateTime(1970, 1, 1, 0, 1, 1));
    EXPECT_FALSE(time.getOffset());
}

TEST(TzDateTime, AnInstantOutsideOfTheYearsDoesNotExist) {
    const std::chrono::sys_days last = std::chrono::year(9999) / 12 / 31;
    const std::chrono::sys_days first = std::chrono::year(1) / 1 / 1;
    EXPECT_TRUE(TzDateTime(last).isValid());
    EXPECT_TRUE(TzDateTime(first).isValid());
    EXPECT_FALSE(TzDateTime(last + std::chrono::days(1)).isValid());
    EXPECT_FALSE(TzDateTime(first - std::chrono::days(1)).isValid());
    EXPECT_FALSE(TzDateTime(last + std::chrono::days(365L * 65536)).isValid());
}

TEST(TzDateTime, InstantsReadBack) {
    for (const long long count :
         {0LL, -1LL, 1LL, 1795327215610455893LL, -9223372036000000000LL, 9223372034999999999LL}) {
        const std::chrono::sys_time<std::chrono::nanoseconds> time{std::chrono::nanoseconds(count)};
        EXPECT_EQ(TzDateTime(time).getSysTime(), time) << count;
    }
}

TEST(TzDateTime, ATimeWithoutOffsetIsAnInstantInUtc) {
    EXPECT_EQ(TzDateTime(1970, 1, 1, 0, 0, 1, 5).getSysTime().time_since_epoch().count(),
              1'000'000'005);
}

TEST(TzDateTime, WhatNanosecondsDoNotReachIsAnError) {
    const std::string text = "64 bits of nanoseconds do not reach the year ";
    EXPECT_EQ(textThrown<TzBadValueError>([] { TzDateTime(9999, 12, 31, 0, 0, 0).getSysTime(); }),
              text + "9999");
    EXPECT_EQ(textThrown<TzBadValueError>([] { TzDateTime(1677, 9, 21, 0, 12, 43).getSysTime(); }),
              text + "1677");
    EXPECT_EQ(textThrown<TzBadValueError>([] { TzDateTime(2262, 4, 11, 23, 47, 16).getSysTime(); }),
              text + "2262");
    TzDateTime(1677, 9, 21, 0, 12, 44).getSysTime();
    TzDateTime(2262, 4, 11, 23, 47, 15, 999'999'999).getSysTime();
}

TEST(TzDateTime, ATimeThatDoesNotExistIsNoInstant) {
    const std::string text = "a time that does not exist is no instant";
    EXPECT_EQ(textThrown<TzBadValueError>([] { TzDateTime(2001, 2, 29, 0, 0, 0).getSysTime(); }),
              text);
    EXPECT_EQ(textThrown<TzBadValueError>([] { TzDateTime(2001, 2, 3, 24, 0, 0).getSysSeconds(); }),
              text);
}
