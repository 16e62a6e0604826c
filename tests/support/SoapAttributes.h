// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlNamespace.h>

#include <string>

// The namespaces of the attributes that SOAP defines, under prefixes of the test's own.
inline const TzXmlNamespace Env11("e", "http://schemas.xmlsoap.org/soap/envelope/");
inline const TzXmlNamespace Enc11("c", "http://schemas.xmlsoap.org/soap/encoding/");
inline const TzXmlNamespace Env12("e", "http://www.w3.org/2002/06/soap-envelope");
inline const TzXmlNamespace Enc12("c", "http://www.w3.org/2002/06/soap-encoding");

/// The attributes as "URI:local=value;...".
inline std::string attributeList(const TzXmlAttributeSet& set) {
    std::string text;
    for (const TzXmlAttribute& attribute : set) {
        text += attribute.getName().getUniqueName() + "=" + attribute.getValue() + ";";
    }
    return text;
}
