// SPDX-License-Identifier: MIT
#include "xml/TzXmlTagScan.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string tag(std::size_t attributes, const std::string& attribute = " a=''") {
    std::string text = "<t";
    for (; attributes > 0; --attributes) {
        text += attribute;
    }
    return text + ">";
}

std::size_t crowded(const std::string& text, std::size_t limit) {
    return TzXmlTagScan(text).findCrowded(limit);
}

constexpr std::size_t None = TzXmlTagScan::None;

} // namespace

TEST(TzXmlTagScan, FindsTheFirstTagBeyondTheLimit) {
    for (const std::size_t limit : {0U, 1U, 2U, 10U, 100U}) {
        for (const std::string& attribute :
             {std::string(" a=''"), std::string("\n  long.name = \"a > b ' c\""),
              std::string(" p:q='\"'")}) {
            const std::string before = "<a>" + tag(limit, attribute);
            const std::string beyond = tag(limit + 1, attribute);
            EXPECT_EQ(crowded(before + "</t></a>", limit), None) << limit << attribute;
            EXPECT_EQ(crowded(before + beyond + beyond, limit), before.size())
                << limit << attribute;
        }
    }
}

TEST(TzXmlTagScan, IsNotMisledByOtherMarkup) {
    const std::string many = tag(20);
    const std::string rest = std::string(200, ' ') + "</a>";
    for (const std::string& text :
         {"<a><!-- " + many + " -->" + rest, "<a><![CDATA[" + many + "]]>" + rest,
          "<a><?x " + many + " ?>" + rest, "<a><!-- ' -->" + rest,
          "<a>it's " + many.substr(1) + rest,
          "<?xml version='1.0'?><a x=\"" + many.substr(1, 80) + "\">" + rest,
          "<a/>" + std::string(200, '\''), std::string("<"), std::string(),
          std::string(300, '<')}) {
        EXPECT_EQ(crowded(text, 10), None) << text;
    }
}

TEST(TzXmlTagScan, FindsATagAfterOtherMarkup) {
    for (const std::string& before :
         {"<a><!-- " + tag(20) + " --->" + std::string(200, ' '),
          "<a><!-- > --><![CDATA[" + tag(20) + "]] ]]>", "<a><?x " + tag(20) + "> ?>",
          std::string("<a x='>' y=\"'\">'"), "<a>" + std::string(1000, '"')}) {
        EXPECT_EQ(crowded(before + tag(11), 10), before.size()) << before;
    }
}

TEST(TzXmlTagScan, LimitsBeyondTheTextFindNothing) {
    EXPECT_EQ(crowded(tag(20), 20), None);
    EXPECT_EQ(crowded(tag(20), 1000), None);
    EXPECT_EQ(crowded(tag(20), static_cast<std::size_t>(-1)), None);
}
