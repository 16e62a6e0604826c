// SPDX-License-Identifier: MIT
#include <soap/TzSoapSparseArrayImp.h>

#include <soap/TzSoapSparseArrayType.h>

#include "model/TzSoapAccess.h"
#include "values/TzSoapShape.h"

#include <typeinfo>
#include <utility>

TzSoapSparseArrayImp::TzSoapSparseArrayImp(TzXmlName name, TzCString elementType, unsigned int size)
    : TzSoapSparseArrayImp(std::move(name), std::move(elementType), Index{size}) {
    size_ = size;
}

TzSoapSparseArrayImp::TzSoapSparseArrayImp(TzXmlName name, TzCString elementType,
                                           const TzCString& bounds)
    : TzSoapSparseArrayImp(std::move(name), std::move(elementType), stringToVector(bounds, true)) {}

TzSoapSparseArrayImp::TzSoapSparseArrayImp(TzXmlName name, TzCString elementType,
                                           const Index& bounds)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), bounds, Index(bounds.size())) {}

TzSoapSparseArrayImp::TzSoapSparseArrayImp(const TzSoapSparseArrayImp& other) = default;

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
    TzSoapType* found = items_.find(index);
    return found == nullptr ? items_.append(index, getTemplate().copy()) : *found;
}

const TzSoapType& TzSoapSparseArrayImp::elementAt(const Index& index) const {
    const TzSoapType* found = items_.find(index);
    return found == nullptr ? getTemplate() : *found;
}

TzSoapSparseArrayImp::iterator TzSoapSparseArrayImp::begin() { return items_.begin(); }

TzSoapSparseArrayImp::iterator TzSoapSparseArrayImp::end() { return items_.end(); }

void TzSoapSparseArrayImp::place(std::uint64_t position, TzSoapType&& member, TzSoapParseContext*) {
    Index index = TzSoapShape::indexAt(position, getStep());
    boundsCheck(index, true);
    if (typeid(*this) != typeid(TzSoapSparseArrayImp)) {
        elementAt(index) = std::move(member);
    } else if (TzSoapType* found = items_.find(index)) {
        // Without a copy of the template that would be replaced at once.
        *found = std::move(member);
    } else {
        items_.append(std::move(index), std::move(member));
    }
}

void TzSoapSparseArrayImp::endElement(const TzXmlName& name) {
    items_.dropIndex();
    TzSoapArrayTypeImp::endElement(name);
}

void TzSoapSparseArrayImp::doSetBounds(const Index& bounds) {
    TzSoapArrayTypeImp::doSetBounds(bounds);
    items_.removeIf([this](const Index& index) { return !boundsCheck(index, false); });
}
