// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayImp.h>

#include <soap/TzSoapCompactArrayType.h>

#include "model/TzSoapAccess.h"
#include "values/TzSoapReshaped.h"
#include "values/TzSoapShape.h"

#include <algorithm>
#include <typeinfo>
#include <utility>

TzSoapCompactArrayImp::TzSoapCompactArrayImp(TzXmlName name, TzCString elementType,
                                             unsigned int size, unsigned int start)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), size, start) {
    initialize();
    prepare();
}

TzSoapCompactArrayImp::TzSoapCompactArrayImp(TzXmlName name, TzCString elementType, Index bounds,
                                             Index start)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), std::move(bounds),
                         std::move(start)) {
    initialize();
    prepare();
}

TzSoapCompactArrayImp::TzSoapCompactArrayImp(TzXmlName name, TzCString elementType,
                                             const TzCString& bounds, const TzCString& start)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), bounds, start) {
    initialize();
    prepare();
}

TzSoapCompactArrayImp::TzSoapCompactArrayImp(const TzXmlName& name, const TzCString& elementType,
                                             const Index& bounds)
    : TzSoapArrayTypeImp(name, elementType, bounds, Index(bounds.size())) {
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
    block_ = TzSoapShape::blockFrom(base_, allocSizeOf(getBounds()));
    TzSoapCompactItems(block_).swap(items_);
}

// Afterwards constant operations make nothing any more.
void TzSoapCompactArrayImp::prepare() {
    items_.reserve(items_.size());
    getDefaultValue();
}

TzSoapCompactArrayType TzSoapCompactArrayImp::withoutMembers(const TzXmlName& name,
                                                             const TzCString& elementType,
                                                             const TzCString& size) {
    return TzSoapAccess::handle<TzSoapCompactArrayType>(
        new TzSoapCompactArrayImp(name, elementType, boundsFromSize(size)));
}

TzSoapElementImp* TzSoapCompactArrayImp::clone() const { return new TzSoapCompactArrayImp(*this); }

bool TzSoapCompactArrayImp::isSparse() const { return false; }

bool TzSoapCompactArrayImp::isCompact() const { return true; }

unsigned int TzSoapCompactArrayImp::entries() const {
    return static_cast<unsigned int>(items_.size());
}

TzSoapDefaultType& TzSoapCompactArrayImp::slot(unsigned int position) {
    // A position before the base wraps around to one after the last.
    if (TzSoapDefaultType* stored = items_.find(position - base_)) {
        return *stored;
    }
    expandIfNeeded(position);
    return items_.reach(position - base_, placeholder());
}

const TzSoapType& TzSoapCompactArrayImp::storedOrPlaceholder(unsigned int position) const {
    if (const TzSoapDefaultType* stored = items_.find(position - base_)) {
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
    const std::uint64_t size = items_.size();
    if (offset < size) {
        return;
    }
    // Deliberate: growCount_ starts at 0 and only this raises it, so this reserves nothing: users
    // see memory grow with the items alone.
    if (items_.capacity() < growCount_ * block_ + size) {
        items_.reserve((growCount_ + 1) * block_ + size);
        ++growCount_;
    }
    const std::uint64_t grown = size + TzSoapShape::growthFor(offset, size, block_);
    if (grown > Largest) {
        TzSoapShape::throwTooLarge(namedBy(position));
    }
    items_.grow(grown, offset, placeholder());
}

const TzSoapDefaultType* TzSoapCompactArrayImp::begin() const {
    return items_.block(placeholder());
}

const TzSoapDefaultType* TzSoapCompactArrayImp::end() const { return begin() + items_.size(); }

TzSoapDefaultType* TzSoapCompactArrayImp::begin() { return items_.block(placeholder()); }

TzSoapDefaultType* TzSoapCompactArrayImp::end() { return begin() + items_.size(); }

bool TzSoapCompactArrayImp::isVacant(const TzSoapType& item) const {
    // Fast path: nearly always the placeholder of this array.
    const TzSoapType* own = placeholder().find();
    return (own != nullptr && TzSoapAccess::sameBody(item, *own)) || isPlaceholder(item);
}

std::vector<unsigned int> TzSoapCompactArrayImp::assignedPositions() const {
    std::vector<unsigned int> positions;
    const std::uint64_t size = items_.size();
    for (std::uint64_t at = items_.nextStored(0); at < size; at = items_.nextStored(at + 1)) {
        if (!isVacant(*items_.find(at))) {
            positions.push_back(static_cast<unsigned int>(base_ + at));
        }
    }
    return positions;
}

TzSoapCompactItems::Range TzSoapCompactArrayImp::itemsToWrite() const {
    std::uint64_t end = items_.storedBefore(items_.size());
    while (end != 0 && isVacant(*items_.find(end - 1))) {
        end = items_.storedBefore(end - 1);
    }
    const std::uint64_t offset = linear(getOffsetIndex(), getStep());
    const std::uint64_t from = std::min(end, offset > base_ ? offset - base_ : 0);
    const std::uint64_t limit = getCountElementsToWrite();
    const std::uint64_t to = limit == 0 ? end : std::min(end, from + limit);
    return {items_, from, to, &placeholder()};
}

void TzSoapCompactArrayImp::doSetBounds(const Index& bounds) {
    TzSoapReshaped reshaped(bounds, getStartIndex(), placeholder());
    const std::uint64_t size = items_.size();
    const auto indexAt = [this](std::uint64_t at) {
        return linearToIndex(static_cast<unsigned int>(std::min(base_ + at, Largest)), true);
    };
    for (std::uint64_t at = items_.nextStored(0); at < size; at = items_.nextStored(at + 1)) {
        if (const TzSoapDefaultType& item = *items_.find(at); !isVacant(item)) {
            reshaped.take(indexAt(at), item);
        }
    }
    if (size != 0) {
        reshaped.takeEmpty(indexAt(size - 1), getBounds());
    }
    TzSoapCompactItems& items = reshaped.items();
    items.reserve(items.size());
    TzSoapArrayTypeImp::doSetBounds(bounds);
    items_.swap(items);
    base_ = reshaped.base();
    block_ = reshaped.block();
}
