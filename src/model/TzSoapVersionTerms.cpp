// SPDX-License-Identifier: MIT
#include "model/TzSoapVersionTerms.h"

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapUtils.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <array>
#include <list>

namespace {

/// What senders of SOAP 1.1 call the next receiver: the URI that its text prints in 4.2.2.
constexpr char PublishedNextActor[] = "http://schemas.xmlsoap.org/soap/actor/next";

constexpr std::array<TzSoapVersion::SoapRole, 3> Roles = {TzSoapVersion::Next, TzSoapVersion::None,
                                                          TzSoapVersion::UltimateReceiver};

} // namespace

std::optional<TzXmlNamespace> TzSoapVersionTerms::nameSpace(const TzXmlNamespace& nameSpace) const {
    if (source_.matchSoapEnv(nameSpace)) {
        return TzXmlNamespace(nameSpace.getPrefix(), target_.getSoapEnv().getUri());
    }
    if (source_.matchSoapEnc(nameSpace)) {
        return TzXmlNamespace(nameSpace.getPrefix(), target_.getSoapEnc().getUri());
    }
    return std::nullopt;
}

bool TzSoapVersionTerms::isLost(const TzXmlNamespace& nameSpace) const {
    return (source_.matchSoapFault(nameSpace) && !target_.matchSoapFault(nameSpace)) ||
           (source_.matchSoapRpc(nameSpace) && !target_.matchSoapRpc(nameSpace)) ||
           (source_.matchSoapUpgrade(nameSpace) && !target_.matchSoapUpgrade(nameSpace));
}

TzCString TzSoapVersionTerms::encodingStyle(const TzCString& text) const {
    std::list<TzCString> styles;
    TzSoapUtils::stringToEncodingList(text, styles);
    TzCString converted;
    for (const TzCString& style : styles) {
        if (!converted.empty()) {
            converted += TzSoapUtils::Blank;
        }
        const bool own = source_.matchSoapEnc(TzXmlNamespace(TzCString(), style));
        converted += own ? target_.getSoapEncodingStyle() : style;
    }
    return converted;
}

TzSoapVersionTerms::Role TzSoapVersionTerms::role(const TzCString& uri) const {
    for (const TzSoapVersion::SoapRole role : Roles) {
        const bool published = role == TzSoapVersion::Next && uri == PublishedNextActor;
        if (uri.empty() || (uri != source_.getSoapRole(role) && !published)) {
            continue;
        }
        const TzCString& converted = target_.getSoapRole(role);
        const bool known = !converted.empty() || role == TzSoapVersion::UltimateReceiver;
        return {known ? converted : uri, known};
    }
    return {uri, true};
}

TzCString TzSoapVersionTerms::index(const TzCString& text) const {
    try {
        return TzSoapArrayType::vectorToString(TzSoapArrayType::stringToVector(text), true,
                                               target_.getVersion());
    } catch (const TzXmlBadArgError&) {
        return text;
    }
}

bool TzSoapVersionTerms::itemTypeIsName() const {
    return !target_.getSoapAttributeQName(TzSoapVersion::ItemType).isEmpty();
}

bool TzSoapVersionTerms::isNamed(TzSoapVersion::SoapElement element) const {
    return !target_.getSoapElementQName(element).isEmpty();
}

bool TzSoapVersionTerms::hasFaultCode(TzSoapVersion::SoapFaultCode code) const {
    try {
        target_.getFaultCode(code);
        return true;
    } catch (const TzXmlError&) {
        return false;
    }
}
