// SPDX-License-Identifier: MIT
#include <tz/tools/TzCString.h>

#include <algorithm>

namespace {

char folded(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool equalFolded(char left, char right) noexcept { return folded(left) == folded(right); }

} // namespace

std::size_t tzFindIgnoreCase(std::string_view text, std::string_view wanted,
                             std::size_t from) noexcept {
    if (from > text.size()) {
        return TzCString::npos;
    }
    const auto* const start = text.data() + from;
    const auto* const end = text.data() + text.size();
    const auto* const found =
        std::search(start, end, wanted.data(), wanted.data() + wanted.size(), equalFolded);
    return found == end && !wanted.empty() ? TzCString::npos
                                           : static_cast<std::size_t>(found - text.data());
}

bool tzEqualIgnoreCase(std::string_view left, std::string_view right) noexcept {
    // Mostly both are spelt alike.
    return left == right ||
           std::equal(left.begin(), left.end(), right.begin(), right.end(), equalFolded);
}

TzCString tzQuoted(std::string_view text) {
    constexpr std::size_t Shown = 80;
    std::size_t length = text.size();
    if (length > Shown) {
        length = Shown;
        // Not through the middle of a character.
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
            --length;
        }
    }
    TzCString quoted = "\"";
    quoted += text.substr(0, length);
    quoted += length < text.size() ? "...\"" : "\"";
    return quoted;
}
