// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"
#include "support/AllocationFailure.h"
#include "support/Throws.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimeVersionHeader.h>
#include <tz/xml/TzXmlBoundsError.h>

#include <algorithm>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

using MimeTexts::bodies;
using MimeTexts::package;
using MimeTexts::packageHead;
using MimeTexts::withBody;
using MimeTexts::withBoundary;
using testing::ElementsAre;
using testing::IsEmpty;

static_assert(std::is_nothrow_default_constructible_v<TzMimeMultipart>);
static_assert(std::is_nothrow_move_constructible_v<TzMimeMultipart>);
static_assert(std::is_nothrow_move_assignable_v<TzMimeMultipart>);
static_assert(std::is_base_of_v<TzMimePart, TzMimeMultipart>);

TEST(TzMimeMultipart, IsEmptyByDefaultAndTakesNoMemory) {
    const std::size_t before = madeAllocations();
    const TzMimeMultipart empty;
    const TzMimeMultipart copy = empty;
    EXPECT_EQ(madeAllocations(), before);
    EXPECT_EQ(copy.getPartCount(), 0U);
    EXPECT_FALSE(copy.hasParts());
    EXPECT_EQ(copy.getHeaderCount(), 0U);
    EXPECT_EQ(copy.findPart(TzMimeContentIdHeader("a")), TzMimePart::NotFound);
    EXPECT_EQ(copy.asString(), "\r\n");
    EXPECT_EQ(textThrown<TzXmlBoundsError>([&] { return copy.getPart(0); }),
              "the package has no such part");
}

TEST(TzMimeMultipart, IsWrittenByteForByte) {
    TzMimeMultipart made;
    made.insertHeader(TzMimeVersionHeader());
    made.insertHeader(TzMimeContentTypeHeader(
        TzMimeMultipartRelatedType("", "text/xml", "<root>", "MIME_boundary")));
    made.insertPart(withBody("<a/>", {{"Content-Type", "text/xml"}, {"Content-ID", "<root>"}}));
    made.insertPart(
        withBody(std::string("\0\r\n\xFF\n", 5), {{"Content-Transfer-Encoding", "binary"}}));
    made.insertPart(withBody("foo", {{"Content-Transfer-Encoding", "base64"}}));
    made.insertPart(TzMimePart());
    const std::string text =
        std::string("MIME-Version: 1.0\r\n"
                    "Content-Type: multipart/related; boundary=\"MIME_boundary\"; "
                    "type=\"text/xml\"; start=\"<root>\"\r\n"
                    "\r\n"
                    "--MIME_boundary\r\n"
                    "Content-Type: text/xml\r\n"
                    "Content-ID: <root>\r\n"
                    "\r\n"
                    "<a/>\r\n"
                    "--MIME_boundary\r\n"
                    "Content-Transfer-Encoding: binary\r\n"
                    "\r\n") +
        std::string("\0\r\n\xFF\n", 5) +
        "\r\n--MIME_boundary\r\n"
        "Content-Transfer-Encoding: base64\r\n"
        "\r\n"
        "Zm9v\r\n"
        "--MIME_boundary\r\n"
        "\r\n"
        "\r\n"
        "--MIME_boundary--\r\n";
    EXPECT_EQ(made.asString(), text);
    EXPECT_EQ(package(text).asString(), text);
    EXPECT_THAT(bodies(package(text)),
                ElementsAre("<a/>", std::string("\0\r\n\xFF\n", 5), "foo", ""));
}

TEST(TzMimeMultipart, InsertsParts) {
    TzMimeMultipart made;
    made.insertPart(withBody("b"));
    made.insertPart(withBody("d"));
    made.insertPartAt(0, withBody("a"));
    made.insertPartAt(2, withBody("c"));
    made.insertPartAt(4, withBody("e"));
    EXPECT_THAT(bodies(made), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_EQ(textThrown<TzXmlBoundsError>([&] { made.insertPartAt(6, TzMimePart()); }),
              "the package has no such place for a part");
    EXPECT_EQ(made.getPartCount(), 5U);
    EXPECT_TRUE(made.hasParts());
    EXPECT_EQ(textThrown<TzXmlBoundsError>([&] { return made.getPart(5); }),
              "the package has no such part");
}

TEST(TzMimeMultipart, SharesItsParts) {
    TzMimeMultipart made;
    TzMimePart part = withBody("old");
    made.insertPart(part);
    made.insertPart(TzMimePart());
    const TzMimeMultipart copy = made;
    part.setBody("new");
    copy.getPart(1).setBody("given");
    EXPECT_THAT(bodies(copy), ElementsAre("new", "given"));
    made.insertPart(part);
    EXPECT_EQ(copy.getPartCount(), 3U);
}

TEST(TzMimeMultipart, IsEmptyAfterMove) {
    TzMimeMultipart made;
    made.insertPart(withBody("a"));
    const TzMimeMultipart moved = std::move(made);
    EXPECT_EQ(moved.getPartCount(), 1U);
    EXPECT_FALSE(made.hasParts()); // NOLINT(bugprone-use-after-move)
    made.insertHeader(TzMimeVersionHeader());
    made.insertPart(withBody("b"));
    EXPECT_THAT(bodies(made), ElementsAre("b"));
}

TEST(TzMimeMultipart, BecomesAPackageThroughItsBaseClass) {
    TzMimeMultipart made;
    static_cast<TzMimePart&>(made).insertHeader(TzMimeVersionHeader());
    made.insertPart(withBody("a"));
    EXPECT_EQ(made.getHeaderCount(), 1U);
    static_cast<TzMimePart&>(made).fromString(packageHead + "--b\r\n\r\nx\r\n--b--\r\n");
    EXPECT_THAT(bodies(made), ElementsAre("x"));
    const TzMimePart sliced = made;
    EXPECT_EQ(sliced.asString(), made.asString());
}

TEST(TzMimeMultipart, DoesNotTurnAPartIntoAPackage) {
    const TzMimePart part = withBody("body", {{"A", "1"}});
    TzMimeMultipart made;
    static_cast<TzMimePart&>(made) = part;
    EXPECT_FALSE(made.hasParts());
    made.insertPart(withBody("x"));
    EXPECT_EQ(made.getHeader(0).getValue(), "1");
    EXPECT_THAT(bodies(made), ElementsAre("x"));
    EXPECT_EQ(part.asString(), "A: 1\r\n\r\nbody");
}

TEST(TzMimeMultipart, ReadsDelimiterLines) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"--b\r\n\r\nx\r\n--b--\r\n", {"x"}},
        {"--b\r\n\r\nx\r\n--b--", {"x"}},
        {"--b\r\n\r\nx\r\n--b--\r", {"x"}},
        {"--b \t\r\n\r\nx\r\n--b--  \r\n", {"x"}},
        {"preamble\r\n--b\r\n\r\nx\r\n--b--\r\nepilogue\r\n--b\r\n\r\ny\r\n--b--\r\n", {"x"}},
        {"\r\n--b\r\n\r\nx\r\n--b--\r\n", {"x"}},
        {"--b\r\n\r\nx\r\n", {"x\r\n"}},
        {"--b\r\n\r\nx", {"x"}},
        {"--b\r\n\r\nx\r\n--b", {"x", ""}},
        {"--b\r\n\r\nx\r\n--b-", {"x\r\n--b-"}},
        {"--b\r\n\r\nx\r\n--b--y\r\n--b--\r\n", {"x\r\n--b--y"}},
        {"--b\r\n\r\nx--b\r\n --b\r\n-b\r\n--c\r\n--bb\r\n--b--\r\n",
         {"x--b\r\n --b\r\n-b\r\n--c\r\n--bb"}},
        {"--b\r\n\r\nx\r--b\r\n--b--\r\n", {"x\r--b"}},
        {"--b\r\n\r\nx\r\n\r\n--b--\r\n", {"x\r\n"}},
        {"--b\r\n\r\n\r\n--b\r\n\r\n--b\r\n--b\r\nA: 1\r\n--b--\r\n", {"", "", "", ""}},
        {"--b--\r\n", {}},
        {"--b", {""}},
        {"--b\r\n", {""}},
        {"", {}},
        {"no delimiter\r\n", {}},
        {"--b\n\nx\n--b\n\ny\n\n--b--\n", {"x", "y\n"}},
        {"--b\n\nx\r\n--b\n\ny\n--b--\n", {"x", "y"}},
        {"--b\r\n\r\nx\n--b\n\ny\n--b\r\n\nz\r\n--b--\r\n", {"x", "y", "z"}},
        {"--b\n\nx\n--b\r\n\r\ny\r\r\n--b--\r\n", {"x", "y\r"}},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(bodies(package(packageHead + text)), expected) << text;
    }
    EXPECT_THAT(bodies(package("Content-Type: a/b;\n boundary=b\n\n--b\n\nx\n--b--\n")),
                ElementsAre("x"));
}

TEST(TzMimeMultipart, FindsDelimitersWhereverTheyStand) {
    // The search looks through windows of these sizes: no delimiter may get lost between two.
    std::size_t edge = 0;
    for (std::size_t window = 4096; window <= std::size_t{1} << 21; window *= 2) {
        edge += std::min(window, std::size_t{1} << 20);
        for (std::size_t size = edge - 12; size < edge + 12; ++size) {
            const std::string body(size, '-');
            const TzMimeMultipart read =
                package(packageHead + "--b\r\n\r\n" + body + "\r\n--b\r\n\r\nx\r\n--b--\r\n");
            ASSERT_EQ(read.getPartCount(), 2U) << size;
            ASSERT_EQ(read.getPart(0).getBodyView().size(), size);
            ASSERT_EQ(read.getPart(1).getBodyView(), "x") << size;
        }
    }
}

TEST(TzMimeMultipart, ReadsOddBoundaries) {
    const std::string longOne(300, '-');
    for (const std::string& boundary :
         {std::string("b"), std::string("-"), std::string("b c"), std::string("a'()+_,-./:=?b"),
          longOne, std::string(71, 'x'), std::string("\xC3\xA4"), std::string("b\0c", 3)}) {
        const std::string line = "--" + boundary;
        const std::string body = line + "x\r\n" + line.substr(1) + "\r\nx" + line;
        const TzMimeMultipart read =
            package("Content-Type: a/b; boundary=\"" + boundary + "\"\r\n\r\n" + line + "\r\n\r\n" +
                    body + "\r\n" + line + "--\r\n");
        EXPECT_THAT(bodies(read), ElementsAre(body)) << boundary;
        EXPECT_EQ(MimeTexts::boundary(read), boundary);
    }
    EXPECT_THAT(bodies(package("Content-Type: a/b; boundary=\"b \"\r\n\r\n--b\r\n\r\nx\r\n--b--")),
                ElementsAre("x"));
    EXPECT_THAT(bodies(package("Content-Type: a/b; boundary*=''b%0D%0Ac\n\n--bc\n\nx\n--bc--")),
                ElementsAre("x"));
}

TEST(TzMimeMultipart, HasNoPartsWithoutBoundary) {
    const std::string rest = "\r\n\r\n--\r\n\r\nx\r\n----\r\n";
    for (const char* const head :
         {"Content-Type: multipart/related", "Content-Type: multipart/related; boundary=\"\"",
          "Content-Type: multipart/related; boundary=\"  \"", "Content-Type: (", "X: y"}) {
        const TzMimeMultipart read = package(head + rest);
        EXPECT_THAT(bodies(read), IsEmpty()) << head;
        EXPECT_EQ(read.findPart(TzMimeContentIdHeader("x")), TzMimePart::NotFound);
    }
    EXPECT_EQ(package("X: y" + rest).getBody(), rest.substr(4));
    EXPECT_EQ(package("X: y" + rest).asString(), "X: y" + rest);
    EXPECT_THAT(bodies(package("")), IsEmpty());
    EXPECT_THAT(bodies(package("--b\r\n\r\nx\r\n--b--\r\n")), IsEmpty());
}

TEST(TzMimeMultipart, SkipsLinesBeforeTheHeaders) {
    const std::string rest = packageHead + "--b\r\n\r\nx\r\n--b--\r\n";
    for (const char* const start : {"POST /path HTTP/1.1\r\n", "HTTP/1.1 200 OK\r\n\r\n", "\r\n\n",
                                    " a: b\r\n", "GET http://a:1/\n"}) {
        EXPECT_THAT(bodies(package(start + rest)), ElementsAre("x")) << start;
    }
    EXPECT_EQ(package("POST / HTTP/1.1\r\nHost: a\r\n" + rest).getHeader(0).getLabel(), "Host");
}

TEST(TzMimeMultipart, DecodesTheBodiesOfItsParts) {
    const TzMimeMultipart read =
        package(packageHead + "--b\r\nContent-Transfer-Encoding: base64\r\n\r\n"
                              "Zm9v\r\nYmFy\r\n\r\n"
                              "--b\r\nContent-Transfer-Encoding: quoted-printable\r\n"
                              "\r\na=3Db=\r\nc\r\n"
                              "--b\r\nContent-Transfer-Encoding: binary\r\n\r\na=3D\r\n"
                              "--b--\r\n");
    EXPECT_THAT(bodies(read), ElementsAre("foobar", "a=bc", "a=3D"));
    EXPECT_THAT(bodies(package(read.asString())), ElementsAre("foobar", "a=bc", "a=3D"));
}

TEST(TzMimeMultipart, KeepsNestedPackagesAsTheyAre) {
    const std::string inner = "--i\r\n\r\ny\r\n--i--\r\n";
    const std::string text = packageHead +
                             "--b\r\nContent-Type: multipart/mixed; boundary=i\r\n\r\n" + inner +
                             "\r\n--b--\r\n";
    const TzMimeMultipart read = package(text);
    EXPECT_THAT(bodies(read), ElementsAre(inner));
    EXPECT_EQ(read.asString(), text);
    EXPECT_THAT(bodies(package(read.getPart(0).asString())), ElementsAre("y"));
}

TEST(TzMimeMultipart, HoldsTheTextOfAPackageThatIsInserted) {
    TzMimeMultipart inner = withBoundary("i");
    inner.insertPart(withBody("x"));
    TzMimeMultipart outer = withBoundary("o");
    outer.insertPart(inner);
    const std::string before = inner.asString();
    inner.insertPart(withBody("y"));
    EXPECT_EQ(outer.getPart(0).asString(), before);
    EXPECT_EQ(outer.getPart(0).getBody(), "--i\r\n\r\nx\r\n--i--\r\n");
    outer.insertPart(outer);
    EXPECT_EQ(outer.getPartCount(), 2U);
    EXPECT_THAT(bodies(package(package(outer.asString()).getPart(1).asString())),
                ElementsAre("--i\r\n\r\nx\r\n--i--\r\n"));
}

TEST(TzMimeMultipart, HasTheTextOfItsPartsAsBody) {
    TzMimeMultipart made = withBoundary("b");
    made.insertPart(withBody("x"));
    EXPECT_EQ(made.getBody(), "--b\r\n\r\nx\r\n--b--\r\n");
    EXPECT_EQ(made.getBodyView(), "");
    made.setBody("--b\n\ny\n--b\nA: 1\n\nz\n--b--\n");
    EXPECT_THAT(bodies(made), ElementsAre("y", "z"));
    EXPECT_EQ(made.getPart(1).getHeader(0).getValue(), "1");
    EXPECT_EQ(withBoundary("b").getBody(), "--b--\r\n");
}

TEST(TzMimeMultipart, MakesABoundaryWhenItHasNone) {
    TzMimeMultipart made;
    made.insertPart(withBody("x"));
    EXPECT_EQ(made.asString(), "Content-Type: multipart/mixed; boundary=\"MIME_boundary\"\r\n\r\n"
                               "--MIME_boundary\r\n\r\nx\r\n--MIME_boundary--\r\n");
    made.insertHeader(TzMimeHeader("A", "1"));
    made.insertHeader(TzMimeHeader("content-type", "multipart/related; type=\"text/xml\""));
    EXPECT_EQ(made.asString(), "A: 1\r\nContent-Type: multipart/related; type=\"text/xml\"; "
                               "boundary=\"MIME_boundary\"\r\n\r\n"
                               "--MIME_boundary\r\n\r\nx\r\n--MIME_boundary--\r\n");
    EXPECT_EQ(made.getHeader(1).getValue(), "multipart/related; type=\"text/xml\"");
}

TEST(TzMimeMultipart, NeverWritesABoundaryThatDoesNotReadBack) {
    for (const char* const boundary : {"a\r\nb", "a  ", "\r\n", "a\"b\\c", " "}) {
        TzMimeMultipart made = withBoundary(boundary);
        made.insertPart(withBody("x\r\n--ab\r\n--a\r\n--\r\n--MIME_boundary"));
        EXPECT_THAT(bodies(package(made.asString())), ElementsAre(made.getPart(0).getBody()))
            << boundary;
    }
}

TEST(TzMimeMultipart, EncodesBodiesThatLookLikeDelimiters) {
    const char* const hits[] = {"--b",    "--b--",  "--bb",  "x\r\n--b\r\ny",
                                "x\n--b", "x\r--b", "--b x", "\n--b--\r\n"};
    for (const char* const body : hits) {
        TzMimeMultipart made = withBoundary("b");
        made.insertPart(withBody(body));
        made.insertPart(withBody(body, {{"content-transfer-encoding", "binary"}, {"A", "1"}}));
        made.insertPart(withBody(body, {{"Content-Transfer-Encoding", "quoted-printable"}}));
        made.insertPart(withBody(body, {{"Content-Transfer-Encoding", "base64"}}));
        const TzMimeMultipart read = package(made.asString());
        EXPECT_THAT(bodies(read), ElementsAre(body, body, body, body)) << body;
        EXPECT_EQ(read.getPart(0).getHeader(0).asString(), "Content-Transfer-Encoding: base64");
        EXPECT_EQ(read.getPart(1).getHeader(0).asString(), "content-transfer-encoding: base64");
        EXPECT_EQ(read.getPart(1).getHeader(1).asString(), "A: 1");
        EXPECT_EQ(made.getPart(1).getHeader(0).getValue(), "binary");
    }
}

TEST(TzMimeMultipart, LeavesOtherBodiesUnencoded) {
    for (const char* const body : {"x--b", "x\r\n --b", "-b", "--", "x\r\n--", "\r\n-\r\n-b"}) {
        TzMimeMultipart made = withBoundary("b");
        made.insertPart(withBody(body));
        EXPECT_EQ(made.asString(), packageHead + "--b\r\n\r\n" + body + "\r\n--b--\r\n");
    }
}

TEST(TzMimeMultipart, EncodesWhatQuotedPrintableWouldBreakIntoADelimiter) {
    // The soft line break falls right before the hyphens.
    TzMimeMultipart made = withBoundary("b");
    made.insertPart(withBody(std::string(75, 'x') + "--b",
                             {{"Content-Transfer-Encoding", "quoted-printable"}}));
    const TzMimeMultipart read = package(made.asString());
    EXPECT_THAT(bodies(read), ElementsAre(std::string(75, 'x') + "--b"));
    EXPECT_EQ(read.getPart(0).getHeader(0).getValue(), "base64");
}

TEST(TzMimeMultipart, ReplacesEveryOtherEncodingHeader) {
    TzMimeMultipart made = withBoundary("b");
    made.insertPart(withBody("--b", {{"Content-Transfer-Encoding", "8bit"},
                                     {"A", "1"},
                                     {"Content-Transfer-Encoding", "binary"}}));
    EXPECT_EQ(made.asString(), packageHead +
                                   "--b\r\nContent-Transfer-Encoding: base64\r\nA: 1\r\n\r\n"
                                   "LS1i\r\n--b--\r\n");
}

TEST(TzMimeMultipart, EncodesWhatWasReadUnderAnotherBoundary) {
    const TzMimeMultipart read = package(
        packageHead + "--b\r\nContent-Transfer-Encoding: base64\r\n\r\n--c\r\nZm9v\r\n--b--");
    TzMimeMultipart made = withBoundary("c");
    made.insertPart(read.getPart(0));
    // The hyphens are not base64, the letter after them is.
    EXPECT_EQ(read.getPart(0).getBody(), "q\x99\xBD");
    EXPECT_THAT(bodies(package(made.asString())), ElementsAre("q\x99\xBD"));
}

TEST(TzMimeMultipart, CannotBeBrokenByHeaders) {
    TzMimeMultipart made = withBoundary("b");
    made.insertHeader(TzMimeHeader("X", "1\r\n\r\n--b\r\n\r\nforged"));
    made.insertPart(withBody("x", {{"A\r\n\r\n--b", "\r\n\r\n--b--\r\n"}, {"\r\n", "1"}}));
    const TzMimeMultipart read = package(made.asString());
    EXPECT_THAT(bodies(read), ElementsAre("x"));
    EXPECT_EQ(read.getHeaderCount(), 2U);
    EXPECT_EQ(read.getPart(0).getHeaderCount(), 1U);
}

TEST(TzMimeMultipart, SharesOneTextAmongItsParts) {
    std::string text = packageHead + "--b\r\n\r\n" + std::string(5000, 'x') +
                       "\r\n--b\r\nA: 1\r\n\r\n" + std::string(5000, 'y') + "\r\n--b--\r\n";
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    TzMimePart second;
    {
        const TzMimeMultipart read = package(std::move(text));
        for (std::size_t at = 0; at < 2; ++at) {
            const std::string_view body = read.getPart(at).getBodyView();
            EXPECT_TRUE(body.data() > begin && body.data() + body.size() < end);
        }
        second = read.getPart(1);
    }
    EXPECT_EQ(second.getBodyView(), std::string(5000, 'y'));
    EXPECT_EQ(second.getHeader(0).getValue(), "1");
}

TEST(TzMimeMultipart, FindsItsRoot) {
    const auto rootOf = [](const TzCString& contentType, const TzCString& secondId) {
        TzMimeMultipart package;
        package.fromString(contentType + "\r\n\r\n--b\r\n\r\none\r\n--b\r\nContent-ID: " +
                           secondId + "\r\n\r\ntwo\r\n--b--\r\n");
        return package.findRootPart();
    };
    EXPECT_EQ(rootOf("Content-Type: multipart/related; boundary=b", "<x>"), 0U);
    EXPECT_EQ(rootOf("Content-Type: multipart/related; boundary=b; start=\"\"", "<x>"), 0U);
    EXPECT_EQ(rootOf("Content-Type: multipart/related; boundary=b; start=\"<x>\"", "<x>"), 1U);
    EXPECT_EQ(rootOf("Content-Type: multipart/related; boundary=b; start=x", "<x>"), 1U);
    EXPECT_EQ(rootOf("Content-Type: multipart/related; boundary=b; start=\"<y>\"", "<x>"),
              TzMimePart::NotFound);
    EXPECT_EQ(rootOf("Content-Type: multipart/related; boundary=c", "<x>"), TzMimePart::NotFound);

    TzMimeMultipart untyped;
    EXPECT_EQ(untyped.findRootPart(), TzMimePart::NotFound);
    untyped.insertPart(TzMimePart());
    EXPECT_EQ(untyped.findRootPart(), 0U);
}

TEST(TzMimeMultipart, ReadingLeavesOtherHandlesAlone) {
    TzMimeMultipart read = package(packageHead + "--b\r\n\r\nx\r\n--b--\r\n");
    const TzMimeMultipart copy = read;
    read.fromString(packageHead + "--b\r\n\r\ny\r\n--b--\r\n");
    EXPECT_THAT(bodies(copy), ElementsAre("x"));
    EXPECT_THAT(bodies(read), ElementsAre("y"));
}

TEST(TzMimeMultipart, SurvivesEveryFailedAllocation) {
    const std::string text =
        packageHead + "--b\r\nContent-ID: <a-rather-long-content-id@example.org>\r\n\r\nx\r\n"
                      "--b\r\nContent-ID:\r\n <b>\r\n\r\ny\r\n--b--\r\n";
    const std::size_t failures = failEachAllocation([&text] {
        TzMimeMultipart read;
        read.fromString(text);
        static_cast<void>(read.findPart(TzMimeContentIdHeader("b")));
        read.insertPartAt(0, withBody("--b"));
        read.insertPart(read);
        static_cast<void>(read.asString());
        static_cast<void>(read.getBody());
    });
    EXPECT_GT(failures, 20U);
}

TEST(TzMimeMultipart, RemovesPartsThatStandEarlier) {
    TzMimeMultipart made;
    made.removeRepeatedParts();
    const TzMimePart one = withBody("1");
    const TzMimePart two = withBody("2");
    for (const TzMimePart& part : {one, two, one, withBody("1"), two, one}) {
        made.insertPart(part);
    }
    TzMimeMultipart other = made;
    other.removeRepeatedParts(6);
    EXPECT_EQ(made.getPartCount(), 6U);
    made.removeRepeatedParts(3);
    EXPECT_THAT(bodies(made), ElementsAre("1", "2", "1", "1"));
    made.removeRepeatedParts();
    EXPECT_THAT(bodies(made), ElementsAre("1", "2", "1"));
    made.removeRepeatedParts(1000);
    EXPECT_EQ(made.getPartCount(), 3U);
}

TEST(TzMimeMultipart, FindsLongNames) {
    TzMimeMultipart made;
    EXPECT_EQ(made.findLongName(0), TzMimePart::NotFound);
    made.insertPart(withBody("", {{"X", "long enough"}}));
    made.insertPart(withBody("", {{"Content-ID", "<four>"}}));
    made.insertPart(withBody("", {{"Content-Location", "five5"}}));
    EXPECT_EQ(made.findLongName(3), 1U);
    EXPECT_EQ(made.findLongName(4), 2U);
    EXPECT_EQ(made.findLongName(5), TzMimePart::NotFound);
    EXPECT_EQ(package(made.asString()).findLongName(4), 2U);
}
