// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Characters of a text that may hold anything.
namespace TzXmlScanUtf8 {

/// Whether `code` is a character that XML 1.0 allows.
constexpr bool isCharacter(std::uint32_t code) noexcept {
    if (code < 0x20) {
        return code == '\t' || code == '\n' || code == '\r';
    }
    return code <= 0xD7FF || (code >= 0xE000 && code <= 0xFFFD) ||
           (code >= 0x10000 && code <= 0x10FFFF);
}

/// Length that the first byte of a character states, 1 for one that begins no longer character.
constexpr std::size_t statedLength(std::uint8_t lead) noexcept {
    if (lead < 0xC0 || lead >= 0xF8) {
        return 1;
    }
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// Length of the character that begins `text` and is not ASCII; 0 unless it is whole, in its
/// shortest form and one that XML allows.
constexpr std::size_t lengthOf(std::string_view text) noexcept {
    constexpr std::uint32_t None = 0xFFFFFFFF;
    constexpr std::uint32_t Smallest[] = {None, None, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<std::uint8_t>(text.front());
    const std::size_t length = statedLength(lead);
    std::uint32_t code = lead & (0x7FU >> length);
    // A character that the end of the text cuts off lacks six bits, and its code is too small.
    for (const char follower : text.substr(1, length - 1)) {
        const auto byte = static_cast<std::uint8_t>(follower);
        if ((byte & 0xC0) != 0x80) {
            return 0;
        }
        code = code << 6 | (byte & 0x3FU);
    }
    return code >= Smallest[length] && isCharacter(code) ? length : 0;
}

} // namespace TzXmlScanUtf8
