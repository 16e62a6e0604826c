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
/// Each spelling has a few places only, so that a text with ever new names costs misses, not
/// memory, and a look-up never takes long whatever the names are.
class TzXmlNameCache {
public:
    TzXmlNameCache() = default;
    TzXmlNameCache(const TzXmlNameCache&) = delete;
    TzXmlNameCache& operator=(const TzXmlNameCache&) = delete;

    /// One spelling and its name.
    struct Entry {
        std::uint64_t state = 0; ///< State of the bindings the name is known to hold under.
        std::uint64_t stamp = 0; ///< Changes with the name; 0 for none.
        TzXmlSpellingText spelling;
        TzXmlName name;
    };

    /// The entry of `spelling`, null without one.
    Entry* find(const TzXmlNameText& spelling) noexcept {
        const std::size_t home = homeOf(spelling);
        for (std::size_t step = 0; step < Reach; ++step) {
            Entry& entry = at(home + step);
            if (entry.spelling.is(spelling)) {
                return &entry;
            }
            if (entry.spelling.isEmpty()) {
                return nullptr;
            }
        }
        return nullptr;
    }
    /// An entry for `spelling`, which has none; it has neither state nor stamp. Another spelling
    /// may lose its entry. The table grows while that happens.
    Entry& take(const TzXmlNameText& spelling);
    /// Bytes that it takes beside its own size and what hangs on the names.
    std::size_t bytes() const noexcept { return more_.capacity() * sizeof(Entry); }

private:
    static constexpr std::size_t FirstSize = 32;
    static constexpr std::size_t LastSize = 1024;
    static constexpr std::size_t Reach = 8; // places of a spelling

    std::size_t homeOf(const TzXmlNameText& spelling) const noexcept {
        const std::uint64_t spread = TzXmlSpellingText::hash(spelling) * 0x9E3779B97F4A7C15U;
        return static_cast<std::size_t>(spread >> 40);
    }
    Entry& at(std::size_t position) noexcept { return entries_[position & (size_ - 1)]; }
    Entry& roomFrom(std::size_t home) noexcept;
    void grow();

    std::array<Entry, FirstSize> first_; // enough for small texts
    std::vector<Entry> more_;
    Entry* entries_ = first_.data();
    std::size_t size_ = FirstSize;
    std::size_t losses_ = 0; // of entries, since the table has its size
};
