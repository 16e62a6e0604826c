// SPDX-License-Identifier: MIT
#include <tz/tools/TzUtcOffset.h>

#include <gtest/gtest.h>

using std::chrono::hours;
using std::chrono::minutes;

TEST(TzUtcOffset, IsUtcByDefault) {
    EXPECT_EQ(TzUtcOffset().getMinutes(), minutes(0));
    EXPECT_EQ(TzUtcOffset().asString(), "Z");
    EXPECT_TRUE(TzUtcOffset().isValid());
}

TEST(TzUtcOffset, WritesHoursAndMinutes) {
    EXPECT_EQ(TzUtcOffset(hours(2)).asString(), "+02:00");
    EXPECT_EQ(TzUtcOffset(minutes(345)).asString(), "+05:45");
    EXPECT_EQ(TzUtcOffset(minutes(-210)).asString(), "-03:30");
    EXPECT_EQ(TzUtcOffset(minutes(-1)).asString(), "-00:01");
    EXPECT_EQ(TzUtcOffset(minutes(0)).asString(), "+00:00");
}

TEST(TzUtcOffset, TellsZFromPlusZero) {
    EXPECT_FALSE(TzUtcOffset() == TzUtcOffset(minutes(0)));
    EXPECT_TRUE(TzUtcOffset() == TzUtcOffset());
    EXPECT_TRUE(TzUtcOffset(hours(1)) == TzUtcOffset(minutes(60)));
    EXPECT_FALSE(TzUtcOffset(hours(1)) == TzUtcOffset(hours(-1)));
}

TEST(TzUtcOffset, EndsAtFourteenHours) {
    EXPECT_TRUE(TzUtcOffset(hours(14)).isValid());
    EXPECT_TRUE(TzUtcOffset(hours(-14)).isValid());
    EXPECT_FALSE(TzUtcOffset(minutes(841)).isValid());
    EXPECT_FALSE(TzUtcOffset(minutes(-841)).isValid());
}
