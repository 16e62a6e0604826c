// SPDX-License-Identifier: MIT
#include <soap/TzSoapFaultMessage.h>

#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlBoundsError.h>
#include <tz/xml/TzXmlParseError.h>

#include "model/TzSoapVersionTable.h"
#include "service/TzSoapErrorMatch.h"

#include <string>

namespace {

TzSoapVersion::SoapFaultCode codeFor(const Tzxmsg& error) {
    if (tzSoapIsParseError(error, *tzsoap_UNKNOWN_VERSION())) {
        return TzSoapVersion::VersionMismatch;
    }
    const bool senders = dynamic_cast<const TzXmlParseError*>(&error) != nullptr ||
                         dynamic_cast<const TzXmlBoundsError*>(&error) != nullptr ||
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

constexpr char EnvelopeName[] = "qname";

/// One envelope that is supported, as the child number `number` of an Upgrade entry.
TzSoapSimpleType supportedEnvelope(TzSoapVersion::Version version, std::size_t number) {
    const TzXmlName& envelope = TzSoapVersion::getSoapElementName(TzSoapVersion::Envelope, version);
    const TzCString prefix = "ns" + std::to_string(number);
    TzSoapSimpleType entry(TzSoap12RecVersion::getSupportedEnvelopeName(), TzCString(),
                           TzSoapType::xsdUnknown, false);
    entry.addNamespaceAttribute(prefix, envelope.getUri());
    entry.addAttribute(TzXmlName(EnvelopeName), prefix + ':' + envelope.getLocalName());
    return entry;
}

/// The URI that an element declares for `prefix`; null where it does not.
template <typename Handle>
const TzCString* declaredBy(const Handle& element, const TzCString& prefix) {
    const auto* const found = element.findNamespaceAttribute(prefix);
    return found == element.attributesEnd() ? nullptr : &found->getValue();
}

/// The name that the child `listed` of the header entry `upgrade` spells.
TzXmlName listedName(const TzSoapType& listed, const TzSoapType& upgrade,
                     const TzSoapMessage& message) {
    const auto* const text = listed.findAttribute(TzXmlName(EnvelopeName));
    TzXmlName name(text == listed.attributesEnd() ? TzCString() : text->getValue());
    const TzCString prefix = name.getPrefix();
    for (const TzCString* uri :
         {declaredBy(listed, prefix), declaredBy(upgrade, prefix),
          declaredBy(message.getSoapHeader(), prefix), declaredBy(message, prefix)}) {
        if (uri != nullptr) {
            name.setNamespace({prefix, *uri});
            break;
        }
    }
    return name;
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

TzSoapMessage
TzSoapFaultMessage::makeVersionMismatch(TzSoapVersion::Version version,
                                        const std::vector<TzSoapVersion::Version>& supported,
                                        const TzCString& reason) {
    TzSoapMessage message = make(version, TzSoapVersion::VersionMismatch, reason);
    const TzXmlName& upgrade =
        TzSoapVersionTable::of(version).term(TzSoapVersionTable::UpgradeEntry);
    if (!upgrade.isEmpty() && !supported.empty()) {
        TzSoapCompositeType entry(upgrade);
        for (std::size_t i = 0; i < supported.size(); ++i) {
            entry.appendChild(supportedEnvelope(supported[i], i + 1));
        }
        message.getSoapHeader().appendHeaderEntry(entry, false);
    }
    return message;
}

std::vector<TzXmlName> TzSoapFaultMessage::getSupportedEnvelopes(const TzSoapMessage& message) {
    std::vector<TzXmlName> names;
    const TzSoapHeader& header = message.getSoapHeader();
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        const auto upgrade = tzSoapCast<TzSoapCompositeType>(*entry);
        if (!upgrade || !(entry->getName() == TzSoap12RecVersion::getUpgradeName())) {
            continue;
        }
        for (auto child = upgrade->childrenBegin(); child != upgrade->childrenEnd(); ++child) {
            if (child->getName() == TzSoap12RecVersion::getSupportedEnvelopeName()) {
                names.push_back(listedName(*child, *entry, message));
            }
        }
    }
    return names;
}

TzSoapMessage TzSoapFaultMessage::makeFrom(TzSoapVersion::Version version, const Tzxmsg& error) {
    const TzSoapVersion::SoapFaultCode code = codeFor(error);
    return make(code == TzSoapVersion::VersionMismatch ? TzSoapVersion::V1_1 : version, code,
                reasonFor(error));
}
