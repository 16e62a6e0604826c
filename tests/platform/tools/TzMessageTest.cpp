// SPDX-License-Identifier: MIT
#include <tz/tools/TzMessage.h>

#include <gtest/gtest.h>

#include "support/ForeignLocale.h"

#include <limits>

namespace {

constexpr TzCatMsg Both = {"test", 7, "%s has %d entries"};

TzCString filled(const char* text, const auto&... arguments) {
    const TzCatMsg entry = {"test", 1, text};
    return TzMessage(&entry, arguments...).asString();
}

} // namespace

TEST(TzMessage, FillsThePlacesInOrder) {
    const TzMessage message(&Both, "list", 3);
    EXPECT_EQ(message.asString(), "list has 3 entries");
    EXPECT_STREQ(message.getDomain(), "test");
    EXPECT_EQ(message.getId(), 7U);
}

TEST(TzMessage, InsertsNothingForMissingArguments) {
    EXPECT_EQ(TzMessage(&Both).asString(), " has  entries");
    EXPECT_EQ(TzMessage(&Both, "x").asString(), "x has  entries");
    EXPECT_EQ(filled("[UNKNOWN_VERSION][SOAP Version specified by URI \"%s\" is unknown ]"),
              "[UNKNOWN_VERSION][SOAP Version specified by URI \"\" is unknown ]");
}

TEST(TzMessage, IgnoresSurplusArguments) {
    EXPECT_EQ(TzMessage(&Both, "x", 1, "more", 2).asString(), "x has 1 entries");
    EXPECT_EQ(filled("no place", "x", 1), "no place");
}

TEST(TzMessage, TakesEveryKindOfText) {
    EXPECT_EQ(filled("%s%s%s", TzCString("a"), "b", std::string_view("cd", 1)), "abc");
    EXPECT_EQ(filled("%s", TzCString("a\0b", 3)), TzCString("a\0b", 3));
}

TEST(TzMessage, WritesNumbersInFull) {
    EXPECT_EQ(filled("%d", -5), "-5");
    EXPECT_EQ(filled("%d", std::numeric_limits<int>::min()), "-2147483648");
    EXPECT_EQ(filled("%d", 4294967295U), "4294967295");
    EXPECT_EQ(filled("%d", std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
    const ForeignLocale locale;
    EXPECT_EQ(filled("%d", 1234567), "1234567");
}

TEST(TzMessage, LeavesOtherPercentSignsAlone) {
    EXPECT_EQ(filled("100% of %x %", "x"), "100% of %x %");
    EXPECT_EQ(filled("%%s", "x"), "%x");
}

TEST(TzMessage, DoesNotReadPlacesInArguments) { EXPECT_EQ(filled("%s,%s", "%s", "b"), "%s,b"); }

TEST(TzMessage, IsMadeFromPlainText) {
    const TzMessage message(TzCString("wrong %s"));
    EXPECT_EQ(message.asString(), "wrong %s");
    EXPECT_STREQ(message.getDomain(), "");
    EXPECT_EQ(message.getId(), 0U);
}
