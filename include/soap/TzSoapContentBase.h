// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>

#include <string_view>

/// The enumerations that all kinds of values share. Holds no data.
class TZSOAP_API TzSoapContentBase {
public:
    /// What kind of value a body is.
    enum SoapTypeId : int {
        Generic = 0,      ///< An element without content, or a default value.
        Simple = 1,       ///< Text of one XML Schema built-in type.
        UserDefined = 2,  ///< Raw markup that the application decodes.
        Composite = 3,    ///< A struct: named child values.
        Array = 4,        ///< An encoded array, compact or sparse.
        Reference = 5,    ///< A reference to another value or to a MIME part.
        Misunderstood = 6 ///< The report of a header entry that was not understood.
    };

    /// How a value's text is written.
    enum EscapeText : int {
        EscapeOff = 0, ///< As it stands: the text is markup, the caller answers for it.
        EscapeOn = 1   ///< Escaped as element content; the default.
    };

    /// The XML Schema built-in type of a simple value.
    enum SchemaType : int {
        xsdUnknown = 0,             ///< No type known.
        xsdString = 1,              ///< string
        xsdBoolean = 2,             ///< boolean
        xsdDecimal = 3,             ///< decimal
        xsdFloat = 4,               ///< float
        xsdDouble = 5,              ///< double
        xsdDuration = 6,            ///< duration
        xsdDateTime = 7,            ///< dateTime
        xsdTime = 8,                ///< time
        xsdDate = 9,                ///< date
        xsdGYearMonth = 10,         ///< gYearMonth
        xsdGYear = 11,              ///< gYear
        xsdGMonthDay = 12,          ///< gMonthDay
        xsdGDay = 13,               ///< gDay
        xsdGMonth = 14,             ///< gMonth
        xsdHexBinary = 15,          ///< hexBinary
        xsdBase64Binary = 16,       ///< base64Binary
        xsdAnyURI = 17,             ///< anyURI
        xsdQName = 18,              ///< qName, spelt so
        xsdNOTATION = 19,           ///< NOTATION
        xsdNormalizedString = 20,   ///< normalizedString
        xsdToken = 21,              ///< token
        xsdLanguage = 22,           ///< language
        xsdNMTOKEN = 23,            ///< NMTOKEN
        xsdNMTOKENS = 24,           ///< NMTOKENS
        xsdName = 25,               ///< name, spelt so
        xsdNCName = 26,             ///< read as "ncName", written as "NCName"
        xsdID = 27,                 ///< ID
        xsdIDREF = 28,              ///< IDREF
        xsdIDREFS = 29,             ///< IDREFS
        xsdENTITY = 30,             ///< ENTITY
        xsdENTITIES = 31,           ///< ENTITIES
        xsdInteger = 32,            ///< integer
        xsdNonPositiveInteger = 33, ///< nonPositiveInteger
        xsdNegativeInteger = 34,    ///< negativeInteger
        xsdLong = 35,               ///< long
        xsdInt = 36,                ///< int
        xsdShort = 37,              ///< short
        xsdByte = 38,               ///< byte
        xsdNonNegativeInteger = 39, ///< nonNegativeInteger
        xsdUnsignedLong = 40,       ///< unsignedLong
        xsdUnsignedInt = 41,        ///< unsignedInt
        xsdUnsignedShort = 42,      ///< unsignedShort
        xsdUnsignedByte = 43,       ///< unsignedByte
        xsdPositiveInteger = 44     ///< positiveInteger
    };

    /// The type whose local name is `localName`, compared with case; `xsdUnknown` for any other
    /// text.
    static SchemaType schemaTypeFromName(std::string_view localName) noexcept;
    /// The local name under which `type` is written; "" for `xsdUnknown` and values outside the
    /// table.
    static std::string_view schemaTypeName(SchemaType type) noexcept;
    /// The qualified name under which `type` is written, such as "xsd:int"; "" where there is no
    /// name.
    static TzCString schemaTypeLabel(SchemaType type);
};
