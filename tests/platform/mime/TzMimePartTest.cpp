// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"
#include "support/AllocationFailure.h"
#include "support/Throws.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>
#include <tz/mime/TzMimeTextType.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>

#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

using MimeTexts::headers;
using MimeTexts::part;
using MimeTexts::withBody;

static_assert(std::is_nothrow_default_constructible_v<TzMimePart>);
static_assert(std::is_nothrow_move_constructible_v<TzMimePart>);
static_assert(std::is_nothrow_move_assignable_v<TzMimePart>);
static_assert(TzMimePart::NotFound == static_cast<std::size_t>(-1));

using Headers = std::vector<std::pair<std::string, std::string>>;

TEST(TzMimePart, IsEmptyByDefaultAndTakesNoMemory) {
    const std::size_t before = madeAllocations();
    const TzMimePart empty;
    const TzMimePart copy = empty;
    EXPECT_EQ(madeAllocations(), before);
    EXPECT_EQ(copy.getHeaderCount(), 0U);
    EXPECT_EQ(copy.findHeader("X"), TzMimePart::NotFound);
    EXPECT_EQ(copy.getBody(), "");
    EXPECT_EQ(copy.getBodyView(), "");
    EXPECT_EQ(copy.asString(), "\r\n");
    EXPECT_EQ(textThrown<TzXmlBoundsError>([&] { return copy.getHeader(0); }),
              "the part has no such header");
}

TEST(TzMimePart, FindsHeadersWithoutCase) {
    const TzMimePart made = withBody("", {{"A", "1"}, {"b", "2"}, {"a", "3"}});
    EXPECT_EQ(made.getHeaderCount(), 3U);
    EXPECT_EQ(made.findHeader("a", 0), 0U);
    EXPECT_EQ(made.findHeader("A", 1), 2U);
    EXPECT_EQ(made.findHeader("A", 3), TzMimePart::NotFound);
    EXPECT_EQ(made.findHeader("A", TzMimePart::NotFound), TzMimePart::NotFound);
    EXPECT_EQ(made.findHeader("B"), 1U);
    EXPECT_EQ(made.findHeader("c"), TzMimePart::NotFound);
    EXPECT_EQ(made.getHeader(2).getValue(), "3");
    EXPECT_EQ(textThrown<TzXmlBoundsError>([&] { return made.getHeader(3); }),
              "the part has no such header");
    EXPECT_EQ(textThrown<TzXmlBoundsError>([&] { return made.getHeader(TzMimePart::NotFound); }),
              "the part has no such header");
}

TEST(TzMimePart, TellsIdAndLocation) {
    EXPECT_EQ(TzMimePart().getContentId(), std::nullopt);
    EXPECT_EQ(TzMimePart().getContentLocation(), std::nullopt);
    const TzMimePart read = part("content-id:\r\n (c) <a@x> (d)\r\nContent-ID: <b>\r\n"
                                 "Content-Location: http://h/\r\n file.bin\r\n\r\nbody");
    EXPECT_EQ(read.getContentId(), "a@x");
    EXPECT_EQ(read.getContentLocation(), "http://h/file.bin");
    TzMimePart made;
    made.insertHeader(TzMimeHeader("Content-ID", "<>"));
    EXPECT_EQ(made.getContentId(), "");
    EXPECT_EQ(made.getContentLocation(), std::nullopt);
    made.insertHeader(TzMimeHeader("CONTENT-LOCATION", "x (comment)"));
    EXPECT_EQ(made.getContentLocation(), "x");
}

TEST(TzMimePart, IsSharedByCopies) {
    TzMimePart made = withBody("old");
    const TzMimePart copy = made;
    made.setBody("new");
    made.insertHeader(TzMimeHeader("X", "1"));
    EXPECT_EQ(copy.getBody(), "new");
    EXPECT_EQ(copy.getHeader(0).getValue(), "1");
}

TEST(TzMimePart, IsEmptyAfterMove) {
    TzMimePart made = withBody("bytes");
    const TzMimePart moved = std::move(made);
    EXPECT_EQ(moved.getBody(), "bytes");
    EXPECT_EQ(made.getBody(), ""); // NOLINT(bugprone-use-after-move)
    made.setBody("others");
    EXPECT_EQ(moved.getBody(), "bytes");
}

TEST(TzMimePart, WritesHeadersAndBody) {
    TzMimePart made;
    made.insertHeader(TzMimeContentTypeHeader(TzMimeTextType("xml", "UTF-8")));
    made.insertHeader(TzMimeContentIdHeader("root"));
    made.insertHeader(TzMimeHeader());
    made.setBody("<a/>\n");
    EXPECT_EQ(made.asString(), "Content-Type: text/xml; charset=\"UTF-8\"\r\n"
                               "Content-ID: <root>\r\n"
                               "\r\n"
                               "<a/>\n");
}

TEST(TzMimePart, DoesNotFoldLongHeaders) {
    const std::string value(5000, 'x');
    EXPECT_EQ(withBody("", {{"X", value}}).asString(), "X: " + value + "\r\n\r\n");
}

TEST(TzMimePart, EncodesByItsHeader) {
    const std::string bytes("a=\xFF\r\n", 5);
    const std::pair<const char*, const char*> cases[] = {
        {"base64", "YT3/DQo="},   {"Base64 (c)", "YT3/DQo="}, {"quoted-printable", "a=3D=FF\r\n"},
        {"binary", "a=\xFF\r\n"}, {"8bit", "a=\xFF\r\n"},     {"x-other", "a=\xFF\r\n"},
    };
    for (const auto& [encoding, text] : cases) {
        const TzMimePart made = withBody(bytes, {{"content-transfer-encoding", encoding}});
        const std::string head = "content-transfer-encoding: " + std::string(encoding);
        EXPECT_EQ(made.asString(), head + "\r\n\r\n" + text);
        EXPECT_EQ(made.getBody(), bytes);
        EXPECT_EQ(part(made.asString()).getBody(), bytes);
        EXPECT_EQ(part(made.asString()).asString(), made.asString());
    }
}

TEST(TzMimePart, DecodesWhatItRead) {
    const TzMimePart read = part("Content-Transfer-Encoding: base64\r\n\r\nZm9v\r\nYmFy\r\n");
    EXPECT_EQ(read.getBody(), "foobar");
    EXPECT_EQ(read.getBodyView(), "foobar");
    EXPECT_EQ(read.getBodyView().data(), read.getBodyView().data());
    EXPECT_EQ(read.getBody(), "foobar");
    EXPECT_EQ(read.asString(), "Content-Transfer-Encoding: base64\r\n\r\nZm9v\r\nYmFy\r\n");
}

TEST(TzMimePart, ReplacesADecodedBody) {
    TzMimePart read = part("Content-Transfer-Encoding: base64\r\n\r\nZm9v");
    EXPECT_EQ(read.getBodyView(), "foo");
    read.setBody("bar");
    EXPECT_EQ(read.getBodyView(), "bar");
    EXPECT_EQ(read.getBody(), "bar");
    EXPECT_EQ(read.asString(), "Content-Transfer-Encoding: base64\r\n\r\nYmFy");
}

TEST(TzMimePart, TheFirstEncodingCounts) {
    TzMimePart read = part("A: b\r\n\r\nZm9v");
    read.insertHeader(TzMimeHeader("Content-Transfer-Encoding", "base64"));
    read.insertHeader(TzMimeHeader("Content-Transfer-Encoding", "binary"));
    EXPECT_EQ(read.getBody(), "Zm9v");
    EXPECT_EQ(read.asString(), "A: b\r\nContent-Transfer-Encoding: base64\r\n"
                               "Content-Transfer-Encoding: binary\r\n\r\nWm05dg==");
}

TEST(TzMimePart, ReadsLinesOfBothKinds) {
    const Headers both = {{"A", "1"}, {"B", "2"}};
    EXPECT_EQ(headers(part("A: 1\r\nB: 2\r\n\r\nbody\n")), both);
    EXPECT_EQ(headers(part("A: 1\nB: 2\n\nbody\r\n")), both);
    EXPECT_EQ(headers(part("A: 1\nB: 2\r\n\nbody")), both);
    EXPECT_EQ(part("A: 1\r\nB: 2\r\n\r\nbody\n").getBody(), "body\n");
    EXPECT_EQ(part("A: 1\nB: 2\n\nbody\r\n").getBody(), "body\r\n");
    EXPECT_EQ(part("A: 1\nB: 2\r\n\nbody").getBody(), "body");
}

TEST(TzMimePart, ReadsHeaderLines) {
    const std::pair<const char*, Headers> cases[] = {
        {"A:1\r\n\r\n", {{"A", "1"}}},
        {"A : \t 1 \t\r\n\r\n", {{"A", "1"}}},
        {"A:\r\nB:  \r\n\r\n", {{"A", ""}, {"B", ""}}},
        {"A: 1\r\n 2\r\n\t3\r\nB: 4\r\n\r\n", {{"A", "1 2\t3"}, {"B", "4"}}},
        {"A:\r\n 1\r\n\r\n", {{"A", "1"}}},
        {"A: 1\r\n  \r\n 2\r\nB: 3\r\n\r\n", {{"A", "1   2"}, {"B", "3"}}},
        {"A: 1\r\ngarbage\r\n garbage: too\r\nB: 2\r\n\r\n", {{"A", "1"}, {"B", "2"}}},
        {"A: 1\r\n: 2\r\nC D: 3\r\nB: 4\r\n\r\n", {{"A", "1"}, {"B", "4"}}},
        {"A: 1:2\r\n\r\n", {{"A", "1:2"}}},
        {"A: 1", {{"A", "1"}}},
        {"A: 1\r\n", {{"A", "1"}}},
        {"\xC3\xA4: 1\r\nA: \xC3\xA4\r\n\r\n", {{"A", "\xC3\xA4"}}},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(headers(part(text)), expected) << text;
    }
}

TEST(TzMimePart, KeepsNulBytes) {
    const std::string text("A: x\0y\r\n\r\n\0z", 12);
    EXPECT_EQ(part(text).getHeader(0).getValue(), std::string("x\0y", 3));
    EXPECT_EQ(part(text).getBody(), std::string("\0z", 2));
    EXPECT_EQ(part(text).asString(), text);
}

TEST(TzMimePart, SkipsLinesBeforeTheHeaders) {
    const TzMimePart read = part("POST /path HTTP/1.1\r\n\r\nA: 1\r\n\r\nbody");
    EXPECT_EQ(headers(read), Headers({{"A", "1"}}));
    EXPECT_EQ(read.getBody(), "body");
    EXPECT_EQ(headers(part("HTTP/1.1 200 OK\nA: 1\n\n")), Headers({{"A", "1"}}));
    EXPECT_EQ(headers(part(" folded: 0\nA: 1\n\n")), Headers({{"A", "1"}}));
}

TEST(TzMimePart, ReadsTextsWithoutHeaders) {
    EXPECT_EQ(part("\r\nA: 1").getBody(), "A: 1");
    EXPECT_EQ(part("\nA: 1").getHeaderCount(), 0U);
    EXPECT_EQ(part("only text").getBody(), "only text");
    EXPECT_EQ(part("request line\r\n\r\nbody").getBody(), "body");
    EXPECT_EQ(part("").getBody(), "");
    EXPECT_EQ(part("\r\n").getBody(), "");
    EXPECT_EQ(part(part("\r\nA: 1").asString()).getBody(), "A: 1");
}

TEST(TzMimePart, UnfoldsWhatItWrites) {
    EXPECT_EQ(part("A :1\n  2\nb:\n\nbody").asString(), "A: 1  2\r\nb:\r\n\r\nbody");
}

TEST(TzMimePart, ReadingLeavesOtherHandlesAlone) {
    TzMimePart read = withBody("old");
    const TzMimePart copy = read;
    read.fromString("A: 1\r\n\r\nnew");
    EXPECT_EQ(copy.getBody(), "old");
    EXPECT_EQ(read.getBody(), "new");
}

TEST(TzMimePart, TakesMovedTextsWithoutCopying) {
    std::string text = "A: 1\r\n\r\n" + std::string(1000, 'x');
    const char* const bytes = text.data();
    TzMimePart read;
    read.fromString(std::move(text));
    EXPECT_EQ(read.getBodyView().data(), bytes + 8);

    std::string body(1000, 'y');
    const char* const given = body.data();
    read.setBody(std::move(body));
    EXPECT_EQ(read.getBodyView().data(), given);
}

TEST(TzMimePart, AHeaderThatWasReadIsShared) {
    const TzMimePart read = part("content-type: text/xml\r\n\r\n");
    TzMimeContentTypeHeader(read.getHeader(0)).getContentType().setParameter("charset", "a");
    EXPECT_EQ(read.getHeader(0).getValue(), "text/xml; charset=\"a\"");
    EXPECT_EQ(read.asString(), "content-type: text/xml; charset=\"a\"\r\n\r\n");
}

TEST(TzMimePart, IsReadOnSeveralThreadsAtOnce) {
    const TzMimePart read =
        part("A: 1\r\nContent-Type: a/b\r\nContent-Transfer-Encoding: base64\r\n\r\nZm9v");
    std::vector<std::thread> threads;
    std::vector<std::string> results(4);
    for (std::string& result : results) {
        threads.emplace_back([&read, &result] {
            const TzMimePart own = read;
            const TzMimeContentTypeHeader type(own.getHeader(own.findHeader("content-type")));
            result = own.getHeader(0).getValue() + type.getContentType().getSubtype() +
                     std::string(own.getBodyView()) + own.asString();
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::string& result : results) {
        EXPECT_EQ(result, "1bfoo" + read.asString());
    }
}

TEST(TzMimePart, SurvivesEveryFailedAllocation) {
    const std::string text =
        "A: 1\r\nContent-Type: a/b; c=d\r\nContent-ID: <a-rather-long-content-id>"
        "\r\nContent-Transfer-Encoding: base64\r\n\r\nZm9vYmFyZm9vYmFyZm9vYmFy";
    const std::size_t failures = failEachAllocation([&text] {
        TzMimePart read;
        read.fromString(text);
        TzMimeContentTypeHeader(read.getHeader(1)).getContentType().setParameter("c", "e");
        read.insertHeader(TzMimeContentIdHeader("b"));
        static_cast<void>(read.getBodyView());
        static_cast<void>(read.asString());
        read.setBody("x");
    });
    EXPECT_GT(failures, 10U);
}

TEST(TzMimePart, IsMadeFromBytesTypeAndId) {
    const TzMimePart made = TzMimePart::make(std::string("a\0b", 3), "image/png", "picture@x");
    EXPECT_EQ(made.asString(), std::string("Content-Type: image/png\r\n"
                                           "Content-Transfer-Encoding: binary\r\n"
                                           "Content-ID: <picture@x>\r\n\r\na") +
                                   std::string("\0b", 2));
    EXPECT_EQ(made.getContentId(), "picture@x");
}

TEST(TzMimePart, IsMadeWithABracketedIdOrWithoutAny) {
    EXPECT_EQ(TzMimePart::make("", "text/plain", "<i>").getContentId(), "i");
    EXPECT_FALSE(TzMimePart::make("", "text/plain", "").getContentId());
    EXPECT_EQ(TzMimePart::make("", std::string("text/plain"), std::string_view("i")).getContentId(),
              "i");
}

TEST(TzMimePart, TakesTheBytesOver) {
    std::string bytes(1U << 20U, 'x');
    const std::size_t before = askedBytes();
    const TzMimePart made = TzMimePart::make(std::move(bytes), "text/plain", "i");
    EXPECT_LT(askedBytes() - before, 1U << 16U);
    EXPECT_EQ(made.getBodyView().size(), 1U << 20U);
}

TEST(TzMimePart, IsNotMadeFromNullPointers) {
    const char* const null = nullptr;
    const std::string text = "a null pointer is not a text";
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzMimePart::make("", null, "i"); }), text);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzMimePart::make("", "t", null); }), text);
}
