// SPDX-License-Identifier: MIT
#include "conversion/TzSoapVersionTerms.h"

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapUtils.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "model/TzSoapVersionTable.h"

#include <array>
#include <list>

namespace {

/// Whether `name`, in a namespace of `version`, is what the version calls the attribute.
bool isNameOf(const TzSoapVersion& version, const TzXmlName& name,
              TzSoapVersion::SoapAttribute attribute) {
    const TzXmlName& own = version.getSoapAttributeQName(attribute);
    return !own.getUri().empty() && own.getLocalName() == name.getLocalName() &&
           version.matchSoapEnv(own.getNamespace()) == version.matchSoapEnv(name.getNamespace());
}

constexpr std::array<TzSoapVersion::SoapRole, 3> Roles = {TzSoapVersion::Next, TzSoapVersion::None,
                                                          TzSoapVersion::UltimateReceiver};

} // namespace

std::optional<TzXmlNamespace> TzSoapVersionTerms::nameSpace(const TzXmlNamespace& nameSpace) {
    if (source_.matchSoapEnv(nameSpace)) {
        return made(envelopes_, nameSpace.getPrefix(), target_.getSoapEnv().getUri());
    }
    if (source_.matchSoapEnc(nameSpace)) {
        return made(encodings_, nameSpace.getPrefix(), target_.getSoapEnc().getUri());
    }
    return std::nullopt;
}

const TzXmlNamespace& TzSoapVersionTerms::made(Made& known, const TzCString& prefix,
                                               const TzCString& uri) {
    const auto found = known.find(prefix);
    return found != known.end() ? found->second
                                : known.try_emplace(prefix, prefix, uri).first->second;
}

bool TzSoapVersionTerms::isSourceName(const TzXmlName& name,
                                      TzSoapVersion::SoapAttribute attribute) const {
    return isNameOf(source_, name, attribute);
}

bool TzSoapVersionTerms::isTargetName(const TzXmlName& name) const {
    TzSoapVersion::SoapAttribute attribute{};
    TzSoapVersion::Version version{};
    return TzSoapVersion::isSoapAttribute(name, attribute, version) &&
           version == target_.getVersion() && isNameOf(target_, name, attribute);
}

bool TzSoapVersionTerms::isTargetFault(const TzXmlName& name) const {
    return target_.matchSoapElement(name, TzSoapVersion::Fault) &&
           !source_.matchSoapElement(name, TzSoapVersion::Fault);
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
        const bool published =
            role == TzSoapVersion::Next && uri == TzSoapVersionTable::PublishedNextRole;
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
