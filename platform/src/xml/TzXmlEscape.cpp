// SPDX-License-Identifier: MIT
#include "xml/TzXmlEscape.h"

#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace {

using TzXmlEscape::Checked;
using TzXmlEscape::FirstReference;
using TzXmlEscape::Plain;
using TzXmlEscape::Reference;
using TzXmlEscape::Refused;
using TzXmlEscape::TreatmentTable;

// By the numbers that the tables give.
constexpr std::string_view Referred = "&<>\r\"\t\n";
constexpr Reference References[] = {{"&amp;", 5},  {"&lt;", 4}, {"&gt;", 4}, {"&#13;", 5},
                                    {"&quot;", 6}, {"&#9;", 4}, {"&#10;", 5}};

/// The table of a context in which the first `references` of the references are written.
constexpr TreatmentTable makeTable(std::size_t references) {
    TreatmentTable table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        const bool isLineOrTab = byte == '\t' || byte == '\n' || byte == '\r';
        table[byte] = byte >= 0x80 ? Checked : byte < 0x20 && !isLineOrTab ? Refused : Plain;
    }
    for (std::size_t i = 0; i < references; ++i) {
        table[static_cast<unsigned char>(Referred[i])] =
            static_cast<std::uint8_t>(FirstReference + i);
    }
    return table;
}

// Readers turn CR and CR LF in content into LF, and TAB, LF and CR in attribute values into blanks.
constexpr TreatmentTable ContentTable = makeTable(4);
constexpr TreatmentTable AttributeValueTable = makeTable(Referred.size());

/// Position of the first byte from `at` on that is not plain.
std::size_t endOfPlain(std::string_view text, std::size_t at,
                       const TreatmentTable& table) noexcept {
    while (at < text.size()) {
        if (text.size() - at >= TzXmlBlock::Size && !TzXmlBlock::flags(text.data() + at).any()) {
            at += TzXmlBlock::Size;
        } else if (table[static_cast<unsigned char>(text[at])] == Plain) {
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

} // namespace

namespace TzXmlEscape {

const TreatmentTable& tableFor(Context context) noexcept {
    return context == Context::Content ? ContentTable : AttributeValueTable;
}

const Reference& referenceOf(std::uint8_t treatment) noexcept {
    return References[treatment - FirstReference];
}

void refuseControl(std::string_view text, std::size_t at) {
    refuseCharacter(static_cast<unsigned char>(text[at]), at);
}

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

bool isPlain(std::string_view text) noexcept {
    using Block = TzXmlBlock;
    if (text.size() < Block::Size) {
        return Block::isPlainShort(text.data(), text.size());
    }
    const char* const last = text.data() + text.size() - Block::Size;
    for (const char* at = text.data(); at < last; at += Block::Size) {
        if (Block::flags(at).any()) {
            return false;
        }
    }
    return !Block::flags(last).any();
}

std::string_view escape(std::string_view text, Context context, TzCString& buffer) {
    if (isPlain(text)) {
        return text;
    }
    const TreatmentTable& table = tableFor(context);
    buffer.clear();
    std::size_t begin = 0; // of the text that is not in the buffer yet
    std::size_t at = endOfPlain(text, 0, table);
    while (at < text.size()) {
        const std::uint8_t treatment = table[static_cast<unsigned char>(text[at])];
        if (treatment == Checked) {
            at += checkedLength(text, at);
        } else if (treatment >= FirstReference) {
            const Reference& reference = referenceOf(treatment);
            buffer.append(text, begin, at - begin);
            buffer.append(reference.text, reference.size);
            begin = ++at;
        } else {
            refuseControl(text, at);
        }
        at = endOfPlain(text, at, table);
    }
    return begin == 0 ? text : buffer.append(text, begin, text.size() - begin);
}

} // namespace TzXmlEscape
