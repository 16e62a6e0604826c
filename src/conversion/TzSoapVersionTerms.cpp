// SPDX-License-Identifier: MIT
#include "conversion/TzSoapVersionTerms.h"

#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapUtils.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <algorithm>
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

constexpr std::array<TzSoapVersion::SoapSubFaultCode, 4> Subcodes = {
    TzSoapVersion::MissingID, TzSoapVersion::UnTypedValue, TzSoapVersion::ProcedureNotPresent,
    TzSoapVersion::BadArguments};
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

std::optional<TzXmlNamespace> TzSoapVersionTerms::anyNameSpace(const TzXmlNamespace& nameSpace) {
    if (!target_.getSoapRpc().isEmpty() && source_.matchSoapRpc(nameSpace)) {
        return made(rpcs_, nameSpace.getPrefix(), target_.getSoapRpc().getUri());
    }
    return this->nameSpace(nameSpace);
}

std::optional<TzSoapVersion::SoapAttribute>
TzSoapVersionTerms::attributeCalled(std::string_view localName) {
    for (const TzSoapVersion::Version version : TzSoapVersionTable::Supported) {
        const int found = TzSoapVersionTable::of(version).findAttribute(localName);
        if (found >= 0) {
            return static_cast<TzSoapVersion::SoapAttribute>(found);
        }
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
    const bool isHome =
        target_.matchSoapEnv(name.getNamespace()) || target_.matchSoapEnc(name.getNamespace());
    const auto attribute = attributeCalled(name.getLocalName());
    return isHome && attribute && isNameOf(target_, name, *attribute);
}

bool TzSoapVersionTerms::isReport(const TzXmlName& name) const {
    // The same name in the model whatever the version.
    return hasMisunderstood() && name == TzSoapVersion::getLatestSoapVersion().getSoapElementQName(
                                             TzSoapVersion::Misunderstood);
}

bool TzSoapVersionTerms::isSpeltReport(const TzXmlName& name) const {
    return hasMisunderstood() && !isReport(name) &&
           source_.matchSoapElement(name, TzSoapVersion::Misunderstood);
}

bool TzSoapVersionTerms::isTargetBlock(const TzXmlName& name) const {
    using V = TzSoapVersion;
    const auto blocks = {V::Envelope, V::Header, V::Body, V::Fault, V::FaultDetail};
    return std::any_of(blocks.begin(), blocks.end(), [&](V::SoapElement element) {
        return target_.matchSoapElement(name, element);
    });
}

TzCString TzSoapVersionTerms::flag(const TzCString& text) const {
    if (habits().booleansAreWords) {
        return text; // or digits
    }
    return text == TzSoapUtils::TrueTag ? "1" : text == "false" ? "0" : text;
}

bool TzSoapVersionTerms::isFaultCode(const TzXmlName& name,
                                     TzSoapVersion::SoapFaultCode& code) const {
    if (TzSoapVersion::isSoapFaultCode(name, code)) {
        return true;
    }
    for (const TzSoapVersion::Version version : TzSoapVersionTable::Supported) {
        const int found = TzSoapVersionTable::of(version).findFaultCode(name.getLocalName());
        if (found >= 0 && source_.matchSoapEnv(name.getNamespace())) {
            code = static_cast<TzSoapVersion::SoapFaultCode>(found);
            return true;
        }
    }
    return false;
}

TzXmlName TzSoapVersionTerms::subcode(const TzXmlName& name) {
    const bool both = !source_.getSoapElementQName(TzSoapVersion::FaultSubcode).isEmpty();
    for (const TzSoapVersion::SoapSubFaultCode each : Subcodes) {
        if (both && name == source_.getSubFaultCode(each)) {
            const TzXmlName& own = target_.getSubFaultCode(each);
            return {own.getLocalName(), TzXmlNamespace(name.getPrefix(), own.getUri())};
        }
    }
    const auto home = anyNameSpace(name.getNamespace());
    return home ? TzXmlName(name.getLocalName(), *home) : name;
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
