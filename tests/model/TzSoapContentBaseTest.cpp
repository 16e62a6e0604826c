// SPDX-License-Identifier: MIT
#include <soap/TzSoapContentBase.h>

#include <gtest/gtest.h>

#include <string>

namespace {

using Content = TzSoapContentBase;

/// A type, the local name by which it is read and the label under which it is written.
struct Row {
    int value;
    Content::SchemaType type;
    const char* read;
    const char* written;
};

const Row rows[] = {
    {1, Content::xsdString, "string", "xsd:string"},
    {2, Content::xsdBoolean, "boolean", "xsd:boolean"},
    {3, Content::xsdDecimal, "decimal", "xsd:decimal"},
    {4, Content::xsdFloat, "float", "xsd:float"},
    {5, Content::xsdDouble, "double", "xsd:double"},
    {6, Content::xsdDuration, "duration", "xsd:duration"},
    {7, Content::xsdDateTime, "dateTime", "xsd:dateTime"},
    {8, Content::xsdTime, "time", "xsd:time"},
    {9, Content::xsdDate, "date", "xsd:date"},
    {10, Content::xsdGYearMonth, "gYearMonth", "xsd:gYearMonth"},
    {11, Content::xsdGYear, "gYear", "xsd:gYear"},
    {12, Content::xsdGMonthDay, "gMonthDay", "xsd:gMonthDay"},
    {13, Content::xsdGDay, "gDay", "xsd:gDay"},
    {14, Content::xsdGMonth, "gMonth", "xsd:gMonth"},
    {15, Content::xsdHexBinary, "hexBinary", "xsd:hexBinary"},
    {16, Content::xsdBase64Binary, "base64Binary", "xsd:base64Binary"},
    {17, Content::xsdAnyURI, "anyURI", "xsd:anyURI"},
    {18, Content::xsdQName, "qName", "xsd:qName"},
    {19, Content::xsdNOTATION, "NOTATION", "xsd:NOTATION"},
    {20, Content::xsdNormalizedString, "normalizedString", "xsd:normalizedString"},
    {21, Content::xsdToken, "token", "xsd:token"},
    {22, Content::xsdLanguage, "language", "xsd:language"},
    {23, Content::xsdNMTOKEN, "NMTOKEN", "xsd:NMTOKEN"},
    {24, Content::xsdNMTOKENS, "NMTOKENS", "xsd:NMTOKENS"},
    {25, Content::xsdName, "name", "xsd:name"},
    {26, Content::xsdNCName, "ncName", "xsd:NCName"},
    {27, Content::xsdID, "ID", "xsd:ID"},
    {28, Content::xsdIDREF, "IDREF", "xsd:IDREF"},
    {29, Content::xsdIDREFS, "IDREFS", "xsd:IDREFS"},
    {30, Content::xsdENTITY, "ENTITY", "xsd:ENTITY"},
    {31, Content::xsdENTITIES, "ENTITIES", "xsd:ENTITIES"},
    {32, Content::xsdInteger, "integer", "xsd:integer"},
    {33, Content::xsdNonPositiveInteger, "nonPositiveInteger", "xsd:nonPositiveInteger"},
    {34, Content::xsdNegativeInteger, "negativeInteger", "xsd:negativeInteger"},
    {35, Content::xsdLong, "long", "xsd:long"},
    {36, Content::xsdInt, "int", "xsd:int"},
    {37, Content::xsdShort, "short", "xsd:short"},
    {38, Content::xsdByte, "byte", "xsd:byte"},
    {39, Content::xsdNonNegativeInteger, "nonNegativeInteger", "xsd:nonNegativeInteger"},
    {40, Content::xsdUnsignedLong, "unsignedLong", "xsd:unsignedLong"},
    {41, Content::xsdUnsignedInt, "unsignedInt", "xsd:unsignedInt"},
    {42, Content::xsdUnsignedShort, "unsignedShort", "xsd:unsignedShort"},
    {43, Content::xsdUnsignedByte, "unsignedByte", "xsd:unsignedByte"},
    {44, Content::xsdPositiveInteger, "positiveInteger", "xsd:positiveInteger"},
};

} // namespace

TEST(TzSoapContentBase, KindsAreNumbered) {
    EXPECT_EQ(Content::Generic, 0);
    EXPECT_EQ(Content::Simple, 1);
    EXPECT_EQ(Content::UserDefined, 2);
    EXPECT_EQ(Content::Composite, 3);
    EXPECT_EQ(Content::Array, 4);
    EXPECT_EQ(Content::Reference, 5);
    EXPECT_EQ(Content::Misunderstood, 6);
    EXPECT_EQ(Content::EscapeOff, 0);
    EXPECT_EQ(Content::EscapeOn, 1);
}

TEST(TzSoapContentBase, SchemaTypesHaveNumberNameAndLabel) {
    int expected = 1;
    for (const Row& row : rows) {
        EXPECT_EQ(row.value, expected++);
        EXPECT_EQ(row.type, row.value);
        EXPECT_EQ(Content::schemaTypeFromName(row.read), row.type) << row.read;
        EXPECT_EQ(Content::schemaTypeLabel(row.type), row.written);
        EXPECT_EQ("xsd:" + std::string(Content::schemaTypeName(row.type)), row.written);
    }
    EXPECT_EQ(expected, 45);
}

TEST(TzSoapContentBase, UnknownTypesHaveNoName) {
    EXPECT_EQ(Content::xsdUnknown, 0);
    for (const int value : {-1, 0, 45, 1000, -2147483647}) {
        const auto type = static_cast<Content::SchemaType>(value);
        EXPECT_EQ(Content::schemaTypeName(type), "") << value;
        EXPECT_EQ(Content::schemaTypeLabel(type), "") << value;
    }
}

TEST(TzSoapContentBase, NamesAreReadLetterByLetter) {
    for (const char* name : {"", "QName", "Name", "NCName", "String", "xsd:int", "int ", "strin",
                             "stringg", "id", "nmtoken"}) {
        EXPECT_EQ(Content::schemaTypeFromName(name), Content::xsdUnknown) << name;
    }
}
