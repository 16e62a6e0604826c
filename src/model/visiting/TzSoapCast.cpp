// SPDX-License-Identifier: MIT
#include <soap/TzSoapCast.h>

#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/visiting/TzSoapDispatch.h"
#include "values/TzSoapFollow.h"
#include "values/TzSoapValueText.h"

#include <type_traits>

namespace {

/// What a value is that a handle of this class can hold, in the words of errors.
template <typename Handle> constexpr const char* KindOf = nullptr;
template <> constexpr const char* KindOf<TzSoapArrayType> = "an array";
template <> constexpr const char* KindOf<TzSoapCompactArrayType> = "a compact array";
template <> constexpr const char* KindOf<TzSoapCompositeType> = "a composite";
template <> constexpr const char* KindOf<TzSoapMisunderstoodType> = "a misunderstood entry";
template <> constexpr const char* KindOf<TzSoapReferenceType> = "a reference";
template <> constexpr const char* KindOf<TzSoapSimpleType> = "a simple value";
template <> constexpr const char* KindOf<TzSoapSparseArrayType> = "a sparse array";
template <> constexpr const char* KindOf<TzSoapUserDefinedType> = "a user-defined value";

/// The composite without children that an element read literally without content is as well; empty
/// for any other value. Its name and attributes are copies.
std::optional<TzSoapCompositeType> emptyComposite(const TzSoapType& value) {
    const TzSoapTypeImp& body = TzSoapAccess::body(value);
    if (body.getSoapTypeId() != TzSoapContentBase::Simple || !body.isVerbatim() ||
        !TzXmlUtils::trim(static_cast<const TzSoapSimpleTypeImp&>(body).text()).empty()) {
        return {};
    }
    const TzSoapCompositeType composite;
    static_cast<TzSoapElementImp&>(TzSoapAccess::body(composite)) = body;
    return composite;
}

} // namespace

template <typename Handle> std::optional<Handle> tzSoapCast(const TzSoapType& value) {
    using Body =
        std::remove_reference_t<decltype(TzSoapAccess::body(std::declval<const Handle&>()))>;
    auto* body = dynamic_cast<Body*>(&TzSoapAccess::body(value));
    return body == nullptr ? std::nullopt : std::optional(TzSoapAccess::handle<Handle>(body));
}

template <typename Handle> Handle tzSoapAs(const TzSoapType& value) {
    constexpr bool follows = !std::is_same_v<Handle, TzSoapReferenceType>;
    const TzSoapType meant = follows ? tzSoapFollow(value) : value;
    std::optional<Handle> handle = tzSoapCast<Handle>(meant);
    if constexpr (std::is_same_v<Handle, TzSoapCompositeType>) {
        if (!handle) {
            handle = emptyComposite(meant);
        }
    }
    if (!handle) {
        TzThrow(TzXmlBadArgError(TzMessage(TzSoapValueText::notOfKind(meant, KindOf<Handle>))));
    }
    return *std::move(handle);
}

template TZSOAP_API std::optional<TzSoapArrayType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapCompactArrayType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapCompositeType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapMisunderstoodType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapReferenceType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapSimpleType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapSparseArrayType> tzSoapCast(const TzSoapType&);
template TZSOAP_API std::optional<TzSoapUserDefinedType> tzSoapCast(const TzSoapType&);
template TZSOAP_API TzSoapArrayType tzSoapAs(const TzSoapType&);
template TZSOAP_API TzSoapCompactArrayType tzSoapAs(const TzSoapType&);
template TZSOAP_API TzSoapCompositeType tzSoapAs(const TzSoapType&);
template TZSOAP_API TzSoapMisunderstoodType tzSoapAs(const TzSoapType&);
template TZSOAP_API TzSoapReferenceType tzSoapAs(const TzSoapType&);
template TZSOAP_API TzSoapSimpleType tzSoapAs(const TzSoapType&);
template TZSOAP_API TzSoapSparseArrayType tzSoapAs(const TzSoapType&);
template TZSOAP_API TzSoapUserDefinedType tzSoapAs(const TzSoapType&);
