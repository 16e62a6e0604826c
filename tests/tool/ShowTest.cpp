// SPDX-License-Identifier: MIT
#include "tool/RunTool.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <vector>

namespace {

using Json = nlohmann::json;

const std::string head = "<S:Envelope xmlns:S=\"http://schemas.xmlsoap.org/soap/envelope/\" "
                         "S:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\" "
                         "xmlns:E=\"http://schemas.xmlsoap.org/soap/encoding/\"><S:Body>";
const std::string foot = "</S:Body></S:Envelope>";

/// The package of everything11.xml with its attachment and one that nothing refers to.
std::string everything(const ToolDirectory& here) {
    here.write("notes.txt", "Some notes.\n");
    const ToolRun run = here.run(
        {"pack", data("everything11.xml").string(), "notes.txt@example=notes.txt", "notes.txt"});
    EXPECT_EQ(run.status, 0) << run.error;
    return run.out;
}

Json showJson(const std::string& text) {
    const ToolRun run = ToolDirectory().run({"show", "--json"}, text);
    EXPECT_EQ(run.status, 0) << run.error;
    return Json::parse(run.out);
}

} // namespace

TEST(Show, PrintsTrees) {
    const ToolDirectory here;
    const ToolRun run = here.run({"show"}, everything(here));
    EXPECT_EQ(run.status, 0) << run.error;
    expectGolden(run.out, "show_everything11.txt");
    expectGolden(here.run({"show", data("fault12.xml").string()}).out, "show_fault12.txt");
    expectGolden(here.run({"show", data("fault12rec.xml").string()}).out, "show_fault12rec.txt");
}

TEST(Show, PrintsJson) {
    const ToolDirectory here;
    const ToolRun run = here.run({"show", "--json"}, everything(here));
    EXPECT_EQ(run.status, 0) << run.error;
    expectGolden(run.out, "show_everything11.json");
    const ToolRun fault = here.run({"show", "--json", "-"}, readFile(data("fault12.xml")));
    expectGolden(fault.out, "show_fault12.json");
    const ToolRun reasons = here.run({"show", "--json", "-"}, readFile(data("fault12rec.xml")));
    expectGolden(reasons.out, "show_fault12rec.json");
}

TEST(Show, JsonOfEverySampleIsJson) {
    const ToolDirectory here;
    std::size_t shown = 0;
    for (const std::filesystem::path& file : sampleFiles()) {
        const ToolRun run = here.run({"show", "--json", file.string()});
        const bool fits = run.error.empty() || run.error.find(": hint: ") != std::string::npos;
        EXPECT_EQ(run.status, fits ? 0 : 1);
        if (run.status == 0) {
            ++shown;
            EXPECT_EQ(Json::parse(run.out)["file"], file.string());
        } else {
            EXPECT_EQ(run.out, "") << run.error;
        }
    }
    EXPECT_GT(shown, 40U);
}

TEST(Show, AFaultIsPrintedWithoutTheWhiteSpaceAroundItsCode) {
    const std::string text = head +
                             "<S:Fault><faultcode>\n S:Client\n</faultcode><faultstring>no"
                             "</faultstring><detail>out of money</detail></S:Fault>" +
                             foot;
    const Json fault = showJson(text)["body"]["fault"];
    EXPECT_EQ(fault["code"]["name"], "Client");
    EXPECT_EQ(fault["code"]["namespace"], "http://schemas.xmlsoap.org/soap/envelope/");
    EXPECT_EQ(fault["detailText"], "out of money");
    const std::string tree = ToolDirectory().run({"show"}, text).out;
    EXPECT_NE(tree.find("detailText \"out of money\"\n"), std::string::npos) << tree;
}

TEST(Show, SeveralDocumentsFollowOneAnother) {
    const ToolDirectory here;
    const std::string file = data("fault12.xml").string();
    const ToolRun one = here.run({"show", "--json", file});
    EXPECT_EQ(here.run({"show", "--json", file, file}).out, one.out + one.out);
}

TEST(Show, JsonTextsAreExact) {
    const auto text = [](const std::string& xml) {
        return showJson(head + "<a>" + xml + "</a>" + foot)["body"]["entries"][0]["text"];
    };
    EXPECT_EQ(text("&quot;\\/&#9;&#10;&#13;\x7F&#x85;\xE2\x80\xA8"),
              "\"\\/\t\n\r\x7F\xC2\x85\xE2\x80\xA8");
    EXPECT_EQ(text("\xF0\x9F\x98\x80 \xEF\xBF\xBD \xEF\xBF\xAE"),
              "\xF0\x9F\x98\x80 \xEF\xBF\xBD \xEF\xBF\xAE");
    const std::string raw =
        ToolDirectory().run({"show", "--json"}, head + "<a>\t&#10;</a>" + foot).out;
    EXPECT_NE(raw.find("\"\\t\\n\""), std::string::npos) << raw;
}

TEST(Show, JsonTakesHeadersOfAnyBytes) {
    const std::string package = "Content-Type: multipart/related; boundary=b\r\n\r\n--b\r\n\r\n" +
                                head + "<a/>" + foot +
                                "\r\n--b\r\nContent-ID: <\xFF\xC3\xA9\xED\xA0\x80\xC3\x01>\r\n"
                                "Content-Location: a\"b\\\r\n\r\n\r\n--b--\r\n";
    const Json attachment = showJson(package)["attachments"][0];
    EXPECT_EQ(attachment["contentId"], "\xEF\xBF\xBD\xC3\xA9\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
                                       "\xEF\xBF\xBD\x01");
    EXPECT_EQ(attachment["location"], "a\"b\\");
    EXPECT_EQ(attachment["size"], 0);
    EXPECT_FALSE(attachment.contains("type"));
}

TEST(Show, ReferencesNameTheirAttachment) {
    const std::string package =
        "Content-Type: multipart/related; boundary=b; start=\"<root>\"\r\n\r\n"
        "--b\r\nContent-ID: <one>\r\n\r\n1\r\n"
        "--b\r\nContent-ID: <root>\r\n\r\n" +
        head + "<a href=\"two.bin\"/><b href=\"cid:one\"/><c href=\"cid:two\"/>" + foot +
        "\r\n--b\r\nContent-Location: two.bin\r\n\r\n22\r\n--b--\r\n";
    const Json shown = showJson(package);
    const Json& entries = shown["body"]["entries"];
    EXPECT_EQ(entries[0]["target"]["attachment"], 2);
    EXPECT_EQ(entries[1]["target"]["attachment"], 0);
    EXPECT_TRUE(entries[2]["target"].is_null());
    ASSERT_EQ(shown["attachments"].size(), 2U);
    EXPECT_EQ(shown["attachments"][0]["number"], 0);
    EXPECT_EQ(shown["attachments"][1]["number"], 2);
    EXPECT_EQ(shown["attachments"][1]["location"], "two.bin");
}

TEST(Show, PositionsNobodyFilledAreNotPrinted) {
    const ToolDirectory here;
    const auto tree = [&](const std::string& shape, const std::string& items) {
        const std::string out =
            here.run({"show"}, head + "<a E:arrayType=\"" + shape + "\">" + items + "</a>" + foot)
                .out;
        return out.substr(out.find("    Array"));
    };
    EXPECT_EQ(tree("x[1000,1000]", "<i>1</i>"),
              "    Array a x[1000,1000], 1 items\n      [0,0] Simple i = \"1\"\n");
    EXPECT_EQ(tree("x[,2]", "<i>1</i><i>2</i><i>3</i>"),
              "    Array a x[,2], 3 items\n      [0,0] Simple i = \"1\"\n"
              "      [0,1] Simple i = \"2\"\n      [1,0] Simple i = \"3\"\n");
    EXPECT_EQ(tree("x[1000000]", ""), "    Array a x[1000000], 0 items\n");
    EXPECT_EQ(
        tree("x[9000000]\" E:offset=\"[3]", "<i E:position=\"[8999999]\">1</i>"),
        "    Array a x[9000000] offset [3], 1 items, sparse\n      [8999999] Simple i = \"1\"\n");
}

TEST(Show, NothingThatWasSentControlsTheTerminal) {
    const std::string out =
        ToolDirectory()
            .run({"show"}, head + "<a xmlns=\"urn:&#x9b;31m\" b=\"&#x85;\">&#x9b;0m\x7F</a>" + foot)
            .out;
    EXPECT_NE(out.find("Simple a {urn:\\u009b31m} = \"\\u009b0m\\x7f\""), std::string::npos) << out;
    EXPECT_NE(out.find("@ b = \"\\u0085\""), std::string::npos) << out;
}

TEST(Show, DeepMessagesArePrinted) {
    std::string deep = head;
    constexpr int depth = 990;
    for (int i = 0; i < depth; ++i) {
        deep += "<a>";
    }
    for (int i = 0; i < depth; ++i) {
        deep += "</a>";
    }
    EXPECT_EQ(ToolDirectory().run({"show", "--json"}, deep + foot).status, 0);
}
