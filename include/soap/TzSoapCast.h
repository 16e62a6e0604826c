// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>

#include <optional>

class TzSoapArrayType;
class TzSoapCompactArrayType;
class TzSoapCompositeType;
class TzSoapMisunderstoodType;
class TzSoapReferenceType;
class TzSoapSimpleType;
class TzSoapSparseArrayType;
class TzSoapUserDefinedType;

/// A handle of class `Handle` that shares the body of `value`, for example a `TzSoapCompositeType`
/// of a body entry; empty when the value is of another kind. `Handle` is one of the classes
/// declared above. `TzTHRInvalidPointer` "Invalid pointer" for a handle without a body.
template <typename Handle> std::optional<Handle> tzSoapCast(const TzSoapType& value);

/// A handle of class `Handle`, one of the classes declared above, for the value that `value` stands
/// for: itself, or what it refers to unless `Handle` is `TzSoapReferenceType`. `TzXmlBadArgError`
/// with the element's name and kind when that is of another kind, `TzTHRInvalidPointer` "Invalid
/// pointer" for a handle without a body. An element of a literal message that was read without
/// content, a simple value, is also a composite without children: a new one with copies of name and
/// attributes, so that a change of it does not reach the message. O(references in a row).
template <typename Handle> Handle tzSoapAs(const TzSoapType& value);

extern template TZSOAP_API std::optional<TzSoapArrayType> tzSoapCast(const TzSoapType&);
extern template TZSOAP_API std::optional<TzSoapCompactArrayType> tzSoapCast(const TzSoapType&);
extern template TZSOAP_API std::optional<TzSoapCompositeType> tzSoapCast(const TzSoapType&);
extern template TZSOAP_API std::optional<TzSoapMisunderstoodType> tzSoapCast(const TzSoapType&);
extern template TZSOAP_API std::optional<TzSoapReferenceType> tzSoapCast(const TzSoapType&);
extern template TZSOAP_API std::optional<TzSoapSimpleType> tzSoapCast(const TzSoapType&);
extern template TZSOAP_API std::optional<TzSoapSparseArrayType> tzSoapCast(const TzSoapType&);
extern template TZSOAP_API std::optional<TzSoapUserDefinedType> tzSoapCast(const TzSoapType&);
extern template TZSOAP_API TzSoapArrayType tzSoapAs(const TzSoapType&);
extern template TZSOAP_API TzSoapCompactArrayType tzSoapAs(const TzSoapType&);
extern template TZSOAP_API TzSoapCompositeType tzSoapAs(const TzSoapType&);
extern template TZSOAP_API TzSoapMisunderstoodType tzSoapAs(const TzSoapType&);
extern template TZSOAP_API TzSoapReferenceType tzSoapAs(const TzSoapType&);
extern template TZSOAP_API TzSoapSimpleType tzSoapAs(const TzSoapType&);
extern template TZSOAP_API TzSoapSparseArrayType tzSoapAs(const TzSoapType&);
extern template TZSOAP_API TzSoapUserDefinedType tzSoapAs(const TzSoapType&);
