// SPDX-License-Identifier: MIT
#include <tz/tools/TzCString.h>

#include <tz/tools/TzTextTools.h>

#include <algorithm>

namespace {

bool equalFolded(char left, char right) noexcept {
    return TzTextTools::toLower(left) == TzTextTools::toLower(right);
}

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
    // Fast path: most texts that are compared have equal case.
    return left == right ||
           std::equal(left.begin(), left.end(), right.begin(), right.end(), equalFolded);
}

TzCString tzQuoted(std::string_view text) {
    constexpr std::size_t Shown = 80;
    std::size_t length = text.size();
    if (length > Shown) {
        length = Shown;
        // Do not cut a character of UTF-8 in two.
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
            --length;
        }
    }
    TzCString quoted = "\"";
    quoted += text.substr(0, length);
    quoted += length < text.size() ? "...\"" : "\"";
    return quoted;
}
