// SPDX-License-Identifier: MIT
#include <tz/tools/TzCString.h>

#include <gtest/gtest.h>

#include "support/ForeignLocale.h"

#include <type_traits>

TEST(TzCString, IsTheStandardString) {
    static_assert(std::is_same_v<TzCString, std::string>);
    const TzCString withNul("a\0b", 3);
    EXPECT_EQ(withNul.size(), 3U);
}

TEST(TzCString, FindsWithoutCase) {
    EXPECT_EQ(tzFindIgnoreCase("x CONTENT-type: y", "Content-Type"), 2U);
    EXPECT_EQ(tzFindIgnoreCase("abc", "C"), 2U);
    EXPECT_EQ(tzFindIgnoreCase("abc", "d"), TzCString::npos);
    EXPECT_EQ(tzFindIgnoreCase("ab", "abc"), TzCString::npos);
}

TEST(TzCString, FindsFromAPosition) {
    EXPECT_EQ(tzFindIgnoreCase("aXbx", "x", 1), 1U);
    EXPECT_EQ(tzFindIgnoreCase("aXbx", "x", 2), 3U);
    EXPECT_EQ(tzFindIgnoreCase("aXbx", "x", 4), TzCString::npos);
    EXPECT_EQ(tzFindIgnoreCase("aXbx", "x", 5), TzCString::npos);
    EXPECT_EQ(tzFindIgnoreCase("aXbx", "x", TzCString::npos), TzCString::npos);
}

TEST(TzCString, FindsTheEmptyTextEverywhere) {
    EXPECT_EQ(tzFindIgnoreCase("ab", ""), 0U);
    EXPECT_EQ(tzFindIgnoreCase("ab", "", 2), 2U);
    EXPECT_EQ(tzFindIgnoreCase("ab", "", 3), TzCString::npos);
    EXPECT_EQ(tzFindIgnoreCase("", ""), 0U);
}

TEST(TzCString, FindsBehindNulBytes) {
    EXPECT_EQ(tzFindIgnoreCase(std::string_view("\0\0Body", 6), "body"), 2U);
}

TEST(TzCString, ComparesWithoutCase) {
    EXPECT_TRUE(tzEqualIgnoreCase("Content-ID", "cONTENT-id"));
    EXPECT_TRUE(tzEqualIgnoreCase("", ""));
    EXPECT_FALSE(tzEqualIgnoreCase("Content-ID", "Content-I"));
    EXPECT_FALSE(tzEqualIgnoreCase("Content", "Content-ID"));
}

TEST(TzCString, FoldsLettersOfAsciiOnly) {
    EXPECT_FALSE(tzEqualIgnoreCase("@", "`"));
    EXPECT_FALSE(tzEqualIgnoreCase("[", "{"));
    const ForeignLocale locale;
    EXPECT_FALSE(tzEqualIgnoreCase("\xC4", "\xE4"));
    EXPECT_EQ(tzFindIgnoreCase("\xC3\x84", "\xC3\xA4"), TzCString::npos);
    EXPECT_TRUE(tzEqualIgnoreCase("I", "i"));
}
