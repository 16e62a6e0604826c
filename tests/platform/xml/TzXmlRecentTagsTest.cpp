// SPDX-License-Identifier: MIT
#include "xml/TzXmlRecentTags.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

TEST(TzXmlRecentTags, ExpectsTheTagThatFollowedBefore) {
    TzXmlRecentTags tags;
    EXPECT_EQ(tags.match("<a>"), nullptr);
    tags.note("<a>", "a");
    tags.note("<b c='1'/>", "b");
    tags.note("<a>", "a");
    const TzXmlRecentTags::Tag* const found = tags.match("<b c='1'/>and more");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->text, "<b c='1'/>");
    EXPECT_EQ(found->name, "b");
    EXPECT_TRUE(found->isEmptyElement());
    tags.pass(*found);
    const TzXmlRecentTags::Tag* const after = tags.match("<a>");
    ASSERT_NE(after, nullptr);
    EXPECT_FALSE(after->isEmptyElement());
}

TEST(TzXmlRecentTags, TellsTagsApartByEveryByte) {
    TzXmlRecentTags tags;
    tags.note("<a b='1'>", "a");
    tags.note("<a b='1'>", "a");
    EXPECT_NE(tags.match("<a b='1'>"), nullptr);
    for (const std::string_view other :
         {"<a b='2'>", "<a b='1'/>", "<a b='1'", "<a", "<", "", "a b='1'>", "<a  b='1'>"}) {
        EXPECT_EQ(tags.match(other), nullptr) << other;
    }
}

TEST(TzXmlRecentTags, GivesNoNumberAgain) {
    TzXmlRecentTags tags;
    std::string texts[TzXmlRecentTags::Count + 1];
    for (std::string& text : texts) {
        text = "<a" + std::to_string(&text - texts) + ">";
    }
    const auto markOf = [&tags](const std::string& text) {
        tags.note(text, std::string_view(text).substr(1));
        tags.note(text, std::string_view(text).substr(1));
        const TzXmlRecentTags::Tag* const found = tags.match(text);
        return found != nullptr ? tags.markOf(*found) : TzXmlTagMark{};
    };
    const TzXmlTagMark first = markOf(texts[0]);
    EXPECT_EQ(markOf(texts[0]).number, first.number);
    TzXmlTagMark latest{};
    for (const std::string& text : texts) {
        latest = markOf(text);
    }
    // The first tag had to make room.
    EXPECT_EQ(latest.place, first.place);
    EXPECT_NE(latest.number, first.number);
    EXPECT_NE(markOf(texts[0]).number, first.number);
}

TEST(TzXmlRecentTags, ForgetsLongTags) {
    TzXmlRecentTags tags;
    const std::string text = "<a b='" + std::string(300, 'x') + "'>";
    tags.note(text, "a");
    tags.note(text, "a");
    EXPECT_EQ(tags.match(text), nullptr);
}
