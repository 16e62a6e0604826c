// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlOutputWriter.h>

#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlStringWriter.h>

#include "support/AllocationFailure.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Ready = TzXmlWriter::Ready;

/// A value in the form that elements are written from.
Ready ready(std::string_view markup) {
    Ready made;
    EXPECT_TRUE(made.set(markup));
    return made;
}

/// A text of ASCII, with references and characters of several bytes where `odd` says so.
std::string textOf(std::size_t size, bool odd, std::mt19937& random) {
    std::string text;
    while (text.size() < size) {
        const auto kind = random() % 60;
        text += odd && kind == 0   ? "&"
                : odd && kind == 1 ? "\u20AC"
                : odd && kind == 2 ? "\n"
                                   : "a";
    }
    return text;
}

/// Writes a bit of everything, the same for each writer.
void writeAll(TzXmlWriter& writer) {
    std::mt19937 random(3);
    const Ready start = ready("<a>");
    const Ready end = ready("</a>");
    const TzXmlWriter::Spelling name{"p", TzXmlWriter::Colon, "element"};
    for (int round = 0; round < 300; ++round) {
        const std::string text = textOf(random() % 400, random() % 2 == 0, random);
        writer.setIndentation(random() % 70);
        writer.writeElement(start, text, end);
        writer.writeElement(name, " c=\"1\">", text);
        writer.write(text, true);
        writer.writeAttribute("b", text);
        writer.writeReadyLine(end);
        if (round % 50 == 0) {
            writer.write(textOf(100000, round == 0, random), true);
            writer.write(textOf(100000, true, random), false);
            writer.setCompact(!writer.isCompact());
        }
    }
}

std::string expectedOfAll() {
    TzXmlStringWriter writer;
    writeAll(writer);
    return writer.takeString();
}

} // namespace

TEST(TzXmlOutputWriter, AppendsToTheTextOfItsCaller) {
    std::string text = "before";
    TzXmlOutputWriter writer(text);
    writer.writeMarkupLine("<a/>");
    writer.write("&", true);
    writer.finish();
    EXPECT_EQ(text, "before<a/>\n&amp;");
}

TEST(TzXmlOutputWriter, WritesTheSameToTextAndSink) {
    const std::string expected = expectedOfAll();
    std::string text;
    TzXmlOutputWriter toText(text);
    writeAll(toText);
    toText.finish();
    EXPECT_TRUE(text == expected);
    std::string joined;
    const auto take = [&joined](std::string_view piece) { joined += piece; };
    TzXmlOutputWriter toSink(take);
    writeAll(toSink);
    toSink.finish();
    EXPECT_TRUE(joined == expected);
}

TEST(TzXmlOutputWriter, GathersShortPieces) {
    std::vector<std::size_t> sizes;
    const auto take = [&sizes](std::string_view piece) { sizes.push_back(piece.size()); };
    TzXmlOutputWriter writer(take);
    for (int i = 0; i < 10000; ++i) {
        writer.writeMarkup("<", "element", "/>");
    }
    writer.finish();
    EXPECT_EQ(sizes.size(), 7U);
    for (const std::size_t size : sizes) {
        EXPECT_LE(size, TzXmlOutputWriter::Held);
    }
}

TEST(TzXmlOutputWriter, HandsLongPiecesOverFromWhereTheyLie) {
    const std::string text(1 << 20, 'x');
    std::size_t within = 0;
    const auto take = [&](std::string_view piece) {
        const bool lies = piece.data() >= text.data() && piece.data() < text.data() + text.size();
        within += lies ? piece.size() : 0;
    };
    TzXmlOutputWriter writer(take);
    writer.write(text, true);
    EXPECT_EQ(within, text.size());
    writer.write(text, false);
    EXPECT_EQ(within, 2 * text.size());
}

TEST(TzXmlOutputWriter, TakesNoMemoryForLongTexts) {
    std::mt19937 random(5);
    const std::string text = textOf(1 << 20, true, random);
    std::size_t written = 0;
    const auto take = [&written](std::string_view piece) { written += piece.size(); };
    const std::size_t before = askedBytes();
    TzXmlOutputWriter writer(take);
    writer.write(text, true);
    writer.finish();
    EXPECT_EQ(askedBytes() - before, TzXmlOutputWriter::Held);
    EXPECT_GT(written, text.size());
}

TEST(TzXmlOutputWriter, AppendsNothingOfATextItRefuses) {
    for (const std::size_t size : {10U, 3000U, 100000U}) {
        std::string text;
        TzXmlOutputWriter writer(text);
        writer.writeMarkupLine("<a>");
        writer.incrementIndent();
        const std::string bad = std::string(size, 'x') + "<\x01";
        EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { writer.write(bad, true); }),
                  "the character U+0001 at offset " + std::to_string(size + 1) +
                      " cannot stand in XML");
        EXPECT_EQ(textThrown<TzXmlBadArgError>(
                      [&] { writer.writeElement(ready("<b>"), bad, ready("</b>")); }),
                  "the character U+0001 at offset " + std::to_string(size + 1) +
                      " cannot stand in XML");
        EXPECT_EQ(textThrown<TzXmlBadArgError>([&] {
                      writer.writeElement({{}, {}, "b"}, ">", bad);
                  }),
                  "the character U+0001 at offset " + std::to_string(size + 1) +
                      " cannot stand in XML");
        writer.writeElement(ready("<c>"), "1", ready("</c>"));
        writer.writeElement({{}, {}, "d"}, ">", "2");
        writer.finish();
        EXPECT_EQ(text, "<a>\n  <c>1</c>\n  <d>2</d>\n") << size;
    }
}

TEST(TzXmlOutputWriter, WritesAnElementInOneGo) {
    const TzXmlWriter::Spelling qualified{"p", TzXmlWriter::Colon, "a"};
    const std::string longName(3000, 'n');
    std::string text;
    TzXmlOutputWriter writer(text);
    writer.writeElement(qualified, ">", "1");
    writer.incrementIndent();
    writer.writeElement(qualified, " t=\"x\">", "a<b & c");
    writer.writeElement({{}, {}, longName}, ">", "2");
    writer.setCompact(true);
    writer.writeElement(qualified, ">", "");
    writer.finish();
    EXPECT_EQ(text, "<p:a>1</p:a>\n"
                    "  <p:a t=\"x\">a&lt;b &amp; c</p:a>\n"
                    "  <" +
                        longName + ">2</" + longName +
                        ">\n"
                        "  <p:a></p:a>");
}

TEST(TzXmlOutputWriter, HandsNothingOverTwice) {
    std::string joined;
    int calls = 0;
    const auto take = [&](std::string_view piece) {
        if (++calls == 2) {
            throw std::runtime_error("full");
        }
        joined += piece;
    };
    TzXmlOutputWriter writer(take);
    writer.write(std::string(20000, 'a'));
    EXPECT_THROW(writer.write(std::string(20000, 'b')), std::runtime_error);
    writer.write("c");
    writer.finish();
    EXPECT_EQ(joined, std::string(20000, 'a') + "c");
}

TEST(TzXmlOutputWriter, GivesBackWhatItTookWithoutMemory) {
    const std::string text(5000, '&');
    failEachAllocation([&text] {
        std::string to;
        TzXmlOutputWriter writer(to);
        writer.write(text, true);
        writer.finish();
    });
    failEachAllocation([&text] {
        const auto take = [](std::string_view) {};
        TzXmlOutputWriter writer(take);
        writer.write(text, true);
        writer.finish();
    });
}

TEST(TzXmlReady, HoldsShortMarkup) {
    Ready markup;
    EXPECT_EQ(markup.text(), "");
    EXPECT_TRUE(markup.set("<", std::string("a"), ">"));
    EXPECT_EQ(markup.text(), "<a>");
    EXPECT_TRUE(markup.set(std::string(Ready::Most, 'x')));
    EXPECT_EQ(markup.text(), std::string(Ready::Most, 'x'));
    EXPECT_FALSE(markup.set(std::string(Ready::Most, 'x'), "y"));
    EXPECT_EQ(markup.text(), "");
}
