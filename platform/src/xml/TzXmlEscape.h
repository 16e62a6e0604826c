// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include "xml/TzXmlBlocks.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// What XML text needs to be written.
namespace TzXmlEscape {

/// Where escaped text stands.
enum class Context {
    Content,        ///< Between tags.
    AttributeValue, ///< Between double quotes.
};

/// Room that `escapeSome` needs to write anything: what one block can become, and what is copied
/// beyond.
inline constexpr std::size_t LeastRoom = 128;

/// What is done with a byte: one of these, or a reference.
enum Treatment : std::uint8_t {
    Plain,          ///< Written as it stands.
    Refused,        ///< A character that XML does not have.
    Checked,        ///< Begins a character of several bytes, or should.
    FirstReference, ///< Written as the reference of this number or a later one.
};

using TreatmentTable = std::array<std::uint8_t, 256>;

/// The treatments of all bytes.
const TreatmentTable& tableFor(Context context) noexcept;

/// A reference, so that it is copied in one go.
struct Reference {
    char text[8];
    std::size_t size;
};
/// The reference that a treatment stands for.
const Reference& referenceOf(std::uint8_t treatment) noexcept;

/// Bytes of the character at `at`, which is not ASCII; `TzXmlBadArgError` when XML cannot hold it.
std::size_t checkedLength(std::string_view text, std::size_t at);
/// Throws the `TzXmlBadArgError` for the control character at `at`.
[[noreturn]] void refuseControl(std::string_view text, std::size_t at);

/// Whether `text` needs no escaping anywhere. Only quick: false says nothing.
bool isPlain(std::string_view text) noexcept;

/// `text` with markup characters, and line ends that a reader would change, as references: `text`
/// itself without any of these, otherwise the contents of `buffer`. `TzXmlBadArgError` for bytes
/// that are not UTF-8 and for characters that XML 1.0 does not have.
std::string_view escape(std::string_view text, Context context, TzCString& buffer);

/// Copies `text` to `to`, where `size + Block::Size` bytes fit, if it is plain by `isPlain`; what
/// it copied otherwise does not count.
template <typename Block> bool copyPlain(char* to, std::string_view text) noexcept {
    const std::size_t size = text.size();
    const char* const from = text.data();
    if (size < Block::Size) {
        return Block::copyShort(to, from, size);
    }
    const std::size_t last = size - Block::Size;
    for (std::size_t at = 0; at < last; at += Block::Size) {
        if (Block::flags(from + at).any()) {
            return false;
        }
        Block::copy(to + at, from + at);
    }
    Block::copy(to + last, from + last);
    return !Block::flags(from + last).any();
}

/// Escapes `text` from `at` on to `to`, until `stop` is reached or less than `LeastRoom` bytes are
/// left before `end`. Returns where it stopped in the text, which is not within a character; `to`
/// is where the next byte goes. Errors as for `escape`.
template <typename Block>
std::size_t escapeSome(std::string_view text, std::size_t at, std::size_t stop,
                       const TreatmentTable& table, char*& to, const char* end);

} // namespace TzXmlEscape

namespace TzXmlEscape {

/// Escapes one character of `text` to `to`; returns where the next one begins.
inline std::size_t escapeOne(std::string_view text, std::size_t at, const TreatmentTable& table,
                             char*& to) {
    const std::uint8_t treatment = table[static_cast<unsigned char>(text[at])];
    if (treatment == Plain) {
        *to++ = text[at];
        return at + 1;
    }
    if (treatment >= FirstReference) {
        const Reference& reference = referenceOf(treatment);
        std::memcpy(to, reference.text, sizeof reference.text);
        to += reference.size;
        return at + 1;
    }
    if (treatment == Refused) {
        refuseControl(text, at);
    }
    const std::size_t length = checkedLength(text, at);
    std::memcpy(to, text.data() + at, length);
    to += length;
    return at + length;
}

/// Escapes the block at `at`; returns where the text goes on, which may be beyond the block. The
/// text goes on for a block more.
template <typename Block>
std::size_t escapeBlock(std::string_view text, std::size_t at, const TreatmentTable& table,
                        char*& to) {
    const char* const block = text.data() + at;
    std::size_t done = 0; // bytes of the block
    for (auto flags = Block::flags(block); flags.any(); flags.dropBefore(done)) {
        const std::size_t found = flags.first();
        Block::copy(to, block + done);
        to += found - done;
        done = escapeOne(text, at + found, table, to) - at;
    }
    if (done < Block::Size) {
        Block::copy(to, block + done);
        to += Block::Size - done;
        done = Block::Size;
    }
    return at + done;
}

template <typename Block>
std::size_t escapeSome(std::string_view text, std::size_t at, std::size_t stop,
                       const TreatmentTable& table, char*& to, const char* end) {
    char* next = to;
    const auto hasRoom = [&] { return static_cast<std::size_t>(end - next) >= LeastRoom; };
    while (at + 2 * Block::Size <= stop && hasRoom()) {
        at = escapeBlock<Block>(text, at, table, next);
    }
    while (at < stop && at + 2 * Block::Size > stop && hasRoom()) {
        at = escapeOne(text, at, table, next);
    }
    to = next;
    return at;
}

} // namespace TzXmlEscape
