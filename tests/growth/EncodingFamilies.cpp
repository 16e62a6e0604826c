// SPDX-License-Identifier: MIT
#include "growth/Building.h"
#include "growth/Families.h"

namespace growth {

namespace {

std::string twoBytes(std::size_t bytes) {
    return soap11(fill(bytes, "<a>\xC3\xBC\xC3\xB6\xC3\xA4</a>"));
}

std::string fourBytes(std::size_t bytes) {
    return soap11("<a>" + fill(bytes, "\xF0\x9F\x98\x80") + "</a>");
}

std::string names(std::size_t bytes) {
    return soap11(fill(bytes, "<\xC3\xBC\xE4\xB8\x80>1</\xC3\xBC\xE4\xB8\x80>"));
}

/// ASCII characters with two bytes each, the low one first.
std::string utf16(const std::string& text) {
    std::string wide = "\xFF\xFE";
    for (const char c : text) {
        wide += c;
        wide += '\0';
    }
    return wide;
}

std::string wideValues(std::size_t bytes) {
    return utf16(soap11(fill(bytes / 2, "<a xsi:type='xsd:int'>1</a>")));
}

std::string wideText(std::size_t bytes) {
    return utf16(soap11("<a>" + std::string(bytes / 2, 't') + "</a>"));
}

std::string stating(const char* encoding, const std::string& text) {
    return "<?xml version='1.0' encoding='" + std::string(encoding) + "'?>" + text;
}

std::string latin(std::size_t bytes) {
    return stating("ISO-8859-1", soap11(fill(bytes, "<a>\xFC\xF6\xE4</a>")));
}

std::string latinText(std::size_t bytes) {
    return stating("ISO-8859-1", soap11("<a>" + fill(bytes, "\xFC") + "</a>"));
}

std::string windows(std::size_t bytes) {
    return stating("windows-1252", soap11(fill(bytes, "<a>\x80\xFC</a>")));
}

} // namespace

Families encodings() {
    return {
        {"EncodingOfUmlauts", "texts in a European language", twoBytes},
        {"EncodingOfFourBytes", "texts of pictures", fourBytes},
        {"EncodingOfNames", "element names in other scripts", names},
        {"EncodingOfTwoBytesPerCharacter", "a producer that writes UTF-16", wideValues},
        {"EncodingOfOneLongTextInTwoBytes", "the same with one text", wideText},
        {"EncodingOfLatin1", "an old producer", latin},
        {"EncodingOfOneLongTextInLatin1", "the same with one text", latinText},
        {"EncodingOfWindows", "an old producer on Windows", windows},
    };
}

} // namespace growth
