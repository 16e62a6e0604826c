// SPDX-License-Identifier: MIT
#include "support/Throws.h"
#include <tz/xml/TzXmlStringWriter.h>

#include <tz/xml/TzXmlBadArgError.h>

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(TzXmlWriterPieces, AppendsPiecesOfEveryLength) {
    std::string expected;
    TzXmlStringWriter writer;
    for (std::size_t size = 0; size < 5000; size = size < 70 ? size + 1 : size * 2 + 1) {
        std::string piece;
        for (std::size_t i = 0; i < size; ++i) {
            piece += static_cast<char>('a' + (i * 7 + size) % 26);
        }
        writer.writeMarkup("[", piece, std::string_view(), piece, "]");
        expected += "[" + piece + piece + "]";
    }
    EXPECT_EQ(writer.getString(), expected);
}

TEST(TzXmlWriterPieces, GrowsToLargeTexts) {
    std::string expected;
    TzXmlStringWriter writer;
    for (int i = 0; i < 200000; ++i) {
        const std::string number = std::to_string(i);
        writer.writeMarkupLine("<", number, "/>");
        expected += "<" + number + "/>\n";
    }
    const std::string large(1 << 20, 'x');
    writer.writeMarkup("<", large, ">");
    expected += "<" + large + ">";
    EXPECT_EQ(writer.getString(), expected);
    EXPECT_EQ(writer.takeString(), expected);
    EXPECT_EQ(writer.getString(), "");
}

TEST(TzXmlWriterPieces, IndentsLinesOfPieces) {
    TzXmlStringWriter writer;
    for (const std::size_t blanks : {0U, 1U, 31U, 32U, 33U, 64U}) {
        writer.setIndentation(blanks);
        writer.writeMarkupLine("<", std::to_string(blanks), ">");
    }
    EXPECT_EQ(writer.getString(), "<0>\n <1>\n" + std::string(31, ' ') + "<31>\n" +
                                      std::string(32, ' ') + "<32>\n" + std::string(33, ' ') +
                                      "<33>\n" + std::string(64, ' ') + "<64>\n");
}

TEST(TzXmlWriterPieces, SpellsAttributeNamesInTwoParts) {
    TzXmlStringWriter writer;
    writer.writeQualifiedAttribute("p", "a", "<\"\t");
    writer.writeQualifiedAttribute("", "b", "2");
    EXPECT_EQ(writer.getString(), " p:a=\"&lt;&quot;&#9;\" b=\"2\"");
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>([&] { writer.writeQualifiedAttribute("", "c", "\x01"); }),
        "the character U+0001 at offset 0 cannot stand in XML");
}

TEST(TzXmlWriterPieces, KnowsPlainText) {
    // Each character that is not plain, at every place of texts of every short length.
    for (const char odd : {'&', '<', '>', '"', '\r', '\n', '\t', '\x01', '\x80', '\xFF'}) {
        for (std::size_t size = 1; size < 40; ++size) {
            for (std::size_t at = 0; at < size; ++at) {
                std::string text(size, 'a');
                ASSERT_TRUE(TzXmlWriter::isPlain(text));
                text[at] = odd;
                ASSERT_FALSE(TzXmlWriter::isPlain(text)) << size << " " << at;
            }
        }
    }
    EXPECT_TRUE(TzXmlWriter::isPlain(""));
}

TEST(TzXmlWriterPieces, GivesEscapedContent) {
    TzXmlStringWriter writer;
    const std::string plain = "plain text";
    EXPECT_EQ(writer.escaped(plain).data(), plain.data());
    EXPECT_EQ(writer.escaped("a<b"), "a&lt;b");
    EXPECT_EQ(writer.getString(), "");
}

TEST(TzXmlWriterPieces, CopiesStandWhereTheOriginalDoes) {
    TzXmlStringWriter writer;
    writer.setIndentationStep(3);
    writer.incrementIndent();
    writer.writeMarkupLine("<a>");
    TzXmlStringWriter copy(writer);
    TzXmlStringWriter assigned;
    assigned.write("lost");
    assigned = writer;
    TzXmlStringWriter& same = assigned;
    assigned = same;
    writer.write("<b>");
    copy.write("<c>");
    assigned.write("<d>");
    EXPECT_EQ(writer.getString(), "<a>\n   <b>");
    EXPECT_EQ(copy.getString(), "<a>\n   <c>");
    EXPECT_EQ(assigned.getString(), "<a>\n   <d>");
    EXPECT_EQ(copy.getIndentationStep(), 3U);
}

} // namespace
