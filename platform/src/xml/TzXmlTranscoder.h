// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlByteForm.h"

#include <tz/tools/TzCString.h>

#include <cstdint>
#include <string_view>

/// Turns UTF-16 and UTF-32 into UTF-8, piece by piece.
///
/// An invalid unit (an unpaired surrogate, a value out of range, a unit cut off by the end of
/// the text) becomes a byte that UTF-8 never holds, so that the reader of the result refuses it
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
