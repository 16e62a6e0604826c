// SPDX-License-Identifier: MIT
#include "xml/TzXmlTextPlaces.h"

#include <cstdint>

void TzXmlTextPlaces::start(std::string_view text) noexcept {
    text_ = text.data();
    counted_ = text_;
    line_ = 1;
    column_ = 1;
    set(text_, text_);
}

std::size_t TzXmlTextPlaces::line() const noexcept {
    countOn();
    return line_;
}

std::size_t TzXmlTextPlaces::column() const noexcept {
    countOn();
    return column_;
}

void TzXmlTextPlaces::countOn() const noexcept {
    for (; counted_ != eventBegin_; ++counted_) {
        const char byte = *counted_;
        if (byte == '\n' || byte == '\r') {
            // Events are tags, so none lies between CR and LF.
            const bool isFirstOfTwo = byte == '\r' && counted_[1] == '\n';
            line_ += isFirstOfTwo ? 0 : 1;
            column_ = 1;
        } else if ((static_cast<std::uint8_t>(byte) & 0xC0) != 0x80) {
            ++column_;
        }
    }
}
