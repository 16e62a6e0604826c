// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlNameText.h"
#include "xml/TzXmlSpellingText.h"

#include <tz/xml/TzXmlName.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Remembers which name a spelling such as "p:a" stands for.
///
/// Each spelling has one place only, so that a text with ever new names costs misses, not memory.
class TzXmlNameCache {
public:
    TzXmlNameCache() = default;
    TzXmlNameCache(const TzXmlNameCache&) = delete;
    TzXmlNameCache& operator=(const TzXmlNameCache&) = delete;

    /// One spelling and its name.
    struct Entry {
        std::uint64_t scope = 0; ///< State of the bindings the name is known to hold under.
        std::uint64_t stamp = 0; ///< Changes with the name; 0 for none.
        TzXmlSpellingText spelling;
        TzXmlName name;
    };

    /// The place for `spelling`, which may hold another one.
    Entry& place(const TzXmlNameText& spelling) noexcept {
        const std::uint64_t spread = TzXmlSpellingText::hash(spelling) * 0x9E3779B97F4A7C15U;
        return entries_[static_cast<std::size_t>(spread >> 40) & (size_ - 1)];
    }
    /// The place for `spelling`, which holds it or nothing. The table grows while spellings keep
    /// missing.
    Entry& take(const TzXmlNameText& spelling) {
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

    std::array<Entry, FirstSize> first_; // enough for small texts, which therefore allocate nothing
    std::vector<Entry> more_;
    Entry* entries_ = first_.data();
    std::size_t size_ = FirstSize;
    std::size_t misses_ = 0; // since the table has its size
};
