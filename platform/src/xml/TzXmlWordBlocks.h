// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlScanStops.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

/// Finds the ends of runs eight bytes at a time, on any machine. Reads no byte outside the text.
struct TzXmlWordBlocks {
    using Word = std::uint64_t;

    /// The first stop from `at` on, `end` without one.
    static const char* find(const char* at, const char* end, TzXmlScanStops stops) noexcept {
        const Word first = every(stops.first);
        const Word second = every(stops.second);
        const Word third = every(stops.third);
        for (; end - at >= static_cast<std::ptrdiff_t>(sizeof(Word)); at += sizeof(Word)) {
            Word word;
            std::memcpy(&word, at, sizeof(word));
            const Word found = below(word, 0x20) | below(word ^ first, 1) |
                               below(word ^ second, 1) | below(word ^ third, 1) | word;
            // Tabs and line feeds are looked at one by one.
            if ((found & HighBits) != 0) {
                const char* const stop = findInTurn(at, at + sizeof(Word), stops);
                if (stop != at + sizeof(Word)) {
                    return stop;
                }
            }
        }
        return findInTurn(at, end, stops);
    }
    /// The same, byte by byte.
    static const char* findInTurn(const char* at, const char* end, TzXmlScanStops stops) noexcept {
        while (at != end && !stops.has(*at)) {
            ++at;
        }
        return at;
    }

private:
    static constexpr Word Ones = 0x0101010101010101U;
    static constexpr Word HighBits = 0x8080808080808080U;

    static constexpr Word every(char byte) noexcept {
        return Ones * static_cast<std::uint8_t>(byte);
    }
    /// Has a high bit if a byte of `word` is below `bound`; none of the others decides that.
    static constexpr Word below(Word word, Word bound) noexcept {
        return (word - Ones * bound) & ~word;
    }
};
