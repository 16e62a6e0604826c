// SPDX-License-Identifier: MIT
#pragma once

#include "support/WireForm.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>

#include <string>

// Short names for what tests of reading ask most.

inline TzSoapSimpleType simple(const TzSoapType& value) { return as<TzSoapSimpleType>(value); }
inline TzSoapCompositeType composite(const TzSoapType& value) {
    return as<TzSoapCompositeType>(value);
}
inline TzSoapUserDefinedType userDefined(const TzSoapType& value) {
    return as<TzSoapUserDefinedType>(value);
}
inline TzSoapReferenceType reference(const TzSoapType& value) {
    return as<TzSoapReferenceType>(value, true);
}
inline TzSoapCompactArrayType compact(const TzSoapType& value) {
    return as<TzSoapCompactArrayType>(value, TzCString(), 0U, 0U);
}
inline TzSoapSparseArrayType sparse(const TzSoapType& value) {
    return as<TzSoapSparseArrayType>(value, TzCString(), 0U);
}

/// The text of a simple value.
inline std::string textOf(const TzSoapType& value) { return simple(value).getString(); }

/// The child of a composite value with this unqualified name.
inline TzSoapType child(const TzSoapType& value, const char* name) {
    TzSoapCompositeType parent = composite(value);
    const auto found = parent.findChild(TzXmlName(name));
    if (found == parent.childrenEnd()) {
        ADD_FAILURE() << "no child " << name;
        return {};
    }
    return *found;
}
