// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlWriter.h>

#include <gtest/gtest.h>

#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlStringWriter.h>

#include "platform/xml/EventRecorder.h"
#include "support/Throws.h"

#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace std::string_literals;

std::string content(std::string_view text) {
    TzXmlStringWriter writer;
    writer.write(text, true);
    return writer.getString();
}

std::string value(std::string_view text) {
    TzXmlStringWriter writer;
    writer.writeAttribute("a", text);
    return writer.getString();
}

std::string contentRefusal(std::string_view text) {
    return textThrown<TzXmlBadArgError>([text] { content(text); });
}

std::string valueRefusal(std::string_view text) {
    return textThrown<TzXmlBadArgError>([text] { value(text); });
}

} // namespace

TEST(TzXmlWriter, HasTheMarkup) {
    EXPECT_EQ(TzXmlWriter::StartTag, "<");
    EXPECT_EQ(TzXmlWriter::EndTag, ">");
    EXPECT_EQ(TzXmlWriter::StartEndTag, "</");
    EXPECT_EQ(TzXmlWriter::UnpairedTag, "/>");
    EXPECT_EQ(TzXmlWriter::EqualToAndQuotes, "=\"");
    EXPECT_EQ(TzXmlWriter::Quotes, "\"");
    EXPECT_EQ(TzXmlWriter::Newline, "\n");
    EXPECT_EQ(TzXmlWriter::Colon, ":");
}

TEST(TzXmlWriter, WritesMarkupAsItStands) {
    TzXmlStringWriter writer;
    EXPECT_EQ(writer.getString(), "");
    writer.write("<a>&\x01\xFF");
    EXPECT_EQ(writer.getString(), "<a>&\x01\xFF");
    writer.write("</a>", false);
    EXPECT_EQ(writer.getString(), "<a>&\x01\xFF</a>");
}

TEST(TzXmlWriter, EscapesContent) {
    EXPECT_EQ(content(""), "");
    EXPECT_EQ(content("a<b>c&d\re"), "a&lt;b&gt;c&amp;d&#13;e");
    EXPECT_EQ(content("\"'\t\n\x7F"), "\"'\t\n\x7F");
    EXPECT_EQ(content("]]>"), "]]&gt;");
    EXPECT_EQ(content("&amp;"), "&amp;amp;");
    EXPECT_EQ(content("\r\n"), "&#13;\n");
}

TEST(TzXmlWriter, EscapesAttributeValues) {
    EXPECT_EQ(value(""), " a=\"\"");
    EXPECT_EQ(value("<>&\"\t\n\r'"), " a=\"&lt;&gt;&amp;&quot;&#9;&#10;&#13;'\"");
    EXPECT_EQ(value("12345678\"12345678\t"), " a=\"12345678&quot;12345678&#9;\"");
}

TEST(TzXmlWriter, EscapesAtEveryPlaceOfAWord) {
    for (std::size_t place = 0; place < 40; ++place) {
        for (const auto& [byte, reference] : std::vector<std::pair<char, std::string>>{
                 {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'\r', "&#13;"}}) {
            std::string text(40, 'x');
            text[place] = byte;
            EXPECT_EQ(content(text), std::string(text).replace(place, 1, reference));
        }
        std::string text(40, 'x');
        text[place] = '"';
        EXPECT_EQ(content(text), text);
        EXPECT_EQ(value(text), " a=\"" + std::string(text).replace(place, 1, "&quot;") + "\"");
        text[place] = '\x02';
        EXPECT_EQ(contentRefusal(text), "the character U+0002 at offset " + std::to_string(place) +
                                            " cannot stand in XML");
    }
}

TEST(TzXmlWriter, TreatsEveryAsciiCharacterAsXmlDoes) {
    for (int code = 0; code < 0x80; ++code) {
        const char byte = static_cast<char>(code);
        const std::string text = "12345678"s + byte + "12345678";
        const bool allowed = code >= 0x20 || code == '\t' || code == '\n' || code == '\r';
        if (!allowed) {
            EXPECT_NE(contentRefusal(text).find(" at offset 8 "), std::string::npos);
            EXPECT_NE(valueRefusal(text).find(" at offset 8 "), std::string::npos);
            continue;
        }
        EXPECT_EQ(content(text) == text, "&<>\r"s.find(byte) == std::string::npos) << code;
        EXPECT_EQ(value(text) == " a=\"" + text + "\"",
                  "&<>\r\t\n\""s.find(byte) == std::string::npos)
            << code;
    }
}

TEST(TzXmlWriter, KeepsCharactersOfSeveralBytes) {
    // The least and the greatest of each length, the neighbours of the surrogates and of U+FFFE.
    const std::string text = "\xC2\x80 \xDF\xBF \xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 "
                             "\xEF\xBF\xBD \xF0\x90\x80\x80 \xF0\x9F\xBF\xBE \xF4\x8F\xBF\xBF";
    EXPECT_EQ(content(text), text);
    EXPECT_EQ(value(text), " a=\"" + text + "\"");
    EXPECT_EQ(content("\xC3\xA4<\xC3\xB6&\xC3\xBC"), "\xC3\xA4&lt;\xC3\xB6&amp;\xC3\xBC");
}

TEST(TzXmlWriter, RefusesCharactersThatXmlDoesNotHave) {
    EXPECT_EQ(contentRefusal("abc\x01"), "the character U+0001 at offset 3 cannot stand in XML");
    EXPECT_EQ(contentRefusal("\0"s), "the character U+0000 at offset 0 cannot stand in XML");
    EXPECT_EQ(valueRefusal("<<\x1F"), "the character U+001F at offset 2 cannot stand in XML");
    EXPECT_EQ(contentRefusal("\xC3\xA4\xEF\xBF\xBE"),
              "the character U+FFFE at offset 2 cannot stand in XML");
    EXPECT_EQ(valueRefusal("\xEF\xBF\xBF"), "the character U+FFFF at offset 0 cannot stand in XML");
}

TEST(TzXmlWriter, RefusesWhatIsNotUtf8) {
    const std::vector<std::string> wrong = {
        "\x80",             // a follower alone
        "\xBF",             // likewise
        "\xC0\x80",         // longer than needed
        "\xC1\xBF",         // likewise
        "\xE0\x9F\xBF",     // likewise
        "\xF0\x8F\xBF\xBF", // likewise
        "\xED\xA0\x80",     // a surrogate
        "\xED\xBF\xBF",     // likewise
        "\xF4\x90\x80\x80", // beyond the last character
        "\xF5\x80\x80\x80", // likewise
        "\xFE",             // never in UTF-8
        "\xFF",             // likewise
        "\xC3",             // cut off
        "\xE2\x82",         // likewise
        "\xF0\x9F\x98",     // likewise
        "\xC3(",            // a character instead of a follower
        "\xE2\x82(",        // likewise
        "\xF0\x9F\x98(",    // likewise
    };
    for (const std::string& bytes : wrong) {
        const std::string message = contentRefusal("12345" + bytes);
        EXPECT_EQ(message.substr(message.find(' ', 11)), " at offset 5 is not UTF-8");
        EXPECT_EQ(valueRefusal("12345" + bytes), message);
        if (bytes.size() > 1 && bytes.back() != '(') {
            EXPECT_EQ(contentRefusal("12345" + bytes + "x"), message);
        }
    }
    EXPECT_EQ(contentRefusal("\xC0\x80"), "the byte 0xC0 at offset 0 is not UTF-8");
    EXPECT_EQ(contentRefusal("a\xFF"), "the byte 0xFF at offset 1 is not UTF-8");
}

TEST(TzXmlWriter, RefusedTextLeavesNothingBehind) {
    TzXmlStringWriter writer;
    writer.setIndentation(2);
    writer.write("<a>");
    writer.writeNewLine();
    const std::string refusal = "the character U+0001 at offset 7 cannot stand in XML";
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { writer.write("good < \x01", true); }), refusal);
    EXPECT_EQ(writer.getString(), "<a>\n");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { writer.writeAttribute("name", "good < \x01"); }),
              refusal);
    EXPECT_EQ(writer.getString(), "<a>\n");
    // The line is still to be indented.
    writer.write("text", true);
    EXPECT_EQ(writer.getString(), "<a>\n  text");
}

TEST(TzXmlWriter, UnescapedValuesAreNotChecked) {
    TzXmlStringWriter writer;
    writer.writeAttribute("a", "<&\x01\xFF", false);
    EXPECT_EQ(writer.getString(), " a=\"<&\x01\xFF\"");
}

TEST(TzXmlWriter, IndentsByTheIndentationInForceAtTheFirstText) {
    TzXmlStringWriter writer;
    EXPECT_EQ(writer.getIndentation(), 0U);
    EXPECT_EQ(writer.getIndentationStep(), 2U);
    writer.write("<a>");
    writer.writeNewLine();
    writer.setIndentation(writer.getIndentation() + writer.getIndentationStep());
    writer.write("<b>");
    writer.writeNewLine();
    writer.incrementIndent();
    EXPECT_EQ(writer.getIndentation(), 4U);
    writer.write("<c/>");
    writer.writeNewLine();
    writer.decrementIndent();
    writer.write("</b>");
    writer.writeNewLine();
    writer.decrementIndent();
    writer.write("</a>");
    EXPECT_EQ(writer.getString(), "<a>\n  <b>\n    <c/>\n  </b>\n</a>");
}

TEST(TzXmlWriter, IndentsOnlyLinesOfItsOwn) {
    TzXmlStringWriter writer;
    writer.setIndentation(4);
    writer.write("<a>one\ntwo", false);
    writer.write("\nthree", true);
    EXPECT_EQ(writer.getString(), "<a>one\ntwo\nthree");
    writer.writeNewLine();
    writer.write("", false);
    writer.write("", true);
    writer.write("");
    EXPECT_EQ(writer.getString(), "<a>one\ntwo\nthree\n");
    writer.writeNewLine();
    writer.writeAttribute("b", "c");
    EXPECT_EQ(writer.getString(), "<a>one\ntwo\nthree\n\n     b=\"c\"");
}

TEST(TzXmlWriter, IndentsByThirtyTwoStepsAtMost) {
    const auto indentationAt = [](std::size_t step, std::size_t levels) {
        TzXmlStringWriter writer;
        writer.setIndentationStep(step);
        for (std::size_t level = 0; level < levels; ++level) {
            writer.incrementIndent();
        }
        writer.writeNewLine();
        writer.write("<a>");
        EXPECT_EQ(writer.getIndentation(), step * levels);
        return writer.getString().size() - 4;
    };
    EXPECT_EQ(indentationAt(2, 31), 62U);
    EXPECT_EQ(indentationAt(2, 32), 64U);
    EXPECT_EQ(indentationAt(2, 33), 64U);
    EXPECT_EQ(indentationAt(2, 100000), 64U);
    EXPECT_EQ(indentationAt(1, 100), 64U);
    EXPECT_EQ(indentationAt(8, 100), 256U);
    EXPECT_EQ(indentationAt(0, 100), 0U);
    TzXmlStringWriter writer;
    writer.setIndentationStep(0);
    writer.setIndentation(3);
    writer.writeNewLine();
    writer.write("<a>");
    EXPECT_EQ(writer.getString(), "\n   <a>");
}

TEST(TzXmlWriter, CompactLayoutHasNoLineEndsAndNoIndentation) {
    TzXmlStringWriter writer;
    EXPECT_FALSE(writer.isCompact());
    writer.setCompact(true);
    EXPECT_TRUE(writer.isCompact());
    writer.writeMarkupLine("<a>");
    writer.incrementIndent();
    writer.write("<b>");
    writer.write("x\n y", true);
    writer.writeMarkupLine("</b>");
    writer.decrementIndent();
    writer.write("</a>");
    writer.writeNewLine();
    EXPECT_EQ(writer.getString(), "<a><b>x\n y</b></a>");
    TzXmlStringWriter copy(writer);
    EXPECT_TRUE(copy.isCompact());
    copy.setCompact(false);
    copy.writeNewLine();
    copy.incrementIndent();
    copy.write("<c/>");
    EXPECT_EQ(copy.getString(), "<a><b>x\n y</b></a>\n  <c/>");
}

TEST(TzXmlWriter, IndentationStopsAtZero) {
    TzXmlStringWriter writer;
    writer.setIndentationStep(3);
    EXPECT_EQ(writer.getIndentationStep(), 3U);
    writer.setIndentation(4);
    writer.decrementIndent();
    EXPECT_EQ(writer.getIndentation(), 1U);
    writer.decrementIndent();
    EXPECT_EQ(writer.getIndentation(), 0U);
    writer.decrementIndent();
    EXPECT_EQ(writer.getIndentation(), 0U);
}

TEST(TzXmlWriter, IndentsDeeply) {
    for (const std::size_t blanks : {31U, 32U, 33U, 64U, 5000U}) {
        TzXmlStringWriter writer;
        writer.setIndentationStep(blanks);
        writer.writeNewLine();
        writer.setIndentation(blanks);
        writer.write("x");
        EXPECT_EQ(writer.getString(), "\n" + std::string(blanks, ' ') + "x");
    }
}

TEST(TzXmlWriter, WritesTextsOfEveryLength) {
    TzXmlStringWriter writer;
    std::string expected;
    for (std::size_t length = 0; length < 5000; length += 37) {
        const std::string text(length, static_cast<char>('a' + length % 26));
        writer.write(text, length % 2 == 0);
        expected += text;
        if (length % 3 == 0) {
            EXPECT_EQ(writer.getString(), expected) << length;
        }
    }
    EXPECT_EQ(writer.getString(), expected);
}

TEST(TzXmlWriter, WritesTheRestOfAnElement) {
    // What a text needs that is copied at once, escaped, and handed on from where it lies; and with
    // hardly any room left for it.
    for (const std::size_t before : {0U, 2000U, 2030U, 2040U, 2047U}) {
        for (const std::string& text :
             {""s, "a"s, std::string(20, 'b'), "<"s, std::string(3000, 'c')}) {
            for (const TzXmlWriter::Spelling& name :
                 {TzXmlWriter::Spelling{"", "", "local"},
                  TzXmlWriter::Spelling{"a-long-prefix", TzXmlWriter::Colon, "local-part"}}) {
                TzXmlStringWriter writer;
                writer.write(std::string(before, '-'));
                writer.writeRest(text, name);
                const std::string tag =
                    std::string(name.prefix) + std::string(name.colon) + std::string(name.local);
                EXPECT_EQ(writer.getString(),
                          std::string(before, '-') + content(text) + "</" + tag + ">\n");
            }
        }
    }
}

TEST(TzXmlWriter, RefusesTheRestOfAnElement) {
    TzXmlStringWriter writer;
    writer.write("<a>");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] {
                  writer.writeRest("good \x01", {"", "", "a"});
              }),
              "the character U+0001 at offset 5 cannot stand in XML");
    EXPECT_EQ(writer.getString(), "<a>");
}

TEST(TzXmlWriter, WritesNamesAmongMarkup) {
    TzXmlStringWriter writer;
    std::string expected;
    for (int i = 0; i < 500; ++i) { // more than is gathered
        writer.writeMarkup(TzXmlWriter::StartTag,
                           TzXmlWriter::Spelling{"p", TzXmlWriter::Colon, "n"},
                           TzXmlWriter::UnpairedTag, TzXmlWriter::Spelling{"", "", "m"});
        expected += "<p:n/>m";
    }
    EXPECT_EQ(writer.getString(), expected);
}

TEST(TzXmlWriter, AttributesTakeEverythingWithHardlyAnyRoom) {
    for (std::size_t before = 1950; before <= 2048; ++before) {
        for (const char* text : {"", "plain", "a long value that needs no escaping", "<"}) {
            TzXmlStringWriter writer;
            writer.write(std::string(before, '-'));
            writer.writeQualifiedAttribute("p", "n", text);
            EXPECT_EQ(writer.getString(),
                      std::string(before, '-') + " p:n=\"" + (*text == '<' ? "&lt;" : text) + '"');
        }
    }
}

TEST(TzXmlWriter, WrittenTextReadsBack) {
    const std::string text = "<&>\"'\t\n\r \xE2\x82\xAC ]]> \r\n end";
    TzXmlStringWriter writer;
    writer.write("<a");
    writer.writeAttribute("b", text);
    writer.write(">");
    writer.write(text, true);
    writer.write("</a>");
    EXPECT_EQ(eventsOf(writer.getString()),
              (Events{"<a b=" + text + ">", "[" + text + "]", "</a>"}));
}

TEST(TzXmlStringWriter, HandsItsTextOver) {
    TzXmlStringWriter writer;
    writer.write("one");
    EXPECT_EQ(writer.takeString(), "one");
    EXPECT_EQ(writer.getString(), "");
    writer.write("two");
    EXPECT_EQ(writer.getString(), "two");
}

TEST(TzXmlStringWriter, TextCanBeReplaced) {
    TzXmlStringWriter writer;
    writer.setIndentation(2);
    writer.write("one");
    writer.writeNewLine();
    writer.setString("two");
    writer.write("three");
    EXPECT_EQ(writer.getString(), "twothree");
}
