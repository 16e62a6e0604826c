// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// The bytes that end a run of plain characters: up to three marks, control characters and bytes
/// that are not ASCII.
struct TzXmlScanStops {
    char first;
    char second;
    char third;
    bool lines; ///< Whether tab and line feed, which are control characters too, end a run.

    constexpr bool has(char byte) const noexcept {
        const auto code = static_cast<std::uint8_t>(byte);
        const bool isControl = code < 0x20 && (lines || (byte != '\t' && byte != '\n'));
        return isControl || code >= 0x80 || byte == first || byte == second || byte == third;
    }
};
