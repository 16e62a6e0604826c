// SPDX-License-Identifier: MIT
#pragma once

#include "support/CataloguedError.h"

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapType.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>
#include <tz/xml/TzXmlDomainError.h>

#include <string>
#include <vector>

/// An index or the bounds of an array.
using Index = std::vector<unsigned int>;

/// A value whose text is `text`.
inline TzSoapSimpleType valueOf(const std::string& text) {
    return TzSoapSimpleType(TzXmlName("item"), text.c_str(), TzSoapContentBase::xsdString, false);
}

/// The text of a value, "-" of a placeholder and "" of other values without text.
inline std::string itemText(const TzSoapType& value) {
    if (const auto simple = tzSoapCast<TzSoapSimpleType>(value)) {
        return simple->getString();
    }
    return value.getSoapTypeId() == TzSoapContentBase::Generic &&
                   TzSoapArrayTypeImp::isPlaceholder(value)
               ? "-"
               : "";
}

/// The texts of a range of values, one after the other with a blank between them.
template <typename Range> std::string textsOf(const Range& values) {
    std::string texts;
    for (const TzSoapType& value : values) {
        texts += (texts.empty() ? "" : " ") + itemText(value);
    }
    return texts;
}

/// Expects BAD_INDEX_STRING about `text`.
template <typename Action> void expectBadText(const Action& action, const std::string& text) {
    expectCatalogued<TzXmlBadArgError>(
        action, 0x7008, "[BAD_INDEX_STRING][Illegal SOAP array index string: \"" + text + "\"]");
}

/// Expects BAD_INDEX_VECTOR about the entry at `location`.
template <typename Action>
void expectBadEntry(const Action& action, std::size_t location, unsigned int entry) {
    expectCatalogued<TzXmlBoundsError>(
        action, 0x7009,
        "[BAD_INDEX_VECTOR][Illegal SOAP array vector. Entry at location " +
            std::to_string(location) + " has value " + std::to_string(entry) + "]");
}

/// Expects INDEX_RANGE_VEC about three vectors, given as text.
template <typename Action>
void expectOutOfRange(const Action& action, const std::string& index, const std::string& start,
                      const std::string& bounds) {
    expectCatalogued<TzXmlBoundsError>(action, 0x7020,
                                       "[INDEX_RANGE_VEC][Index vector " + index +
                                           " out of range " + start + " -> " + bounds + "]");
}

/// Expects ILLEGAL_ARRAY about `method`.
template <typename Action> void expectIllegal(const Action& action, const std::string& method) {
    expectCatalogued<TzXmlDomainError>(action, 0x7014,
                                       "[ILLEGAL_ARRAY][Method " + method +
                                           " is illegal for generic TzSoapArrayType]");
}
