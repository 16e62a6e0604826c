// SPDX-License-Identifier: MIT
//
// Messages that the tool takes literally.
#include "tool/RunTool.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string Start = "<S:Envelope xmlns:S=\"http://schemas.xmlsoap.org/soap/envelope/\">";

std::string message(const std::string& body) {
    return Start + "<S:Body>" + body + "</S:Body></S:Envelope>";
}

const std::string Letter = message(R"(<o:p xmlns:o="urn:o">Dear <o:b ref="r">you</o:b> and</o:p>)");

} // namespace

TEST(LiteralTool, EchoesAMessageAsItStands) {
    const ToolDirectory here;
    const std::string text = Start + "\n<S:Header></S:Header>\n<S:Body>" +
                             R"(<o:a xmlns:o="urn:o" href="#x"> <b id="1">t</b>u</o:a>)" +
                             "</S:Body></S:Envelope>";
    const ToolRun run = here.run({"echo", "--literal", "-"}, text);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, text);
    EXPECT_EQ(run.error, "");
}

TEST(LiteralTool, ShowsTextBetweenElements) {
    const ToolDirectory here;
    const ToolRun run = here.run({"show", "--literal"}, Letter);
    EXPECT_EQ(run.error, "");
    EXPECT_NE(run.out.find("Text"), std::string::npos) << run.out;
    EXPECT_LT(run.out.find("Dear "), run.out.find("you")) << run.out;
    EXPECT_LT(run.out.find("you"), run.out.find(" and")) << run.out;
    const ToolRun json = here.run({"show", "--literal", "--json"}, Letter);
    EXPECT_NE(json.out.find(R"("kind": "Text")"), std::string::npos) << json.out;
}

TEST(LiteralTool, ConvertsTheEnvelopeAndLeavesTheRest) {
    const ToolDirectory here;
    const ToolRun run = here.run({"convert", "--literal", "--to", "1.2", "-"}, Letter);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(run.out, R"(<S:Envelope xmlns:S="http://www.w3.org/2003/05/soap-envelope"><S:Body>)"
                       R"(<o:p xmlns:o="urn:o">Dear <o:b ref="r">you</o:b> and</o:p>)"
                       "</S:Body></S:Envelope>");
}

TEST(LiteralTool, HintsAtMessagesThatLookLiteral) {
    const ToolDirectory here;
    const std::string hint =
        "standard input: hint: the message looks literal; --literal reads it as it is\n";
    EXPECT_TRUE(here.run({"show"}, Letter).error.ends_with(hint));
    const std::string order = message(R"(<order xmlns="urn:o"><id>1</id></order>)");
    EXPECT_EQ(here.run({"echo", "-"}, order).error, hint);
    EXPECT_EQ(here.run({"echo", "--literal", "-"}, order).error, "");
}

TEST(LiteralTool, DoesNotHintWhereTheEncodingShows) {
    const ToolDirectory here;
    const std::string type = R"( xmlns:i="http://www.w3.org/2001/XMLSchema-instance" i:type="x")";
    const std::string style = R"( S:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/")";
    for (const std::string& body :
         {std::string(R"(<o:a xmlns:o="urn:o"><b>1</b></o:a>)"),
          R"(<a xmlns="urn:o"><b)" + type + ">1</b></a>",
          R"(<a xmlns="urn:o")" + style + "><b>1</b></a>",
          std::string(R"(<a xmlns="urn:o"><b/><c href="#1"/></a><d id="1">x</d>)"),
          std::string("<a>1</a>"), std::string()}) {
        EXPECT_EQ(here.run({"echo", "-"}, message(body)).error, "") << body;
    }
}
