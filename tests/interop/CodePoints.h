// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

/// The longest texts that travel; gSOAP's programs send them too.
namespace values {

constexpr std::uint32_t LastCodePoint = 0x10FFFF;

inline bool isNoncharacter(std::uint32_t code) {
    return (code & 0xFFFEU) == 0xFFFEU || (code >= 0xFDD0 && code <= 0xFDEF);
}

inline void appendUtf8(std::string& text, std::uint32_t code) {
    const auto byte = [&](std::uint32_t value) { text += static_cast<char>(value); };
    if (code < 0x80) {
        byte(code);
        return;
    }
    if (code < 0x800) {
        byte(0xC0U | code >> 6U);
    } else {
        if (code < 0x10000) {
            byte(0xE0U | code >> 12U);
        } else {
            byte(0xF0U | code >> 18U);
            byte(0x80U | (code >> 12U & 0x3FU));
        }
        byte(0x80U | (code >> 6U & 0x3FU));
    }
    byte(0x80U | (code & 0x3FU));
}

/// The code points for which `wanted` holds, of those that XML can carry.
template <typename Wanted> std::string codePoints(const Wanted& wanted) {
    std::string text;
    for (std::uint32_t code = 0x20; code <= LastCodePoint; ++code) {
        const bool carried = (code < 0xD800 || code > 0xDFFF) && code != 0xFFFE && code != 0xFFFF;
        if (carried && wanted(code)) {
            appendUtf8(text, code);
        }
    }
    return text;
}

/// Every character that XML can carry, but the carriage return, which has another case.
inline std::string allOfUnicode() {
    return "\t\n" + codePoints([](std::uint32_t code) { return !isNoncharacter(code); });
}

/// The code points without character that XML can carry nevertheless.
inline std::string noncharacters() { return codePoints(isNoncharacter); }

} // namespace values
