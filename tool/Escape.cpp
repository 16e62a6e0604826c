// SPDX-License-Identifier: MIT
#include "Escape.h"

#include <tz/tools/TzTextTools.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr std::string_view Digits = "0123456789abcdef";
constexpr std::string_view Replacement = "\xEF\xBF\xBD"; // U+FFFD

/// Characters with a short escape, in every form that is written.
struct Named {
    char character;
    char letter;
};

constexpr std::array<Named, 3> Names = {{{'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}}};

constexpr unsigned char byteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
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

/// Adds the character, or the byte that is not UTF-8, in a form that is safe on a terminal.
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
/// backslash before them.
template <typename Append>
std::string translate(std::string_view text, bool marked, const Append& append) {
    std::string out;
    out.reserve(text.size() + 2);
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t length =
            TzTextTools::characterLength(std::string_view(text).substr(position));
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
