// SPDX-License-Identifier: MIT
#include "tool/RunTool.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <map>
#include <string>

namespace {

using Json = nlohmann::json;

} // namespace

TEST(Convert, RewritesForTheOtherVersion) {
    const ToolDirectory here;
    const ToolRun run =
        here.run({"convert", "--to", "1.2-2002", data("everything11.xml").string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
    expectGolden(run.out, "convert_everything12.xml");
    expectGolden(here.run({"convert", "--to", "1.1", "-"}, run.out).out,
                 "convert_everything11.xml");
}

TEST(Convert, NamesWhatIsLost) {
    const ToolDirectory here;
    const std::string file = data("fault12.xml").string();
    const ToolRun run = here.run({"convert", "--to", "1.1", file});
    EXPECT_EQ(run.status, 0);
    expectGolden(run.out, "convert_fault11.xml");
    EXPECT_EQ(run.error,
              file + ": header entry f:Misunderstood: left out\n" + file +
                  ": namespace urn:m of the fault subcode m:Bad: left out\n" + file +
                  ": namespace urn:m of the fault subcode m:Worse: left out\n" + file +
                  ": fault role http://www.w3.org/2002/06/soap-envelope/role/next: left out\n");
}

TEST(Convert, AMessageOfTheVersionIsEchoed) {
    const ToolDirectory here;
    const std::string file = data("everything11.xml").string();
    EXPECT_EQ(here.run({"convert", "--to", "1.1", file}).out, here.run({"echo", file}).out);
}

TEST(Convert, TheFinalSoap12IsTheSecondOne) {
    const ToolDirectory here;
    const std::string file = data("everything11.xml").string();
    const ToolRun run = here.run({"convert", "--to", "1.2", file});
    EXPECT_EQ(run.status, 0);
    expectGolden(run.out, "convert_everything12rec.xml");
    EXPECT_EQ(run.error, file + ": attribute SOAP-ENC:root of m:order: left out\n" + file +
                             ": positions without an item of sizes: become nil items\n" + file +
                             ": positions without an item of grid: become nil items\n");
}

TEST(Convert, EverySampleIsReadAgainInTheOtherVersions) {
    const ToolDirectory here;
    const std::map<std::string, std::string> shownAs = {
        {"1.1", "1.1"}, {"1.2-2002", "1.2"}, {"1.2", "1.2 (2003/05)"}};
    for (const std::filesystem::path& file : sampleFiles()) {
        const Json before = Json::parse(here.run({"show", "--json", file.string()}).out);
        for (const auto& [version, shown] : shownAs) {
            const ToolRun run = here.run({"convert", "--to", version, file.string()});
            EXPECT_EQ(run.status, 0) << run.error;
            const Json after = Json::parse(here.run({"show", "--json"}, run.out).out);
            EXPECT_EQ(after["version"], shown) << file;
            EXPECT_EQ(after.value("attachments", Json()).size(),
                      before.value("attachments", Json()).size())
                << file;
            if (version != "1.2") { // there targets move from the body to their references
                EXPECT_EQ(after["body"]["entries"].size(), before["body"]["entries"].size())
                    << file;
            }
        }
    }
}

TEST(Convert, KeepsEveryAttachmentOnce) {
    const ToolDirectory here;
    const std::string package =
        "Content-Type: multipart/related; boundary=b; start=\"<root>\"\r\n\r\n"
        "--b\r\nContent-ID: <loose>\r\n\r\nloose\r\n"
        "--b\r\nContent-ID: <root>\r\n\r\n"
        "<S:Envelope xmlns:S=\"http://schemas.xmlsoap.org/soap/envelope/\"><S:Body>"
        "<a href=\"cid:used\"/></S:Body></S:Envelope>\r\n"
        "--b\r\nContent-ID: <used>\r\n\r\nused\r\n"
        "--b\r\n\r\nnameless\r\n--b--\r\n";
    const ToolRun run = here.run({"convert", "--to", "1.2", "-o", "p", "-"}, package);
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(here.run({"unpack", "p", "to"}).status, 0);
    EXPECT_EQ(here.names("to"),
              (std::vector<std::string>{"1-used", "2-loose", "3-part", "envelope.xml"}));
    EXPECT_EQ(here.read("to/1-used"), "used");
    EXPECT_EQ(here.read("to/2-loose"), "loose");
    EXPECT_EQ(here.read("to/3-part"), "nameless");
}

TEST(Convert, SaysWhatIsWrong) {
    const ToolDirectory here;
    EXPECT_EQ(here.run({"convert", "--to", "1.2", "-"}, "<a>").error,
              "standard input:1:1: [NO_SOAP_ENVELOPE][Soap message must have a Envelope element] "
              "(the element is \"a\" in no namespace)\n");
    EXPECT_GT(here.run({"convert", "--to", "1.3", "-"}).status, 100);
    EXPECT_GT(here.run({"convert", "-"}).status, 100);
    const ToolRun run =
        here.run({"convert", "--to", "1.2", "-o", "no/p", data("fault12.xml").string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "no/p: No such file or directory\n");
}
