// SPDX-License-Identifier: MIT
#include "mime/TzMimeText.h"

#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzXmlUtils.h>

#include <algorithm>
#include <optional>

namespace {

constexpr std::string_view LineBreaks = "\r\n";

/// Position after the comment that begins at `position`; the end of `text` if it is not closed.
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
    constexpr std::string_view Specials = "()<>@,;:\\\"/[]?=";
    return character > ' ' && character < '\x7f' &&
           Specials.find(character) == std::string_view::npos;
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

int compareLabels(std::string_view left, std::string_view right) noexcept {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t position = 0; position < common; ++position) {
        const int difference =
            TzTextTools::toLower(left[position]) - TzTextTools::toLower(right[position]);
        if (difference != 0) {
            return difference;
        }
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

const char* findBareReturn(std::string_view text) noexcept {
    std::size_t found = text.find('\r');
    while (found != std::string_view::npos && text.substr(found).starts_with(LineEnd)) {
        found = text.find('\r', found + LineEnd.size());
    }
    return found == std::string_view::npos ? nullptr : text.data() + found;
}

Place placeOf(std::string_view text, const char* at) noexcept {
    const std::string_view before = text.substr(0, static_cast<std::size_t>(at - text.data()));
    const auto feeds = std::count(before.begin(), before.end(), '\n');
    const std::size_t lineStart = before.rfind('\n') + 1; // 0 without a line feed
    return {static_cast<std::size_t>(feeds) + 1, before.size() - lineStart + 1};
}

bool isFolded(std::string_view raw) noexcept { return raw.find('\n') != std::string_view::npos; }

TzCString unfold(std::string_view raw, bool joined) {
    raw = TzXmlUtils::trim(raw);
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
        const std::size_t end = text.find_first_of(LineBreaks);
        out.append(text.substr(0, end));
        if (end == std::string_view::npos) {
            return;
        }
        text.remove_prefix(end + 1);
    }
}

void appendPercentDecoded(TzCString& out, std::string_view text) {
    for (std::size_t position = 0; position < text.size(); ++position) {
        const std::optional<char> byte =
            text[position] == '%' ? TzTextTools::hexByte(text.substr(position + 1)) : std::nullopt;
        if (byte) {
            out.push_back(*byte);
            position += 2;
        } else {
            out.push_back(text[position]);
        }
    }
}

std::size_t skipBlanksAndComments(std::string_view text, std::size_t from) noexcept {
    while (from < text.size() && (TzXmlUtils::isWhiteSpace(text[from]) || text[from] == '(')) {
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
