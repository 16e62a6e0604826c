// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Tells one of the recent start tags from all others of its text.
struct TzXmlTagMark {
    std::size_t place;    ///< Below `TzXmlRecentTags::Count`; another tag may have it later.
    std::uint64_t number; ///< From 1; no other tag has it.
};

/// Recognises the start tags that a text repeats by their bytes: what was checked once needs no
/// other look. Members of arrays and structs come in turn, so each tag knows which one followed it.
class TzXmlRecentTags {
public:
    static constexpr std::size_t Count = 16;

    /// A tag from "<" to ">".
    struct Tag {
        std::string_view text; ///< Empty for none.
        std::string_view name;
        std::uint64_t number = 0;
        std::size_t next = 0; ///< Place of the tag after it.

        bool isEmptyElement() const noexcept { return text[text.size() - 2] == '/'; }
    };

    /// The tag with which `rest` begins if it is the expected one, otherwise null.
    const Tag* match(std::string_view rest) const noexcept {
        const Tag& expected = tags_[tags_[latest_].next];
        return !expected.text.empty() && rest.starts_with(expected.text) ? &expected : nullptr;
    }
    /// The mark of a tag that `match` returned.
    TzXmlTagMark markOf(const Tag& tag) const noexcept {
        return {static_cast<std::size_t>(&tag - tags_.data()), tag.number};
    }
    /// A tag that `match` returned is the latest one now.
    void pass(const Tag& tag) noexcept { latest_ = markOf(tag).place; }
    /// The tag `text` of an element `name`, found free of errors, is the latest one now.
    void note(std::string_view text, std::string_view name) noexcept {
        if (text.size() <= LongestTag) {
            const std::size_t place = placeOf(text, name);
            tags_[latest_].next = place;
            latest_ = place;
        }
    }

private:
    static constexpr std::size_t LongestTag = 256;

    std::size_t placeOf(std::string_view text, std::string_view name) noexcept {
        for (std::size_t place = 0; place < Count; ++place) {
            if (tags_[place].text == text) {
                return place;
            }
        }
        const std::size_t place = oldest_++ % Count;
        tags_[place] = {text, name, ++latestNumber_, tags_[place].next};
        return place;
    }

    std::array<Tag, Count> tags_;
    std::size_t latest_ = 0;
    std::size_t oldest_ = 0;
    std::uint64_t latestNumber_ = 0;
};
