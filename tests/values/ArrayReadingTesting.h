// SPDX-License-Identifier: MIT
#pragma once

#include "model/TzSoapAccess.h"
#include "values/ArrayTesting.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapSparseArrayType.h>

#include <iterator>
#include <string>

/// An array element; its size is stated in the form of SOAP 1.1, which 1.2 understands, too.
inline std::string list(TzSoapVersion::Version version, const std::string& size,
                        const std::string& members, const std::string& attributes = "") {
    const std::string type = version == TzSoapVersion::V1_1
                                 ? "c:arrayType=\"xsd:int" + size + "\""
                                 : "c:itemType=\"xsd:int\" c:arraySize=\"" + size + "\"";
    return "<list " + type + attributes + ">" + members + "</list>";
}

inline std::string item(const std::string& text) { return "<item>" + text + "</item>"; }

inline std::string itemAt(const std::string& position, const std::string& text) {
    return "<item c:position=\"" + position + "\">" + text + "</item>";
}

inline std::string offsetOf(const std::string& offset) { return " c:offset=\"" + offset + "\""; }

inline TzSoapMessage readBody(TzSoapVersion::Version version, const std::string& body) {
    return messageOf(envelope(version, body));
}

inline TzSoapCompactArrayType readCompact(TzSoapVersion::Version version, const std::string& body) {
    return entryAs<TzSoapCompactArrayType>(readBody(version, body));
}

inline TzSoapSparseArrayType readSparse(TzSoapVersion::Version version, const std::string& body) {
    return entryAs<TzSoapSparseArrayType>(readBody(version, body));
}

/// How many items are kept that may hold something.
inline std::size_t stored(const TzSoapCompactArrayType& array) {
    const auto items = TzSoapAccess::body(array).storedItems();
    return static_cast<std::size_t>(std::distance(items.begin(), items.end()));
}
