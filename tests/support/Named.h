// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>
#include <tz/xml/TzXmlName.h>

#include <string>

/// A generic value with the unqualified name `name`.
inline TzSoapType named(const char* name) { return TzSoapType(TzXmlName(name)); }

/// The local names of a range of values, one blank between them.
template <typename Position> std::string namesOf(Position begin, Position end) {
    std::string names;
    for (; begin != end; ++begin) {
        const TzSoapType& value = *begin;
        names += (names.empty() ? "" : " ") + value.getName().getLocalName();
    }
    return names;
}
