// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapSparseArrayImp.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapHeldFault.h"
#include "model/TzSoapIsExactly.h"
#include "values/TzSoapFollow.h"

#include <optional>
#include <string_view>
#include <typeinfo>
#include <utility>

/// The members of a header, a body or a value: what a program sees below it. `Owner` is a handle of
/// one of them or the body of a value, which is not followed if it is a reference.
namespace TzSoapMembers {

inline const TzSoapType& valueOf(const TzSoapType& value) { return value; }

template <typename Index> const TzSoapType& valueOf(const std::pair<Index, TzSoapType>& item) {
    return item.second;
}

/// The first of `values` for which `test` holds, null without one. Array positions without an item
/// are left out.
template <typename Values, typename Test>
const TzSoapType* firstOf(const Values& values, const Test& test) {
    for (const auto& element : values) {
        const TzSoapType& value = valueOf(element);
        if (!TzSoapArrayTypeImp::isPlaceholder(value) && test(value)) {
            return &value;
        }
    }
    return nullptr;
}

/// The first member for which `test` holds, null without one. O(members).
template <typename Test> const TzSoapType* first(const TzSoapHeader& header, const Test& test) {
    return firstOf(TzSoapAccess::body(header).entries(), test);
}

template <typename Test> const TzSoapType* first(const TzSoapBody& body, const Test& test) {
    return firstOf(TzSoapAccess::body(body).entries(), test);
}

template <typename Test> const TzSoapType* first(const TzSoapTypeImp& body, const Test& test) {
    if (tzSoapIsExactly<TzSoapCompositeTypeImp>(typeid(body))) {
        return firstOf(static_cast<const TzSoapCompositeTypeImp&>(body).children(), test);
    }
    if (const auto* composite = dynamic_cast<const TzSoapCompositeTypeImp*>(&body)) {
        return firstOf(composite->children(), test);
    }
    if (const auto* compact = dynamic_cast<const TzSoapCompactArrayImp*>(&body)) {
        return firstOf(compact->storedItems(), test);
    }
    if (const auto* sparse = dynamic_cast<const TzSoapSparseArrayImp*>(&body)) {
        return firstOf(*sparse, test);
    }
    return nullptr;
}

template <typename Test> const TzSoapType* first(const TzSoapType& value, const Test& test) {
    return first(TzSoapAccess::body(tzSoapFollow(value)), test);
}

// Why the owner has no members, if known.

inline TzCString whyNone(const TzSoapHeader&) { return {}; }

inline TzCString whyNone(const TzSoapBody& body) { return tzSoapHeldFault(body); }

inline TzCString whyNone(const TzSoapTypeImp& body) {
    const bool holds = body.getSoapTypeId() == TzSoapContentBase::Composite ||
                       body.getSoapTypeId() == TzSoapContentBase::Array;
    return holds ? TzCString()
                 : "; its parent is of kind " + tzQuoted(body.getSoapTypeIdAsString());
}

inline TzCString whyNone(const TzSoapType& value) {
    return whyNone(TzSoapAccess::body(tzSoapFollow(value)));
}

inline TzCString inNamespace(std::string_view uri) {
    return uri.empty() ? TzCString("in no namespace") : "in namespace " + tzQuoted(uri);
}

/// "there is 1", "there are 2".
inline TzCString counted(std::size_t count) {
    return "there " + (count == 1 ? TzCString("is 1") : "are " + std::to_string(count));
}

/// Whether `name` is `localName` in the namespace `uri`, in any without one.
inline bool matches(const TzXmlName& name, std::string_view localName,
                    const std::optional<std::string_view>& uri) {
    return name.getLocalName() == localName && (!uri || name.getUri() == *uri);
}

/// What the error about a missing member says after "is missing": what is there instead.
template <typename Owner>
TzCString reason(const Owner& owner, std::string_view localName,
                 const std::optional<std::string_view>& uri) {
    unsigned int present = 0;
    TzCString elsewhere;
    first(owner, [&](const TzSoapType& member) {
        const TzXmlName& name = member.getName();
        present += matches(name, localName, uri) ? 1 : 0;
        if (elsewhere.empty() && name.getLocalName() == localName) {
            elsewhere = "; there is one " + inNamespace(name.getUri());
        }
        return false;
    });
    if (present > 0) {
        return "; " + counted(present);
    }
    return elsewhere.empty() ? whyNone(owner) : elsewhere;
}

} // namespace TzSoapMembers
