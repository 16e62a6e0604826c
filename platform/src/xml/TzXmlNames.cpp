// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlUtils.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

/// The first and the last of a row of characters.
struct Range {
    char32_t first;
    char32_t last;
};

// XML 1.0, fifth edition, productions [4] and [4a], without the characters of ASCII.
constexpr Range StartRanges[] = {
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};
constexpr Range FurtherRanges[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

constexpr unsigned char Starts = 1; ///< Such a byte may begin a name.
constexpr unsigned char Stands = 2; ///< Such a byte may stand in a name.

constexpr std::array<unsigned char, 256> makeTable() {
    std::array<unsigned char, 256> table{}; // nothing for what is not ASCII
    for (const char byte :
         std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_:")) {
        table[static_cast<unsigned char>(byte)] = Starts | Stands;
    }
    for (const char byte : std::string_view("0123456789-.")) {
        table[static_cast<unsigned char>(byte)] = Stands;
    }
    return table;
}

constexpr std::array<unsigned char, 256> Table = makeTable();

template <std::size_t Size> bool isIn(const Range (&ranges)[Size], char32_t code) noexcept {
    return std::any_of(std::begin(ranges), std::end(ranges), [code](const Range& range) {
        return code >= range.first && code <= range.last;
    });
}

/// The character of several bytes at the beginning of `text`, which is taken off it; 0 when the
/// bytes are not UTF-8.
char32_t takeCharacter(std::string_view& text) noexcept {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t size = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (size == 0 || first > 0xF4 || text.size() < size) {
        return 0;
    }
    char32_t code = first & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80) {
            return 0;
        }
        code = (code << 6) | (byte & 0x3FU);
    }
    text.remove_prefix(size);
    // Surrogates and what is longer than needed are in no row of names beyond this.
    const bool isShortest = code >= (size == 2 ? 0x80U : size == 3 ? 0x800U : 0x10000U);
    return isShortest ? code : 0;
}

/// Takes one character off `text`; whether it is one that `role` allows.
bool takes(std::string_view& text, unsigned char role) noexcept {
    const auto byte = static_cast<unsigned char>(text.front());
    if (byte < 0x80) {
        text.remove_prefix(1);
        return (Table[byte] & role) != 0;
    }
    const char32_t code = takeCharacter(text);
    return isIn(StartRanges, code) || (role == Stands && isIn(FurtherRanges, code));
}

} // namespace

bool TzXmlUtils::isName(std::string_view text) noexcept {
    return !text.empty() && takes(text, Starts) && (text.empty() || isNameToken(text));
}

bool TzXmlUtils::isNameToken(std::string_view text) noexcept {
    // Most names have no other characters.
    const bool isAscii = std::all_of(text.begin(), text.end(), [](char character) {
        return (Table[static_cast<unsigned char>(character)] & Stands) != 0;
    });
    if (isAscii) {
        return !text.empty();
    }
    while (!text.empty()) {
        if (!takes(text, Stands)) {
            return false;
        }
    }
    return true;
}

bool TzXmlUtils::isQualifiedName(std::string_view prefix, std::string_view localName) noexcept {
    return prefix.empty() ? isName(localName) : isName(prefix) && isNameToken(localName);
}
