// SPDX-License-Identifier: MIT
#include <soap/TzSoapContentBase.h>

#include <array>
#include <cstddef>

namespace {

/// Local names in the order of the enumerators, as they are written.
constexpr std::array<std::string_view, 45> SchemaNames = {
    "",
    "string",
    "boolean",
    "decimal",
    "float",
    "double",
    "duration",
    "dateTime",
    "time",
    "date",
    "gYearMonth",
    "gYear",
    "gMonthDay",
    "gDay",
    "gMonth",
    "hexBinary",
    "base64Binary",
    "anyURI",
    "qName",
    "NOTATION",
    "normalizedString",
    "token",
    "language",
    "NMTOKEN",
    "NMTOKENS",
    "name",
    "NCName",
    "ID",
    "IDREF",
    "IDREFS",
    "ENTITY",
    "ENTITIES",
    "integer",
    "nonPositiveInteger",
    "negativeInteger",
    "long",
    "int",
    "short",
    "byte",
    "nonNegativeInteger",
    "unsignedLong",
    "unsignedInt",
    "unsignedShort",
    "unsignedByte",
    "positiveInteger",
};

/// Where reading differs from writing: the peers of this encoding send "ncName".
constexpr std::string_view NcNameAsRead = "ncName";

constexpr std::string_view nameAsRead(std::size_t type) noexcept {
    return type == TzSoapContentBase::xsdNCName ? NcNameAsRead : SchemaNames[type];
}

/// The types whose names have one first letter and one length are few: a table by length and first
/// letter would be larger than the walk it saves, so the common types are simply looked at first.
constexpr std::array<TzSoapContentBase::SchemaType, 8> CommonTypes = {
    TzSoapContentBase::xsdString,  TzSoapContentBase::xsdInt,      TzSoapContentBase::xsdBoolean,
    TzSoapContentBase::xsdDouble,  TzSoapContentBase::xsdDateTime, TzSoapContentBase::xsdLong,
    TzSoapContentBase::xsdDecimal, TzSoapContentBase::xsdFloat,
};

} // namespace

TzSoapContentBase::SchemaType
TzSoapContentBase::schemaTypeFromName(std::string_view localName) noexcept {
    for (const SchemaType type : CommonTypes) {
        if (nameAsRead(static_cast<std::size_t>(type)) == localName) {
            return type;
        }
    }
    for (std::size_t type = 1; type < SchemaNames.size(); ++type) {
        if (nameAsRead(type) == localName) {
            return static_cast<SchemaType>(type);
        }
    }
    return xsdUnknown;
}

std::string_view TzSoapContentBase::schemaTypeName(SchemaType type) noexcept {
    const bool known = type > 0 && static_cast<std::size_t>(type) < SchemaNames.size();
    return known ? SchemaNames[static_cast<std::size_t>(type)] : std::string_view();
}

TzCString TzSoapContentBase::schemaTypeLabel(SchemaType type) {
    const std::string_view name = schemaTypeName(type);
    return name.empty() ? TzCString() : TzCString("xsd:").append(name);
}
