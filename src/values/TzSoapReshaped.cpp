// SPDX-License-Identifier: MIT
#include "values/TzSoapReshaped.h"

#include "values/TzSoapShape.h"

#include <algorithm>
#include <utility>

TzSoapReshaped::TzSoapReshaped(const Index& bounds, Index start,
                               const TzSoapCompactItems::Placeholder& placeholder)
    : bounds_(bounds), start_(std::move(start)), placeholder_(placeholder) {
    const std::uint64_t allocated = TzSoapShape::allocSizeOf(bounds_);
    steps_ = TzSoapShape::stepsOf(bounds_);
    start_.resize(bounds_.size());
    base_ = positionOf(start_);
    block_ = TzSoapShape::blockFrom(base_, allocated);
    TzSoapCompactItems(block_).swap(items_);
}

void TzSoapReshaped::take(const Index& index, const TzSoapDefaultType& item) {
    if (!TzSoapShape::contains(index, start_, bounds_)) {
        return;
    }
    const std::uint64_t offset = positionOf(index) - base_; // not before the base, as the index
    growTo(offset, index);
    items_.put(offset, TzSoapDefaultType(item), placeholder_);
}

void TzSoapReshaped::takeEmpty(Index last, const Index& oldBounds) {
    const bool open = !bounds_.empty() && bounds_.front() == 0;
    if (open && last.size() == bounds_.size() && stepBackIntoShape(last, oldBounds)) {
        growTo(positionOf(last) - base_, last);
    }
}

std::uint64_t TzSoapReshaped::positionOf(const Index& index) const {
    const std::uint64_t position = TzSoapArrayTypeImp::linear(index, steps_);
    if (position > TzSoapShape::Largest) {
        TzSoapShape::throwOutOfRange(index, start_, bounds_);
    }
    return position;
}

// Makes the index the greatest one that is not greater and lies within both shapes; false without
// one.
bool TzSoapReshaped::stepBackIntoShape(Index& index, const Index& oldBounds) const {
    const auto end = [&](std::size_t at) { return std::min(bounds_[at], oldBounds[at]); };
    bool clipped = false;
    for (std::size_t at = 1; at < index.size(); ++at) {
        if (start_[at] >= end(at)) {
            return false;
        }
        if (clipped || index[at] >= end(at)) {
            index[at] = end(at) - 1;
            clipped = true;
        } else if (index[at] < start_[at]) {
            // Step back to the end of the previous row.
            do {
                if (at-- == 0) {
                    return false;
                }
            } while (index[at] == start_[at]);
            --index[at];
            clipped = true;
        }
    }
    return true;
}

void TzSoapReshaped::growTo(std::uint64_t offset, const Index& index) {
    const std::uint64_t size = items_.size();
    if (offset < size) {
        return;
    }
    const std::uint64_t grown = size + TzSoapShape::growthFor(offset, size, block_);
    if (grown > TzSoapShape::Largest) {
        TzSoapShape::throwTooLarge(index);
    }
    items_.grow(grown, grown, placeholder_); // nothing is kept if memory ends
}
