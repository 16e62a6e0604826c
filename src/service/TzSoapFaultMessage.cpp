// SPDX-License-Identifier: MIT
#include <soap/TzSoapFaultMessage.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>
#include <tz/xml/TzXmlParseError.h>

#include <cstring>
#include <string>

namespace {

bool isUnknownVersion(const TzXmlParseError& error) {
    const TzCatMsg& entry = *tzsoap_UNKNOWN_VERSION();
    return error.getMessage().getId() == entry.id &&
           std::strcmp(error.getMessage().getDomain(), entry.domain) == 0;
}

TzSoapVersion::SoapFaultCode codeFor(const Tzxmsg& error) {
    if (const auto* const unread = dynamic_cast<const TzXmlParseError*>(&error)) {
        return isUnknownVersion(*unread) ? TzSoapVersion::VersionMismatch : TzSoapVersion::Client;
    }
    const bool senders = dynamic_cast<const TzXmlBoundsError*>(&error) != nullptr ||
                         dynamic_cast<const TzXmlBadArgError*>(&error) != nullptr;
    return senders ? TzSoapVersion::Client : TzSoapVersion::Server;
}

/// Whether `version` has the element.
bool has(TzSoapVersion::Version version, TzSoapVersion::SoapElement element) {
    return !TzSoapVersion::getSoapElementName(element, version).isEmpty();
}

const TzXmlName& nameOf(const TzSoapVersion& version, TzSoapVersion::SoapFaultCode code) {
    try {
        return version.getFaultCode(code);
    } catch (const TzXmlError&) {
        return version.getFaultCode(TzSoapVersion::Client);
    }
}

/// Whether `prefix` has another meaning in the place where a report is written.
bool isTaken(const TzCString& prefix, const TzSoapMessage& message) {
    const TzCString& report =
        TzSoapVersion::getSoapElementName(TzSoapVersion::Misunderstood, message.getVersion())
            .getPrefix();
    return prefix == report || prefix == message.getSoapPrefix() ||
           prefix == message.getSoapEncodingPrefix() ||
           prefix == TzXmlNamespace::getXmlns().getPrefix() ||
           prefix == TzXmlNamespace::getXsi().getPrefix();
}

/// The name with a prefix that means nothing else in the place where its report is written.
TzXmlName withFreePrefix(const TzXmlName& name, const TzSoapMessage& message) {
    constexpr char Base[] = "h";
    if (name.getUri().empty()) {
        return TzXmlName(name.getLocalName(), TzXmlNamespace());
    }
    TzCString prefix = name.getPrefix();
    const TzCString base = prefix.empty() ? Base : prefix;
    for (unsigned int number = 1; prefix.empty() || isTaken(prefix, message); ++number) {
        prefix = base + std::to_string(number);
    }
    return TzXmlName(name.getLocalName(), TzXmlNamespace(prefix, name.getUri()));
}

TzCString reasonFor(const Tzxmsg& error) {
    const auto* const unread = dynamic_cast<const TzXmlParseError*>(&error);
    if (unread == nullptr || unread->getLine() == 0) {
        return error.asString();
    }
    return "line " + std::to_string(unread->getLine()) + ", column " +
           std::to_string(unread->getColumn()) + ": " + unread->getMessage().asString();
}

} // namespace

TzSoapMessage TzSoapFaultMessage::make(TzSoapVersion::Version version,
                                       TzSoapVersion::SoapFaultCode code, const TzCString& reason) {
    TzSoapMessage message(version);
    message.setProlog(TzXmlProlog());
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(nameOf(message.getSoapVersion(), code));
    fault.setReason(reason);
    return message;
}

TzSoapMessage TzSoapFaultMessage::make(TzSoapVersion::Version version,
                                       TzSoapVersion::SoapFaultCode code,
                                       TzSoapVersion::SoapSubFaultCode subcode,
                                       const TzCString& reason) {
    TzSoapMessage message = make(version, code, reason);
    if (has(version, TzSoapVersion::FaultSubcode)) {
        message.getSoapBody().getSoapFault().addSubcode(
            message.getSoapVersion().getSubFaultCode(subcode));
    }
    return message;
}

TzSoapMessage TzSoapFaultMessage::makeMustUnderstand(TzSoapVersion::Version version,
                                                     const std::vector<TzXmlName>& names) {
    TzCString reason = "Header entries not understood:";
    for (const TzXmlName& name : names) {
        reason += " {" + name.getUri() + "}" + name.getLocalName();
    }
    TzSoapMessage message = make(version, TzSoapVersion::SoapFaultCode::MustUnderstand, reason);
    if (has(version, TzSoapVersion::Misunderstood)) {
        for (const TzXmlName& name : names) {
            message.getSoapHeader().appendHeaderEntry(
                TzSoapMisunderstoodType(withFreePrefix(name, message)), false);
        }
    }
    return message;
}

TzSoapMessage TzSoapFaultMessage::makeFrom(TzSoapVersion::Version version, const Tzxmsg& error) {
    const TzSoapVersion::SoapFaultCode code = codeFor(error);
    return make(code == TzSoapVersion::VersionMismatch ? TzSoapVersion::V1_1 : version, code,
                reasonFor(error));
}
