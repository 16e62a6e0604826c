// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlNameText.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

/// A spelling known by its text.
class TzXmlSpellingText {
public:
    static bool accepts(const TzXmlNameText& text) noexcept {
        return text.text_.size() <= MaxLength;
    }
    bool isEmpty() const noexcept { return length_ == 0; }
    bool is(const TzXmlNameText& text) const noexcept {
        return first_ == text.first_ && last_ == text.last_ && length_ == text.text_.size() &&
               (length_ <= 2 * sizeof(first_) ||
                std::memcmp(text_, text.text_.data(), length_) == 0);
    }
    void set(const TzXmlNameText& text) noexcept {
        first_ = text.first_;
        last_ = text.last_;
        length_ = text.text_.size();
        std::memcpy(text_, text.text_.data(), length_);
    }
    static std::uint64_t hash(const TzXmlNameText& text) noexcept {
        const std::uint64_t mixed = text.first_ ^ (text.last_ << 23 | text.last_ >> 41);
        return mixed ^ mixed >> 32 ^ text.text_.size();
    }

private:
    static constexpr std::size_t MaxLength = 48;

    std::uint64_t first_ = 0;
    std::uint64_t last_ = 0;
    std::size_t length_ = 0;
    char text_[MaxLength];
};
