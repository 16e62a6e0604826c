// SPDX-License-Identifier: MIT
#include <tz/tools/TzCTokenizer.h>

#include <gtest/gtest.h>

TEST(TzCTokenizer, PassesOverRunsOfDelimiters) {
    TzCTokenizer tokens("  one, two ,,three  ");
    EXPECT_EQ(tokens.next(" ,"), "one");
    EXPECT_EQ(tokens.next(" ,"), "two");
    EXPECT_EQ(tokens.next(" ,"), "three");
    EXPECT_EQ(tokens.next(" ,"), "");
    EXPECT_EQ(tokens.next(" ,"), "");
}

TEST(TzCTokenizer, TakesDelimitersAsASetOfCharacters) {
    TzCTokenizer tokens("a-b=c-=d");
    EXPECT_EQ(tokens.next("-="), "a");
    EXPECT_EQ(tokens.next("-="), "b");
    EXPECT_EQ(tokens.next("-="), "c");
    EXPECT_EQ(tokens.next("-="), "d");
}

TEST(TzCTokenizer, MayChangeDelimitersBetweenTokens) {
    TzCTokenizer tokens("name: first line\nsecond");
    EXPECT_EQ(tokens.next(":"), "name");
    EXPECT_EQ(tokens.next(":\n"), " first line");
    EXPECT_EQ(tokens.next(""), "\nsecond");
}

TEST(TzCTokenizer, GivesTheEmptyTokenForNothing) {
    EXPECT_EQ(TzCTokenizer("").next(","), "");
    EXPECT_EQ(TzCTokenizer(",,,").next(","), "");
}

TEST(TzCTokenizer, GivesTheRestWithoutDelimiters) {
    TzCTokenizer tokens("a b");
    EXPECT_EQ(tokens.next(""), "a b");
    EXPECT_EQ(tokens.next(""), "");
}

TEST(TzCTokenizer, KeepsItsOwnText) {
    TzCString text = "a long text that does not fit into a small string, really";
    TzCTokenizer tokens(text);
    text.assign(text.size(), 'x');
    EXPECT_EQ(tokens.next(","), "a long text that does not fit into a small string");
    EXPECT_EQ(tokens.next(","), " really");
}

TEST(TzCTokenizer, KeepsNulBytes) {
    TzCTokenizer tokens(TzCString("a\0b,c", 5));
    EXPECT_EQ(tokens.next(","), TzCString("a\0b", 3));
    EXPECT_EQ(tokens.next(","), "c");
}
