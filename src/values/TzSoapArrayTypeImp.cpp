// SPDX-License-Identifier: MIT
#include <soap/TzSoapArrayTypeImp.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapDefaultTypeImp.h>
#include <soap/TzSoapUtils.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapAccess.h"
#include "values/TzSoapIndexText.h"
#include "values/TzSoapShape.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace {

[[noreturn]] void refuse(const char* method) {
    TzThrow(TzXmlDomainError(TzMessage(tzsoap_ILLEGAL_ARRAY(), method)));
}

} // namespace

TzSoapArrayTypeImp::TzSoapArrayTypeImp() : TzSoapArrayTypeImp({}, {}, Index(), Index()) {}

TzSoapArrayTypeImp::TzSoapArrayTypeImp(TzXmlName name, TzCString elementType, unsigned int size,
                                       unsigned int start)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), Index{size}, Index{start}) {}

TzSoapArrayTypeImp::TzSoapArrayTypeImp(TzXmlName name, TzCString elementType, Index bounds,
                                       Index start)
    : TzSoapTypeImp(std::move(name)), elementType_(std::move(elementType)),
      bounds_(std::move(bounds)), startIndex_(std::move(start)) {
    TzSoapShape::check(bounds_, startIndex_);
    initializeStep();
    if (!isDefaultOffset(startIndex_)) {
        setOffset(startIndex_);
    }
}

TzSoapArrayTypeImp::TzSoapArrayTypeImp(TzXmlName name, TzCString elementType,
                                       const TzCString& bounds, const TzCString& start)
    : TzSoapArrayTypeImp(std::move(name), std::move(elementType), stringToVector(bounds, true),
                         stringToVector(start, false)) {}

TzSoapArrayTypeImp::TzSoapArrayTypeImp(const TzSoapArrayTypeImp& other)
    : TzSoapTypeImp(other), TzSoapGenericTypeHandler(other), elementType_(other.elementType_),
      bounds_(other.bounds_), startIndex_(other.startIndex_), step_(other.step_),
      offset_(other.offset_), defaultValue_(other.defaultValue_),
      countElementsToWrite_(other.countElementsToWrite_), stepInitialized_(other.stepInitialized_),
      sizeShouldBeEncoded_(other.sizeShouldBeEncoded_), offsetSet_(other.offsetSet_) {}

TzSoapArrayTypeImp::TzSoapArrayTypeImp(const TzSoapArrayTypeImp& other, const Index& newBounds)
    : TzSoapArrayTypeImp(other) {
    setBounds(newBounds);
}

TzSoapArrayTypeImp::~TzSoapArrayTypeImp() = default;

TzSoapContentBase::SoapTypeId TzSoapArrayTypeImp::getSoapTypeId() const {
    return TzSoapContentBase::Array;
}

const TzCString& TzSoapArrayTypeImp::getSoapTypeIdAsString() const {
    return TzSoapUtils::arrayString;
}

TzSoapElementImp* TzSoapArrayTypeImp::clone() const { return new TzSoapArrayTypeImp(*this); }

bool TzSoapArrayTypeImp::isSparse() const { return false; }

bool TzSoapArrayTypeImp::isCompact() const { return false; }

unsigned int TzSoapArrayTypeImp::entries() const { return 0; }

TzSoapType& TzSoapArrayTypeImp::elementAt(unsigned int) { refuse("operator[]"); }

const TzSoapType& TzSoapArrayTypeImp::elementAt(unsigned int) const { refuse("operator[]"); }

TzSoapType& TzSoapArrayTypeImp::elementAt(const Index&) { refuse("operator[]"); }

const TzSoapType& TzSoapArrayTypeImp::elementAt(const Index&) const { refuse("operator[]"); }

TzSoapType& TzSoapArrayTypeImp::at(unsigned int position) {
    checkPosition(position);
    return elementAt(position);
}

const TzSoapType& TzSoapArrayTypeImp::at(unsigned int position) const {
    checkPosition(position);
    return elementAt(position);
}

TzSoapType& TzSoapArrayTypeImp::at(const Index& index) {
    boundsCheck(index, true);
    return elementAt(index);
}

const TzSoapType& TzSoapArrayTypeImp::at(const Index& index) const {
    boundsCheck(index, true);
    return elementAt(index);
}

TzSoapType& TzSoapArrayTypeImp::at(const TzCString& index) {
    return at(stringToVector(index, false));
}

const TzSoapType& TzSoapArrayTypeImp::at(const TzCString& index) const {
    return at(stringToVector(index, false));
}

TzSoapType& TzSoapArrayTypeImp::bcat(const TzCString& index) {
    return elementAt(stringToVector(index, false));
}

const TzSoapType& TzSoapArrayTypeImp::bcat(const TzCString& index) const {
    return elementAt(stringToVector(index, false));
}

TzCString TzSoapArrayTypeImp::getBoundsAsString(TzSoapVersion::Version version) const {
    return vectorToString(bounds_, sizeShouldBeEncoded_, version);
}

TzCString TzSoapArrayTypeImp::getArrayType() const {
    return elementType_ + getBoundsAsString(TzSoapVersion::V1_1);
}

void TzSoapArrayTypeImp::setBounds(const Index& bounds) {
    if (!bounds_.empty() && bounds.size() != bounds_.size()) {
        refuse("setBounds");
    }
    doSetBounds(bounds);
}

void TzSoapArrayTypeImp::setBounds(const TzCString& bounds) {
    setBounds(stringToVector(bounds, true));
}

void TzSoapArrayTypeImp::doSetBounds(const Index& bounds) {
    allocSizeOf(bounds);
    Index installed = bounds;
    Index steps = TzSoapShape::stepsOf(bounds);
    startIndex_.resize(bounds.size());
    bounds_.swap(installed);
    step_.swap(steps);
}

TzCString TzSoapArrayTypeImp::getOffsetAttribute(TzSoapVersion::Version version) const {
    return isDefaultOffset(offset_) ? TzCString() : vectorToString(offset_, true, version);
}

void TzSoapArrayTypeImp::setOffset(const Index& offset) {
    offset_ = offset;
    offsetSet_ = true;
    cursorSet_ = false;
}

void TzSoapArrayTypeImp::setOffset(const TzCString& offset) {
    setOffset(stringToVector(offset, false));
}

const TzSoapDefaultType& TzSoapArrayTypeImp::getDefaultValue() const { return defaultValue_.get(); }

unsigned int TzSoapArrayTypeImp::indexToLinear(const Index& index, bool noCheck) const {
    if (!noCheck) {
        boundsCheck(index, true);
    }
    const std::uint64_t position = linear(index, getStep());
    if (position > Largest) {
        throwOutOfRange(index);
    }
    return static_cast<unsigned int>(position);
}

TzSoapArrayTypeImp::Index TzSoapArrayTypeImp::linearToIndex(unsigned int position,
                                                            bool noCheck) const {
    if (!noCheck) {
        checkPosition(position);
    }
    return TzSoapShape::indexAt(position, getStep());
}

bool TzSoapArrayTypeImp::boundsCheck(const Index& index, bool throwOnFailure) const {
    const bool within = TzSoapShape::contains(index, startIndex_, bounds_);
    if (!within && throwOnFailure) {
        throwOutOfRange(index);
    }
    return within;
}

void TzSoapArrayTypeImp::initializeStep() {
    if (!stepInitialized_) {
        step_ = TzSoapShape::stepsOf(bounds_);
        stepInitialized_ = true;
    }
}

void TzSoapArrayTypeImp::checkPosition(unsigned int position) const {
    const bool open = bounds_.empty() || bounds_.front() == 0;
    if (!open && position >= allocSizeOf(bounds_)) {
        throwOutOfRange({position});
    }
}

void TzSoapArrayTypeImp::throwOutOfRange(const Index& index) const {
    TzSoapShape::throwOutOfRange(index, startIndex_, bounds_);
}

unsigned int TzSoapArrayTypeImp::checkedPosition(std::uint64_t position) const {
    if (position > Largest) {
        throwOutOfRange(TzSoapShape::indexAt(position, getStep()));
    }
    return static_cast<unsigned int>(position);
}

TzSoapArrayTypeImp::Index TzSoapArrayTypeImp::stringToVector(const TzCString& text,
                                                             bool boundsMode) {
    return TzSoapIndexText::parse(text, boundsMode);
}

TzSoapArrayTypeImp::Index TzSoapArrayTypeImp::stringToVectorForLatestVersion(const TzCString& text,
                                                                             bool) {
    return TzSoapIndexText::parseLatest(text);
}

TzCString TzSoapArrayTypeImp::vectorToString(const Index& vector, bool zeroAsDigit,
                                             TzSoapVersion::Version version) {
    return TzSoapIndexText::print(vector, zeroAsDigit, version);
}

TzCString TzSoapArrayTypeImp::vectorToStringForLatestVersion(const Index& vector,
                                                             bool zeroAsDigit) {
    return TzSoapIndexText::printLatest(vector, zeroAsDigit);
}

unsigned int TzSoapArrayTypeImp::allocSizeOf(const Index& bounds) {
    return TzSoapShape::allocSizeOf(bounds);
}

bool TzSoapArrayTypeImp::isDefaultOffset(const Index& offset) noexcept {
    return std::all_of(offset.begin(), offset.end(), [](unsigned int entry) { return entry == 0; });
}

bool TzSoapArrayTypeImp::isPlaceholder(const TzSoapType& value) {
    const TzSoapTypeImp& body = TzSoapAccess::body(value);
    return body.getSoapTypeId() == TzSoapContentBase::Generic &&
           dynamic_cast<const TzSoapDefaultTypeImp*>(&body) != nullptr;
}

TzSoapArrayTypeImp::Index TzSoapArrayTypeImp::boundsFromSize(const TzCString& size) {
    Index bounds = stringToVector(size, true);
    return bounds.empty() ? Index{0} : bounds;
}
