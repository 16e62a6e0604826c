// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

/// Looks for start tags with too many attributes in a text that is not read yet, because an event
/// source takes memory for all attributes of a tag before it reports the first one.
///
/// The text is one that XML allows in an encoding that contains ASCII; in any other text the source
/// finds the error before the tag. A tag with many attributes is long, so for usual limits few
/// bytes of the text are looked at.
class TzXmlTagScan {
public:
    /// No such tag.
    static constexpr std::size_t None = std::string_view::npos;

    explicit TzXmlTagScan(std::string_view text) noexcept : text_(text) {}

    /// Where the first start tag with more than `limit` attributes begins, `None` without one.
    /// O(text).
    std::size_t findCrowded(std::size_t limit) noexcept;

private:
    bool isCrowded(std::size_t begin, std::size_t limit) const noexcept;
    bool isMarkup(std::size_t begin) noexcept;
    std::size_t endOfMarkup(std::size_t begin) const noexcept;
    std::size_t endOfTag(std::size_t begin) const noexcept;
    std::size_t after(std::string_view mark, std::size_t from) const noexcept;

    std::string_view text_;
    std::size_t lexed_ = 0; // the scan has separated markup from text up to here
};
