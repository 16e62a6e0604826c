// SPDX-License-Identifier: MIT
#include <soap/TzSoapCatalog.h>

#include <tz/tools/TzMessage.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>

namespace {

struct Expected {
    const TzCatMsg* (*get)() noexcept;
    std::uint32_t id;
    const char* text;
};

const Expected entries[] = {
    {tzsoap_NOT_IMPLEMENTED, 0x7000,
     "[NOT_IMPLEMENTED][Method not implemented by derived soap class]"},
    {tzsoap_INVALID_CHILD, 0x7001, "[INVALID_CHILD][Child is not the type specified in the array]"},
    {tzsoap_BOUNDED_ARRAY, 0x7002, "[BOUNDED_ARRAY][Array is bounded]"},
    {tzsoap_NO_SOAP_BODY, 0x7003, "[NO_SOAP_BODY][Soap message must contain a Body element]"},
    {tzsoap_PARSING_ERROR, 0x7004,
     "[PARSING_ERROR][An error occurred while parsing request/response]"},
    {tzsoap_UNEXPECTED_RESPONSE, 0x7005, "[UNEXPECTED_RESPONSE][Unexpected response from server]"},
    {tzsoap_INVALID_CONTENT_TYPE, 0x7006, "[INVALID_CONTENT_TYPE][Content-Type is invalid]"},
    {tzsoap_INVALID_HTTP_HEADER, 0x7007, "[INVALID_HTTP_HEADER][Http header is invalid]"},
    {tzsoap_BAD_INDEX_STRING, 0x7008,
     "[BAD_INDEX_STRING][Illegal SOAP array index string: \"%s\"]"},
    {tzsoap_BAD_INDEX_VECTOR, 0x7009,
     "[BAD_INDEX_VECTOR][Illegal SOAP array vector. Entry at location %d has value %d]"},
    {tzsoap_BAD_RESIZE, 0x700A, "[BAD_RESIZE][Only leftmost axis may change]"},
    {tzsoap_ONE_NAMESPACE, 0x700B,
     "[ONE_NAMESPACE][Namespace for this element may not be redefined]"},
    {tzsoap_INVALID_INTEGER, 0x700C, "[INVALID_INTEGER][String \"%s\" is not a valid integer]"},
    {tzsoap_BAD_ENUM, 0x700D, "[BAD_ENUM][Internal error converting enum with integer value %d]"},
    {tzsoap_NO_STRING, 0x700E, "[NO_STRING][Instance of class %s cannot be converted to a string]"},
    {tzsoap_NO_TYPE, 0x700F, "[NO_TYPE][No type is registered for element named %s]"},
    {tzsoap_NO_SOAP_ENVELOPE, 0x7010,
     "[NO_SOAP_ENVELOPE][Soap message must have a Envelope element]"},
    {tzsoap_UNKNOWN_VERSION, 0x7011,
     "[UNKNOWN_VERSION][SOAP Version specified by URI \"%s\" is unknown ]"},
    {tzsoap_UNKNOWN_SOAP_ELEMENT, 0x7012,
     "[UNKNOWN_SOAP_ELEMENT][Element \"%s\" is NOT in the SOAP Grammar ]"},
    {tzsoap_INTERNAL_ERROR, 0x7013,
     "[INTERNAL_ERROR][Internal Logic Error in file \"%s\", line \"%d\" ]"},
    {tzsoap_ILLEGAL_ARRAY, 0x7014,
     "[ILLEGAL_ARRAY][Method %s is illegal for generic TzSoapArrayType]"},
    {tzsoap_BAD_REFERENCE, 0x7015, "[BAD_REFERENCE][The referred type is not \"%s\".]"},
    {tzsoap_ILLEGAL_REFERENCE, 0x7016,
     "[ILLEGAL_REFERENCE][Per SOAP, reference accessor(element with a href attribute) is an empty "
     "element.]"},
    {tzsoap_NO_FUNCTOR_FOUND, 0x7017, "[NO_FUNCTOR_FOUND][Functor not found in registry.]"},
    {tzsoap_NO_ENCODING_STYLE_ENTRY, 0x7018,
     "[NO_ENCODING_STYLE_ENTRY][No entry has been made for this encoding style.]"},
    {tzsoap_BAD_USAGE, 0x7019,
     "[BAD_USAGE][Illegal use of this Class/Method \"%s\". Check the documentation]"},
    {tzsoap_NO_REMOVE_EMPTY_STYLE, 0x701A,
     "[NO_REMOVE_EMPTY_STYLE][Cannot remove a particular encodingStyle: There is no encodingStyle "
     "attribute]"},
    {tzsoap_NO_INDEX_EMPTY_STYLE, 0x701B,
     "[NO_INDEX_EMPTY_STYLE][Cannot index encodingStyle at %d: There is no "
     "encodingStyleAttribute]"},
    {tzsoap_NO_MIME_SOAP_BODY_PART, 0x701C,
     "[NO_MIME_SOAP_BODY_PART][The SOAP XML body part could not be found]"},
    {tzsoap_MIME_NOT_MULTIPART, 0x701D,
     "[MIME_NOT_MULTIPART][MIME messge must be multipart/related]"},
    {tzsoap_BAD_SOAP_REFERENCE, 0x701E,
     "[BAD_SOAP_REFERENCE][The reference is not to a soap type]"},
    {tzsoap_BAD_MIME_REFERENCE, 0x701F,
     "[BAD_MIME_REFERENCE][The reference is not to a mime part]"},
    {tzsoap_INDEX_RANGE_VEC, 0x7020, "[INDEX_RANGE_VEC][Index vector %s out of range %s -> %s]"},
    {tzsoap_MISMATCH_VECTOR, 0x7021,
     "[MISMATCH_VECTOR][(Bounds: %s Start: %s) Vector dimension unequal, or bounds < than "
     "offset]"},
    {tzsoap_MISMATCH_BOUNDS, 0x7022,
     "[MISMATCH_BOUNDS][(Bounds: %d Start: %d) Vector dimensions unequal, or bounds < offset]"},
    {tzsoap_INVALID_DATETIME_FORMAT, 0x7023,
     "[INVALID_DATETIME_FORMAT] Allowed datetime or date or time format MUST confirm to ISO8601"},
    {tzsoap_INVALID_FAULT_CODE, 0x7024,
     "[INVALID_FAULT_CODE] The specified fault code is not valid for \"%s\" version of SOAP"},
    {tzsoap_BAD_STYLE, 0x7025,
     "[BAD_STYLE] \"%s\" contains white space, cannot be attached to the encodingStyle list"},
};

} // namespace

TEST(TzSoapCatalog, EveryEntryHasItsDomainIdAndText) {
    for (const Expected& entry : entries) {
        const TzCatMsg* record = entry.get();
        EXPECT_STREQ(record->domain, "soap_") << entry.text;
        EXPECT_EQ(record->id, entry.id) << entry.text;
        EXPECT_STREQ(record->text, entry.text);
        EXPECT_EQ(record, entry.get()) << "the address changes";
    }
}

TEST(TzSoapCatalog, ThereAre38EntriesInARow) {
    ASSERT_EQ(std::size(entries), 38U);
    std::uint32_t id = 0x7000;
    for (const Expected& entry : entries) {
        EXPECT_EQ(entry.get()->id, id++);
    }
    std::size_t listed = 0;
#define COUNT(ID, NAME, TEXT) ++listed;
    TZSOAP_CATALOG(COUNT)
#undef COUNT
    EXPECT_EQ(listed, 38U);
}

TEST(TzSoapCatalog, PlacesAreFilledInOrder) {
    EXPECT_EQ(TzMessage(tzsoap_INVALID_FAULT_CODE(), "V1_1").asString(),
              "[INVALID_FAULT_CODE] The specified fault code is not valid for \"V1_1\" version of "
              "SOAP");
    EXPECT_EQ(TzMessage(tzsoap_INTERNAL_ERROR(), "TzSoapWriter", 17).asString(),
              "[INTERNAL_ERROR][Internal Logic Error in file \"TzSoapWriter\", line \"17\" ]");
    EXPECT_EQ(TzMessage(tzsoap_INDEX_RANGE_VEC(), "[3]", std::string("[0]"), "[2]").asString(),
              "[INDEX_RANGE_VEC][Index vector [3] out of range [0] -> [2]]");
    EXPECT_EQ(TzMessage(tzsoap_MISMATCH_BOUNDS(), -1, 4294967295U).asString(),
              "[MISMATCH_BOUNDS][(Bounds: -1 Start: 4294967295) Vector dimensions unequal, or "
              "bounds < offset]");
}

TEST(TzSoapCatalog, AMessageKeepsDomainAndId) {
    const TzMessage message(tzsoap_NO_TYPE(), "m:Price");
    EXPECT_STREQ(message.getDomain(), "soap_");
    EXPECT_EQ(message.getId(), 0x700FU);
}
