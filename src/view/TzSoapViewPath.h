// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapMissingError.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttribute.h>

#include "model/TzSoapAccess.h"
#include "service/TzSoapMembers.h"

#include <cstddef>
#include <optional>
#include <string_view>

// What views and places say about the way to a value.

/// `path`, "/" unless it is empty, and `step`.
inline TzCString tzSoapJoined(TzCString path, std::string_view step) {
    return path.append(path.empty() ? 0 : 1, '/').append(step);
}

/// The step to the `number`-th element named `name`: "[n]" stands after all but the first.
inline TzCString tzSoapNumbered(const TzCString& name, std::size_t number) {
    return number > 1 ? name + '[' + std::to_string(number) + ']' : name;
}

/// The step from `owner` to its member `member`: its local name, and "[n]" unless it is the first
/// of that name. O(members before it).
template <typename Owner> TzCString tzSoapStepOf(const Owner& owner, const TzSoapType& member) {
    if (TzSoapArrayTypeImp::isPlaceholder(member)) {
        return "[]";
    }
    const TzCString& name = member.getName().getLocalName();
    std::size_t number = 0;
    TzSoapMembers::first(owner, [&](const TzSoapType& other) {
        number += other.getName().getLocalName() == name ? 1 : 0;
        return TzSoapAccess::sameBody(other, member);
    });
    return tzSoapNumbered(name, number);
}

/// Throws `TzSoapMissingError`: `path` has no member of that name.
template <typename Owner>
[[noreturn]] void tzSoapRefuseMember(const Owner& owner, const TzCString& path,
                                     std::string_view localName,
                                     const std::optional<std::string_view>& uri) {
    const TzCString missing = tzSoapJoined(path, localName);
    const TzCString which = uri ? missing + ' ' + TzSoapMembers::inNamespace(*uri) : missing;
    throw TzSoapMissingError(missing,
                             which + " is missing" + TzSoapMembers::reason(owner, localName, uri));
}

/// Throws `TzSoapMissingError`: the element at `path` has no attribute of that name.
[[noreturn]] void tzSoapRefuseAttribute(const TzCString& path, std::string_view localName,
                                        const std::optional<std::string_view>& uri);

/// The attribute of that name, declarations left out; null without one. O(attributes).
const TzXmlAttribute* tzSoapFindAttribute(const TzSoapTypeImp& element, std::string_view localName,
                                          const std::optional<std::string_view>& uri);

/// The error text about what is below too many steps.
inline TzCString tzSoapTooDeep(const TzCString& path, std::size_t limit) {
    return tzQuoted(path) + " has too many steps, the limit is " + std::to_string(limit);
}
