// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCompactItems.h>

#include <cstdint>

/// The items of a compact array on their way into another shape.
class TzSoapReshaped {
public:
    using Index = TzSoapArrayTypeImp::Index;

    /// Nothing yet, in the shape of `bounds` and `start`; bounds and placeholder outlive this
    /// object. `TzXmlBoundsError` BAD_INDEX_VECTOR for an invalid shape.
    TzSoapReshaped(const Index& bounds, Index start,
                   const TzSoapCompactItems::Placeholder& placeholder);

    /// Takes the item at `index` over if it fits. `TzXmlBoundsError`: INDEX_RANGE_VEC for a
    /// position beyond 32 bits, BAD_INDEX_VECTOR for more items than 32 bits count.
    void take(const Index& index, const TzSoapDefaultType& item);
    /// Takes positions over that may hold nothing, up to the one of index `last` in a shape of
    /// `oldBounds`: on an open axis they make room as items do. Throws like `take`.
    void takeEmpty(Index last, const Index& oldBounds);

    /// What was taken over.
    TzSoapCompactItems& items() noexcept { return items_; }
    /// The position of the start index.
    std::uint64_t base() const noexcept { return base_; }
    /// Positions from there to the end of the shape.
    std::uint64_t block() const noexcept { return block_; }

private:
    std::uint64_t positionOf(const Index& index) const;
    bool stepBackIntoShape(Index& index, const Index& oldBounds) const;
    void growTo(std::uint64_t offset, const Index& index);

    const Index& bounds_;
    Index start_;
    const TzSoapCompactItems::Placeholder& placeholder_;
    Index steps_;
    std::uint64_t base_;
    std::uint64_t block_;
    TzSoapCompactItems items_;
};
