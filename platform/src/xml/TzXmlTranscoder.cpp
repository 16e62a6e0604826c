// SPDX-License-Identifier: MIT
#include "xml/TzXmlTranscoder.h"

#include "xml/TzXmlUtf8.h"

namespace {

constexpr std::uint32_t HighSurrogates = 0xD800;
constexpr std::uint32_t LowSurrogates = 0xDC00;
constexpr std::uint32_t SurrogatesEnd = 0xE000;

bool isSurrogate(std::uint32_t code) noexcept {
    return code >= HighSurrogates && code < SurrogatesEnd;
}

} // namespace

std::string_view TzXmlTranscoder::convert(std::string_view piece, bool last) {
    utf8_.clear();
    const std::size_t whole = piece.size() - piece.size() % form_.unit;
    for (std::size_t i = 0; i < whole; i += form_.unit) {
        const std::uint32_t unit = unitAt(piece.data() + i);
        if (form_.unit == 2) {
            appendUnit16(unit);
        } else {
            appendCharacter(unit);
        }
    }
    if (last && (highSurrogate_ != 0 || whole != piece.size())) {
        appendInvalid();
    }
    return utf8_;
}

std::uint32_t TzXmlTranscoder::unitAt(const char* at) const noexcept {
    std::uint32_t unit = 0;
    for (std::size_t i = 0; i < form_.unit; ++i) {
        const std::size_t position = form_.bigEndian ? i : form_.unit - 1 - i;
        unit = unit << 8 | static_cast<unsigned char>(at[position]);
    }
    return unit;
}

void TzXmlTranscoder::appendUnit16(std::uint32_t unit) {
    const bool isLow = unit >= LowSurrogates && unit < SurrogatesEnd;
    if (highSurrogate_ != 0 && isLow) {
        appendCharacter(0x10000 + ((highSurrogate_ - HighSurrogates) << 10) +
                        (unit - LowSurrogates));
        highSurrogate_ = 0;
        return;
    }
    if (highSurrogate_ != 0) {
        appendInvalid();
        highSurrogate_ = 0;
    }
    if (isSurrogate(unit) && !isLow) {
        highSurrogate_ = unit;
    } else {
        appendCharacter(unit);
    }
}

void TzXmlTranscoder::appendCharacter(std::uint32_t code) {
    if (isSurrogate(code) || code > 0x10FFFF) {
        appendInvalid();
    } else {
        TzXmlUtf8::append(utf8_, code);
    }
}
