// SPDX-License-Identifier: MIT
#include "xml/TzXmlEscape.h"

#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

/// What is done with a byte.
enum class Treatment : unsigned char {
    Plain,    ///< Written as it stands.
    Replaced, ///< Written as a reference.
    Refused,  ///< A character that XML does not have.
    Checked,  ///< Begins a character of several bytes, or should.
};

using TreatmentTable = std::array<Treatment, 256>;

constexpr TreatmentTable makeTable(std::string_view replaced) {
    TreatmentTable table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        const bool isLineOrTab = byte == '\t' || byte == '\n' || byte == '\r';
        table[byte] = byte >= 0x80                  ? Treatment::Checked
                      : byte < 0x20 && !isLineOrTab ? Treatment::Refused
                                                    : Treatment::Plain;
    }
    for (const char byte : replaced) {
        table[static_cast<unsigned char>(byte)] = Treatment::Replaced;
    }
    return table;
}

// Readers turn CR and CR LF in content into LF, and TAB, LF and CR in attribute values into blanks.
constexpr TreatmentTable ContentTable = makeTable("&<>\r");
constexpr TreatmentTable AttributeValueTable = makeTable("&<>\r\"\t\n");

std::string_view referenceFor(char byte) noexcept {
    switch (byte) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\t':
        return "&#9;";
    case '\n':
        return "&#10;";
    default:
        return "&#13;";
    }
}

constexpr std::size_t WordSize = sizeof(std::uint64_t);

constexpr std::uint64_t everyByte(unsigned char byte) { return byte * (~std::uint64_t{0} / 0xFF); }

/// Sets the top bit of some byte when a byte of `word` is zero.
constexpr std::uint64_t zeroBytes(std::uint64_t word) {
    return (word - everyByte(0x01)) & ~word & everyByte(0x80);
}

template <typename Word> Word loadAt(const char* bytes) noexcept {
    Word word = 0;
    std::memcpy(&word, bytes, sizeof(Word));
    return word;
}

/// Whether all of the next `WordSize` bytes are plain in every context; only quick, not complete.
bool isPlainWord(const char* bytes) noexcept {
    const auto word = loadAt<std::uint64_t>(bytes);
    const std::uint64_t notAscii = word & everyByte(0x80);
    const std::uint64_t controls = (word - everyByte(0x20)) & ~word & everyByte(0x80);
    // One test finds two characters: '<' and '>' differ in one bit only, and so do '&' and '"'.
    const std::uint64_t brackets = zeroBytes((word | everyByte('<' ^ '>')) ^ everyByte('>'));
    const std::uint64_t others = zeroBytes((word | everyByte('&' ^ '"')) ^ everyByte('&'));
    return (notAscii | controls | brackets | others) == 0;
}

/// Whether a text shorter than a word is plain in every context; only quick, as for a word.
bool isPlainShort(std::string_view text) noexcept {
    const std::size_t size = text.size();
    std::array<char, WordSize> word{'0', '0', '0', '0', '0', '0', '0', '0'};
    if (size >= 4) {
        const auto first = loadAt<std::uint32_t>(text.data());
        const auto last = loadAt<std::uint32_t>(text.data() + size - 4);
        std::memcpy(word.data(), &first, 4);
        std::memcpy(word.data() + 4, &last, 4);
    } else if (size != 0) {
        word[0] = text[0];
        word[1] = text[size / 2];
        word[2] = text[size - 1];
    }
    return isPlainWord(word.data());
}

Treatment treatmentOf(char byte, const TreatmentTable& table) noexcept {
    return table[static_cast<unsigned char>(byte)];
}

/// Position of the first byte from `at` on that is not plain.
std::size_t endOfPlain(std::string_view text, std::size_t at,
                       const TreatmentTable& table) noexcept {
    while (at < text.size()) {
        if (text.size() - at >= WordSize && isPlainWord(text.data() + at)) {
            at += WordSize;
        } else if (treatmentOf(text[at], table) == Treatment::Plain) {
            ++at;
        } else {
            break;
        }
    }
    return at;
}

TzCString hexadecimal(unsigned value, std::size_t width) {
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
    TzCString text(digits.data(), end);
    text.insert(0, width - std::min(width, text.size()), '0');
    for (char& digit : text) {
        digit = digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
    }
    return text;
}

[[noreturn]] void refuseCharacter(unsigned code, std::size_t offset) {
    throw TzXmlBadArgError(TzMessage("the character U+" + hexadecimal(code, 4) + " at offset " +
                                     std::to_string(offset) + " cannot stand in XML"));
}

[[noreturn]] void refuseByte(char byte, std::size_t offset) {
    throw TzXmlBadArgError(TzMessage("the byte 0x" +
                                     hexadecimal(static_cast<unsigned char>(byte), 2) +
                                     " at offset " + std::to_string(offset) + " is not UTF-8"));
}

/// Bytes of the character at `at`; throws when XML cannot hold it.
std::size_t checkedLength(std::string_view text, std::size_t at) {
    const std::size_t length = TzTextTools::characterLength(text.substr(at));
    if (length == 0) {
        refuseByte(text[at], at);
    }
    if (text.substr(at, 2) == "\xEF\xBF" && static_cast<unsigned char>(text[at + 2]) >= 0xBE) {
        refuseCharacter(text[at + 2] == '\xBE' ? 0xFFFE : 0xFFFF, at);
    }
    return length;
}

} // namespace

namespace TzXmlEscape {

bool isPlain(std::string_view text) noexcept {
    if (text.size() < WordSize) {
        return isPlainShort(text);
    }
    const char* const last = text.data() + text.size() - WordSize;
    for (const char* at = text.data(); at < last; at += WordSize) {
        if (!isPlainWord(at)) {
            return false;
        }
    }
    return isPlainWord(last);
}

std::string_view escape(std::string_view text, Context context, TzCString& buffer) {
    if (isPlain(text)) {
        return text;
    }
    const TreatmentTable& table = context == Context::Content ? ContentTable : AttributeValueTable;
    buffer.clear();
    std::size_t begin = 0; // of the text that is not in the buffer yet
    std::size_t at = endOfPlain(text, 0, table);
    while (at < text.size()) {
        const Treatment treatment = treatmentOf(text[at], table);
        if (treatment == Treatment::Checked) {
            at += checkedLength(text, at);
        } else if (treatment == Treatment::Replaced) {
            buffer.append(text, begin, at - begin);
            buffer.append(referenceFor(text[at]));
            begin = ++at;
        } else {
            refuseCharacter(static_cast<unsigned char>(text[at]), at);
        }
        at = endOfPlain(text, at, table);
    }
    return begin == 0 ? text : buffer.append(text, begin, text.size() - begin);
}

} // namespace TzXmlEscape
