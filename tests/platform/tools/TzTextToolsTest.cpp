// SPDX-License-Identifier: MIT
#include <tz/tools/TzTextTools.h>

#include <gtest/gtest.h>

#include <string>

using namespace TzTextTools;
using namespace std::string_view_literals;

TEST(TzTextTools, MakesCapitalLettersOfAsciiSmall) {
    EXPECT_EQ(toLower('A'), 'a');
    EXPECT_EQ(toLower('Z'), 'z');
    for (const char other : "@[`az{09\xC4"sv) {
        EXPECT_EQ(toLower(other), other);
    }
}

TEST(TzTextTools, KnowsHexadecimalDigitsOfBothCases) {
    EXPECT_EQ(hexValue('0'), 0);
    EXPECT_EQ(hexValue('9'), 9);
    EXPECT_EQ(hexValue('a'), 10);
    EXPECT_EQ(hexValue('F'), 15);
    for (const char other : "/:@G`g \x16"sv) {
        EXPECT_EQ(hexValue(other), -1) << other;
    }
}

TEST(TzTextTools, ReadsTheByteOfTwoHexadecimalDigits) {
    EXPECT_EQ(hexByte("41x"), 'A');
    EXPECT_EQ(hexByte("fF"), '\xFF');
    for (const std::string_view other : {"", "4", "4x", "x4", "-4", " 4"}) {
        EXPECT_EQ(hexByte(other), std::nullopt) << other;
    }
}

TEST(TzTextTools, SplitsANameAtItsFirstColon) {
    const SplitName name = splitName("p:a:b");
    EXPECT_EQ(name.prefix, "p");
    EXPECT_EQ(name.localName, "a:b");
    EXPECT_TRUE(name.hasColon);
}

TEST(TzTextTools, LeavesANameWithoutColonWhole) {
    const SplitName name = splitName("a");
    EXPECT_EQ(name.prefix, "");
    EXPECT_EQ(name.localName, "a");
    EXPECT_FALSE(name.hasColon);
}

TEST(TzTextTools, SplitsANameThatBeginsWithAColon) {
    const SplitName name = splitName(":a");
    EXPECT_EQ(name.prefix, "");
    EXPECT_EQ(name.localName, "a");
    EXPECT_TRUE(name.hasColon);
}

TEST(TzTextTools, MeasuresCharactersOfUtf8) {
    EXPECT_EQ(characterLength("ab"), 1U);
    EXPECT_EQ(characterLength("\0"sv), 1U);
    EXPECT_EQ(characterLength("\xC3\xA9x"), 2U);
    EXPECT_EQ(characterLength("\xE2\x82\xACx"), 3U);
    EXPECT_EQ(characterLength("\xF0\x9F\x98\x80x"), 4U);
}

TEST(TzTextTools, RefusesWhatIsNotUtf8) {
    for (const std::string_view text :
         {"\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82", "\xE2\x82(", "\xC3("}) {
        EXPECT_EQ(characterLength(text), 0U) << text;
    }
}
