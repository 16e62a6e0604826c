// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// Small tools for text that several sources need: letters and digits of ASCII, names with a
/// prefix, characters of UTF-8.
///
/// Free functions without state, usable from any thread; they ignore the locale.
namespace TzTextTools {

/// `character`, as a small letter if it is a capital letter of ASCII.
constexpr char toLower(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

/// The value of a hexadecimal digit, 0 to 15; -1 for every other character.
constexpr int hexValue(char character) noexcept {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    const char letter = toLower(character);
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

/// The byte that the first two characters of `text` state in hexadecimal digits; empty when `text`
/// does not begin with two such digits.
constexpr std::optional<char> hexByte(std::string_view text) noexcept {
    const int high = text.size() >= 2 ? hexValue(text[0]) : -1;
    const int low = high >= 0 ? hexValue(text[1]) : -1;
    return low >= 0 ? std::optional(static_cast<char>(high * 16 + low)) : std::nullopt;
}

/// A name as a text spells it, split at its first colon.
struct SplitName {
    std::string_view prefix;    ///< What precedes the colon; empty without a colon.
    std::string_view localName; ///< What follows the colon; the whole name without a colon.
    bool hasColon;              ///< Whether the name has a colon.
};

/// Splits `name`; the result refers to the same text. O(length of the prefix).
constexpr SplitName splitName(std::string_view name) noexcept {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos
               ? SplitName{{}, name, false}
               : SplitName{name.substr(0, colon), name.substr(colon + 1), true};
}

/// The bytes that may follow the first byte of a character of UTF-8.
struct Followers {
    std::size_t count;     ///< How many; 0 for ASCII and for a byte that begins no character.
    unsigned char lowest;  ///< Least value of the first of them; the others begin at 0x80.
    unsigned char highest; ///< Greatest value of the first of them; the others end at 0xBF.
};

/// The bytes that may follow `first` (RFC 3629, 4: neither surrogates nor forms that are longer
/// than needed).
constexpr Followers followersOf(unsigned char first) noexcept {
    if (first < 0xC2 || first > 0xF4) {
        return {0, 0, 0};
    }
    if (first < 0xE0) {
        return {1, 0x80, 0xBF};
    }
    if (first < 0xF0) {
        return {2, static_cast<unsigned char>(first == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(first == 0xED ? 0x9F : 0xBF)};
    }
    return {3, static_cast<unsigned char>(first == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(first == 0xF4 ? 0x8F : 0xBF)};
}

/// Bytes of the character of UTF-8 that `text`, which must not be empty, begins with; 0 when `text`
/// does not begin with UTF-8.
constexpr std::size_t characterLength(std::string_view text) noexcept {
    const auto byteAt = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byteAt(0) < 0x80) {
        return 1;
    }
    const Followers followers = followersOf(byteAt(0));
    if (followers.count == 0 || text.size() <= followers.count || byteAt(1) < followers.lowest ||
        byteAt(1) > followers.highest) {
        return 0;
    }
    for (std::size_t i = 2; i <= followers.count; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80U) {
            return 0;
        }
    }
    return followers.count + 1;
}

} // namespace TzTextTools
