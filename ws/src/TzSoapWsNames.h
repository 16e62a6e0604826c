// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapWsAddressing.h>
#include <soap/TzSoapWsSecurity.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

/// Names of the WS-* namespaces under their usual prefixes.
namespace TzSoapWsNames {

/// A name of WS-Addressing.
inline TzXmlName wsa(const char* localName) {
    return {localName, TzXmlNamespace("wsa", TzSoapWsAddressing::Namespace)};
}

/// A name of Web Services Security.
inline TzXmlName wsse(const char* localName) {
    return {localName, TzXmlNamespace("wsse", TzSoapWsSecurity::Namespace)};
}

/// A name of the utilities of Web Services Security.
inline TzXmlName wsu(const char* localName) {
    return {localName, TzXmlNamespace("wsu", TzSoapWsSecurity::UtilityNamespace)};
}

inline constexpr char PasswordText[] =
    "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-username-token-profile-1.0"
    "#PasswordText";
inline constexpr char PasswordDigest[] =
    "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-username-token-profile-1.0"
    "#PasswordDigest";
inline constexpr char Base64Binary[] =
    "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-soap-message-security-1.0"
    "#Base64Binary";

} // namespace TzSoapWsNames
