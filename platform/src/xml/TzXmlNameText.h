// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

/// A text with its first and last bytes in registers, which tell most names apart.
class TzXmlNameText {
public:
    explicit TzXmlNameText(std::string_view text) noexcept;
    std::string_view text() const noexcept { return text_; }

private:
    friend class TzXmlSpellingText;

    std::string_view text_;
    std::uint64_t first_ = 0;
    std::uint64_t last_ = 0;
};

inline TzXmlNameText::TzXmlNameText(std::string_view text) noexcept : text_(text) {
    if (text.size() >= sizeof(first_)) {
        std::memcpy(&first_, text.data(), sizeof(first_));
        std::memcpy(&last_, text.data() + text.size() - sizeof(last_), sizeof(last_));
    } else if (text.size() >= 4) {
        std::memcpy(&first_, text.data(), 4);
        std::memcpy(&last_, text.data() + text.size() - 4, 4);
    } else {
        for (const char byte : text) {
            first_ = first_ << 8 | static_cast<unsigned char>(byte);
        }
    }
}
