// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlName.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

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

/// A spelling known by its text.
class TzXmlSpellingText {
public:
    static bool accepts(const TzXmlNameText& text) noexcept {
        return text.text_.size() <= MaxLength;
    }
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

/// A spelling known by its address, for texts that never move and never repeat.
class TzXmlSpellingAddress {
public:
    static bool accepts(const char*) noexcept { return true; }
    bool is(const char* text) const noexcept { return address_ == text; }
    void set(const char* text) noexcept { address_ = text; }
    static std::uint64_t hash(const char* text) noexcept {
        return reinterpret_cast<std::uintptr_t>(text);
    }

private:
    const char* address_ = nullptr;
};

/// Remembers which name a spelling such as "p:a" stands for.
///
/// Each spelling has one place only, so that a text with ever new names costs misses and no memory.
template <typename Spelling> class TzXmlNameCache {
public:
    TzXmlNameCache() = default;
    TzXmlNameCache(const TzXmlNameCache&) = delete;
    TzXmlNameCache& operator=(const TzXmlNameCache&) = delete;

    /// One spelling and its name.
    struct Entry {
        std::uint64_t scope = 0; ///< State of the bindings the name is known to hold under.
        std::uint64_t stamp = 0; ///< Changes with the name; 0 for none.
        Spelling spelling;
        TzXmlName name;
    };

    /// The place for `spelling`, which may hold another one.
    template <typename Text> Entry& place(const Text& spelling) noexcept {
        const std::uint64_t spread = Spelling::hash(spelling) * 0x9E3779B97F4A7C15U;
        return entries_[static_cast<std::size_t>(spread >> 40) & (size_ - 1)];
    }
    /// The place for `spelling`, which holds it or nothing. The table grows while spellings keep
    /// missing.
    template <typename Text> Entry& take(const Text& spelling) {
        if (++misses_ > 2 * size_ && size_ < LastSize) {
            grow();
        }
        Entry& entry = place(spelling);
        entry.scope = 0;
        entry.stamp = 0;
        entry.spelling.set(spelling);
        return entry;
    }

private:
    static constexpr std::size_t FirstSize = 16;
    static constexpr std::size_t LastSize = 1024;

    void grow() {
        misses_ = 0;
        more_ = std::vector<Entry>(2 * size_);
        entries_ = more_.data();
        size_ = more_.size();
    }

    std::array<Entry, FirstSize> first_; // enough for small texts, which take no memory then
    std::vector<Entry> more_;
    Entry* entries_ = first_.data();
    std::size_t size_ = FirstSize;
    std::size_t misses_ = 0; // since the table has its size
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
