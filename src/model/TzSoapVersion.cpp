// SPDX-License-Identifier: MIT
#include <soap/TzSoapVersion.h>

#include "model/TzSoapLasting.h"
#include "model/TzSoapVersionTable.h"

#include <soap/TzSoap11Version.h>
#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoap12Version.h>
#include <soap/TzSoapCatalog.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

using Table = TzSoapVersionTable;

// Real strings, so that derived classes can pass them wherever a TzCString is taken: constructed
// before any object of the program can use them.
TZSOAP_EARLY const TzCString TzSoapVersion::EnvelopeTag = "Envelope";
TZSOAP_EARLY const TzCString TzSoapVersion::BodyTag = "Body";
TZSOAP_EARLY const TzCString TzSoapVersion::HeaderTag = "Header";
TZSOAP_EARLY const TzCString TzSoapVersion::FaultTag = "Fault";
TZSOAP_EARLY const TzCString TzSoapVersion::EncodingStyleTag = "encodingStyle";
TZSOAP_EARLY const TzCString TzSoapVersion::MustUnderstandTag = "mustUnderstand";
TZSOAP_EARLY const TzCString TzSoapVersion::RootTag = "root";
TZSOAP_EARLY const TzCString TzSoapVersion::PositionTag = "position";
TZSOAP_EARLY const TzCString TzSoapVersion::OffsetTag = "offset";
TZSOAP_EARLY const TzCString TzSoapVersion::VersionMismatchTag = "VersionMismatch";
TZSOAP_EARLY const TzCString TzSoapVersion::MustUnderstandFaultTag = "MustUnderstand";
TZSOAP_EARLY const TzCString TzSoapVersion::ClientTag = "Client";
TZSOAP_EARLY const TzCString TzSoapVersion::ServerTag = "Server";
TZSOAP_EARLY const TzCString TzSoapVersion::ReceiverTag = "Receiver";
TZSOAP_EARLY const TzCString TzSoapVersion::SenderTag = "Sender";
TZSOAP_EARLY const TzCString TzSoapVersion::DataEncodingUnknownTag = "DataEncodingUnknown";
TZSOAP_EARLY const TzCString TzSoapVersion::DTDNotSupportedTag = "DTDNotSupported";
TZSOAP_EARLY const TzCString TzSoapVersion::ProcedureNotPresentTag = "ProcedureNotPresent";
TZSOAP_EARLY const TzCString TzSoapVersion::BadArgumentsTag = "BadArguments";
TZSOAP_EARLY const TzCString TzSoapVersion::MissingIDTag = "MissingID";
TZSOAP_EARLY const TzCString TzSoapVersion::UnTypedValueTag = "UnTypedValue";
TZSOAP_EARLY const TzCString TzSoapVersion::MisunderstoodTag = "Misunderstood";

TZSOAP_EARLY const TzXmlName TzSoapVersion::DummyXmlName;

TzSoapVersion::TzSoapVersion() noexcept = default;

TzSoapVersion::TzSoapVersion(const TzSoapVersion&) noexcept = default;

TzSoapVersion& TzSoapVersion::operator=(const TzSoapVersion&) noexcept = default;

TzSoapVersion::~TzSoapVersion() = default;

const TzXmlNamespace& TzSoapVersion::getSoapFault() const {
    return TzXmlNamespace::getEmptyNamespace();
}

const TzXmlNamespace& TzSoapVersion::getSoapRpc() const {
    return TzXmlNamespace::getEmptyNamespace();
}

const TzXmlNamespace& TzSoapVersion::getSoapUpgrade() const {
    return TzXmlNamespace::getEmptyNamespace();
}

const TzCString& TzSoapVersion::getSoapRole(SoapRole) const {
    static TzSoapLasting<const TzCString> noRole([] { return TzCString(); });
    return *noRole;
}

bool TzSoapVersion::matchSoapRpc(const TzXmlNamespace&) const { return false; }

bool TzSoapVersion::matchSoapFault(const TzXmlNamespace&) const { return false; }

bool TzSoapVersion::matchSoapUpgrade(const TzXmlNamespace&) const { return false; }

[[gnu::hot]] TzSoapVersion& TzSoapVersion::getSoapVersion(Version version) {
    switch (version) {
    case V1_1:
        return TzSoap11Version::getSoapVersion();
    case V1_2:
        return TzSoap12Version::getSoapVersion();
    case V1_2Rec:
        return TzSoap12RecVersion::getSoapVersion();
    }
    TzThrow(TzXmlError(TzMessage(tzsoap_UNKNOWN_VERSION())));
}

[[gnu::hot]] TzSoapVersion& TzSoapVersion::getLatestSoapVersion() {
    return getSoapVersion(getLatestVersion());
}

bool TzSoapVersion::isSupportedVersion(const TzXmlNamespace& candidate, Version& version) {
    return isSoapEnv(candidate.getUri(), version);
}

bool TzSoapVersion::isKnownVersion(const TzXmlNamespace& candidate, Version& version) {
    const TzSoapVersion& latest = TzSoap12RecVersion::getSoapVersion();
    if (latest.matchSoapEnv(candidate)) {
        version = latest.getVersion();
        return true;
    }
    return isSupportedVersion(candidate, version);
}

bool TzSoapVersion::isSoapEnv(const TzCString& uri) {
    Version version{};
    return isSoapEnv(uri, version);
}

bool TzSoapVersion::isSoapEnv(const TzCString& uri, Version& version) {
    return Table::findVersion(uri, Table::Envelope, version);
}

bool TzSoapVersion::isSoapEnc(const TzCString& uri) {
    Version version{};
    return isSoapEnc(uri, version);
}

bool TzSoapVersion::isSoapEnc(const TzCString& uri, Version& version) {
    return Table::findVersion(uri, Table::Encoding, version);
}

bool TzSoapVersion::isSoapEncodingStyle(const TzCString& uri) { return isSoapEnc(uri); }

bool TzSoapVersion::isSoapEncodingStyle(const TzCString& uri, Version& version) {
    return isSoapEnc(uri, version);
}

bool TzSoapVersion::isSoapAttribute(const TzXmlName& name) {
    SoapAttribute attribute{};
    Version version{};
    return isSoapAttribute(name, attribute, version);
}

bool TzSoapVersion::isSoapAttribute(const TzXmlName& name, SoapAttribute& attribute,
                                    Version& version) {
    if (!isSoapEnv(name.getUri(), version) && !isSoapEnc(name.getUri(), version)) {
        return false;
    }
    for (const Table* table : {&Table::soap12(), &Table::soap11()}) {
        const int found = table->findAttribute(name.getLocalName());
        if (found >= 0) {
            attribute = static_cast<SoapAttribute>(found);
            return true;
        }
    }
    return false;
}

const TzXmlName& TzSoapVersion::getSoapAttributeName(SoapAttribute attribute, Version version) {
    return getSoapVersion(version).getSoapAttributeQName(attribute);
}

const TzXmlName& TzSoapVersion::getSoapElementName(SoapElement element, Version version) {
    return getSoapVersion(version).getSoapElementQName(element);
}

bool TzSoapVersion::matchSoapAttributeName(const TzXmlName& name, SoapAttribute attribute,
                                           Version version) {
    return attribute >= EncodingStyle && attribute <= Href &&
           name == getSoapAttributeName(attribute, version);
}

bool TzSoapVersion::isSoapFaultCode(const TzXmlName& name) {
    SoapFaultCode code{};
    return isSoapFaultCode(name, code);
}

bool TzSoapVersion::isSoapFaultCode(const TzXmlName& name, SoapFaultCode& code) {
    if (!isSoapEnv(name.getUri())) {
        return false;
    }
    for (const Table* table : {&Table::soap12(), &Table::soap11()}) {
        const int found = table->findFaultCode(name.getLocalName());
        if (found >= 0) {
            code = static_cast<SoapFaultCode>(found);
            return true;
        }
    }
    return false;
}

TzSoapVersion::SoapFaultCode TzSoapVersion::getSoapFaultCode(const TzXmlName& name) {
    SoapFaultCode code{};
    if (!isSoapFaultCode(name, code)) {
        Table::refuseFaultCode("All Soap Versions");
    }
    return code;
}

bool TzSoapVersion::matchSoapElement(const TzXmlName& name, SoapElement element) const {
    const TzXmlName& wanted = getSoapElementQName(element);
    if (wanted.isEmpty() || name.getLocalName() != wanted.getLocalName()) {
        return false;
    }
    return wanted.getUri().empty() ? name.getUri().empty()
                                   : matchNamespaces(name.getNamespace(), wanted.getNamespace());
}

bool TzSoapVersion::matchNamespaces(const TzXmlNamespace& left,
                                    const TzXmlNamespace& right) noexcept {
    return Table::matchUris(left.getUri(), right.getUri());
}
