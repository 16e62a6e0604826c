// SPDX-License-Identifier: MIT
//
// What all commands have in common, and those that only read.
#include "tool/RunTool.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string head = "<S:Envelope xmlns:S=\"http://schemas.xmlsoap.org/soap/envelope/\">";

} // namespace

TEST(Tool, HelpsAndNamesItsVersion) {
    const ToolDirectory here;
    const ToolRun version = here.run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.out.starts_with("tzsoap ")) << version.out;
    const ToolRun help = here.run({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const std::string command : {"show", "echo", "convert", "pack", "unpack"}) {
        EXPECT_NE(help.out.find("\n  " + command + " "), std::string::npos) << help.out;
        EXPECT_EQ(here.run({command, "--help"}).status, 0);
    }
}

TEST(Tool, WrongArgumentsHaveAStatusOfTheirOwn) {
    const ToolDirectory here;
    EXPECT_GT(here.run({}).status, 100);
    EXPECT_GT(here.run({"dance"}).status, 100);
    EXPECT_GT(here.run({"show", "--dance"}).status, 100);
    EXPECT_GT(here.run({"echo"}).status, 100);
}

TEST(Tool, ErrorsHaveFileLineAndColumn) {
    const ToolDirectory here;
    here.write("bad.xml", head + "\n  <S:Body>\n</S:Envelope>");
    for (const std::string command : {"show", "echo"}) {
        const ToolRun run = here.run({command, "bad.xml"});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.error, "bad.xml:3:3: mismatched tag\n");
        EXPECT_EQ(run.out, "");
    }
    EXPECT_EQ(here.run({"show"}, "<a/>").error,
              "standard input:1:1: [NO_SOAP_ENVELOPE][Soap message must have a Envelope element] "
              "(the element is \"a\" in no namespace)\n");
    EXPECT_EQ(here.run({"show", "none.xml"}).error, "none.xml: No such file or directory\n");
    EXPECT_EQ(here.run({"show", "."}).error, ".: Is a directory\n");
}

TEST(Tool, LinesOfAPackageAreThoseOfItsEnvelope) {
    const ToolDirectory here;
    const std::string type = "Content-Type: multipart/related; boundary=b\r\n\r\n";
    EXPECT_EQ(here.run({"show", "-"}, type + "--b\r\n\r\n<a>\n</b>\r\n--b--\r\n").error,
              "standard input (envelope):1:1: [NO_SOAP_ENVELOPE][Soap message must have a Envelope "
              "element] (the element is \"a\" in no namespace; in the root part of the package)\n");
    EXPECT_EQ(here.run({"show", "-"}, type).error,
              "standard input: [NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found] "
              "(Content-Type is \"multipart/related; boundary=b\")\n");
}

TEST(Tool, OutputThatGoesNowhereIsAFailure) {
    const ToolDirectory here;
    const ToolRun run = here.run({"echo", sample("php/headers.xml").string()}, {}, "/dev/full");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "standard output: cannot be written\n");
}

TEST(Tool, GoesOnBehindAFileThatFails) {
    const ToolDirectory here;
    const std::string good = sample("php/headers.xml").string();
    const ToolRun run = here.run({"show", good, "none", good});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "none: No such file or directory\n");
    const ToolRun alone = here.run({"show", good});
    EXPECT_EQ(run.out, good + ":\n" + alone.out + good + ":\n" + alone.out);
}

TEST(Tool, EchoWritesTheMessageAgain) {
    const ToolDirectory here;
    const ToolRun once = here.run({"echo", sample("php/headers.xml").string()});
    EXPECT_EQ(once.status, 0);
    expectGolden(once.out, "echo_headers.xml");
    EXPECT_EQ(here.run({"echo", "-"}, once.out).out, once.out);
    const ToolRun package = here.run({"echo", sample("soaplite/mime_crlf.mime").string()});
    EXPECT_EQ(here.run({"echo", "-"}, package.out).out, package.out);
}
