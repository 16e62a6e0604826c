// SPDX-License-Identifier: MIT
#include "platform/xml/ScanTexts.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace std::string_view_literals;

constexpr std::string_view Names[] = {"a",
                                      "b",
                                      "item",
                                      "p:a",
                                      "q:item",
                                      ":",
                                      "_x-1.y",
                                      "A",
                                      "a:b:c",
                                      ":a",
                                      "a:",
                                      "xml:id",
                                      "x",
                                      "longNameOfAnElement",
                                      "item1",
                                      "item2",
                                      "Envelope",
                                      "e:Body",
                                      "p:1",
                                      "xmlnsx",
                                      "aVeryLongNameThatIsLongerThanFortyEightBytes_aVery",
                                      "p:item",
                                      "quantity"};

constexpr std::string_view AttributeNames[] = {
    "a",        "b",    "c",     "id",      "p:a",           "q:a",
    "xsi:type", "href", "xmlns", "xmlns:p", "xmlns:q",       "xmlns:xsi",
    "xml:lang", "x",    "y",     "z",       "longName",      "aa",
    "ab",       "A",    "_",     ":x",      "encodingStyle", "w.1-2"};

constexpr std::string_view Uris[] = {
    "", "u", "urn:p", "http://example.com/a", "urn:q", "http://www.w3.org/XML/1998/namespace"};

constexpr std::string_view Plain[] = {"1",
                                      "text",
                                      "some words of text",
                                      " ",
                                      "0123456789abcdef",
                                      ">",
                                      "]",
                                      "]]",
                                      "x ] y",
                                      "\x7F",
                                      "the quick brown fox jumps over the lazy dog",
                                      "-",
                                      "--",
                                      "?",
                                      "=",
                                      ";",
                                      "#",
                                      "/",
                                      "!",
                                      "%"};

constexpr std::string_view Wide[] = {
    "\xC3\xA9"sv,         "\xC2\x80"sv,         "\xDF\xBF"sv,         "\xE0\xA0\x80"sv,
    "\xED\x9F\xBF"sv,     "\xEE\x80\x80"sv,     "\xEF\xBF\xBD"sv,     "\xE4\xB8\xAD\xE6\x96\x87"sv,
    "\xF0\x90\x80\x80"sv, "\xF4\x8F\xBF\xBF"sv, "\xF0\x9F\x98\x80"sv, "\xEF\xBB\xBF"sv};

constexpr std::string_view Breaks[] = {"\n", "\r", "\r\n", "\t", "\n    ", "\n\r", "  ", "\r\r\n"};

constexpr std::string_view References[] = {"&lt;",
                                           "&gt;",
                                           "&amp;",
                                           "&quot;",
                                           "&apos;",
                                           "&#65;",
                                           "&#x41;",
                                           "&#9;",
                                           "&#10;",
                                           "&#13;",
                                           "&#xD7FF;",
                                           "&#x10FFFF;",
                                           "&#xE000;",
                                           "&#xFFFD;",
                                           "&#32;",
                                           "&#x20;",
                                           "&#127;",
                                           "&#x00e9;",
                                           "&#x10000;",
                                           "&#0000000000000000000065;",
                                           "&#xAbCdEf"
                                           ";"};

/// What mistakes are made of.
constexpr std::string_view Tokens[] = {"<",
                                       ">",
                                       "/",
                                       "&",
                                       ";",
                                       "=",
                                       "\"",
                                       "'",
                                       " ",
                                       "!",
                                       "?",
                                       "-",
                                       "]",
                                       "[",
                                       ":",
                                       "x",
                                       "1",
                                       ".",
                                       "#",
                                       "<!--",
                                       "-->",
                                       "--",
                                       "--->",
                                       "<!-",
                                       "<![CDATA[",
                                       "]]>",
                                       "]]",
                                       "<![CDATA",
                                       "<?",
                                       "?>",
                                       "<?xml ",
                                       "<?xml",
                                       "<?XML ?>",
                                       "<?xMl?>",
                                       "<?p?>",
                                       "<?p d?>",
                                       "<?p\xC3\xA9?>",
                                       "<?xml-s a?>",
                                       "<?xml version='1.0'?>",
                                       "<?xml version=\"1.1\"?>",
                                       " encoding='UTF-8'",
                                       " encoding='utf-8'",
                                       " encoding='ISO-8859-1'",
                                       " encoding=\"US-ASCII\"",
                                       " encoding='UTF-16'",
                                       " encoding='x y'",
                                       " standalone='yes'",
                                       " standalone='no'",
                                       " standalone='maybe'",
                                       "version",
                                       "1.0",
                                       "<!DOCTYPE a>",
                                       "<!DOCTYPE a [<!ENTITY e 'x'>]>",
                                       "<!ELEMENT a ANY>",
                                       "<a>",
                                       "</a>",
                                       "<a/>",
                                       "<b>",
                                       "</b>",
                                       "</a >",
                                       "<a ",
                                       "< a>",
                                       "</ a>",
                                       "<a / >",
                                       "<a x='1'y='2'/>",
                                       "<a b>",
                                       "<a b=>",
                                       "<a b=c>",
                                       "<a b='<'/>",
                                       "<a b='&'/>",
                                       "<a a='' a=''/>",
                                       "a=''",
                                       " a='1'",
                                       " a = \"1\"",
                                       "\ta\n=\r'1'",
                                       " p:a='1'",
                                       " xmlns:p='urn:p'",
                                       " xmlns=''",
                                       " xmlns:xml='u'",
                                       " xmlns:p=\"urn:q\"",
                                       "&lt;",
                                       "&lt",
                                       "&amp;",
                                       "&quot;",
                                       "&apos;",
                                       "&foo;",
                                       "&;",
                                       "& ",
                                       "&#",
                                       "&#;",
                                       "&#x",
                                       "&#x;",
                                       "&#65;",
                                       "&#x41;",
                                       "&#X41;",
                                       "&#65",
                                       "&#0;",
                                       "&#1;",
                                       "&#8;",
                                       "&#x1F;",
                                       "&#xD800;",
                                       "&#xDFFF;",
                                       "&#xFFFE;",
                                       "&#xFFFF;",
                                       "&#x110000;",
                                       "&#1114112;",
                                       "&#x100000041;",
                                       "&#4294967361;",
                                       "&#6a;",
                                       "&#xg;",
                                       "&#-1;",
                                       "&#x1FFFE;",
                                       "&lt:",
                                       "&ltx;",
                                       "&Lt;",
                                       "\r",
                                       "\n",
                                       "\r\n",
                                       "\t",
                                       "\0"sv,
                                       "\x01",
                                       "\x08",
                                       "\x0B",
                                       "\x0C",
                                       "\x1F",
                                       "\x7F",
                                       "\x80",
                                       "\xBF",
                                       "\xC0\x80"sv,
                                       "\xC1\xBF",
                                       "\xC2",
                                       "\xC2\x41",
                                       "\xC3\xA9",
                                       "\xDF\xC0",
                                       "\xE0\x80\x80",
                                       "\xE0\x9F\xBF",
                                       "\xE0\xA0",
                                       "\xE1\x80\x41",
                                       "\xE1\x41\x80",
                                       "\xED\xA0\x80",
                                       "\xED\xBF\xBF",
                                       "\xEF\xBF\xBE",
                                       "\xEF\xBF\xBF",
                                       "\xEF\xBF\xBD",
                                       "\xEF\xBB\xBF",
                                       "\xF0\x80\x80\x80",
                                       "\xF0\x8F\xBF\xBF",
                                       "\xF0\x90\x80",
                                       "\xF0\x90\x80\x80",
                                       "\xF1\x80\x80\xC0",
                                       "\xF4\x90\x80\x80",
                                       "\xF4\x8F\xBF\xBE",
                                       "\xF5\x80\x80\x80",
                                       "\xF8\x88\x80\x80\x80",
                                       "\xFE",
                                       "\xFF",
                                       "\xFF\xFE",
                                       "\xFE\xFF",
                                       "<\xC3\xA9>",
                                       "<a\xC3\xA9/>",
                                       "<a \xC3\xA9='1'/>",
                                       "<1>",
                                       "<->",
                                       "<.>",
                                       "<a.-1/>",
                                       "<a\x7F/>",
                                       "<_/>",
                                       "</a\n>",
                                       "</ab>",
                                       "</>",
                                       "<>",
                                       "<//a>"};

} // namespace

std::size_t ScanTexts::below(std::size_t bound) noexcept {
    // The mixing of SplitMix64.
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = (state_ ^ state_ >> 30) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EBU;
    return static_cast<std::size_t>(((mixed ^ mixed >> 31) >> 32) * bound >> 32);
}

const std::string& ScanTexts::next() {
    constexpr std::size_t Lengths[] = {30, 100, 150, 210, 240};
    text_.clear();
    wanted_ = Lengths[below(std::size(Lengths))];
    const std::size_t kind = below(16);
    if (kind == 0) {
        writeTokens();
        return text_;
    }
    writeDocument();
    if (kind > 7) {
        for (std::size_t mistakes = 1 + below(2); mistakes > 0; --mistakes) {
            spoilOnce();
        }
    }
    return text_;
}

const std::string& ScanTexts::spoil(std::string_view text) {
    text_ = text;
    for (std::size_t mistakes = 1 + below(3); mistakes > 0; --mistakes) {
        spoilOnce();
    }
    return text_;
}

void ScanTexts::writeDocument() {
    if (oneIn(16)) {
        text_ += "\xEF\xBB\xBF";
    }
    if (oneIn(3)) {
        writeDeclaration();
    }
    writeMisc();
    writeElement(0);
    writeMisc();
}

void ScanTexts::writeDeclaration() {
    constexpr std::string_view Blanks[] = {" ", " ", " ", "\n", "\r\n", "\t ", "  "};
    constexpr std::string_view Equals[] = {"=", "=", "=", " = ", "\n=", "=\t"};
    constexpr std::string_view Encodings[] = {"UTF-8",    "UTF-8",      "utf-8",        "Utf-8",
                                              "US-ASCII", "ISO-8859-1", "windows-1252", "none"};
    const auto attribute = [&](std::string_view name, std::string_view value) {
        const char quote = oneIn(2) ? '"' : '\'';
        text_ += oneOf(Blanks);
        (text_ += name) += oneOf(Equals);
        ((text_ += quote) += value) += quote;
    };
    text_ += "<?xml";
    attribute("version", oneIn(40) ? "1.1" : "1.0");
    if (!oneIn(3)) {
        attribute("encoding", Encodings[below(oneIn(4) ? std::size(Encodings) : 4)]);
    }
    if (oneIn(3)) {
        attribute("standalone", oneIn(2) ? "yes" : "no");
    }
    if (oneIn(4)) {
        text_ += oneOf(Blanks);
    }
    text_ += "?>";
}

void ScanTexts::writeMisc() {
    while (oneIn(3)) {
        switch (below(3)) {
        case 0:
            writeComment();
            break;
        case 1:
            writeInstruction();
            break;
        default:
            text_ += oneOf(Breaks);
        }
    }
}

void ScanTexts::writeElement(std::size_t depth) {
    const std::string_view name = oneOf(Names);
    (text_ += '<') += name;
    writeAttributes();
    if (oneIn(8)) {
        text_ += oneOf(Breaks);
    }
    if (oneIn(depth == 0 ? 50 : 5)) {
        text_ += "/>";
        return;
    }
    text_ += '>';
    writeContent(depth + 1);
    (text_ += "</") += name;
    if (oneIn(8)) {
        text_ += oneOf(Breaks);
    }
    text_ += '>';
}

void ScanTexts::writeAttributes() {
    constexpr std::size_t Count = std::size(AttributeNames);
    if (oneIn(2)) {
        return;
    }
    // A step that has no divisor in common with the number of names: no name comes twice.
    const std::size_t number = oneIn(20) ? below(Count) : 1 + below(3);
    const std::size_t first = below(Count);
    const std::size_t step = oneIn(2) ? 5 : 7;
    for (std::size_t i = 0; i < number; ++i) {
        const std::string_view name = AttributeNames[(first + i * step) % Count];
        text_ += oneIn(6) ? oneOf(Breaks) : " "sv;
        (text_ += name) += oneIn(12) ? " = "sv : "="sv;
        const char quote = oneIn(2) ? '"' : '\'';
        text_ += quote;
        if (name.starts_with("xmlns")) {
            text_ += Uris[name == "xmlns" ? below(5) : 1 + below(oneIn(40) ? 5 : 4)];
        } else {
            writeValue(quote);
        }
        text_ += quote;
    }
}

void ScanTexts::writeValue(char quote) {
    const std::size_t pieces = below(oneIn(6) ? 6 : 3);
    for (std::size_t i = 0; i < pieces; ++i) {
        if (oneIn(10)) {
            text_ += quote == '"' ? '\'' : '"';
        } else {
            writeText(true);
        }
    }
}

void ScanTexts::writeContent(std::size_t depth) {
    constexpr std::size_t Deepest = 8;
    do {
        switch (below(12)) {
        case 0:
            writeComment();
            break;
        case 1:
            writeInstruction();
            break;
        case 2:
            writeSection();
            break;
        case 3:
        case 4:
        case 5:
        case 6:
            if (depth < Deepest) {
                const std::size_t begin = text_.size();
                writeElement(depth);
                repeatFrom(begin);
            }
            break;
        default:
            writeText(false);
        }
    } while (depth == 1 ? text_.size() < wanted_ : oneIn(2));
}

/// Some elements come again and again.
void ScanTexts::repeatFrom(std::size_t begin) {
    constexpr std::size_t Longest = 100;
    const std::string element = text_.substr(begin);
    while (element.size() <= Longest && oneIn(3)) {
        text_ += element;
    }
}

/// One piece, in which "]]>" cannot come about.
void ScanTexts::writeText(bool isValue) {
    switch (below(8)) {
    case 0:
        text_ += oneOf(Breaks);
        break;
    case 1:
        writeReference();
        break;
    case 2:
        text_ += oneOf(Wide);
        break;
    default:
        text_ += oneOf(Plain);
        if (!isValue && text_.ends_with("]]")) {
            text_ += ' ';
        }
    }
}

void ScanTexts::writeReference() {
    text_ += References[below(std::size(References) - (oneIn(50) ? 0 : 1))];
}

void ScanTexts::writeComment() {
    text_ += "<!--";
    while (oneIn(2)) {
        switch (below(4)) {
        case 0:
            text_ += oneOf(Breaks);
            break;
        case 1:
            text_ += oneOf(Wide);
            break;
        default:
            text_ += "- &<>]"[below(6)];
            text_ += 'c';
        }
    }
    text_ += "-->";
}

void ScanTexts::writeInstruction() {
    (text_ += "<?") += oneIn(8) ? "xml-stylesheet"sv : Names[below(8)];
    if (oneIn(2)) {
        text_ += oneOf(Breaks);
        while (oneIn(2)) {
            text_ += oneIn(3) ? oneOf(Wide) : oneOf(Plain);
            text_ += ' ';
        }
    }
    text_ += "?>";
}

void ScanTexts::writeSection() {
    text_ += "<![CDATA[";
    while (!oneIn(3)) {
        switch (below(4)) {
        case 0:
            text_ += oneOf(Breaks);
            break;
        case 1:
            text_ += oneOf(Wide);
            break;
        case 2:
            text_ += "&<>-"[below(4)];
            break;
        default:
            text_ += oneOf(Plain);
            if (text_.ends_with("]]")) {
                text_ += ' ';
            }
        }
    }
    text_ += "]]>";
}

void ScanTexts::writeTokens() {
    do {
        text_ += oneIn(4) ? oneOf(Plain) : oneOf(Tokens);
    } while (text_.size() < wanted_ && !oneIn(12));
}

void ScanTexts::spoilOnce() {
    const std::size_t at = below(text_.size() + 1);
    const std::size_t length = std::min(1 + below(oneIn(4) ? 20 : 3), text_.size() - at);
    switch (below(8)) {
    case 0:
        text_.erase(at, length);
        break;
    case 1:
        text_.replace(at, length, oneOf(Tokens));
        break;
    case 2:
        text_.insert(at, text_.substr(at, length));
        break;
    case 3:
        text_.resize(at);
        break;
    case 4:
        if (length > 0) {
            text_[at] = static_cast<char>(below(256));
        }
        break;
    case 5:
        if (length > 0) {
            text_[at] = static_cast<char>(text_[at] ^ (1 << below(8)));
        }
        break;
    default:
        text_.insert(at, oneOf(Tokens));
    }
}
