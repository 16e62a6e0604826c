// SPDX-License-Identifier: MIT
//
// Where bodies and packages end, and which carriage returns a header may have.
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"
#include "support/AllocationFailure.h"
#include "support/Throws.h"

#include <tz/xml/TzXmlParseError.h>

#include <cstddef>
#include <string>
#include <vector>

using MimeTexts::bodies;
using MimeTexts::package;
using MimeTexts::packageHead;
using MimeTexts::part;
using MimeTexts::repeated;
using MimeTexts::withBody;
using MimeTexts::withBoundary;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What reading the part in `text` throws.
std::string partRefusal(const std::string& text) {
    return textThrown<TzXmlParseError>([&] { part(text); });
}

/// What reading the package in `text` throws.
std::string packageRefusal(const std::string& text) {
    return textThrown<TzXmlParseError>([&] { package(text); });
}

std::string bareReturnAt(int line, int column) {
    return "a MIME header has a carriage return within a line, line " + std::to_string(line) +
           ", column " + std::to_string(column);
}

} // namespace

TEST(TzMimeLineEnds, ABodyEndsBeforeTheLineEndOfEitherKind) {
    struct Case {
        const char* text;
        std::vector<std::string> bodies;
    };
    const Case cases[] = {
        {"--b\r\n\r\n1\r\n--b\n\n2\n--b--\n", {"1", "2"}},
        {"--b\n\n1\r\n--b--\n", {"1"}},
        {"--b\n\n1\n--b\r\n\r\n2\r\n--b--\r\n", {"1", "2"}},
        {"--b\r\n\r\n1\n--b\r\n\r\n2\n--b--\r\n", {"1", "2"}},
        {"--b\n\nx\r\r\n--b\n\r\nw\r\r\n--b--\r\n", {"x\r", "w\r"}},
        {"--b\n\n1\n2\r\n--b--", {"1\n2"}},
        {"--b\n\n\r\n--b\n\n\n--b\n\n--b--", {"", "", ""}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(bodies(package(packageHead + each.text)), each.bodies) << each.text;
    }
}

TEST(TzMimeLineEnds, APackageIsCompleteWithItsClosingLine) {
    EXPECT_TRUE(package(packageHead + "--b\r\n\r\nx\r\n--b--\r\n").isComplete());
    EXPECT_TRUE(package(packageHead + "--b\r\n\r\nx\r\n--b--").isComplete());
    EXPECT_TRUE(package(packageHead + "--b\r\n\r\nx\r\n--b--\r").isComplete());
    EXPECT_TRUE(package(packageHead + "--b--\nepilogue").isComplete());
    for (const char* cut : {"", "--b", "--b\r\n\r\nx", "--b\r\n\r\nx\r\n", "--b\r\n\r\nx\r\n--b",
                            "--b\r\n\r\nx\r\n--b-", "--b\r\n\r\nx\r\n--b--x"}) {
        EXPECT_FALSE(package(packageHead + cut).isComplete()) << cut;
    }
    EXPECT_FALSE(package("Content-Type: multipart/related\r\n\r\n--b--\r\n").isComplete());
    EXPECT_FALSE(package("no header").isComplete());
}

TEST(TzMimeLineEnds, APackageThatIsCutReadsAsFarAsItGoes) {
    const TzMimeMultipart cut = package(packageHead + "--b\r\n\r\nx\r\n--b\r\n\r\ny");
    EXPECT_THAT(bodies(cut), ElementsAre("x", "y"));
    EXPECT_TRUE(package(cut.asString()).isComplete());
}

TEST(TzMimeLineEnds, APackageThatAProgramMakesIsComplete) {
    TzMimeMultipart made;
    EXPECT_TRUE(made.isComplete());
    made = withBoundary("b");
    EXPECT_TRUE(made.isComplete());
    made.insertPart(withBody("x"));
    EXPECT_TRUE(made.isComplete());
    made.setBody("--b\r\n\r\ny");
    EXPECT_FALSE(made.isComplete());
    EXPECT_THAT(bodies(made), ElementsAre("y"));
    made.setBody("--b\r\n\r\ny\r\n--b--\r\n");
    EXPECT_TRUE(made.isComplete());
}

TEST(TzMimeLineEnds, ACarriageReturnWithinAHeaderIsRefused) {
    EXPECT_EQ(partRefusal("A: x\ry\r\n\r\n"), bareReturnAt(1, 5));
    EXPECT_EQ(partRefusal("A: x\r\nB:\r y\r\n\r\n"), bareReturnAt(2, 3));
    EXPECT_EQ(partRefusal("A: x\r\r\n y\r\n\r\n"), bareReturnAt(1, 5));
    EXPECT_EQ(partRefusal("A: x\r\r\nB: y\r\n\r\n"), bareReturnAt(1, 5));
    EXPECT_EQ(partRefusal("A: x\ny: \r\r"), bareReturnAt(2, 4));
    EXPECT_EQ(partRefusal("garbage\nA: x\r\n y\rz"), bareReturnAt(3, 3));
    EXPECT_EQ(partRefusal("Content-Type:y\r\" \"\"\";boundary=BB\n\n--BB"), bareReturnAt(1, 15));
}

TEST(TzMimeLineEnds, ACarriageReturnWithinAHeaderOfAPackageIsRefused) {
    EXPECT_EQ(packageRefusal("X: a\rb\r\n" + packageHead), bareReturnAt(1, 5));
    EXPECT_EQ(packageRefusal(packageHead + "--b\r\nA: \rx\ry\r\n\r\n\r\n--b--"),
              bareReturnAt(4, 4));
}

TEST(TzMimeLineEnds, CarriageReturnsElsewhereAreRead) {
    EXPECT_EQ(part("A: x\r").getHeader(0).getValue(), "x"); // cut within its line end
    EXPECT_EQ(part("A: x\r\n\ty\r\n\r\n").getHeader(0).getValue(), "x\ty");
    EXPECT_EQ(part("A: 1\r\ngar\rbage\r\n\r\n").getHeaderCount(), 1U);
    EXPECT_EQ(part("A: 1\r\n\r\nz\rz").getBody(), "z\rz");
}

TEST(TzMimeLineEnds, WhatIsRefusedChangesNothing) {
    TzMimeMultipart kept = package(packageHead + "--b\r\n\r\nx\r\n--b--");
    const TzMimeMultipart other = kept;
    EXPECT_EQ(textThrown<TzXmlParseError>([&] { kept.fromString("A: x\ry\r\n\r\n"); }),
              bareReturnAt(1, 5));
    EXPECT_EQ(textThrown<TzXmlParseError>([&] { kept.setBody("--b\r\nA: x\ry\r\n\r\n\r\n--b--"); }),
              bareReturnAt(2, 5));
    EXPECT_THAT(bodies(kept), ElementsAre("x"));
    EXPECT_TRUE(kept.isComplete());
    EXPECT_EQ(kept.asString(), other.asString());
}

TEST(TzMimeLineEnds, WritingDropsCarriageReturnsOfAProgram) {
    EXPECT_EQ(withBody("", {{"A", "x\ry"}}).asString(), "A: xy\r\n\r\n");
}

TEST(TzMimeLineEnds, TheBodyOfAPackageBeginsWithADelimiter) {
    TzMimeMultipart made = withBoundary("b");
    for (const char* body : {"--b\r\n\r\nx\r\n--b--", "\r\n--b\r\n\r\nx\r\n--b--",
                             "preamble\n--b\n\nx\n--b--\nepilogue\n--b\n"}) {
        made.setBody(body);
        EXPECT_THAT(bodies(made), ElementsAre("x")) << body;
    }
    for (const char* body : {"", " --b\r\n\r\nx\r\n", "-\n-b\n", "x--b\n\n--b x\n"}) {
        made.setBody(body);
        EXPECT_THAT(bodies(made), IsEmpty()) << body;
    }
}

// Looking at every header for each look-up would keep this busy for hours.
TEST(TzMimeLineEnds, ManyHeadersAreFoundByAnIndex) {
    constexpr std::size_t many = 400'000;
    const TzMimePart read =
        part(repeated("X: y\r\n", many) + "content-id: <a>\r\nContent-ID: <b>\r\n\r\n");
    for (std::size_t at = 0; at < many; ++at) {
        ASSERT_EQ(read.findHeader("Content-Id"), many);
        ASSERT_EQ(read.findHeader("Content-Id", many + 1), many + 1);
        ASSERT_EQ(read.findHeader("Y"), TzMimePart::NotFound);
        ASSERT_EQ(read.findHeader("x", at), at);
    }
    EXPECT_EQ(read.getContentId(), "a");
}

TEST(TzMimeLineEnds, HeadersInsertedBehindManyAreFound) {
    TzMimePart read = part(repeated("X: y\r\nZ: y\r\n", 50) + "\r\n");
    read.insertHeader(TzMimeHeader("x", "last"));
    read.insertHeader(TzMimeHeader("new", "1"));
    EXPECT_EQ(read.findHeader("X", 0), 0U);
    EXPECT_EQ(read.findHeader("X", 98), 98U);
    EXPECT_EQ(read.findHeader("X", 99), 100U);
    EXPECT_EQ(read.findHeader("Z", 99), 99U);
    EXPECT_EQ(read.findHeader("NEW", 7), 101U);
    EXPECT_EQ(read.findHeader("X", 101), TzMimePart::NotFound);
    EXPECT_EQ(read.findHeader("X", 1000), TzMimePart::NotFound);
}
