// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"
#include "support/Throws.h"

#include <tz/mime/TzMimeContentType.h>
#include <tz/mime/TzMimeMultipartRelatedType.h>
#include <tz/mime/TzMimeTextType.h>
#include <tz/thread/TzTHRInvalidPointer.h>

#include <string>
#include <utility>

namespace {

/// The parameter `name` of the type that `text` states.
std::string parameterOf(const std::string& text, const char* name = "boundary") {
    return TzMimeContentType(text).getParameter(name);
}

} // namespace

TEST(TzMimeContentType, IsPlainTextByDefault) {
    EXPECT_EQ(TzMimeContentType().asString(), "text/plain");
}

TEST(TzMimeContentType, ReadsTypeAndSubtype) {
    const char* const texts[] = {"Multipart/Related", " Multipart/Related ;a=b",
                                 "(c) Multipart (d) / (e) Related (f)", "Multipart/Related;",
                                 "Multipart/\r\n Related\r\n"};
    for (const char* const text : texts) {
        const TzMimeContentType type{TzCString(text)};
        EXPECT_EQ(type.getPrimaryType(), "Multipart") << text;
        EXPECT_EQ(type.getSubtype(), "Related") << text;
        EXPECT_TRUE(type.matches("multipart", "RELATED")) << text;
        EXPECT_FALSE(type.matches("multipart", "mixed")) << text;
        EXPECT_FALSE(type.matches("text", "related")) << text;
    }
    EXPECT_EQ(TzMimeContentType(TzCString("text")).getPrimaryType(), "text");
    EXPECT_EQ(TzMimeContentType(TzCString("text")).getSubtype(), "");
    EXPECT_EQ(TzMimeContentType(TzCString()).getPrimaryType(), "");
    EXPECT_EQ(TzMimeContentType(TzCString("/x")).getSubtype(), "x");
}

TEST(TzMimeContentType, ReadsParameters) {
    const std::pair<const char*, const char*> cases[] = {
        {"a/b; boundary=x", "x"},
        {"a/b;BOUNDARY=x;c=d", "x"},
        {"a/b; boundary=\"x y\"", "x y"},
        {"a/b; boundary=\"x\\\"y\\\\\"", "x\"y\\"},
        {"a/b; boundary = x ; c=d", "x"},
        {"a/b; boundary=\"x;y\"; c=d", "x;y"},
        {"a/b; c=\"; boundary=no\"; boundary=x", "x"},
        {"a/b (; boundary=no); boundary=x", "x"},
        {"a/b; boundary (c) = (d (e)) x (f)", "x"},
        {"a/b; boundary=----=_Part_1.2", "----=_Part_1.2"},
        {"a/b; boundary=uuid:1-2", "uuid:1-2"},
        {"a/b; boundary=x; boundary=y", "x"},
        {"a/b; c; =d; ;boundary=x;", "x"},
        {"a/b; boundary=\"x", "x"},
        {"a/b; boundary=\"x\\", "x\\"},
        {"a/b; boundary=", ""},
        {"a/b; boundary", ""},
        {"a/b; boundary=\"\"", ""},
        {"a/b; boundary=x y", "x"},
        {"a/b;\r\n\tboundary=\"x\"\r\n", "x"},
        {"a/b; (open boundary=x", ""},
        {"", ""},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(parameterOf(text), value) << text;
    }
}

TEST(TzMimeContentType, JoinsContinuedParameters) {
    const std::pair<const char*, const char*> cases[] = {
        {"a/b; boundary*0=x; boundary*1=\"y z\"", "xy z"},
        {"a/b; boundary*1=y; BOUNDARY*0=x; c=d; boundary*2=z", "xyz"},
        {"a/b; boundary*0=x; boundary*2=z", "x"},
        {"a/b; boundary*1=y", ""},
        {"a/b; boundary*1=y; boundary=x", "x"},
        {"a/b; boundary=w; boundary*0=x; boundary*1=y", "xy"},
        {"a/b; boundary*=us-ascii'en'x%20%3d%ZZ%4", "x =%ZZ%4"},
        {"a/b; boundary*=x%20y", "x y"},
        {"a/b; boundary*=utf-8''x'y", "x'y"},
        {"a/b; boundary*0*=''x%41; boundary*1=%41; boundary*2*=%41'", "xA%41A'"},
        {"a/b; boundary*0=x; boundary*x=y; boundary*=z", "x"},
        {"a/b; boundary*99999999999=y", ""},
        {"a/b; boundary*-1=y; boundary*+1=y; *0=y; *=y", ""},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(parameterOf(text), value) << text;
    }
    std::string many = "a/b";
    for (int section = 11; section >= 0; --section) {
        many += "; boundary*" + std::to_string(section) + "=" + std::to_string(section) + ".";
    }
    EXPECT_EQ(parameterOf(many), "0.1.2.3.4.5.6.7.8.9.10.11.");
}

TEST(TzMimeContentType, KeepsItsTextUntilItIsChanged) {
    const std::string text = "Text/XML ; charset=utf-8 (c); x=\"a\\\"b\"";
    TzMimeContentType type(text);
    EXPECT_EQ(type.asString(), text);
    type.setParameter("Charset", "latin1");
    EXPECT_EQ(type.asString(), "Text/XML; charset=\"latin1\"; x=\"a\\\"b\"");
    type.setParameter("y", "\\");
    EXPECT_EQ(type.asString(), "Text/XML; charset=\"latin1\"; x=\"a\\\"b\"; y=\"\\\\\"");
    type.setParameter("X", "");
    EXPECT_EQ(type.asString(), "Text/XML; charset=\"latin1\"; y=\"\\\\\"");
    EXPECT_EQ(type.getParameter("x"), "");
}

TEST(TzMimeContentType, RemovingWhatIsNotThereChangesNothing) {
    TzMimeContentType type(TzCString("a/b; c=d"));
    type.setParameter("x", "");
    EXPECT_EQ(type.asString(), "a/b; c=d");
}

TEST(TzMimeContentType, IsSharedByCopies) {
    TzMimeContentType type("a", "b");
    const TzMimeContentType copy = type;
    type.setParameter("c", "d");
    EXPECT_EQ(copy.getParameter("C"), "d");
}

TEST(TzMimeContentType, CannotBeUsedAfterMove) {
    TzMimeContentType type("a", "b");
    const TzMimeContentType moved = std::move(type);
    EXPECT_EQ(moved.asString(), "a/b");
    // NOLINTNEXTLINE(bugprone-use-after-move)
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { return type.asString(); }), "Invalid pointer");
}

TEST(TzMimeContentType, ReadsHostileValues) {
    constexpr std::size_t count = 200000;
    EXPECT_EQ(parameterOf("a/b" + MimeTexts::repeated("; c=d", count) + "; boundary=x"), "x");
    EXPECT_EQ(parameterOf("a/b" + MimeTexts::repeated("(", count) + "; boundary=x"), "");
    EXPECT_EQ(parameterOf("a/b; boundary=x" + MimeTexts::repeated("(", count) +
                          MimeTexts::repeated(")", count)),
              "x");
    EXPECT_EQ(parameterOf("a/b" + MimeTexts::repeated(";\"", count) + ";boundary=x"), "x");
    std::string sections = "a/b";
    for (std::size_t section = count; section-- > 0;) {
        sections += ";boundary*" + std::to_string(section) + "=x";
    }
    EXPECT_EQ(parameterOf(sections), MimeTexts::repeated("x", count));
}

TEST(TzMimeTextType, HasACharset) {
    const TzMimeTextType type("xml", "UTF-8");
    EXPECT_EQ(type.asString(), "text/xml; charset=\"UTF-8\"");
    EXPECT_EQ(type.getCharset(), "UTF-8");
    EXPECT_EQ(TzMimeTextType("plain", "").asString(), "text/plain");
    EXPECT_EQ(TzMimeTextType(TzMimeContentType(TzCString("a/b;CHARSET=c"))).getCharset(), "c");
}

TEST(TzMimeMultipartRelatedType, HasFourParameters) {
    const TzMimeMultipartRelatedType type("info", "text/xml", "<root>", "bound");
    EXPECT_EQ(type.asString(), "multipart/related; boundary=\"bound\"; type=\"text/xml\"; "
                               "start=\"<root>\"; start-info=\"info\"");
    EXPECT_EQ(type.getStartInfo(), "info");
    EXPECT_EQ(type.getType(), "text/xml");
    EXPECT_EQ(type.getStart(), "<root>");
    EXPECT_EQ(type.getBoundary(), "bound");
    EXPECT_EQ(TzMimeMultipartRelatedType("", "text/xml", "", "b").asString(),
              "multipart/related; boundary=\"b\"; type=\"text/xml\"");
}

TEST(TzMimeMultipartRelatedType, ChangesTheTypeItWasMadeOf) {
    const TzMimeContentType plain(TzCString("Multipart/Related; start=a"));
    TzMimeMultipartRelatedType type(plain);
    EXPECT_EQ(type.getStart(), "a");
    EXPECT_EQ(type.getBoundary(), "");
    type.setBoundary("x");
    type.setType("text/xml");
    type.setStart("<b>");
    type.setStartInfo("i");
    EXPECT_EQ(plain.asString(), "Multipart/Related; start=\"<b>\"; boundary=\"x\"; "
                                "type=\"text/xml\"; start-info=\"i\"");
    type.setStart("");
    type.setStartInfo("");
    EXPECT_EQ(plain.asString(), "Multipart/Related; boundary=\"x\"; type=\"text/xml\"");
}

TEST(TzMimeMultipartRelatedType, TakesAnyMediaType) {
    EXPECT_EQ(TzMimeMultipartRelatedType(TzMimeContentType(TzCString("text/xml; boundary=x")))
                  .getBoundary(),
              "x");
}
