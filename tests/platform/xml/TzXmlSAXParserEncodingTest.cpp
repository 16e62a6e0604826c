// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlSAXParser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/xml/EventRecorder.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using testing::ElementsAre;
using namespace std::string_literals;

/// A form that a text is put into before it is read.
struct Form {
    const char* name;
    std::size_t unit;
    bool bigEndian;
};

constexpr Form Utf16Le = {"UTF-16LE", 2, false};
constexpr Form Utf16Be = {"UTF-16BE", 2, true};
constexpr Form Utf32Le = {"UTF-32LE", 4, false};
constexpr Form Utf32Be = {"UTF-32BE", 4, true};
constexpr Form Forms[] = {Utf16Le, Utf16Be, Utf32Le, Utf32Be};

void appendUnit(std::string& bytes, std::uint32_t unit, const Form& form) {
    for (std::size_t i = 0; i < form.unit; ++i) {
        const std::size_t place = form.bigEndian ? form.unit - 1 - i : i;
        bytes += static_cast<char>(unit >> (8 * place) & 0xFF);
    }
}

/// `text` as units; in UTF-16 characters beyond the first 65536 become surrogates.
std::string encoded(std::u32string_view text, const Form& form) {
    std::string bytes;
    for (const char32_t code : text) {
        if (form.unit == 2 && code > 0xFFFF) {
            appendUnit(bytes, 0xD800 + ((code - 0x10000) >> 10), form);
            appendUnit(bytes, 0xDC00 + ((code - 0x10000) & 0x3FF), form);
        } else {
            appendUnit(bytes, code, form);
        }
    }
    return bytes;
}

std::string declared(const std::string& encoding, const std::string& content) {
    return "<?xml version='1.0' encoding='" + encoding + "'?>\n<a>" + content + "</a>";
}

/// The text of the only element of `document`.
std::string textOf(const std::string& document) {
    const Events events = eventsOf(document);
    for (const std::string& event : events) {
        if (event.front() == '[') {
            return event.substr(1, event.size() - 2);
        }
    }
    return "no text";
}

} // namespace

TEST(TzXmlSAXParserEncoding, ReadsWideTextsInBothOrders) {
    const std::u32string document =
        U"<a x='\u00E4'>A\u00DF\u20AC\uD7FF\uE000\U0001F600\U0010FFFD</a>";
    for (const Form& form : Forms) {
        for (const bool mark : {false, true}) {
            const std::string bytes = encoded((mark ? U"\uFEFF" : U"") + document, form);
            EXPECT_THAT(eventsOf(bytes),
                        ElementsAre("<a x=\xC3\xA4>",
                                    "[A\xC3\x9F\xE2\x82\xAC\xED\x9F\xBF\xEE\x80\x80\xF0\x9F\x98\x80"
                                    "\xF4\x8F\xBF\xBD]",
                                    "</a>"))
                << form.name << mark;
        }
    }
}

TEST(TzXmlSAXParserEncoding, WideTextsMayDeclareAnything) {
    for (const Form& form : Forms) {
        for (const std::u32string name : {U"UTF-16", U"UTF-32", U"UTF-8", U"ISO-8859-1"}) {
            const std::u32string document =
                U"<?xml version='1.0' encoding='" + name + U"'?><a>\u20AC</a>";
            EXPECT_EQ(textOf(encoded(document, form)), "\xE2\x82\xAC") << form.name;
            EXPECT_EQ(textOf(encoded(U"\uFEFF" + document, form)), "\xE2\x82\xAC") << form.name;
        }
    }
}

TEST(TzXmlSAXParserEncoding, ReadsShortAndOddWideTexts) {
    for (const Form& form : Forms) {
        EXPECT_THAT(eventsOf(encoded(U" <a/>", form)), ElementsAre("<a>", "[]", "</a>"));
        EXPECT_EQ(refusal(encoded(U"<", form)), "1:1 unclosed token") << form.name;
        EXPECT_EQ(refusal(encoded(U"\uFEFF", form)), "1:1 no element found") << form.name;
    }
    // One of the few that do not begin with two ASCII characters.
    EXPECT_THAT(eventsOf(encoded(U"<\u6162/>", Utf16Le)),
                ElementsAre("<\xE6\x85\xA2>", "[]", "</\xE6\x85\xA2>"));
    EXPECT_THAT(eventsOf(encoded(U"<\u6162/>", Utf16Be)),
                ElementsAre("<\xE6\x85\xA2>", "[]", "</\xE6\x85\xA2>"));
}

TEST(TzXmlSAXParserEncoding, PairsOfSurrogatesMayStandAcrossPieces) {
    std::u32string content;
    std::string expected;
    for (int i = 0; i < 200'000; ++i) {
        content += U'\U0001F600';
        expected += "\xF0\x9F\x98\x80";
    }
    for (const std::u32string name : {U"a", U"ab"}) {
        const std::u32string document = U"<" + name + U">" + content + U"</" + name + U">";
        for (const Form& form : Forms) {
            EXPECT_EQ(textOf(encoded(document, form)), expected) << form.name;
        }
    }
}

TEST(TzXmlSAXParserEncoding, RefusesUnpairedSurrogates) {
    const std::string reason = "2:2 not well-formed (invalid token)";
    for (const Form& form : Forms) {
        for (const std::vector<std::uint32_t>& units :
             std::vector<std::vector<std::uint32_t>>{{0xD800},
                                                     {0xDBFF, 'x'},
                                                     {0xDC00},
                                                     {0xDFFF, 'x'},
                                                     {0xD800, 0xD800, 0xDC00},
                                                     {0xDC00, 0xD800}}) {
            std::string bytes = encoded(U"<a>\nx", form);
            for (const std::uint32_t unit : units) {
                appendUnit(bytes, unit, form);
            }
            EXPECT_EQ(refusal(bytes + encoded(U"</a>", form)), reason) << form.name;
            EXPECT_EQ(refusal(bytes), reason) << form.name;
        }
    }
}

TEST(TzXmlSAXParserEncoding, RefusesWhatIsNoCharacter) {
    for (const Form& form : Forms) {
        for (const char32_t code : {0x0U, 0x1U, 0xBU, 0xFFFEU, 0xFFFFU}) {
            EXPECT_EQ(refusal(encoded(U"<a>\n"s.append(1, code) + U"</a>", form)),
                      "2:1 not well-formed (invalid token)")
                << form.name << " " << static_cast<unsigned>(code);
        }
    }
    for (const Form& form : {Utf32Le, Utf32Be}) {
        for (const char32_t code : {0x110000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
            EXPECT_EQ(refusal(encoded(U"<a>\n"s.append(1, code) + U"</a>", form)),
                      "2:1 not well-formed (invalid token)")
                << form.name;
        }
    }
}

TEST(TzXmlSAXParserEncoding, RefusesUnitsCutOff) {
    for (const Form& form : Forms) {
        const std::string bytes = encoded(U"<a/>\n", form);
        for (std::size_t extra = 1; extra < form.unit; ++extra) {
            EXPECT_EQ(refusal(bytes + std::string(extra, '\x20')),
                      "2:1 not well-formed (invalid token)")
                << form.name;
        }
    }
}

TEST(TzXmlSAXParserEncoding, Utf8MayHaveAMark) {
    EXPECT_EQ(textOf("\xEF\xBB\xBF<a>\xE2\x82\xAC</a>"), "\xE2\x82\xAC");
    EXPECT_EQ(textOf("\xEF\xBB\xBF" + declared("UTF-8", "\xE2\x82\xAC")), "\xE2\x82\xAC");
    // The byte-order mark wins over the declaration.
    EXPECT_EQ(textOf("\xEF\xBB\xBF" + declared("ISO-8859-1", "\xE2\x82\xAC")), "\xE2\x82\xAC");
    EXPECT_EQ(refusal("\xEF\xBB\xBF"), "1:1 no element found");
    EXPECT_EQ(refusal("\xEF\xBB\xBF<a>\xFF</a>"), "1:4 not well-formed (invalid token)");
}

TEST(TzXmlSAXParserEncoding, RefusesASecondMark) {
    EXPECT_EQ(refusal("\xEF\xBB\xBF\xEF\xBB\xBF<a/>"), "1:1 there is a second byte-order mark");
    for (const Form& form : Forms) {
        EXPECT_EQ(refusal(encoded(U"\uFEFF\uFEFF<a/>", form)),
                  "1:1 there is a second byte-order mark")
            << form.name;
    }
}

TEST(TzXmlSAXParserEncoding, ReadsSingleByteEncodings) {
    EXPECT_EQ(textOf(declared("UTF-8", "\xE2\x82\xAC")), "\xE2\x82\xAC");
    EXPECT_EQ(textOf(declared("ISO-8859-1", "\xE4\x80\xFF")), "\xC3\xA4\xC2\x80\xC3\xBF");
    EXPECT_EQ(textOf(declared("iso-8859-1", "\xE4")), "\xC3\xA4");
    EXPECT_EQ(textOf(declared("US-ASCII", "abc")), "abc");
    EXPECT_EQ(textOf(declared("windows-1252", "\x80\x93\xE4\x94")),
              "\xE2\x82\xAC\xE2\x80\x9C\xC3\xA4\xE2\x80\x9D");
    EXPECT_EQ(textOf(declared("Windows-1252", "\x80")), "\xE2\x82\xAC");
    EXPECT_EQ(textOf(declared("ISO-8859-15", "\xA4\xE4")), "\xE2\x82\xAC\xC3\xA4");
    EXPECT_EQ(textOf(declared("KOI8-R", "\xD0\xD2")), "\xD0\xBF\xD1\x80");
    EXPECT_EQ(textOf(declared("windows-1251", "\xEF\xF0")), "\xD0\xBF\xD1\x80");
}

TEST(TzXmlSAXParserEncoding, NamesAndAttributesAreDecodedToo) {
    EXPECT_THAT(eventsOf("<?xml version='1.0' encoding='windows-1252'?><\xE4 \xFC='\x80'/>"),
                ElementsAre("<?xml version=\"1.0\" encoding=\"windows-1252\"?>",
                            "<\xC3\xA4 \xC3\xBC=\xE2\x82\xAC>", "[]", "</\xC3\xA4>"));
}

TEST(TzXmlSAXParserEncoding, RefusesBytesThatAnEncodingDoesNotHave) {
    EXPECT_EQ(refusal(declared("US-ASCII", "x\x80")), "2:5 not well-formed (invalid token)");
    EXPECT_EQ(refusal(declared("windows-1252", "\x81")), "2:4 not well-formed (invalid token)");
}

TEST(TzXmlSAXParserEncoding, RefusesEncodingsItCannotRead) {
    for (const char* name : {"no-such-encoding", "Shift_JIS", "EUC-JP", "GB2312", "GB18030", "Big5",
                             "UTF-7", "ISO-2022-JP", "UTF-32", "UCS-2", "UCS-4", "IBM037"}) {
        EXPECT_EQ(refusal(declared(name, "x")), "1:31 unknown encoding") << name;
    }
    EXPECT_EQ(refusal(declared("UTF-16", "x")),
              "1:31 encoding specified in XML declaration is incorrect");
}

TEST(TzXmlSAXParserEncoding, SaysWhichEncodingItCannotRead) {
    TestedParser parser;
    try {
        parser.parse(declared("no-such-encoding", "x"));
        ADD_FAILURE() << "accepted";
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.describe(),
                  "unknown encoding, line 1, column 31 (the encoding is \"no-such-encoding\")");
    }
}

TEST(TzXmlSAXParserEncoding, TheEnvironmentDecidesNothing) {
    // Where the C library would find conversions of its own.
    const std::string folder = testing::TempDir() + "tzsoap-gconv";
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "/gconv-modules") << "alias FOOENC// ISO-8859-5//\n";
    setenv("GCONV_PATH", folder.c_str(), 1);
    EXPECT_EQ(refusal(declared("FOOENC", "x")), "1:31 unknown encoding");
    EXPECT_EQ(textOf(declared("koi8-r", "\xD0")), "\xD0\xBF");
    unsetenv("GCONV_PATH");
    std::filesystem::remove_all(folder);
}

TEST(TzXmlSAXParserEncoding, RefusesTextsInAnotherEncodingThanDeclared) {
    EXPECT_EQ(refusal(declared("UTF-8", "\xE4 ")), "2:4 not well-formed (invalid token)");
    EXPECT_EQ(refusal("<a>\xE4 </a>"), "1:4 not well-formed (invalid token)");
}

TEST(TzXmlSAXParserEncoding, RefusesWrongUtf8) {
    for (const std::string& bytes : {
             "\xC0\x80"s,         // longer than needed
             "\xC1\xBF"s,         // likewise
             "\xE0\x80\x80"s,     // likewise
             "\xE0\x9F\xBF"s,     // likewise
             "\xF0\x80\x80\x80"s, // likewise
             "\xF0\x8F\xBF\xBF"s, // likewise
             "\xED\xA0\x80"s,     // a surrogate
             "\xED\xBF\xBF"s,     // likewise
             "\xF4\x90\x80\x80"s, // beyond the last character
             "\xF8\x88\x80\x80"s, // never in UTF-8
             "\xFE"s,             // likewise
             "\xFF"s,             // likewise
             "\x80"s,             // a follower alone
             "\xC3("s,            // a character instead of a follower
             "\xEF\xBF\xBE"s,     // not characters of XML
             "\xEF\xBF\xBF"s,     // likewise
             "\0"s,               // likewise
             "\x01"s,             // likewise
             "\x1F"s,             // likewise
         }) {
        EXPECT_EQ(refusal("<a>\n \xC3\xA4" + bytes + "</a>"), "2:3 not well-formed (invalid token)")
            << testing::PrintToString(bytes);
        EXPECT_EQ(refusal("<a b='" + bytes + "'/>"), "1:7 not well-formed (invalid token)")
            << testing::PrintToString(bytes);
        EXPECT_EQ(refusal("<!--" + bytes + "--><a/>").substr(0, 2), "1:")
            << testing::PrintToString(bytes);
    }
    EXPECT_EQ(refusal("\0\0\0\0"s).substr(0, 2), "1:");
    EXPECT_EQ(refusal("<\0"s), "1:1 unclosed token"); // the beginning of UTF-16
    EXPECT_EQ(refusal("<a>\0</a>"s), "1:4 not well-formed (invalid token)");
    EXPECT_EQ(refusal("<a/>\0"s), "1:5 not well-formed (invalid token)");
}
