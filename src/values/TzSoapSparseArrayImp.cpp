// SPDX-License-Identifier: MIT
#include <soap/TzSoapSparseArrayImp.h>

#include <soap/TzSoapSparseArrayType.h>

#include "model/TzSoapAccess.h"

#include <algorithm>
#include <cstdint>
#include <map>

namespace {

/// Shorter lists are walked.
constexpr std::size_t LongList = 16;

} // namespace

/// Finds items by index. Ordered rather than hashed, so that no choice of indices makes it slow;
/// what decides most comparisons stands beside the pointer.
class TzSoapSparseArrayImp::Lookup {
public:
    explicit Lookup(Items& items) {
        for (iterator item = items.begin(); item != items.end(); ++item) {
            add(item);
        }
    }

    /// Adds an item unless its index is there already.
    void add(iterator item) {
        const Key key(item->first);
        if (!items_.empty() && items_.rbegin()->first < key) {
            items_.emplace_hint(items_.end(), key, item);
        } else {
            items_.emplace(key, item);
        }
    }

    /// The first item of that index, `none` if there is none.
    iterator find(const Index& index, iterator none) const {
        const auto found = items_.find(Key(index));
        return found == items_.end() ? none : found->second;
    }

private:
    struct Key {
        explicit Key(const Index& wanted) : leading(leadingOf(wanted)), index(&wanted) {}

        bool operator<(const Key& other) const {
            return leading < other.leading || (leading == other.leading && *index < *other.index);
        }

        static std::uint64_t leadingOf(const Index& index) {
            const std::uint64_t first = index.empty() ? 0 : index[0];
            return first << 32 | (index.size() < 2 ? 0 : index[1]);
        }

        std::uint64_t leading; // the first two entries
        const Index* index;
    };

    std::map<Key, iterator> items_;
};

TzSoapSparseArrayImp::TzSoapSparseArrayImp(TzXmlName name, TzCString elementType, unsigned int size)
    : TzSoapSparseArrayImp(std::move(name), std::move(elementType), Index{size}) {
    size_ = size;
}

TzSoapSparseArrayImp::TzSoapSparseArrayImp(TzXmlName name, TzCString elementType,
                                           const TzCString& bounds)
    : TzSoapSparseArrayImp(std::move(name), std::move(elementType), stringToVector(bounds, true)) {}

TzSoapSparseArrayImp::TzSoapSparseArrayImp(TzXmlName name, TzCString elementType,
                                           const Index& bounds)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), bounds, Index(bounds.size())),
      template_(TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(nullptr))) {}

TzSoapSparseArrayImp::TzSoapSparseArrayImp(const TzSoapSparseArrayImp& other)
    : TzSoapArrayTypeImp(other), items_(other.items_), template_(other.getTemplate()),
      size_(other.size_) {}

TzSoapSparseArrayImp::~TzSoapSparseArrayImp() = default;

TzSoapSparseArrayType TzSoapSparseArrayImp::forReading(const TzXmlName& name,
                                                       const TzCString& elementType,
                                                       const TzCString& size) {
    return TzSoapAccess::handle<TzSoapSparseArrayType>(
        new TzSoapSparseArrayImp(name, elementType, boundsFromSize(size)));
}

TzSoapElementImp* TzSoapSparseArrayImp::clone() const { return new TzSoapSparseArrayImp(*this); }

bool TzSoapSparseArrayImp::isSparse() const { return true; }

unsigned int TzSoapSparseArrayImp::entries() const {
    return static_cast<unsigned int>(items_.size());
}

TzSoapType& TzSoapSparseArrayImp::elementAt(unsigned int position) {
    return elementAt(linearToIndex(position, true));
}

const TzSoapType& TzSoapSparseArrayImp::elementAt(unsigned int position) const {
    return elementAt(linearToIndex(position, true));
}

TzSoapType& TzSoapSparseArrayImp::elementAt(const Index& index) {
    const iterator found = find(index);
    return found == items_.end() ? add(index, getTemplate().copy()) : found->second;
}

const TzSoapType& TzSoapSparseArrayImp::elementAt(const Index& index) const {
    const iterator found = find(index);
    return found == items_.end() ? getTemplate() : found->second;
}

TzSoapSparseArrayImp::iterator TzSoapSparseArrayImp::find(const Index& index) const {
    if (items_.size() < LongList) {
        return std::find_if(items_.begin(), items_.end(),
                            [&index](const auto& item) { return item.first == index; });
    }
    if (lookup_ == nullptr) {
        lookup_ = std::make_unique<Lookup>(items_);
    }
    return lookup_->find(index, items_.end());
}

TzSoapType& TzSoapSparseArrayImp::add(Index index, TzSoapType value) {
    Items added;
    added.emplace_back(std::move(index), std::move(value));
    if (lookup_ != nullptr) {
        lookup_->add(added.begin());
    }
    items_.splice(items_.end(), added);
    return items_.back().second;
}

const TzSoapType& TzSoapSparseArrayImp::getTemplate() const {
    if (!TzSoapAccess::hasBody(template_)) {
        template_ = TzSoapType();
    }
    return template_;
}

TzSoapSparseArrayImp::iterator TzSoapSparseArrayImp::begin() {
    lookup_.reset();
    return items_.begin();
}

TzSoapSparseArrayImp::iterator TzSoapSparseArrayImp::end() {
    lookup_.reset();
    return items_.end();
}

void TzSoapSparseArrayImp::addChild(const TzSoapType& child) {
    TzSoapAttributeSet& attributes = TzSoapAccess::body(child).getAttributeSet();
    Index index = stringToVector(attributes.getPositionAttribute(), false);
    boundsCheck(index, true);
    const iterator found = find(index);
    if (found == items_.end()) {
        add(std::move(index), child);
    } else {
        found->second = child;
    }
    attributes.removePositionAttribute();
}

void TzSoapSparseArrayImp::endElement(const TzXmlName& name) {
    lookup_.reset();
    TzSoapArrayTypeImp::endElement(name);
}

void TzSoapSparseArrayImp::doSetBounds(const Index& bounds) {
    TzSoapArrayTypeImp::doSetBounds(bounds);
    lookup_.reset();
    items_.remove_if([this](const auto& item) { return !boundsCheck(item.first, false); });
}
