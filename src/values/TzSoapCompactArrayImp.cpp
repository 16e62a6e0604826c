// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayImp.h>

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapParseContext.h>

#include "model/TzSoapAccess.h"
#include "values/TzSoapShape.h"

#include <algorithm>
#include <utility>

namespace {

using Index = TzSoapArrayTypeImp::Index;

/// Positions from `base` to the end of a shape that has `allocated`.
constexpr std::uint64_t blockFrom(std::uint64_t base, std::uint64_t allocated) {
    return allocated > base ? allocated - base : 0;
}

/// How many items are added, in steps of one more than a block, until `offset` is among `size`.
std::uint64_t growthFor(std::uint64_t offset, std::uint64_t size, std::uint64_t block) {
    const std::uint64_t step = block + 1;
    return ((offset - size) / step + 1) * step;
}

/// Items on their way into another shape.
class Reshaped {
public:
    Reshaped(const Index& bounds, Index start) : bounds_(bounds), start_(std::move(start)) {
        const std::uint64_t allocated = TzSoapShape::allocSizeOf(bounds_);
        steps_ = TzSoapShape::stepsOf(bounds_);
        start_.resize(bounds_.size());
        base_ = positionOf(start_);
        block_ = blockFrom(base_, allocated);
        size_ = block_;
        first_ = base_;
    }

    /// Takes the item at `index` over if it fits; indices come in ascending order.
    void take(const Index& index, const TzSoapDefaultType& item,
              const TzSoapDefaultType& placeholder) {
        if (!TzSoapShape::contains(index, start_, bounds_)) {
            return;
        }
        const std::uint64_t position =
            positionOf(index); // not before the base, as the index is not
        grow(position - base_, index);
        if (items_.empty()) {
            first_ = position;
        }
        items_.resize(position - first_, placeholder);
        items_.push_back(item);
    }

    /// Takes positions over that may hold nothing, up to the one of index `last` in a shape of
    /// `oldBounds`: on an open axis they make room as items do.
    void takeEmpty(Index last, const Index& oldBounds) {
        const bool open = !bounds_.empty() && bounds_.front() == 0;
        if (open && last.size() == bounds_.size() && stepBackIntoShape(last, oldBounds)) {
            grow(positionOf(last) - base_, last);
        }
    }

    std::vector<TzSoapDefaultType>& items() noexcept { return items_; }
    std::uint64_t first() const noexcept { return first_; }
    std::uint64_t base() const noexcept { return base_; }
    std::uint64_t block() const noexcept { return block_; }
    std::uint64_t size() const noexcept { return size_; }

private:
    std::uint64_t positionOf(const Index& index) const {
        const std::uint64_t position = TzSoapArrayTypeImp::linear(index, steps_);
        if (position > TzSoapArrayTypeImp::Largest) {
            TzSoapShape::throwOutOfRange(index, start_, bounds_);
        }
        return position;
    }

    /// Makes `index` the greatest one that is not greater and lies within both shapes; false when
    /// there is none.
    bool stepBackIntoShape(Index& index, const Index& oldBounds) const {
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
                // The end of the row before, starting over behind the axis that has one.
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

    void grow(std::uint64_t offset, const Index& index) {
        if (offset >= size_) {
            size_ += growthFor(offset, size_, block_);
            if (size_ > TzSoapArrayTypeImp::Largest) {
                TzSoapShape::throwTooLarge(index);
            }
        }
    }

    const Index& bounds_;
    Index start_;
    Index steps_;
    std::vector<TzSoapDefaultType> items_;
    std::uint64_t first_ = 0;
    std::uint64_t base_ = 0;
    std::uint64_t block_ = 0;
    std::uint64_t size_ = 0;
};

} // namespace

TzSoapCompactArrayImp::TzSoapCompactArrayImp(TzXmlName name, TzCString elementType,
                                             unsigned int size, unsigned int start)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), size, start) {
    initialize();
}

TzSoapCompactArrayImp::TzSoapCompactArrayImp(TzXmlName name, TzCString elementType, Index bounds,
                                             Index start)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), std::move(bounds),
                         std::move(start)) {
    initialize();
}

TzSoapCompactArrayImp::TzSoapCompactArrayImp(TzXmlName name, TzCString elementType,
                                             const TzCString& bounds, const TzCString& start)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), bounds, start) {
    initialize();
}

TzSoapCompactArrayImp::TzSoapCompactArrayImp(const TzSoapCompactArrayImp& other) = default;

TzSoapCompactArrayImp::TzSoapCompactArrayImp(const TzSoapCompactArrayImp& other,
                                             const Index& newBounds)
    : TzSoapCompactArrayImp(other) {
    setBounds(newBounds);
}

TzSoapCompactArrayImp::~TzSoapCompactArrayImp() = default;

void TzSoapCompactArrayImp::initialize() {
    base_ = indexToLinear(getStartIndex(), true);
    block_ = blockFrom(base_, allocSizeOf(getBounds()));
    size_ = block_;
    first_ = base_;
}

TzSoapCompactArrayType TzSoapCompactArrayImp::forReading(const TzXmlName& name,
                                                         const TzCString& elementType,
                                                         const TzCString& size,
                                                         TzSoapParseContext& context) {
    const Index bounds = boundsFromSize(size);
    auto array = TzSoapAccess::handle<TzSoapCompactArrayType>(
        new TzSoapCompactArrayImp(name, elementType, bounds, Index(bounds.size())));
    if (!context.takeUnfilledPositions(TzSoapAccess::body(array).size_)) {
        throwTooLarge(bounds);
    }
    return array;
}

TzSoapElementImp* TzSoapCompactArrayImp::clone() const { return new TzSoapCompactArrayImp(*this); }

bool TzSoapCompactArrayImp::isSparse() const { return false; }

bool TzSoapCompactArrayImp::isCompact() const { return true; }

unsigned int TzSoapCompactArrayImp::entries() const { return static_cast<unsigned int>(size_); }

TzSoapDefaultType* TzSoapCompactArrayImp::findStored(std::uint64_t position) const noexcept {
    // A position before the first stored one wraps around to one behind the last.
    const std::uint64_t at = position - first_;
    return at < items_.size() ? items_.data() + at : nullptr;
}

TzSoapDefaultType& TzSoapCompactArrayImp::slot(unsigned int position) {
    if (TzSoapDefaultType* stored = findStored(position)) {
        return *stored;
    }
    expandIfNeeded(position);
    store(position, std::uint64_t{position} + 1);
    return items_[position - first_];
}

const TzSoapType& TzSoapCompactArrayImp::storedOrPlaceholder(unsigned int position) const {
    if (const TzSoapDefaultType* stored = findStored(position)) {
        return *stored;
    }
    offsetOf(position);
    return getDefaultValue();
}

TzSoapType& TzSoapCompactArrayImp::elementAt(unsigned int position) { return slot(position); }

const TzSoapType& TzSoapCompactArrayImp::elementAt(unsigned int position) const {
    return storedOrPlaceholder(position);
}

TzSoapType& TzSoapCompactArrayImp::elementAt(const Index& index) {
    return slot(indexToLinear(index, true));
}

const TzSoapType& TzSoapCompactArrayImp::elementAt(const Index& index) const {
    return storedOrPlaceholder(indexToLinear(index, true));
}

std::uint64_t TzSoapCompactArrayImp::offsetOf(unsigned int position) const {
    if (position < base_) {
        throwOutOfRange(namedBy(position));
    }
    return position - base_;
}

TzSoapCompactArrayImp::Index TzSoapCompactArrayImp::namedBy(unsigned int position) const {
    return getDimension() == 0 ? Index{position} : linearToIndex(position, true);
}

void TzSoapCompactArrayImp::expandIfNeeded(unsigned int position) {
    const std::uint64_t offset = offsetOf(position);
    if (offset < size_) {
        return;
    }
    // Room is made ahead once growCount_ has left 0, which only this does: the vector's own growth
    // serves all arrays.
    if (items_.capacity() < growCount_ * block_ + items_.size()) {
        items_.reserve(++growCount_ * block_ + items_.size());
    }
    const std::uint64_t size = size_ + growthFor(offset, size_, block_);
    if (size > TzSoapArrayTypeImp::Largest) {
        throwTooLarge(namedBy(position));
    }
    size_ = size;
}

void TzSoapCompactArrayImp::store(std::uint64_t from, std::uint64_t to) const {
    if (items_.empty()) {
        first_ = from;
    }
    if (from < first_) {
        // At least as many as there are, so that filling an array backwards stays linear.
        const std::uint64_t added = std::min<std::uint64_t>(
            first_ - base_, std::max<std::uint64_t>(first_ - from, items_.size()));
        items_.insert(items_.begin(), added, getDefaultValue());
        first_ -= added;
    }
    if (to - first_ > items_.size()) {
        items_.resize(to - first_, getDefaultValue());
    }
}

const TzSoapDefaultType* TzSoapCompactArrayImp::begin() const {
    store(base_, base_ + size_);
    return items_.data();
}

const TzSoapDefaultType* TzSoapCompactArrayImp::end() const { return begin() + items_.size(); }

TzSoapDefaultType* TzSoapCompactArrayImp::begin() {
    store(base_, base_ + size_);
    return items_.data();
}

TzSoapDefaultType* TzSoapCompactArrayImp::end() { return begin() + items_.size(); }

std::span<const TzSoapDefaultType> TzSoapCompactArrayImp::itemsToWrite() const {
    const auto lastAssigned = std::find_if_not(items_.rbegin(), items_.rend(), isPlaceholder);
    const std::uint64_t end = first_ + static_cast<std::uint64_t>(items_.rend() - lastAssigned);
    const std::uint64_t from = std::max(linear(getOffsetIndex(), getStep()), base_);
    if (lastAssigned == items_.rend() || from >= end) {
        return {};
    }
    store(from, end);
    const std::uint64_t limit =
        getCountElementsToWrite() == 0 ? end - from : getCountElementsToWrite();
    return storedItems().subspan(from - first_, std::min(end - from, limit));
}

void TzSoapCompactArrayImp::doSetBounds(const Index& bounds) {
    Reshaped reshaped(bounds, getStartIndex());
    for (std::size_t at = 0; at < items_.size(); ++at) {
        if (!isPlaceholder(items_[at])) {
            reshaped.take(linearToIndex(static_cast<unsigned int>(first_ + at), true), items_[at],
                          getDefaultValue());
        }
    }
    if (size_ != 0) {
        const std::uint64_t last = std::min(base_ + size_ - 1, Largest);
        reshaped.takeEmpty(linearToIndex(static_cast<unsigned int>(last), true), getBounds());
    }
    TzSoapArrayTypeImp::doSetBounds(bounds);
    items_.swap(reshaped.items());
    first_ = reshaped.first();
    base_ = reshaped.base();
    block_ = reshaped.block();
    size_ = reshaped.size();
}

void TzSoapCompactArrayImp::settle(unsigned int position, TzSoapParseContext& context) const {
    const std::uint64_t offset = offsetOf(position);
    if (offset < size_) {
        context.returnUnfilledPositions(1);
        return;
    }
    const std::uint64_t added = growthFor(offset, size_, block_);
    if (!context.takeUnfilledPositions(added - 1)) {
        throwTooLarge(namedBy(position));
    }
}

void TzSoapCompactArrayImp::takeChild(TzSoapType&& child) { placeNext(std::move(child)); }

void TzSoapCompactArrayImp::place(unsigned int position, TzSoapType&& member,
                                  TzSoapParseContext* context) {
    if (context != nullptr) {
        settle(position, *context);
    }
    expandIfNeeded(position);
    if (items_.empty() || position == first_ + items_.size()) {
        append(position, std::move(member));
    } else {
        TzSoapType& place = slot(position);
        place = std::move(member);
    }
}

void TzSoapCompactArrayImp::append(unsigned int position, TzSoapType&& member) {
    if (items_.empty()) {
        first_ = position;
    }
    if (items_.size() == items_.capacity()) {
        // Members come in order, so an array that states its size ends with just the room it needs.
        constexpr std::size_t Fewest = 4;
        const std::size_t more = std::max(2 * items_.size(), Fewest);
        const std::uint64_t stated = base_ + block_ > first_ ? base_ + block_ - first_ : 0;
        items_.reserve(stated > items_.size() ? std::min<std::uint64_t>(more, stated) : more);
    }
    items_.push_back(TzSoapAccess::take<TzSoapDefaultType>(member));
}
