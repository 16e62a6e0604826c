// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlParseError.h>
#include <tz/xml/TzXmlSAXParser.h>

#include <gtest/gtest.h>

#include "platform/xml/TestedParser.h"

#include <string>

namespace {

std::string declaring(const char* name, std::size_t length) {
    return "<a>\n <b " + std::string(name) + "=\"" + std::string(length, 'u') + "\"/></a>";
}

} // namespace

TEST(TzXmlSAXParserUriLimit, IsGenerousUnlessSet) {
    TestedParser parser;
    EXPECT_EQ(parser.getUriLimit(), 2048U);
    parser.setUriLimit(7);
    EXPECT_EQ(parser.getUriLimit(), 7U);
}

TEST(TzXmlSAXParserUriLimit, RefusesLongerDeclarationsWithTheirPlace) {
    TestedParser parser;
    parser.setUriLimit(100);
    for (const char* name : {"xmlns", "xmlns:p"}) {
        EXPECT_NO_THROW(parser.parse(declaring(name, 100))) << name;
        try {
            parser.parse(declaring(name, 101));
            ADD_FAILURE() << "accepted: " << name;
        } catch (const TzXmlParseError& error) {
            EXPECT_EQ(error.asString(), "the URI of a namespace is too long, line 2, column 2");
            EXPECT_EQ(error.describe(),
                      "the URI of a namespace is too long, line 2, column 2 (the limit is 100)");
            EXPECT_EQ(error.getLine(), 2U);
            EXPECT_EQ(error.getColumn(), 2U);
        }
    }
    EXPECT_NO_THROW(parser.parse(declaring("k", 101)));
    EXPECT_NO_THROW(parser.parse(declaring("p:xmlns", 101)));
}

TEST(TzXmlSAXParserPrefixLimit, RefusesLongerDeclaredPrefixesWithTheirPlace) {
    TestedParser parser;
    EXPECT_EQ(parser.getPrefixLimit(), 128U);
    const auto declaring = [](std::size_t length) {
        return "<a>\n <b xmlns:" + std::string(length, 'p') + "='u'/></a>";
    };
    EXPECT_NO_THROW(parser.parse(declaring(128)));
    try {
        parser.parse(declaring(129));
        ADD_FAILURE() << "accepted";
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.describe(),
                  "the prefix of a namespace is too long, line 2, column 2 (the limit is 128)");
    }
    parser.setPrefixLimit(200);
    EXPECT_NO_THROW(parser.parse(declaring(200)));
}
