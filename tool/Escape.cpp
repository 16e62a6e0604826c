// SPDX-License-Identifier: MIT
#include "Escape.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr std::string_view Digits = "0123456789abcdef";
constexpr std::string_view Replacement = "\xEF\xBF\xBD"; // U+FFFD

/// Characters with an escape of their own, in every form that is written.
struct Named {
    char character;
    char letter;
};

constexpr std::array<Named, 3> Names = {{{'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}}};

constexpr unsigned char byteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

constexpr bool isBetween(unsigned char byte, unsigned char low, unsigned char high) {
    return byte >= low && byte <= high;
}

/// How a character of UTF-8 that begins with these bytes goes on (RFC 3629, 4).
struct Sequence {
    unsigned char first;
    unsigned char last;
    std::size_t length;
    unsigned char secondLow;
    unsigned char secondHigh;
};

constexpr std::array<Sequence, 9> Sequences = {{
    {0x00, 0x7F, 1, 0x80, 0xBF},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
}};

bool continues(std::string_view text, std::size_t position, const Sequence& sequence) {
    if (text.size() - position < sequence.length) {
        return false;
    }
    for (std::size_t i = 1; i < sequence.length; ++i) {
        const bool second = i == 1;
        if (!isBetween(byteAt(text, position + i), second ? sequence.secondLow : 0x80,
                       second ? sequence.secondHigh : 0xBF)) {
            return false;
        }
    }
    return true;
}

/// The length of the character at `position`, 0 when the byte there begins none.
std::size_t characterAt(std::string_view text, std::size_t position) {
    const unsigned char byte = byteAt(text, position);
    const auto* const found =
        std::find_if(Sequences.begin(), Sequences.end(), [byte](const Sequence& entry) {
            return isBetween(byte, entry.first, entry.last);
        });
    return found != Sequences.end() && continues(text, position, *found) ? found->length : 0;
}

void appendHex(std::string& out, std::string_view prefix, unsigned char byte) {
    out.append(prefix);
    out.push_back(Digits[byte >> 4U]);
    out.push_back(Digits[byte & 0xFU]);
}

bool appendNamed(std::string& out, char character) {
    const auto* const found =
        std::find_if(Names.begin(), Names.end(),
                     [character](const Named& entry) { return entry.character == character; });
    if (found == Names.end()) {
        return false;
    }
    out.push_back('\\');
    out.push_back(found->letter);
    return true;
}

/// Whether `character` is one of the controls U+0080 to U+009F.
bool isHighControl(std::string_view character) {
    return character.size() == 2 && byteAt(character, 0) == 0xC2 && byteAt(character, 1) < 0xA0;
}

bool isControl(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

/// Adds the character, or the byte that is none, as it may stand on a terminal.
void appendVisible(std::string& out, std::string_view character, bool isCharacter) {
    const unsigned char byte = byteAt(character, 0);
    if (!isCharacter || (isControl(character.front()) && !appendNamed(out, character.front()))) {
        appendHex(out, "\\x", byte);
    } else if (isHighControl(character)) {
        appendHex(out, "\\u00", byteAt(character, 1));
    } else if (!isControl(character.front())) {
        out.append(character);
    }
}

void appendJson(std::string& out, std::string_view character, bool isCharacter) {
    if (!isCharacter) {
        out.append(Replacement);
    } else if (!isControl(character.front()) || character.front() == 0x7F) {
        out.append(character);
    } else if (!appendNamed(out, character.front())) {
        appendHex(out, "\\u00", byteAt(character, 0));
    }
}

/// Calls `append` with every character of `text`; with `marked`, quotes and backslashes get a
/// backslash in front.
template <typename Append>
std::string translate(std::string_view text, bool marked, const Append& append) {
    std::string out;
    out.reserve(text.size() + 2);
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t length = characterAt(text, position);
        const std::string_view character = text.substr(position, std::max<std::size_t>(length, 1));
        if (marked && (character == "\"" || character == "\\")) {
            out.push_back('\\');
        }
        append(out, character, length != 0);
        position += character.size();
    }
    return out;
}

} // namespace

std::string escape::forTerminal(std::string_view text) {
    return translate(text, false, appendVisible);
}

std::string escape::quoted(std::string_view text) {
    return '"' + translate(text, true, appendVisible) + '"';
}

std::string escape::json(std::string_view text) {
    return '"' + translate(text, true, appendJson) + '"';
}
