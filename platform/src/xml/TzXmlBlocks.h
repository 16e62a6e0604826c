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

/// Numbers as they lie in texts.
namespace TzXmlHalves {

template <typename Word> Word load(const char* bytes) noexcept {
    Word word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}
template <typename Word> void store(char* to, Word word) noexcept {
    std::memcpy(to, &word, sizeof word);
}

} // namespace TzXmlHalves

/// Eight bytes, for every processor.
struct TzXmlWordBlock {
    static constexpr std::size_t Size = sizeof(std::uint64_t);
    using Flags = TzXmlFlags<std::uint64_t, 8>;

    static Flags flags(const char* bytes) noexcept {
        std::uint64_t word = load(bytes);
        if constexpr (std::endian::native == std::endian::big) {
            word = __builtin_bswap64(word);
        }
        return Flags(found(word));
    }
    static void copy(char* to, const char* from) noexcept { TzXmlHalves::store(to, load(from)); }
    /// Copies the `size` bytes, fewer than `Size`; returns whether they need no second look.
    // In registers: a load of several bytes that were stored one by one would have to wait.
    static bool copyShort(char* to, const char* from, std::size_t size) noexcept {
        if (size >= 4) {
            const auto first = TzXmlHalves::load<std::uint32_t>(from);
            const auto last = TzXmlHalves::load<std::uint32_t>(from + size - 4);
            TzXmlHalves::store(to, first);
            TzXmlHalves::store(to + size - 4, last);
            return (found(first | std::uint64_t{last} << 32U)) == 0;
        }
        if (size == 0) {
            return true;
        }
        const char bytes[] = {from[0], from[size / 2], from[size - 1]};
        to[0] = bytes[0];
        to[size / 2] = bytes[1];
        to[size - 1] = bytes[2];
        return isPlain(bytes[0]) && isPlain(bytes[1]) && isPlain(bytes[2]);
    }
    /// Whether the `size` bytes, fewer than `Size`, need no second look.
    static bool isPlainShort(const char* bytes, std::size_t size) noexcept {
        char copy[Size];
        return copyShort(copy, bytes, size);
    }

private:
    static constexpr bool isPlain(char byte) noexcept {
        return static_cast<signed char>(byte) >= ' ' && byte != '"' && byte != '&' && byte != '<' &&
               byte != '>';
    }
    /// The top bit of each byte of the word that needs a second look.
    static constexpr std::uint64_t found(std::uint64_t word) noexcept {
        const std::uint64_t controls = zeros(word & every(0xE0));
        // One test finds two characters: '<' and '>' differ in one bit only, and so do '&' and '"'.
        const std::uint64_t brackets = zeros((word | every('<' ^ '>')) ^ every('>'));
        const std::uint64_t others = zeros((word | every('&' ^ '"')) ^ every('&'));
        return (word | controls | brackets | others) & every(0x80);
    }
    static constexpr std::uint64_t every(unsigned byte) noexcept {
        return byte * (~std::uint64_t{0} / 0xFF);
    }
    static std::uint64_t load(const char* bytes) noexcept {
        return TzXmlHalves::load<std::uint64_t>(bytes);
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
    /// Copies the `size` bytes, fewer than `Size`; returns whether they need no second look.
    static bool copyShort(char* to, const char* from, std::size_t size) noexcept {
        if (size < TzXmlWordBlock::Size) {
            return TzXmlWordBlock::copyShort(to, from, size);
        }
        const auto first = TzXmlHalves::load<long long>(from);
        const auto last = TzXmlHalves::load<long long>(from + size - 8);
        TzXmlHalves::store(to, first);
        TzXmlHalves::store(to + size - 8, last);
        return mask(_mm_set_epi64x(last, first)) == 0;
    }
    /// Whether the `size` bytes, fewer than `Size`, need no second look.
    static bool isPlainShort(const char* bytes, std::size_t size) noexcept {
        char copy[Size];
        return copyShort(copy, bytes, size);
    }

private:
    static __m128i load(const char* bytes) noexcept {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    }
    static void store(char* to, __m128i bytes) noexcept {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes);
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
