// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapReadLimits.h>

#include <cstddef>
#include <limits>

/// What a text may still have of that which `TzSoapReadLimits` bounds and the parser does not see.
class TzSoapReadBudget {
public:
    /// The default limits of a text of length 0.
    TzSoapReadBudget() noexcept : TzSoapReadBudget(TzSoapReadLimits(), 0) {}
    /// What `limits` allow a text of `textSize` bytes.
    TzSoapReadBudget(const TzSoapReadLimits& limits, std::size_t textSize) noexcept
        : unfilledLimit_(sum(limits.unfilledArrayPositions, textSize)),
          unfilledPositions_(unfilledLimit_), uriLength_(limits.uriLength) {}

    /// The text is longer by so many bytes than was known.
    void addText(std::size_t bytes) noexcept {
        unfilledLimit_ = sum(unfilledLimit_, bytes);
        unfilledPositions_ = sum(unfilledPositions_, bytes);
    }
    /// Longest encodingStyle, in bytes.
    std::size_t uriLength() const noexcept { return uriLength_; }
    /// So many array positions the text may leave without an item at most.
    std::size_t unfilledLimit() const noexcept { return unfilledLimit_; }
    /// Takes `positions` array positions that hold no item; false, and nothing taken, when that is
    /// more than the text may still have.
    bool takeUnfilledPositions(std::size_t positions) noexcept {
        if (positions > unfilledPositions_) {
            return false;
        }
        unfilledPositions_ -= positions;
        return true;
    }
    /// Gives back positions that an item was read for.
    void returnUnfilledPositions(std::size_t positions) noexcept {
        unfilledPositions_ += positions;
    }

private:
    static std::size_t sum(std::size_t limit, std::size_t textSize) noexcept {
        constexpr std::size_t Most = std::numeric_limits<std::size_t>::max();
        return limit > Most - textSize ? Most : limit + textSize;
    }

    std::size_t unfilledLimit_;
    std::size_t unfilledPositions_;
    std::size_t uriLength_;
};
