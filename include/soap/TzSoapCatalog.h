// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCatMsg.h>

// The one list of the library's error messages: id, name and what follows the name in the text. The
// text of an entry is its name in square brackets followed by the part stated here, letter by
// letter.
#define TZSOAP_CATALOG(ENTRY)                                                                      \
    ENTRY(0x7000, NOT_IMPLEMENTED, "[Method not implemented by derived soap class]")               \
    ENTRY(0x7001, INVALID_CHILD, "[Child is not the type specified in the array]")                 \
    ENTRY(0x7002, BOUNDED_ARRAY, "[Array is bounded]")                                             \
    ENTRY(0x7003, NO_SOAP_BODY, "[Soap message must contain a Body element]")                      \
    ENTRY(0x7004, PARSING_ERROR, "[An error occurred while parsing request/response]")             \
    ENTRY(0x7005, UNEXPECTED_RESPONSE, "[Unexpected response from server]")                        \
    ENTRY(0x7006, INVALID_CONTENT_TYPE, "[Content-Type is invalid]")                               \
    ENTRY(0x7007, INVALID_HTTP_HEADER, "[Http header is invalid]")                                 \
    ENTRY(0x7008, BAD_INDEX_STRING, "[Illegal SOAP array index string: \"%s\"]")                   \
    ENTRY(0x7009, BAD_INDEX_VECTOR,                                                                \
          "[Illegal SOAP array vector. Entry at location %d has value %d]")                        \
    ENTRY(0x700A, BAD_RESIZE, "[Only leftmost axis may change]")                                   \
    ENTRY(0x700B, ONE_NAMESPACE, "[Namespace for this element may not be redefined]")              \
    ENTRY(0x700C, INVALID_INTEGER, "[String \"%s\" is not a valid integer]")                       \
    ENTRY(0x700D, BAD_ENUM, "[Internal error converting enum with integer value %d]")              \
    ENTRY(0x700E, NO_STRING, "[Instance of class %s cannot be converted to a string]")             \
    ENTRY(0x700F, NO_TYPE, "[No type is registered for element named %s]")                         \
    ENTRY(0x7010, NO_SOAP_ENVELOPE, "[Soap message must have a Envelope element]")                 \
    ENTRY(0x7011, UNKNOWN_VERSION, "[SOAP Version specified by URI \"%s\" is unknown ]")           \
    ENTRY(0x7012, UNKNOWN_SOAP_ELEMENT, "[Element \"%s\" is NOT in the SOAP Grammar ]")            \
    ENTRY(0x7013, INTERNAL_ERROR, "[Internal Logic Error in file \"%s\", line \"%d\" ]")           \
    ENTRY(0x7014, ILLEGAL_ARRAY, "[Method %s is illegal for generic TzSoapArrayType]")             \
    ENTRY(0x7015, BAD_REFERENCE, "[The referred type is not \"%s\".]")                             \
    ENTRY(0x7016, ILLEGAL_REFERENCE,                                                               \
          "[Per SOAP, reference accessor(element with a href attribute) is an empty element.]")    \
    ENTRY(0x7017, NO_FUNCTOR_FOUND, "[Functor not found in registry.]")                            \
    ENTRY(0x7018, NO_ENCODING_STYLE_ENTRY, "[No entry has been made for this encoding style.]")    \
    ENTRY(0x7019, BAD_USAGE, "[Illegal use of this Class/Method \"%s\". Check the documentation]") \
    ENTRY(0x701A, NO_REMOVE_EMPTY_STYLE,                                                           \
          "[Cannot remove a particular encodingStyle: There is no encodingStyle attribute]")       \
    ENTRY(0x701B, NO_INDEX_EMPTY_STYLE,                                                            \
          "[Cannot index encodingStyle at %d: There is no encodingStyleAttribute]")                \
    ENTRY(0x701C, NO_MIME_SOAP_BODY_PART, "[The SOAP XML body part could not be found]")           \
    ENTRY(0x701D, MIME_NOT_MULTIPART, "[MIME messge must be multipart/related]")                   \
    ENTRY(0x701E, BAD_SOAP_REFERENCE, "[The reference is not to a soap type]")                     \
    ENTRY(0x701F, BAD_MIME_REFERENCE, "[The reference is not to a mime part]")                     \
    ENTRY(0x7020, INDEX_RANGE_VEC, "[Index vector %s out of range %s -> %s]")                      \
    ENTRY(0x7021, MISMATCH_VECTOR,                                                                 \
          "[(Bounds: %s Start: %s) Vector dimension unequal, or bounds < than offset]")            \
    ENTRY(0x7022, MISMATCH_BOUNDS,                                                                 \
          "[(Bounds: %d Start: %d) Vector dimensions unequal, or bounds < offset]")                \
    ENTRY(0x7023, INVALID_DATETIME_FORMAT,                                                         \
          " Allowed datetime or date or time format MUST confirm to ISO8601")                      \
    ENTRY(0x7024, INVALID_FAULT_CODE,                                                              \
          " The specified fault code is not valid for \"%s\" version of SOAP")                     \
    ENTRY(0x7025, BAD_STYLE,                                                                       \
          " \"%s\" contains white space, cannot be attached to the encodingStyle list")

/// Declares `const TzCatMsg* tzsoap_<NAME>() noexcept`: the constant record of that entry (domain
/// "soap_", its id and text). Never fails; any thread may call it.
#define TZSOAP_CATALOG_DECLARE(ID, NAME, TEXT) TZSOAP_API const TzCatMsg* tzsoap_##NAME() noexcept;
TZSOAP_CATALOG(TZSOAP_CATALOG_DECLARE)
#undef TZSOAP_CATALOG_DECLARE
