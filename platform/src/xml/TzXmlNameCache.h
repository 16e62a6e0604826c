// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

/// Remembers which name a spelling such as "p:a" stands for.
///
/// Each spelling has one place only, so that a text with ever new names costs misses and no memory.
class TzXmlNameCache {
public:
    /// One spelling and its name.
    struct Entry {
        static constexpr std::size_t MaxLength = 48;

        std::uint64_t scope = 0; ///< State of the bindings the name was made under; 0 for none.
        std::size_t length = 0;
        char spelling[MaxLength];
        TzXmlName name;

        bool holds(std::string_view text) const noexcept {
            return length == text.size() && std::memcmp(spelling, text.data(), length) == 0;
        }
    };

    /// The place for `spelling`, which may hold another one; null for a spelling that is too long.
    Entry* place(std::string_view spelling) noexcept {
        return spelling.size() > Entry::MaxLength ? nullptr : &entries_[slot(spelling)];
    }
    /// Gives the place to `spelling`; false when the table was made larger instead and the place
    /// has to be asked for again.
    bool take(Entry& entry, std::string_view spelling);

private:
    static constexpr std::size_t FirstSize = 16;
    static constexpr std::size_t LastSize = 1024;

    std::size_t slot(std::string_view spelling) const noexcept {
        return static_cast<std::size_t>(hash(spelling) >> 40) & (entries_.size() - 1);
    }
    static std::uint64_t hash(std::string_view spelling) noexcept;

    std::vector<Entry> entries_ = std::vector<Entry>(FirstSize);
    std::size_t misses_ = 0; // since the table has its size
};

inline std::uint64_t TzXmlNameCache::hash(std::string_view spelling) noexcept {
    // First and last bytes tell names apart well enough; a clash costs a miss.
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    if (spelling.size() >= 8) {
        std::memcpy(&first, spelling.data(), 8);
        std::memcpy(&last, spelling.data() + spelling.size() - 8, 8);
    } else if (spelling.size() >= 4) {
        std::memcpy(&first, spelling.data(), 4);
        std::memcpy(&last, spelling.data() + spelling.size() - 4, 4);
    } else {
        for (const char byte : spelling) {
            first = first << 8 | static_cast<unsigned char>(byte);
        }
    }
    const std::uint64_t mixed = (first ^ (last << 23 | last >> 41)) + spelling.size();
    const std::uint64_t spread = mixed * 0x9E3779B97F4A7C15U;
    return (spread ^ spread >> 32) * 0x9E3779B97F4A7C15U;
}

inline bool TzXmlNameCache::take(Entry& entry, std::string_view spelling) {
    if (++misses_ > 2 * entries_.size() && entries_.size() < LastSize) {
        misses_ = 0;
        entries_ = std::vector<Entry>(2 * entries_.size());
        return false;
    }
    entry.scope = 0;
    entry.length = spelling.size();
    std::memcpy(entry.spelling, spelling.data(), spelling.size());
    return true;
}
