// SPDX-License-Identifier: MIT
#include <soap/TzSoapContentBase.h>

#include "model/TzSoapSchemaTypes.h"

#include <array>
#include <cstddef>

namespace {

/// Whether `type` is the value of an enumerator: the compiler knows the names of those.
template <TzSoapContentBase::SchemaType type> constexpr bool hasEnumerator() {
    return std::string_view(__PRETTY_FUNCTION__).find("= (") == std::string_view::npos;
}

constexpr bool eachAtItsNumber() {
    for (std::size_t i = 0; i < TzSoapSchemaTypes::Rows.size(); ++i) {
        if (TzSoapSchemaTypes::Rows[i].type != static_cast<TzSoapContentBase::SchemaType>(i)) {
            return false;
        }
    }
    return true;
}

constexpr auto LastType =
    static_cast<TzSoapContentBase::SchemaType>(TzSoapSchemaTypes::Rows.size() - 1);
constexpr auto NoType = static_cast<TzSoapContentBase::SchemaType>(TzSoapSchemaTypes::Rows.size());

static_assert(eachAtItsNumber(), "a schema type is missing from the table or out of order");
static_assert(hasEnumerator<LastType>() && !hasEnumerator<NoType>(),
              "the table of schema types does not end with the last of them");

/// The types whose names have one first letter and one length are few: a table by length and first
/// letter would be larger than the walk it saves, so the walk simply begins with the common types.
constexpr std::array<TzSoapContentBase::SchemaType, 8> CommonTypes = {
    TzSoapContentBase::xsdString,  TzSoapContentBase::xsdInt,      TzSoapContentBase::xsdBoolean,
    TzSoapContentBase::xsdDouble,  TzSoapContentBase::xsdDateTime, TzSoapContentBase::xsdLong,
    TzSoapContentBase::xsdDecimal, TzSoapContentBase::xsdFloat,
};

} // namespace

TzSoapContentBase::SchemaType
TzSoapContentBase::schemaTypeFromName(std::string_view localName) noexcept {
    if (localName.empty()) {
        return xsdUnknown;
    }
    for (const SchemaType type : CommonTypes) {
        if (TzSoapSchemaTypes::at(type).read == localName) {
            return type;
        }
    }
    for (const TzSoapSchemaType& row : TzSoapSchemaTypes::Rows) {
        if (row.read == localName) {
            return row.type;
        }
    }
    return xsdUnknown;
}

std::string_view TzSoapContentBase::schemaTypeName(SchemaType type) noexcept {
    return TzSoapSchemaTypes::at(type).written;
}

TzCString TzSoapContentBase::schemaTypeLabel(SchemaType type) {
    const std::string_view name = schemaTypeName(type);
    return name.empty() ? TzCString() : TzCString("xsd:").append(name);
}
