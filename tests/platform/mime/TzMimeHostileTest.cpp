// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeMultipart.h>

#include <cstddef>
#include <string>

using MimeTexts::bodies;
using MimeTexts::package;
using MimeTexts::packageHead;
using MimeTexts::repeated;
using MimeTexts::withBody;
using MimeTexts::withBoundary;
using testing::ElementsAre;

// Work that grows faster than the text would keep each of these busy for hours.

namespace {

constexpr std::size_t large = 10'000'000;
constexpr std::size_t many = 100'000;

} // namespace

TEST(TzMimeHostile, HeaderLineOfTenMegabytes) {
    const std::string value(large, 'x');
    const TzMimeMultipart read = package("X: " + value + "\r\n" + packageHead +
                                         "--b\r\nY: " + value + "\r\n\r\nx\r\n--b--\r\n");
    EXPECT_EQ(read.getHeader(0).getValue(), value);
    EXPECT_EQ(read.getPart(0).getHeader(0).getValue(), value);
    EXPECT_THAT(bodies(package(read.asString())), ElementsAre("x"));
}

TEST(TzMimeHostile, ManyHeaderLines) {
    const TzMimeMultipart read = package(
        packageHead + "--b\r\n" + repeated("Content-ID: <a>\r\n", many) + "\r\nx\r\n--b--\r\n");
    const TzMimePart part = read.getPart(0);
    EXPECT_EQ(part.getHeaderCount(), many);
    EXPECT_EQ(part.findHeader("Content-ID", many - 1), many - 1);
    EXPECT_EQ(read.findPart(TzMimeContentIdHeader("a")), 0U);
    EXPECT_EQ(package(read.asString()).getPart(0).getHeaderCount(), many);
}

TEST(TzMimeHostile, HeaderFoldedManyTimes) {
    for (const char* const label : {"X", "Content-Location", "Content-Type", "Content-ID"}) {
        const TzMimeMultipart read = package(packageHead + "--b\r\n" + label + ": a" +
                                             repeated("\r\n b", many) + "\r\n\r\n\r\n--b--");
        EXPECT_EQ(read.getPart(0).getHeaderCount(), 1U);
        EXPECT_GT(read.getPart(0).getHeader(0).getValue().size(), many);
        EXPECT_EQ(read.findPart(TzMimeContentLocationHeader("x")), TzMimePart::NotFound);
        EXPECT_EQ(read.findPart(TzMimeContentIdHeader("x")), TzMimePart::NotFound);
    }
}

TEST(TzMimeHostile, FoldingGarbage) {
    const TzMimeMultipart read =
        package(packageHead + "--b\r\n" + repeated(" \r\n", many) +
                repeated("garbage\r\n \r\n\t:\r\n", many) + "A: 1\r\n\r\nx\r\n--b--");
    EXPECT_EQ(read.getPart(0).getHeaderCount(), 1U);
    EXPECT_THAT(bodies(read), ElementsAre("x"));
}

TEST(TzMimeHostile, ManyParts) {
    const TzMimeMultipart read =
        package(packageHead + repeated("--b\r\nContent-ID: <a>\r\n\r\nx\r\n", many) + "--b--\r\n");
    EXPECT_EQ(read.getPartCount(), many);
    EXPECT_EQ(read.findPart(TzMimeContentIdHeader("a"), many - 1), many - 1);
    EXPECT_EQ(package(read.asString()).getPartCount(), many);
    EXPECT_EQ(package(packageHead + repeated("--b\n", large / 4)).getPartCount(), large / 4);
}

TEST(TzMimeHostile, PackagesInPackages) {
    constexpr std::size_t depth = 1000;
    std::string text = "Content-Type: text/plain\r\n\r\nx";
    for (std::size_t level = 0; level < depth; ++level) {
        const std::string boundary = "b" + std::to_string(level);
        text = "Content-Type: multipart/mixed; boundary=" + boundary + "\r\n\r\n--" + boundary +
               "\r\n" + text + "\r\n--" + boundary + "--\r\n";
    }
    TzMimeMultipart read = package(text);
    for (std::size_t level = 0; level < depth; ++level) {
        ASSERT_EQ(read.getPartCount(), 1U);
        read.fromString(read.getPart(0).asString());
    }
    EXPECT_EQ(read.getBody(), "x");
}

TEST(TzMimeHostile, PackagesInPackagesOfOneBoundary) {
    std::string text = packageHead;
    text += repeated("--b\r\n" + packageHead, many);
    EXPECT_EQ(package(text).getPartCount(), many);
}

TEST(TzMimeHostile, APackageInsertedIntoItself) {
    TzMimeMultipart made = withBoundary("b");
    for (int round = 0; round < 10; ++round) {
        made.insertPart(made);
    }
    EXPECT_EQ(made.getPartCount(), 10U);
    EXPECT_EQ(package(made.asString()).getPartCount(), 10U);
}

TEST(TzMimeHostile, LongBoundaryInALineOfItself) {
    const std::string boundary(large / 10, '-');
    const std::string line = "--" + boundary;
    TzMimeMultipart read =
        package("Content-Type: a/b; boundary=" + boundary + "\r\n\r\n" + line + "\r\n\r\nx" +
                std::string(large, '-') + "\r\n" + line + "--\r\n");
    EXPECT_THAT(bodies(read), ElementsAre("x" + std::string(large, '-')));
    read.insertPart(withBody("x" + std::string(large, '-')));
    EXPECT_EQ(package(read.asString()).getPartCount(), 2U);
}

TEST(TzMimeHostile, LinesThatAreAlmostDelimiters) {
    const std::string body =
        repeated("\r\n--b-", many) + repeated("\r\n--", many) + repeated("\r\n--b--x", many);
    EXPECT_THAT(bodies(package(packageHead + "--b\r\n\r\n" + body + "\r\n--b--")),
                ElementsAre(body));
}

TEST(TzMimeHostile, DelimiterWithManyBlanks) {
    const std::string blanks(large, ' ');
    EXPECT_THAT(bodies(package(packageHead + "--b" + blanks + "\r\n\r\nx\r\n--b--" + blanks)),
                ElementsAre("x"));
    EXPECT_THAT(bodies(package(packageHead + "--b\r\n\r\n\r\n--b" + blanks + "x\r\n--b--")),
                ElementsAre("\r\n--b" + blanks + "x"));
}

TEST(TzMimeHostile, NulBytesEverywhere) {
    const std::string nul(1, '\0');
    const std::string text = nul + "X" + nul + ": 1\r\n" + packageHead + nul +
                             "\r\n--b\r\nA: " + nul + "\r\n" + nul + ": 1\r\n\r\n" + nul +
                             "\r\n--b" + nul + "\r\n--b--";
    const TzMimeMultipart read = package(text);
    EXPECT_THAT(bodies(read), ElementsAre(nul + "\r\n--b" + nul));
    EXPECT_EQ(read.getPart(0).getHeaderCount(), 1U);
    EXPECT_EQ(read.getPart(0).getHeader(0).getValue(), nul);
}

TEST(TzMimeHostile, EncodedGarbage) {
    const std::string head = "Content-Transfer-Encoding: ";
    EXPECT_EQ(
        MimeTexts::part(head + "base64\r\n\r\n" + repeated("\xFF=\r\n*", large / 5)).getBody(), "");
    EXPECT_EQ(MimeTexts::part(head + "quoted-printable\r\n\r\n" + std::string(large, '='))
                  .getBody()
                  .size(),
              large - 1);
    EXPECT_EQ(
        MimeTexts::part(head + "quoted-printable\r\n\r\n" + std::string(large, ' ')).getBody(), "");
    EXPECT_EQ(MimeTexts::part(head + "quoted-printable\r\n\r\n" + repeated(" =", large / 2))
                  .getBody()
                  .size(),
              large - 1);
}

TEST(TzMimeHostile, TextsWithoutHeaders) {
    EXPECT_EQ(package(repeated("no header\r\n", large / 11)).getPartCount(), 0U);
    EXPECT_EQ(package(std::string(large, '\n')).getPartCount(), 0U);
    EXPECT_EQ(package(std::string(large, ':')).getPartCount(), 0U);
    EXPECT_EQ(package(repeated(" x:\r\n", many)).getPartCount(), 0U);
}

TEST(TzMimeHostile, DuplicateIds) {
    std::string text = packageHead;
    const std::string id(1000, 'i');
    for (int at = 0; at < 5000; ++at) {
        text += "--b\r\nContent-ID: <" + id + ">\r\n\r\n" + std::to_string(at) + "\r\n";
    }
    const TzMimeMultipart read = package(text + "--b--\r\n");
    for (std::size_t at = 0; at < 5000; ++at) {
        ASSERT_EQ(read.findPart(TzMimeContentIdHeader(id), at), at);
    }
}

TEST(TzMimeHostile, PackageCutAnywhere) {
    const std::string text =
        "HTTP/1.1 200 OK\r\nContent-Type: multipart/related;\r\n boundary=\"b c\"; "
        "type=\"text/xml\"\r\n\r\n"
        "preamble\r\n--b c \r\nContent-ID: <a>\r\n\r\n<a/>\r\n\r\n--b c\r\nContent-ID:\r\n <b>\r\n"
        "Content-Transfer-Encoding: base64\r\n\r\nZm9v\r\nYmFy\r\n--b "
        "c\r\nContent-Transfer-Encoding: "
        "quoted-printable\r\n\r\na=3D=\r\nb\r\n--b c--\r\nepilogue";
    const std::vector<std::string> whole = bodies(package(text));
    ASSERT_THAT(whole, ElementsAre("<a/>\r\n", "foobar", "a=b"));
    for (std::size_t size = 0; size <= text.size(); ++size) {
        const TzMimeMultipart read = package(text.substr(0, size));
        const std::vector<std::string> cut = bodies(read);
        ASSERT_LE(cut.size(), whole.size() + 1); // one more after half a closing line
        for (std::size_t at = 0; at + 1 < cut.size(); ++at) {
            EXPECT_EQ(cut[at], whole[at]) << size;
        }
        EXPECT_EQ(bodies(package(read.asString())), cut) << size;
    }
}
