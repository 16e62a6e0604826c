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
