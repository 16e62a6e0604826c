// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

/// Cuts a text into the pieces that an event source gets.
///
/// A source keeps a copy of each piece, so pieces are small; it looks at an unfinished token from
/// its beginning with every piece, so they double while there are no events. Both the copies and
/// the work stay in proportion to the text.
class TzXmlPieces {
public:
    /// Length of a piece, a multiple of every code unit.
    static constexpr std::size_t FirstSize = std::size_t{256} * 1024;
    /// Pieces grow up to this length; a source counts in int.
    static constexpr std::size_t LastSize = std::size_t{512} * 1024 * 1024;

    explicit TzXmlPieces(std::string_view text) noexcept : rest_(text) {}

    /// The next piece, empty only for an empty text; `events` is the number of events so far.
    std::string_view next(std::size_t events) noexcept {
        const bool sawEvents = size_ == 0 || events != events_;
        size_ = sawEvents ? FirstSize : std::min(2 * size_, LastSize);
        events_ = events;
        const std::string_view piece = rest_.substr(0, size_);
        rest_.remove_prefix(piece.size());
        return piece;
    }
    /// Whether all pieces were taken.
    bool done() const noexcept { return rest_.empty(); }

private:
    std::string_view rest_;
    std::size_t size_ = 0;
    std::size_t events_ = 0;
};
