// SPDX-License-Identifier: MIT
#include <soap/TzSoapWsSecurity.h>

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/mime/TzMimeBase64.h>

#include "TzSoapWsCrypto.h"
#include "TzSoapWsNames.h"

#include <iterator>

using TzSoapWsNames::wsse;
using TzSoapWsNames::wsu;

namespace {

TzSoapSimpleType textElement(const TzXmlName& name, const TzCString& text) {
    return {name, text, TzSoapType::xsdUnknown, false};
}

/// A time as receivers of every make read it: UTC, milliseconds.
TzSoapSimpleType timeElement(const char* localName, TzSoapWsSecurity::Time time) {
    return {wsu(localName), std::chrono::floor<std::chrono::milliseconds>(time),
            TzSoapType::xsdDateTime, false};
}

TzSoapSimpleType passwordElement(const TzCString& text, const char* type) {
    TzSoapSimpleType password = textElement(wsse("Password"), text);
    password.addAttribute(TzXmlName("Type"), type);
    return password;
}

} // namespace

TzSoapWsSecurity& TzSoapWsSecurity::addTimestamp(std::chrono::seconds lifetime, Time now) {
    TzSoapCompositeType timestamp(wsu("Timestamp"));
    timestamp.appendChild(timeElement("Created", now));
    timestamp.appendChild(timeElement("Expires", now + lifetime));
    tokens_.push_back(timestamp);
    return *this;
}

TzSoapWsSecurity& TzSoapWsSecurity::addPassword(const TzCString& user, const TzCString& password) {
    TzSoapCompositeType token(wsse("UsernameToken"));
    token.appendChild(textElement(wsse("Username"), user));
    token.appendChild(passwordElement(password, TzSoapWsNames::PasswordText));
    tokens_.push_back(token);
    return *this;
}

TzSoapWsSecurity& TzSoapWsSecurity::addPasswordDigest(const TzCString& user,
                                                      const TzCString& password, Time now) {
    const TzCString nonce = TzSoapWsCrypto::randomBytes(NonceSize);
    const TzSoapSimpleType created = timeElement("Created", now);
    const TzCString digest = TzSoapWsCrypto::sha1(nonce + created.getString() + password);
    TzSoapSimpleType encoded = textElement(wsse("Nonce"), TzMimeBase64::encode(nonce));
    encoded.addAttribute(TzXmlName("EncodingType"), TzSoapWsNames::Base64Binary);
    TzSoapCompositeType token(wsse("UsernameToken"));
    token.appendChild(textElement(wsse("Username"), user));
    token.appendChild(passwordElement(TzMimeBase64::encode(digest), TzSoapWsNames::PasswordDigest));
    token.appendChild(encoded);
    token.appendChild(created);
    tokens_.push_back(token);
    return *this;
}

void TzSoapWsSecurity::write(TzSoapMessage& message, bool mustUnderstand) const {
    const TzXmlName name = wsse("Security");
    TzSoapHeader& header = message.getSoapHeader();
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd();) {
        const bool replaced = entry->getName() == name && entry->getActorAttribute().empty();
        entry = replaced ? header.removeHeaderEntry(entry) : std::next(entry);
    }
    TzSoapCompositeType security(name);
    for (const TzSoapType& token : tokens_) {
        security.appendChild(token);
    }
    header.appendHeaderEntry(security, mustUnderstand);
}
