// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

/// How the characters of a text stand in its bytes, as far as its first bytes tell.
struct TzXmlByteForm {
    std::size_t unit = 1;       ///< Bytes of one code unit: 1, 2 (UTF-16) or 4 (UTF-32).
    bool bigEndian = false;     ///< Order of the bytes of a unit.
    std::size_t markLength = 0; ///< Bytes of the byte-order mark at the beginning.

    /// Looks at the byte-order mark or, without one, at where the zero bytes of the first character
    /// stand.
    static TzXmlByteForm of(std::string_view text) noexcept;
};

/// Turns UTF-16 and UTF-32 into UTF-8, piece by piece.
///
/// What is no character (an unpaired surrogate, a value out of range, a unit cut off by the end of
/// the text) becomes a byte that UTF-8 never holds, so that whoever reads the result refuses it
/// there.
class TzXmlTranscoder {
public:
    explicit TzXmlTranscoder(const TzXmlByteForm& form) noexcept : form_(form) {}

    /// The UTF-8 of `piece`, whose length is a multiple of the unit unless it is the last one;
    /// valid until the next call.
    std::string_view convert(std::string_view piece, bool last);

private:
    std::uint32_t unitAt(const char* at) const noexcept;
    void appendUnit16(std::uint32_t unit);
    void appendCharacter(std::uint32_t code);
    void appendInvalid() { utf8_ += '\xFF'; }

    TzXmlByteForm form_;
    std::uint32_t highSurrogate_ = 0; // waits for its low one; 0 for none
    TzCString utf8_;
};
