// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Blocks of text that are looked at in one go. Each kind finds the bytes that need a second look:
/// controls, '"', '&', '<', '>' and all that are not ASCII.

/// The positions that were found in one block, in order.
template <typename Bits, std::size_t BitsPerByte> class TzXmlFlags {
public:
    explicit TzXmlFlags(Bits bits) noexcept : bits_(bits) {}

    bool any() const noexcept { return bits_ != 0; }
    /// The first position; there must be one.
    std::size_t first() const noexcept {
        return static_cast<std::size_t>(std::countr_zero(bits_)) / BitsPerByte;
    }
    /// Drops the first position.
    void drop() noexcept { bits_ &= bits_ - 1; }
    /// Drops all positions before `position`, which may be beyond the block.
    void dropBefore(std::size_t position) noexcept {
        while (bits_ != 0 && first() < position) {
            drop();
        }
    }

private:
    Bits bits_;
};

/// Eight bytes, for every processor.
struct TzXmlWordBlock {
    static constexpr std::size_t Size = sizeof(std::uint64_t);
    using Flags = TzXmlFlags<std::uint64_t, 8>;

    static Flags flags(const char* bytes) noexcept {
        std::uint64_t word = load(bytes);
        if constexpr (std::endian::native == std::endian::big) {
            word = __builtin_bswap64(word);
        }
        const std::uint64_t controls = zeros(word & every(0xE0));
        // One test finds two characters: '<' and '>' differ in one bit only, and so do '&' and '"'.
        const std::uint64_t brackets = zeros((word | every('<' ^ '>')) ^ every('>'));
        const std::uint64_t others = zeros((word | every('&' ^ '"')) ^ every('&'));
        return Flags((word | controls | brackets | others) & every(0x80));
    }
    static void copy(char* to, const char* from) noexcept {
        const std::uint64_t word = load(from);
        std::memcpy(to, &word, Size);
    }
    /// Whether the `size` bytes, fewer than `Size`, need no second look.
    static bool isPlainShort(const char* bytes, std::size_t size) noexcept {
        char word[Size] = {'0', '0', '0', '0', '0', '0', '0', '0'};
        std::memcpy(word, bytes, size);
        return !flags(word).any();
    }

private:
    static constexpr std::uint64_t every(unsigned byte) noexcept {
        return byte * (~std::uint64_t{0} / 0xFF);
    }
    static std::uint64_t load(const char* bytes) noexcept {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes, Size);
        return word;
    }
    /// The top bit of each byte that is zero, of no other.
    static constexpr std::uint64_t zeros(std::uint64_t word) noexcept {
        return ~(((word & every(0x7F)) + every(0x7F)) | word | every(0x7F));
    }
};

#if defined(__SSE2__)

/// Sixteen bytes.
struct TzXmlSseBlock {
    static constexpr std::size_t Size = 16;
    using Flags = TzXmlFlags<std::uint32_t, 1>;

    static Flags flags(const char* bytes) noexcept { return Flags(mask(load(bytes))); }
    static void copy(char* to, const char* from) noexcept { store(to, load(from)); }
    /// Whether the `size` bytes, fewer than `Size`, need no second look.
    static bool isPlainShort(const char* bytes, std::size_t size) noexcept {
        return size < TzXmlWordBlock::Size
                   ? TzXmlWordBlock::isPlainShort(bytes, size)
                   : mask(_mm_set_epi64x(word(bytes + size - 8), word(bytes))) == 0;
    }

private:
    static __m128i load(const char* bytes) noexcept {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    }
    static void store(char* to, __m128i bytes) noexcept {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes);
    }
    static long long word(const char* bytes) noexcept {
        long long loaded = 0;
        std::memcpy(&loaded, bytes, sizeof loaded);
        return loaded;
    }
    static std::uint32_t mask(__m128i bytes) noexcept {
        // Bytes of 0x80 and above are negative, so one comparison finds them and the controls.
        const __m128i outside = _mm_cmplt_epi8(bytes, _mm_set1_epi8(' '));
        // One test finds two characters, as for words.
        const __m128i brackets =
            _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8('<' ^ '>')), _mm_set1_epi8('>'));
        const __m128i others =
            _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8('&' ^ '"')), _mm_set1_epi8('&'));
        return static_cast<std::uint32_t>(
            _mm_movemask_epi8(_mm_or_si128(outside, _mm_or_si128(brackets, others))));
    }
};

using TzXmlBlock = TzXmlSseBlock;

#else

using TzXmlBlock = TzXmlWordBlock;

#endif
