// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// The search for lines that begin with "--" and a boundary: a line end, LF or CR, and `line`.
/// Texts that are full of what nearly is such a line cost little more than others, because several
/// bytes of it are looked for at once.

/// What may follow the boundary of a line that is looked for.
enum class TzMimeLineRest {
    Any,        ///< Anything.
    OfDelimiter ///< At least what may follow the boundary of a delimiter line.
};

/// Whether what is looked for begins at `at`, a place before `end`.
inline bool tzMimeIsLineAt(const char* at, const char* end, std::string_view line) noexcept {
    return (*at == '\n' || *at == '\r') && static_cast<std::size_t>(end - at) > line.size() &&
           std::memcmp(at + 1, line.data(), line.size()) == 0;
}

/// Byte after byte, for every processor.
struct TzMimeLineSearch {
    /// The first place from `from` on where a line end is followed by `line`, which begins with two
    /// hyphens and is longer; null without one.
    template <TzMimeLineRest>
    static const char* find(const char* from, const char* end, std::string_view line) noexcept {
        while (static_cast<std::size_t>(end - from) > line.size()) {
            const auto size = static_cast<std::size_t>(end - from) - 1;
            const auto* const hyphen = static_cast<const char*>(std::memchr(from + 1, '-', size));
            if (hyphen == nullptr) {
                return nullptr;
            }
            if (tzMimeIsLineAt(hyphen - 1, end, line)) {
                return hyphen - 1;
            }
            from = hyphen;
        }
        return nullptr;
    }
};

#if defined(__SSE2__)

/// Many places at once.
struct TzMimeSseLineSearch {
    /// As for `TzMimeLineSearch`.
    template <TzMimeLineRest Rest>
    static const char* find(const char* from, const char* end, std::string_view line) noexcept {
        const Wanted wanted{line, _mm_set1_epi8(line.back())};
        std::size_t dense = 0; // so many rounds search without asking first
        // The last of the places needs the line and one byte after it.
        while (static_cast<std::size_t>(end - from) > Blocks * Block + line.size()) {
            if (dense != 0 || mayFit(from, wanted)) {
                // Where one place is likely, others are: asking first costs more than it saves.
                dense = dense != 0 ? dense - 1 : DenseFor;
                if (const char* const at = findAmong<Rest>(from, wanted)) {
                    return at;
                }
            }
            from += Blocks * Block;
        }
        return TzMimeLineSearch::find<Rest>(from, end, line);
    }

private:
    static constexpr std::size_t Block = 16;
    static constexpr std::size_t Blocks = 4;
    static constexpr std::size_t DenseFor = 16;

    struct Wanted {
        std::string_view line;
        __m128i last; ///< The last byte of the line, everywhere.
    };

    static __m128i load(const char* from) noexcept {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    }
    static __m128i equal(__m128i bytes, char wanted) noexcept {
        return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted));
    }
    /// The places where the first hyphen and the last byte fit, which is rare in nearly all texts.
    static __m128i likely(const char* from, const Wanted& wanted) noexcept {
        return _mm_and_si128(equal(load(from + 1), '-'),
                             _mm_cmpeq_epi8(load(from + wanted.line.size()), wanted.last));
    }
    /// Whether any of the places of all blocks is likely.
    static bool mayFit(const char* from, const Wanted& wanted) noexcept {
        __m128i any = likely(from, wanted);
        for (std::size_t block = 1; block < Blocks; ++block) {
            any = _mm_or_si128(any, likely(from + block * Block, wanted));
        }
        return _mm_movemask_epi8(any) != 0;
    }
    /// The places that are likely and follow a line end.
    template <TzMimeLineRest Rest>
    static __m128i look(const char* from, const Wanted& wanted) noexcept {
        const __m128i first = load(from);
        const __m128i fits = _mm_and_si128(_mm_or_si128(equal(first, '\n'), equal(first, '\r')),
                                           likely(from, wanted));
        if constexpr (Rest == TzMimeLineRest::Any) {
            return fits;
        }
        // Blanks, line ends and the hyphen are all less than '.'.
        const __m128i next = load(from + wanted.line.size() + 1);
        return _mm_and_si128(fits, _mm_cmplt_epi8(next, _mm_set1_epi8('.')));
    }
    /// The first place of all blocks.
    template <TzMimeLineRest Rest>
    static const char* findAmong(const char* from, const Wanted& wanted) noexcept {
        __m128i fits[Blocks];
        __m128i any = _mm_setzero_si128();
        for (std::size_t block = 0; block < Blocks; ++block) {
            fits[block] = look<Rest>(from + block * Block, wanted);
            any = _mm_or_si128(any, fits[block]);
        }
        if (_mm_movemask_epi8(any) == 0) {
            return nullptr;
        }
        for (std::size_t block = 0; block < Blocks; ++block) {
            if (const char* const at = firstOf(fits[block], from + block * Block, wanted)) {
                return at;
            }
        }
        return nullptr;
    }
    static const char* firstOf(__m128i fits, const char* from, const Wanted& wanted) noexcept {
        auto found = static_cast<std::uint32_t>(_mm_movemask_epi8(fits));
        for (; found != 0; found &= found - 1) {
            const char* const at = from + std::countr_zero(found);
            if (std::memcmp(at + 1, wanted.line.data(), wanted.line.size()) == 0) {
                return at;
            }
        }
        return nullptr;
    }
};

using TzMimeBestLineSearch = TzMimeSseLineSearch;

#else

using TzMimeBestLineSearch = TzMimeLineSearch;

#endif
