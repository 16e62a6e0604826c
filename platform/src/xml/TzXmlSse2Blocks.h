// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlScanStops.h"
#include "xml/TzXmlWordBlocks.h"

#ifdef __SSE2__

#include <emmintrin.h>

#include <bit>
#include <cstdint>

/// Finds the ends of runs sixteen bytes at a time. Reads no byte outside the text.
struct TzXmlSse2Blocks {
    /// The first stop from `at` on, `end` without one.
    static const char* find(const char* at, const char* end, TzXmlScanStops stops) noexcept {
        const __m128i first = _mm_set1_epi8(stops.first);
        const __m128i second = _mm_set1_epi8(stops.second);
        const __m128i third = _mm_set1_epi8(stops.third);
        for (; end - at >= Size; at += Size) {
            const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
            // Bytes that are not ASCII are negative.
            __m128i found = _mm_cmplt_epi8(block, _mm_set1_epi8(0x20));
            if (!stops.lines) {
                const __m128i tabs = _mm_cmpeq_epi8(block, _mm_set1_epi8('\t'));
                const __m128i feeds = _mm_cmpeq_epi8(block, _mm_set1_epi8('\n'));
                found = _mm_andnot_si128(_mm_or_si128(tabs, feeds), found);
            }
            found = _mm_or_si128(found, _mm_cmpeq_epi8(block, first));
            found = _mm_or_si128(found, _mm_cmpeq_epi8(block, second));
            found = _mm_or_si128(found, _mm_cmpeq_epi8(block, third));
            const auto mask = static_cast<std::uint32_t>(_mm_movemask_epi8(found));
            if (mask != 0) {
                return at + std::countr_zero(mask);
            }
        }
        return TzXmlWordBlocks::findInTurn(at, end, stops);
    }

private:
    static constexpr std::ptrdiff_t Size = 16;
};

/// The fastest for this machine.
using TzXmlScanBlocks = TzXmlSse2Blocks;

#else

using TzXmlScanBlocks = TzXmlWordBlocks;

#endif
