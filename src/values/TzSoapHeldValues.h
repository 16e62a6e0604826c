// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSparseArrayImp.h>

#include <algorithm>

/// The values that a value holds.
namespace TzSoapHeldValues {

/// Visits each handle to an item of `array` that is stored.
template <typename Visit> void forEachItem(TzSoapArrayTypeImp& array, const Visit& visit) {
    if (array.isSparse()) {
        for (auto& [index, item] : static_cast<TzSoapSparseArrayImp&>(array)) {
            visit(item);
        }
    } else if (array.isCompact()) {
        for (const TzSoapDefaultType& item :
             static_cast<const TzSoapCompactArrayImp&>(array).storedItems()) {
            visit(const_cast<TzSoapDefaultType&>(item)); // the array is not const itself
        }
    }
}

/// Visits each handle that `value` holds: its children, its stored items or its target, in order.
template <typename Visit> void forEachHeld(TzSoapTypeImp& value, const Visit& visit) {
    switch (value.getSoapTypeId()) {
    case TzSoapContentBase::Composite: {
        auto& composite = static_cast<TzSoapCompositeTypeImp&>(value);
        std::for_each(composite.childrenBegin(), composite.childrenEnd(), visit);
        return;
    }
    case TzSoapContentBase::Array:
        return forEachItem(static_cast<TzSoapArrayTypeImp&>(value), visit);
    case TzSoapContentBase::Reference: {
        auto& reference = static_cast<TzSoapReferenceTypeImp&>(value);
        if (reference.isSoapReference() && reference.hasReference()) {
            visit(reference.getSoapReference());
        }
        return;
    }
    default:
        return;
    }
}

} // namespace TzSoapHeldValues
