// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>
#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeHeader.h>
#include <tz/mime/TzMimeTextType.h>
#include <tz/mime/TzMimeVersionHeader.h>

#include <string>
#include <type_traits>
#include <utility>

static_assert(std::is_nothrow_default_constructible_v<TzMimeHeader>);
static_assert(std::is_nothrow_move_constructible_v<TzMimeContentTypeHeader>);
static_assert(std::is_nothrow_move_assignable_v<TzMimeContentIdHeader>);

TEST(TzMimeHeader, HoldsLabelAndValue) {
    const TzMimeHeader header("X-Tag", "some value");
    EXPECT_EQ(header.getLabel(), "X-Tag");
    EXPECT_EQ(header.getValue(), "some value");
    EXPECT_EQ(header.asString(), "X-Tag: some value");
}

TEST(TzMimeHeader, WithoutAnythingIsLeftOutOfTexts) {
    const TzMimeHeader header;
    EXPECT_EQ(header.getLabel(), "");
    EXPECT_EQ(header.getValue(), "");
    EXPECT_EQ(header.asString(), "");
    EXPECT_EQ(TzMimeHeader("", "value").asString(), "");
    EXPECT_EQ(TzMimeHeader(" \r\n:", "value").asString(), "");
    EXPECT_EQ(TzMimeHeader("X", "").asString(), "X:");
}

TEST(TzMimeHeader, KeepsLineEndsOutOfTexts) {
    EXPECT_EQ(TzMimeHeader("X-A\r\nX-B: 1\r\n", "a\r\nX-C: 2\n\rb\r").asString(),
              "X-AX-B1: aX-C: 2b");
    EXPECT_EQ(TzMimeContentIdHeader("a\r\nX: b").asString(), "Content-ID: <aX: b>");
    EXPECT_EQ(TzMimeContentLocationHeader("a\nb").asString(), "Content-Location: ab");
    EXPECT_EQ(TzMimeVersionHeader("1\r\n.1").asString(), "MIME-Version: 1.1");
    EXPECT_EQ(TzMimeContentTypeHeader(TzMimeTextType("xml\r\n", "a\r\nb")).asString(),
              "Content-Type: text/xml; charset=\"ab\"");
}

TEST(TzMimeHeader, KeepsOtherBytes) {
    const std::string bytes("\0\x01\xC3\xA4\xFF", 5);
    EXPECT_EQ(TzMimeHeader("X", bytes).asString(), "X: " + bytes);
}

TEST(TzMimeHeader, EqualsByLabelWithoutCaseAndValue) {
    EXPECT_EQ(TzMimeHeader("X-Tag", "a"), TzMimeHeader("x-tAG", "a"));
    EXPECT_FALSE(TzMimeHeader("X-Tag", "a") == TzMimeHeader("X-Tag", "A"));
    EXPECT_FALSE(TzMimeHeader("X-Tag", "a") == TzMimeHeader("X-Tags", "a"));
    EXPECT_EQ(TzMimeHeader(), TzMimeHeader());
    EXPECT_FALSE(TzMimeHeader() == TzMimeHeader("X", ""));
}

TEST(TzMimeHeader, EqualsByIdAndUri) {
    EXPECT_EQ(TzMimeHeader("content-id", "part1"), TzMimeContentIdHeader("<part1>"));
    EXPECT_EQ(TzMimeHeader("Content-ID", "(c) <part1> (d)"), TzMimeContentIdHeader("part1"));
    EXPECT_FALSE(TzMimeContentIdHeader("a") == TzMimeContentIdHeader("A"));
    EXPECT_EQ(TzMimeHeader("content-location", "a.bin (c)"), TzMimeContentLocationHeader("a.bin"));
    EXPECT_FALSE(TzMimeContentLocationHeader("a") == TzMimeContentIdHeader("a"));
    EXPECT_FALSE(TzMimeHeader("X-ID", "<a>") == TzMimeHeader("X-ID", "a"));
}

TEST(TzMimeHeader, IsEmptyAfterMove) {
    TzMimeHeader header("X", "a");
    const TzMimeHeader moved = std::move(header);
    EXPECT_EQ(moved.getValue(), "a");
    EXPECT_EQ(header.getLabel(), ""); // NOLINT(bugprone-use-after-move)
}

TEST(TzMimeContentIdHeader, StandsInOnePairOfBrackets) {
    for (const char* const id : {"part1", "<part1>"}) {
        const TzMimeContentIdHeader header{TzCString(id)};
        EXPECT_EQ(header.getLabel(), "Content-ID");
        EXPECT_EQ(header.getValue(), "<part1>");
        EXPECT_EQ(header.getId(), "part1");
    }
    EXPECT_EQ(TzMimeContentIdHeader("<<a>>").getId(), "<a>");
    EXPECT_EQ(TzMimeContentIdHeader("<a").getId(), "<a");
    EXPECT_EQ(TzMimeContentIdHeader("<").getId(), "<");
    EXPECT_EQ(TzMimeContentIdHeader("").getValue(), "<>");
    EXPECT_EQ(TzMimeContentIdHeader("").getId(), "");
    EXPECT_EQ(TzMimeContentIdHeader("soap.xml@mime.example").getId(), "soap.xml@mime.example");
    EXPECT_EQ(TzMimeContentIdHeader("a%20b").getId(), "a%20b");
}

TEST(TzMimeContentIdHeader, ReadsHeaders) {
    const std::pair<const char*, const char*> cases[] = {
        {"<a@b>", "a@b"}, {"a@b", "a@b"},      {"<a@b> (see <c>)", "a@b"}, {"(c(d)) <a@b>", "a@b"},
        {"<a", "<a"},     {"<a> (\\) )", "a"}, {"<a>b>", "a>b"},           {"", ""},
    };
    for (const auto& [value, id] : cases) {
        EXPECT_EQ(TzMimeContentIdHeader(TzMimeHeader("content-id", value)).getId(), id) << value;
    }
}

TEST(TzMimeContentIdHeader, TakesTheValueOfAnotherLabel) {
    const TzMimeHeader other("X-Other", "<a>");
    const TzMimeContentIdHeader header(other);
    EXPECT_EQ(header.getLabel(), "Content-ID");
    EXPECT_EQ(header.getId(), "a");
    EXPECT_EQ(other.getLabel(), "X-Other");
}

TEST(TzMimeContentTypeHeader, ChangesWithItsType) {
    TzMimeContentType type("text", "xml");
    const TzMimeContentTypeHeader header(type);
    type.setParameter("charset", "UTF-8");
    EXPECT_EQ(header.getValue(), "text/xml; charset=\"UTF-8\"");
    EXPECT_EQ(header.getLabel(), TzMimeContentTypeHeader::Label);
}

TEST(TzMimeContentTypeHeader, ChangesTheHeaderItWasMadeOf) {
    const TzMimeHeader plain("content-type", "text/xml (old)");
    const TzMimeContentTypeHeader header(plain);
    EXPECT_EQ(header.getContentType().getSubtype(), "xml");
    EXPECT_EQ(plain.getValue(), "text/xml (old)");
    header.getContentType().setParameter("charset", "a");
    EXPECT_EQ(plain.getValue(), "text/xml; charset=\"a\"");
    EXPECT_EQ(plain.getLabel(), "content-type");
}

TEST(TzMimeContentTypeHeader, LeavesAHeaderOfAnotherLabelAlone) {
    const TzMimeHeader other("X-Other", "text/xml");
    TzMimeContentTypeHeader(other).getContentType().setParameter("charset", "a");
    EXPECT_EQ(other.getValue(), "text/xml");
}

TEST(TzMimeContentTypeHeader, MadeOfNothingHasAnEmptyType) {
    const TzMimeContentTypeHeader header{TzMimeHeader()};
    EXPECT_EQ(header.getContentType().getPrimaryType(), "");
    EXPECT_EQ(header.getContentType().asString(), "");
}

TEST(TzMimeVersionHeader, IsVersionOne) {
    const TzMimeVersionHeader header;
    EXPECT_EQ(header.asString(), "MIME-Version: 1.0");
    EXPECT_STREQ(TzMimeVersionHeader::Label, "MIME-Version");
    EXPECT_EQ(TzMimeVersionHeader(TzMimeHeader("mime-version", "1.1")).getValue(), "1.1");
}

TEST(TzMimeContentLocationHeader, HoldsAUri) {
    const TzMimeContentLocationHeader header("http://a/b (1)/c.bin");
    EXPECT_EQ(header.getLabel(), "Content-Location");
    EXPECT_EQ(header.getURI(), "http://a/b (1)/c.bin");
    EXPECT_EQ(TzMimeContentLocationHeader("file.bin").getURI(), "file.bin");
    EXPECT_EQ(TzMimeContentLocationHeader("b(1).bin").getURI(), "b(1).bin");
}

TEST(TzMimeContentLocationHeader, ReadsHeaders) {
    const std::pair<const char*, const char*> cases[] = {
        {"a.bin (the (first))", "a.bin"},
        {"(c) a.bin", "a.bin"},
        {"my file.bin", "my file.bin"},
        {"a.bin (open", "a.bin"},
        {"", ""},
    };
    for (const auto& [value, uri] : cases) {
        EXPECT_EQ(TzMimeContentLocationHeader(TzMimeHeader("Content-Location", value)).getURI(),
                  uri);
    }
    const TzMimePart folded =
        MimeTexts::part("Content-Location: http://a/\r\n  long/\r\n\tpath\r\n\r\n");
    EXPECT_EQ(folded.getHeader(0).getValue(), "http://a/long/path");
}

// RFC 3986, 5.4: the examples of the standard itself.
TEST(TzMimeContentLocationHeader, ResolvesTheExamplesOfTheStandard) {
    const TzMimeContentLocationHeader base("http://a/b/c/d;p?q");
    const std::pair<const char*, const char*> cases[] = {
        {"g:h", "g:h"},
        {"g", "http://a/b/c/g"},
        {"./g", "http://a/b/c/g"},
        {"g/", "http://a/b/c/g/"},
        {"/g", "http://a/g"},
        {"//g", "http://g"},
        {"?y", "http://a/b/c/d;p?y"},
        {"g?y", "http://a/b/c/g?y"},
        {"#s", "http://a/b/c/d;p?q#s"},
        {"g#s", "http://a/b/c/g#s"},
        {"g?y#s", "http://a/b/c/g?y#s"},
        {";x", "http://a/b/c/;x"},
        {"g;x", "http://a/b/c/g;x"},
        {"g;x?y#s", "http://a/b/c/g;x?y#s"},
        {"", "http://a/b/c/d;p?q"},
        {".", "http://a/b/c/"},
        {"./", "http://a/b/c/"},
        {"..", "http://a/b/"},
        {"../", "http://a/b/"},
        {"../g", "http://a/b/g"},
        {"../..", "http://a/"},
        {"../../", "http://a/"},
        {"../../g", "http://a/g"},
        {"../../../g", "http://a/g"},
        {"../../../../g", "http://a/g"},
        {"/./g", "http://a/g"},
        {"/../g", "http://a/g"},
        {"g.", "http://a/b/c/g."},
        {".g", "http://a/b/c/.g"},
        {"g..", "http://a/b/c/g.."},
        {"..g", "http://a/b/c/..g"},
        {"./../g", "http://a/b/g"},
        {"./g/.", "http://a/b/c/g/"},
        {"g/./h", "http://a/b/c/g/h"},
        {"g/../h", "http://a/b/c/h"},
        {"g;x=1/./y", "http://a/b/c/g;x=1/y"},
        {"g;x=1/../y", "http://a/b/c/y"},
        {"g?y/./x", "http://a/b/c/g?y/./x"},
        {"g?y/../x", "http://a/b/c/g?y/../x"},
        {"g#s/./x", "http://a/b/c/g#s/./x"},
        {"g#s/../x", "http://a/b/c/g#s/../x"},
        {"http:g", "http:g"},
    };
    for (const auto& [reference, uri] : cases) {
        EXPECT_EQ(base.resolve(reference), uri) << reference;
    }
}

TEST(TzMimeContentLocationHeader, ResolvesBelowOtherBases) {
    struct Case {
        const char* base;
        const char* reference;
        const char* uri;
    };
    const Case cases[] = {
        {"http://a", "g", "http://a/g"},
        {"http://a?q", "g", "http://a/g"},
        {"http://a", "", "http://a"},
        {"http://a/b", "x://c/../d", "x://c/d"},
        {"urn:a:b", "g", "urn:g"},
        {"dir/root.xml", "file.bin", "dir/file.bin"},
        {"dir/sub/", "file.bin", "dir/sub/file.bin"},
        {"dir/root.xml", "../file.bin", "dir/../file.bin"},
        {"dir/root.xml", "http://a/file.bin", "http://a/file.bin"},
        {"dir/root.xml", "/file.bin", "/file.bin"},
        {"dir/root.xml", "", "dir/root.xml"},
        {"root.xml", "file.bin", "file.bin"},
        {"/root.xml", "file.bin", "/file.bin"},
        {"", "file.bin", "file.bin"},
        {"1a:b/c", "d", "1a:b/d"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(TzMimeContentLocationHeader(one.base).resolve(one.reference), one.uri)
            << one.base << " " << one.reference;
    }
}

TEST(TzMimeContentLocationHeader, ResolvesLongPaths) {
    constexpr std::size_t depth = 200000;
    const TzMimeContentLocationHeader base("http://a/" + MimeTexts::repeated("b/", depth));
    EXPECT_EQ(base.resolve(MimeTexts::repeated("../", depth + 5) + "g"), "http://a/g");
}

TEST(TzMimeContentIdHeader, DecodesUrls) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"a@b", "a@b"},
        {"a%40b", "a@b"},
        {"%61%40%62", "a@b"},
        {"a%2Fb%2f", "a/b/"},
        {"%", "%"},
        {"a%4", "a%4"},
        {"%4G%-1% 1", "%4G%-1% 1"},
        {"%25340", "%340"},
        {"a+b", "a+b"},
    };
    for (const auto& [url, id] : cases) {
        EXPECT_EQ(TzMimeContentIdHeader::decodeUrl(url), id);
    }
}
