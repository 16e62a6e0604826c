// SPDX-License-Identifier: MIT
// How arrays take the members that are read.
#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapParseContext.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapReadingState.h"
#include "values/TzSoapShape.h"

#include <numeric>
#include <string>
#include <typeinfo>
#include <utility>

namespace {

/// The position of an index within a shape, however large.
std::uint64_t exactLinear(const TzSoapArrayTypeImp::Index& index,
                          const TzSoapArrayTypeImp::Index& steps) noexcept {
    return std::inner_product(index.begin(), index.end(), steps.begin(), std::uint64_t{0},
                              std::plus<>(),
                              [](std::uint64_t entry, std::uint64_t step) { return entry * step; });
}

} // namespace

void TzSoapArrayTypeImp::throwUnfilled(const Index& vector, const TzSoapParseContext& context) {
    TzSoapShape::throwTooLarge(
        vector, "the text leaves more positions without an item than the " +
                    std::to_string(TzSoapAccess::reading(context).budget.unfilledLimit()) +
                    " that unfilledArrayPositions and its size allow");
}

void TzSoapArrayTypeImp::addChild(const TzSoapType& child) { placeNext(TzSoapType(child)); }

std::uint64_t TzSoapArrayTypeImp::nextPosition(const TzSoapAttributeSet& attributes) const {
    if (attributes.hasPositionAttribute()) {
        const Index index = stringToVector(attributes.getPositionAttribute(), false);
        boundsCheck(index, true);
        return exactLinear(index, step_);
    }
    return cursorSet_ ? cursor_ : indexToLinear(offset_, true);
}

void TzSoapArrayTypeImp::placeNext(TzSoapType&& member) {
    TzSoapAttributeSet& attributes = TzSoapAccess::body(member).getAttributeSet();
    const std::uint64_t position = nextPosition(attributes);
    place(position, std::move(member), context());
    // The array holds the member now.
    attributes.removePositionAttribute();
    cursor_ = position + 1;
    cursorSet_ = true;
}

void TzSoapArrayTypeImp::place(std::uint64_t position, TzSoapType&& member, TzSoapParseContext*) {
    elementAt(checkedPosition(position)) = std::move(member);
}

void TzSoapArrayTypeImp::doStart(const TzXmlName& childName,
                                 const TzXmlAttributeSet& childAttributes,
                                 TzSoapParseContext* context) {
    cursorSet_ = false;
    open(*this, context, nullptr);
    startElement(childName, childAttributes);
}

TzSoapCompactArrayType TzSoapCompactArrayImp::forReading(const TzXmlName& name,
                                                         const TzCString& elementType,
                                                         const TzCString& size,
                                                         TzSoapParseContext& context) {
    auto array = withoutMembers(name, elementType, size);
    if (!TzSoapAccess::reading(context).budget.takeUnfilledPositions(
            TzSoapAccess::body(array).items_.size())) {
        throwUnfilled(array.getBounds(), context);
    }
    return array;
}

[[gnu::hot]] void TzSoapCompactArrayImp::settle(unsigned int position,
                                                TzSoapParseContext& context) const {
    const std::uint64_t offset = offsetOf(position);
    const std::uint64_t size = items_.size();
    if (offset >= size) {
        if (!TzSoapAccess::reading(context).budget.takeUnfilledPositions(
                TzSoapShape::growthFor(offset, size, block_) - 1)) {
            throwUnfilled(namedBy(position), context);
        }
        return;
    }
    const TzSoapDefaultType* before = items_.find(offset);
    if (before == nullptr || isVacant(*before)) {
        TzSoapAccess::reading(context).budget.returnUnfilledPositions(1);
    }
}

[[gnu::hot]] void TzSoapCompactArrayImp::takeChild(TzSoapType&& child) {
    if (!takeNext(child)) {
        placeNext(std::move(child));
    }
}

/// Takes a member that follows the last one and has no attributes besides its type, as nearly all
/// do, into room that is there; false for any other one, which is left as it is.
[[gnu::hot]] bool TzSoapCompactArrayImp::takeNext(TzSoapType& member) {
    const bool follows = hasCursor() && cursor() <= Largest && items_.isNext(cursor() - base_);
    if (!follows || context() == nullptr || typeid(*this) != typeid(TzSoapCompactArrayImp) ||
        !TzSoapAccess::body(member).getAttributeSet().empty()) {
        return false;
    }
    TzSoapAccess::reading(*context()).budget.returnUnfilledPositions(1);
    items_.putNext(TzSoapAccess::handle<TzSoapDefaultType>(std::move(member)));
    passCursor();
    return true;
}

[[gnu::hot]] void TzSoapCompactArrayImp::place(std::uint64_t position, TzSoapType&& member,
                                               TzSoapParseContext* context) {
    const unsigned int at = checkedPosition(position);
    if (context != nullptr) {
        settle(at, *context);
    }
    if (typeid(*this) != typeid(TzSoapCompactArrayImp)) {
        TzSoapArrayTypeImp::place(position, std::move(member), context);
        return;
    }
    expandIfNeeded(at);
    items_.put(position - base_, TzSoapAccess::take<TzSoapDefaultType>(member), placeholder());
}
