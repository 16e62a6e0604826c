// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

/// What the ASCII characters are in markup.
namespace TzXmlScanBytes {

enum Class : std::uint8_t {
    NameStart = 1, ///< Begins a name.
    Name = 2,      ///< Continues one.
    Blank = 4,     ///< Separates attributes.
};

constexpr std::array<std::uint8_t, 256> classes() noexcept {
    std::array<std::uint8_t, 256> all{};
    for (std::uint8_t letter = 0; letter < 26; ++letter) {
        all[std::uint8_t('a' + letter)] = all[std::uint8_t('A' + letter)] = NameStart | Name;
    }
    for (const char byte : {'_', ':'}) {
        all[static_cast<std::uint8_t>(byte)] = NameStart | Name;
    }
    for (const char byte : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '-', '.'}) {
        all[static_cast<std::uint8_t>(byte)] = Name;
    }
    for (const char byte : {' ', '\t', '\n', '\r'}) {
        all[static_cast<std::uint8_t>(byte)] = Blank;
    }
    return all;
}

inline constexpr std::array<std::uint8_t, 256> Classes = classes();

/// Whether `byte` is of one of the classes `wanted`.
constexpr bool is(char byte, std::uint8_t wanted) noexcept {
    return (Classes[static_cast<std::uint8_t>(byte)] & wanted) != 0;
}

/// Whether `byte` is a character of its own.
constexpr bool isAscii(char byte) noexcept { return (static_cast<std::uint8_t>(byte) & 0x80) == 0; }

} // namespace TzXmlScanBytes
