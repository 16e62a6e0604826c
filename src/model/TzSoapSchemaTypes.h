// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>

#include <array>
#include <cstddef>
#include <string_view>

/// Which getter reads the texts of a schema type.
enum class TzSoapGetter {
    None,        ///< No getter: the type is unknown.
    String,      ///< `getString`; `setString` accepts the type.
    Text,        ///< `getString`; only `setEncodedString` accepts the type.
    Boolean,     ///< `getBool`.
    Integer,     ///< `getInt` and its relatives.
    Real,        ///< `getFloat` and `getDouble`.
    Decimal,     ///< `getDecimal`.
    Duration,    ///< `getDuration`.
    Date,        ///< `getDate`.
    Time,        ///< `getDateTime`; a date is refused.
    DateTime,    ///< `getDateTime` and `getDate`.
    HexBytes,    ///< Bytes as hexadecimal digits.
    Base64Bytes, ///< Bytes as base64.
};

/// What the library knows of a schema type.
struct TzSoapSchemaType {
    TzSoapContentBase::SchemaType type;
    std::string_view written; ///< The local name it is written under.
    TzSoapGetter getter;
    std::string_view read = written; ///< The local name it is read under.
};

/// All schema types, each at the position of its number: the one place that knows them.
class TzSoapSchemaTypes {
    using enum TzSoapContentBase::SchemaType;
    using enum TzSoapGetter;

public:
    /// The table.
    static constexpr auto Rows = std::to_array<TzSoapSchemaType>({
        {xsdUnknown, "", None},
        {xsdString, "string", String},
        {xsdBoolean, "boolean", Boolean},
        {xsdDecimal, "decimal", Decimal},
        {xsdFloat, "float", Real},
        {xsdDouble, "double", Real},
        {xsdDuration, "duration", Duration},
        {xsdDateTime, "dateTime", DateTime},
        {xsdTime, "time", Time},
        {xsdDate, "date", Date},
        {xsdGYearMonth, "gYearMonth", Text},
        {xsdGYear, "gYear", Text},
        {xsdGMonthDay, "gMonthDay", Text},
        {xsdGDay, "gDay", Text},
        {xsdGMonth, "gMonth", Text},
        {xsdHexBinary, "hexBinary", HexBytes},
        {xsdBase64Binary, "base64Binary", Base64Bytes},
        {xsdAnyURI, "anyURI", Text},
        // Deliberate: "qName" and "name" begin with a small letter, as the peers of this encoding
        // write them.
        {xsdQName, "qName", Text},
        {xsdNOTATION, "NOTATION", Text},
        {xsdNormalizedString, "normalizedString", Text},
        {xsdToken, "token", Text},
        {xsdLanguage, "language", Text},
        {xsdNMTOKEN, "NMTOKEN", Text},
        {xsdNMTOKENS, "NMTOKENS", Text},
        {xsdName, "name", Text},
        // Deliberate: those peers send "ncName" and expect "NCName".
        {xsdNCName, "NCName", Text, "ncName"},
        {xsdID, "ID", Text},
        {xsdIDREF, "IDREF", Text},
        {xsdIDREFS, "IDREFS", Text},
        {xsdENTITY, "ENTITY", Text},
        {xsdENTITIES, "ENTITIES", Text},
        {xsdInteger, "integer", Integer},
        {xsdNonPositiveInteger, "nonPositiveInteger", Integer},
        {xsdNegativeInteger, "negativeInteger", Integer},
        {xsdLong, "long", Integer},
        {xsdInt, "int", Integer},
        {xsdShort, "short", Integer},
        {xsdByte, "byte", Integer},
        {xsdNonNegativeInteger, "nonNegativeInteger", Integer},
        {xsdUnsignedLong, "unsignedLong", Integer},
        {xsdUnsignedInt, "unsignedInt", Integer},
        {xsdUnsignedShort, "unsignedShort", Integer},
        {xsdUnsignedByte, "unsignedByte", Integer},
        {xsdPositiveInteger, "positiveInteger", Integer},
    });

    /// The row of `type`; that of `xsdUnknown` for a value without one.
    static constexpr const TzSoapSchemaType& at(TzSoapContentBase::SchemaType type) noexcept {
        const auto position = static_cast<std::size_t>(type);
        return Rows[position < Rows.size() ? position : 0];
    }
};
