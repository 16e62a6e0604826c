// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapBody.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapWriter.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>
#include <tz/xml/TzXmlStringWriter.h>

#include <string>
#include <vector>

inline constexpr char EnvUri11[] = "http://schemas.xmlsoap.org/soap/envelope/";
inline constexpr char EncUri11[] = "http://schemas.xmlsoap.org/soap/encoding/";
inline constexpr char EnvUri12[] = "http://www.w3.org/2002/06/soap-envelope";
inline constexpr char EncUri12[] = "http://www.w3.org/2002/06/soap-encoding";

inline TzXmlName nameIn(const char* local, const char* prefix, const char* uri) {
    return {local, TzXmlNamespace(prefix, uri)};
}

/// What a new writer writes for a message, header, body, fault or value.
template <typename Element> std::string wire(const Element& element) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    element.acceptVisitor(writer);
    return text.getString();
}

/// An unqualified simple value of type int that does not show its type.
inline TzSoapSimpleType intValue(const char* name, int value) {
    return {TzXmlName(name), value, TzSoapType::xsdInt, false};
}

/// A message of `version` in the encoding of SOAP, so that its values do not state it, which
/// declares xsi and xsd and holds `entries`.
inline TzSoapMessage encodedMessage(TzSoapVersion::Version version,
                                    const std::vector<TzSoapType>& entries) {
    TzSoapMessage message(version);
    message.addNamespaceAttribute(TzXmlNamespace::getXsi());
    message.addNamespaceAttribute(TzXmlNamespace::getXsd());
    message.setEncodingStyle(message.getSoapVersion().getSoapEncodingStyle());
    for (const TzSoapType& entry : entries) {
        message.getSoapBody().appendEntry(entry);
    }
    return message;
}

/// The text of `encodedMessage(V1_1, ...)` whose body holds `lines`.
inline std::string envelope11(const std::string& lines) {
    return R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/")"
           R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
           R"( xmlns:xsd="http://www.w3.org/2001/XMLSchema")"
           R"( SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
  <SOAP-ENV:Body>
)" + lines +
           R"(  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)";
}

/// The text of `encodedMessage(V1_2, ...)` whose body holds `lines`.
inline std::string envelope12(const std::string& lines) {
    return R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope")"
           R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
           R"( xmlns:xsd="http://www.w3.org/2001/XMLSchema")"
           R"( env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
  <env:Body>
)" + lines +
           R"(  </env:Body>
</env:Envelope>
)";
}

/// The texts of both versions of a message with these entries.
inline std::string wire11(const std::vector<TzSoapType>& entries) {
    return wire(encodedMessage(TzSoapVersion::V1_1, entries));
}
inline std::string wire12(const std::vector<TzSoapType>& entries) {
    return wire(encodedMessage(TzSoapVersion::V1_2, entries));
}
