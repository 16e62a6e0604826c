// SPDX-License-Identifier: MIT
#include <tz/tools/Tzxmsg.h>

#include <gtest/gtest.h>

#include <tz/thread/TzTHRIllegalUsage.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/tools/TzBadValueError.h>

#include "support/Throws.h"

TEST(Tzxmsg, SaysItsText) {
    EXPECT_EQ(textThrown<Tzxmsg>([] { throw Tzxmsg("text"); }), "text");
    EXPECT_EQ(textThrown<Tzxmsg>([] { throw Tzxmsg(TzCString("other")); }), "other");
}

TEST(Tzxmsg, IsAStandardException) {
    try {
        throw Tzxmsg("text");
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "text");
    }
}

TEST(Tzxmsg, CopiesKeepTheText) {
    const Tzxmsg first("first");
    Tzxmsg second("second");
    second = first;
    EXPECT_STREQ(second.what(), "first");
    EXPECT_STREQ(Tzxmsg(first).what(), "first");
}

TEST(Tzxmsg, IsTheRootOfTheOthers) {
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([] { throw TzTHRInvalidPointer("a"); }), "a");
    EXPECT_EQ(textThrown<TzTHRIllegalUsage>([] { throw TzTHRIllegalUsage("b"); }), "b");
    EXPECT_EQ(textThrown<TzBadValueError>([] { throw TzBadValueError("c"); }), "c");
}

TEST(Tzxmsg, DescribesItsTextAlone) {
    const Tzxmsg error("text");
    EXPECT_EQ(error.describe(), "text");
    EXPECT_EQ(error.getDetail(), "");
    EXPECT_EQ(error.getLine(), 0U);
    EXPECT_EQ(error.getColumn(), 0U);
}

TEST(Tzxmsg, DescribesItsPlace) {
    Tzxmsg error("text");
    error.addPlace(3, 9);
    EXPECT_EQ(error.describe(), "text, line 3, column 9");
    EXPECT_STREQ(error.what(), "text");
    EXPECT_EQ(error.getLine(), 3U);
    EXPECT_EQ(error.getColumn(), 9U);
}

TEST(Tzxmsg, KeepsTheFirstPlace) {
    Tzxmsg error("text");
    error.addPlace(0, 0);
    error.addPlace(3, 9);
    error.addPlace(1, 1);
    EXPECT_EQ(error.describe(), "text, line 3, column 9");
}

TEST(Tzxmsg, DescribesItsDetails) {
    Tzxmsg error("text");
    error.addDetail("");
    EXPECT_EQ(error.describe(), "text");
    error.addDetail("one");
    error.addDetail("");
    error.addDetail("two");
    EXPECT_EQ(error.getDetail(), "one; two");
    EXPECT_EQ(error.describe(), "text (one; two)");
    error.addPlace(1, 2);
    EXPECT_EQ(error.describe(), "text, line 1, column 2 (one; two)");
    EXPECT_STREQ(error.what(), "text");
}

TEST(Tzxmsg, WithDetailKeepsTheClass) {
    EXPECT_EQ(textThrown<TzBadValueError>([] { throw tzWithDetail(TzBadValueError("a"), "b"); }),
              "a");
    EXPECT_EQ(tzWithDetail(TzBadValueError("a"), "b").describe(), "a (b)");
}
