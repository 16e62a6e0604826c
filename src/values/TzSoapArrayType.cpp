// SPDX-License-Identifier: MIT
#include <soap/TzSoapArrayType.h>

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapSparseArrayImp.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapBodyAs.h"

#include <typeinfo>
#include <utility>

using Index = std::vector<unsigned int>;

namespace {

/// Fast path: the item at `index` of a compact array of two axes, null where none came to life and
/// for every body of another class, which is asked by its virtual functions.
[[gnu::always_inline]] inline TzSoapDefaultType* storedInPlane(TzBodyBase& body,
                                                               const Index& index) noexcept {
    return &typeid(body) == &typeid(TzSoapCompactArrayImp)
               ? TzSoapAccess::storedInPlane(static_cast<TzSoapCompactArrayImp&>(body), index)
               : nullptr;
}

// Never inlined: what these need would slow the fast path down.
[[gnu::noinline]] TzSoapType& askBody(const TzSoapArrayType& array, const Index& index) {
    return TzSoapAccess::body(array).bcat(index);
}

[[gnu::noinline]] const TzSoapType& askConstBody(const TzSoapArrayType& array, const Index& index) {
    return std::as_const(TzSoapAccess::body(array)).bcat(index);
}

} // namespace

TzSoapArrayType::TzSoapArrayType(TzSoapArrayTypeImp* body) noexcept : TzSoapType(body) {}

TzSoapArrayType::~TzSoapArrayType() = default;

TzSoapArrayTypeImp& TzSoapArrayType::body() const {
    return tzSoapBodyAs<TzSoapArrayTypeImp, TzSoapCompactArrayImp, TzSoapSparseArrayImp>(
        bodyBase(), "TzSoapArrayType");
}

const TzSoapArrayTypeImp& TzSoapArrayType::constBody() const { return body(); }

TzSoapArrayType TzSoapArrayType::copy() const {
    return TzSoapArrayType(static_cast<TzSoapArrayTypeImp*>(body().clone()));
}

bool TzSoapArrayType::isSparse() const { return body().isSparse(); }

bool TzSoapArrayType::isCompact() const { return body().isCompact(); }

const TzCString& TzSoapArrayType::getElementType() const { return body().getElementType(); }

unsigned int TzSoapArrayType::getDimension() const { return body().getDimension(); }

const Index& TzSoapArrayType::getBounds() const { return body().getBounds(); }

TzCString TzSoapArrayType::getBoundsAsString(TzSoapVersion::Version version) const {
    return body().getBoundsAsString(version);
}

TzCString TzSoapArrayType::getArrayType() const { return body().getArrayType(); }

void TzSoapArrayType::setBounds(const Index& bounds) { body().setBounds(bounds); }

void TzSoapArrayType::setBounds(const TzCString& bounds) { body().setBounds(bounds); }

unsigned int TzSoapArrayType::entries() const { return body().entries(); }

TzSoapType& TzSoapArrayType::operator[](unsigned int position) { return body().at(position); }

const TzSoapType& TzSoapArrayType::operator[](unsigned int position) const {
    return constBody().at(position);
}

TzSoapType& TzSoapArrayType::operator[](const Index& index) { return body().at(index); }

const TzSoapType& TzSoapArrayType::operator[](const Index& index) const {
    return constBody().at(index);
}

TzSoapType& TzSoapArrayType::operator[](const TzCString& index) { return body().at(index); }

const TzSoapType& TzSoapArrayType::operator[](const TzCString& index) const {
    return constBody().at(index);
}

TzSoapType& TzSoapArrayType::operator()(unsigned int position) { return body().bcat(position); }

const TzSoapType& TzSoapArrayType::operator()(unsigned int position) const {
    return constBody().bcat(position);
}

TzSoapType& TzSoapArrayType::operator()(const Index& index) {
    TzSoapType* const stored = storedInPlane(bodyBase(), index);
    return stored != nullptr ? *stored : askBody(*this, index);
}

const TzSoapType& TzSoapArrayType::operator()(const Index& index) const {
    const TzSoapType* const stored = storedInPlane(bodyBase(), index);
    return stored != nullptr ? *stored : askConstBody(*this, index);
}

TzSoapType& TzSoapArrayType::operator()(const TzCString& index) { return body().bcat(index); }

const TzSoapType& TzSoapArrayType::operator()(const TzCString& index) const {
    return constBody().bcat(index);
}

bool TzSoapArrayType::getSizeShouldBeEncoded() const { return body().getSizeShouldBeEncoded(); }

void TzSoapArrayType::setSizeShouldBeEncoded(bool encoded) {
    body().setSizeShouldBeEncoded(encoded);
}

const Index& TzSoapArrayType::getStartIndex() const { return body().getStartIndex(); }

const Index& TzSoapArrayType::getOffsetIndex() const { return body().getOffsetIndex(); }

TzCString TzSoapArrayType::getOffsetAttribute(TzSoapVersion::Version version) const {
    return body().getOffsetAttribute(version);
}

void TzSoapArrayType::setOffset(const Index& offset) { body().setOffset(offset); }

void TzSoapArrayType::setOffset(const TzCString& offset) { body().setOffset(offset); }

unsigned int TzSoapArrayType::getCountElementsToWrite() const {
    return body().getCountElementsToWrite();
}

void TzSoapArrayType::setCountElementsToWrite(unsigned int count) {
    body().setCountElementsToWrite(count);
}

unsigned int TzSoapArrayType::indexToLinear(const Index& index) const {
    return body().indexToLinear(index, false);
}

Index TzSoapArrayType::linearToIndex(unsigned int position) const {
    return body().linearToIndex(position, false);
}

Index TzSoapArrayType::stringToVector(const TzCString& text) {
    return TzSoapArrayTypeImp::stringToVector(text, false);
}

TzCString TzSoapArrayType::vectorToString(const Index& vector, bool zeroAsDigit,
                                          TzSoapVersion::Version version) {
    return TzSoapArrayTypeImp::vectorToString(vector, zeroAsDigit, version);
}
