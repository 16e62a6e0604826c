// SPDX-License-Identifier: MIT
#include <soap/TzSoapCast.h>

#include "model/TzSoapDispatch.h"

#include <type_traits>

template <typename Handle> std::optional<Handle> tzSoapCast(const TzSoapType& value) {
    using Body =
        std::remove_reference_t<decltype(TzSoapAccess::body(std::declval<const Handle&>()))>;
    auto* body = dynamic_cast<Body*>(&TzSoapAccess::body(value));
    return body == nullptr ? std::nullopt : std::optional(TzSoapAccess::handle<Handle>(body));
}

template TZSOAP_API std::optional<TzSoapArrayType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapCompactArrayType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapCompositeType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapMisunderstoodType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapReferenceType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapSimpleType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapSparseArrayType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapUserDefinedType> tzSoapCast(const TzSoapType&);
