// SPDX-License-Identifier: MIT
#include "mime/TzMimeText.h"

namespace {

constexpr std::string_view breaks = "\r\n";

bool isLineEnd(char character) noexcept { return character == '\r' || character == '\n'; }

bool isSpace(char character) noexcept {
    return TzMimeText::isBlank(character) || isLineEnd(character);
}

/// Position behind the comment that begins at `position`; the end of `text` if nothing closes it.
std::size_t skipComment(std::string_view text, std::size_t position) noexcept {
    std::size_t depth = 0;
    for (; position < text.size(); ++position) {
        const char character = text[position];
        if (character == '\\') {
            ++position;
        } else if (character == '(') {
            ++depth;
        } else if (character == ')' && --depth == 0) {
            return position + 1;
        }
    }
    return text.size();
}

} // namespace

namespace TzMimeText {

Line lineAt(std::string_view text, std::size_t from) noexcept {
    const std::size_t feed = text.find('\n', from);
    if (feed == std::string_view::npos) {
        return {text.substr(from), text.size()};
    }
    const bool pair = feed > from && text[feed - 1] == '\r';
    return {text.substr(from, feed - from - (pair ? 1 : 0)), feed + 1};
}

std::string_view trim(std::string_view text) noexcept {
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

std::string_view trimEnd(std::string_view text) noexcept {
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool isLabelCharacter(char character) noexcept {
    return character > ' ' && character < '\x7f' && character != ':';
}

bool isTokenCharacter(char character) noexcept {
    constexpr std::string_view specials = "()<>@,;:\\\"/[]?=";
    return character > ' ' && character < '\x7f' &&
           specials.find(character) == std::string_view::npos;
}

std::size_t findColon(std::string_view line) noexcept {
    std::size_t position = 0;
    while (position < line.size() && isLabelCharacter(line[position])) {
        ++position;
    }
    if (position == 0) {
        return std::string_view::npos;
    }
    while (position < line.size() && isBlank(line[position])) {
        ++position;
    }
    return position < line.size() && line[position] == ':' ? position : std::string_view::npos;
}

bool isFolded(std::string_view raw) noexcept { return raw.find('\n') != std::string_view::npos; }

TzCString unfold(std::string_view raw, bool joined) {
    raw = trim(raw);
    TzCString value;
    value.reserve(raw.size());
    for (std::size_t from = 0; from < raw.size();) {
        const Line line = lineAt(raw, from);
        value.append(line.content);
        from = line.next;
        while (joined && from < raw.size() && isBlank(raw[from])) {
            ++from;
        }
    }
    return value;
}

void appendWithoutLineEnds(TzCString& out, std::string_view text) {
    for (;;) {
        const std::size_t end = text.find_first_of(breaks);
        out.append(text.substr(0, end));
        if (end == std::string_view::npos) {
            return;
        }
        text.remove_prefix(end + 1);
    }
}

std::size_t skipBlanksAndComments(std::string_view text, std::size_t from) noexcept {
    while (from < text.size() && (isSpace(text[from]) || text[from] == '(')) {
        from = text[from] == '(' ? skipComment(text, from) : from + 1;
    }
    return from;
}

TzCString readQuoted(std::string_view text, std::size_t& position) {
    TzCString value;
    for (++position; position < text.size(); ++position) {
        char character = text[position];
        if (character == '"') {
            ++position;
            break;
        }
        if (character == '\\' && position + 1 < text.size()) {
            character = text[++position];
        }
        value.push_back(character);
    }
    return value;
}

void appendQuoted(TzCString& out, std::string_view value) {
    out.push_back('"');
    for (const char character : value) {
        if (character == '"' || character == '\\') {
            out.push_back('\\');
        }
        out.push_back(character);
    }
    out.push_back('"');
}

} // namespace TzMimeText
