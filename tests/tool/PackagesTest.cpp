// SPDX-License-Identifier: MIT
//
// What the commands make of packages: every part goes on, and none goes on twice.
#include "tool/RunTool.h"
#include "values/EnvelopeTesting.h"

#include <tz/mime/TzMimeMultipart.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Bodies = std::vector<std::string>;

/// A package of an envelope with these entries and of parts with these bodies, which are their ids.
std::string packageOf(const std::string& entries, const Bodies& parts) {
    std::string text = "Content-Type: multipart/related; boundary=b\r\n\r\n--b\r\n\r\n" +
                       envelope(TzSoapVersion::V1_1, entries) + "\r\n";
    for (const std::string& part : parts) {
        text += "--b\r\nContent-ID: <" + part + ">\r\n\r\n" + part + "\r\n";
    }
    return text + "--b--\r\n";
}

/// The bodies of all parts but the first of the package that a run printed.
Bodies attached(const ToolRun& run) {
    EXPECT_EQ(run.status, 0) << run.error;
    TzMimeMultipart package;
    package.fromString(run.out);
    Bodies bodies;
    for (std::size_t i = 1; i < package.getPartCount(); ++i) {
        bodies.push_back(package.getPart(i).getBody());
    }
    return bodies;
}

const std::vector<std::vector<std::string>> writers = {
    {"echo", "-"}, {"convert", "--to", "1.1", "-"}, {"convert", "--to", "1.2", "-"}};

/// A package without its closing line.
std::string cut() {
    const std::string whole = packageOf("<a href='cid:p'/>", {"p"});
    return whole.substr(0, whole.find("--b--"));
}

const std::string refusal = "standard input: the package is cut short: it has no closing line\n";

} // namespace

TEST(ToolPackages, PartsThatNothingRefersToGoOn) {
    const ToolDirectory here;
    for (const auto& writer : writers) {
        EXPECT_EQ(attached(here.run(writer, packageOf("<a/>", {"p", "q"}))), Bodies({"p", "q"}));
        EXPECT_EQ(attached(here.run(writer, packageOf("<a href='cid:q'/>", {"p", "q", "q"}))),
                  Bodies({"q", "p", "q"}));
    }
}

TEST(ToolPackages, EveryPartGoesOnOnce) {
    const ToolDirectory here;
    for (const auto& writer : writers) {
        EXPECT_EQ(attached(here.run(writer,
                                    packageOf("<a href='cid:p'/><a href='cid:p'/><a href='cid:q'/>",
                                              {"p", "q"}))),
                  Bodies({"p", "q"}));
    }
}

TEST(ToolPackages, APartBehindAReferenceToAValueGoesOn) {
    const ToolDirectory here;
    const std::string entries = "<a href='#v'/><m><v id='v' href='cid:p'/></m>";
    EXPECT_EQ(attached(here.run({"echo", "-"}, packageOf(entries, {"p"}))), Bodies({"p"}));
}

TEST(ToolPackages, AnEnvelopeAloneIsNoPackage) {
    const ToolDirectory here;
    for (const auto& writer : writers) {
        const ToolRun run = here.run(writer, packageOf("<a/>", {}));
        EXPECT_TRUE(run.out.starts_with("<e")) << run.out;
    }
}

TEST(ToolPackages, APackageThatWasCutIsRefused) {
    const ToolDirectory here;
    for (auto command : writers) {
        EXPECT_EQ(here.run(command, cut()).error, refusal);
    }
    EXPECT_EQ(here.run({"show", "-"}, cut()).error, refusal);
    const ToolRun run = here.run({"unpack", "-", "to"}, cut());
    EXPECT_EQ(run.error, refusal);
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(here.names().empty());
}

TEST(ToolPackages, APackageThatWasCutIsReadWhenThatIsWanted) {
    const ToolDirectory here;
    for (auto command : writers) {
        command.push_back("--incomplete");
        EXPECT_EQ(attached(here.run(command, cut())), Bodies({"p\r\n"}));
    }
    EXPECT_EQ(here.run({"show", "--incomplete", "-"}, cut()).status, 0);
    EXPECT_EQ(here.run({"unpack", "--incomplete", "-", "to"}, cut()).status, 0);
    EXPECT_EQ(here.read("to/1-p"), "p\r\n");
}

TEST(ToolPackages, LinesOfPackageHeadersAreThoseOfTheFile) {
    const ToolDirectory here;
    here.write("p.mime",
               "Content-Type: multipart/related; boundary=b\n\n--b\nX: a\rb\n\n<a/>\n--b--");
    EXPECT_EQ(here.run({"show", "p.mime"}).error,
              "p.mime:4:5: a MIME header has a carriage return within a line\n");
}
