// SPDX-License-Identifier: MIT
#include <soap/TzSoap12RecVersion.h>

#include <soap/TzSoapType.h>

#include "model/TzSoapBooleanText.h"
#include "model/TzSoapLasting.h"
#include "model/TzSoapVersionTable.h"

using Table = TzSoapVersionTable;

TzSoap12RecVersion::TzSoap12RecVersion() noexcept = default;

TzSoap12RecVersion::TzSoap12RecVersion(const TzSoap12RecVersion&) noexcept = default;

TzSoap12RecVersion& TzSoap12RecVersion::operator=(const TzSoap12RecVersion&) noexcept = default;

TzSoap12RecVersion::~TzSoap12RecVersion() = default;

TzSoapVersion& TzSoap12RecVersion::getSoapVersion() {
    static TzSoapLasting<TzSoap12RecVersion> version([] { return TzSoap12RecVersion(); });
    return *version;
}

TzSoapVersion::Version TzSoap12RecVersion::getVersion() const { return V1_2Rec; }

const TzXmlNamespace& TzSoap12RecVersion::getSoapEnv() const {
    return Table::soap12Rec().nameSpace(Table::Envelope);
}

const TzXmlNamespace& TzSoap12RecVersion::getSoapEnc() const {
    return Table::soap12Rec().nameSpace(Table::Encoding);
}

const TzXmlNamespace& TzSoap12RecVersion::getSoapRpc() const {
    return Table::soap12Rec().nameSpace(Table::Rpc);
}

const TzCString& TzSoap12RecVersion::getSoapRole(SoapRole role) const {
    return Table::soap12Rec().role(role);
}

const TzXmlName& TzSoap12RecVersion::getFaultCode(SoapFaultCode code) const {
    return Table::soap12Rec().faultCode(code);
}

const TzXmlName& TzSoap12RecVersion::getSubFaultCode(SoapSubFaultCode code) const {
    return Table::soap12Rec().subFaultCode(code);
}

const TzCString& TzSoap12RecVersion::getSoapEncodingStyle() const { return getSoapEnc().getUri(); }

bool TzSoap12RecVersion::matchSoapEnv(const TzXmlNamespace& candidate) const {
    return candidate.sameUri(getSoapEnv());
}

bool TzSoap12RecVersion::matchSoapEnc(const TzXmlNamespace& candidate) const {
    return candidate.sameUri(getSoapEnc());
}

bool TzSoap12RecVersion::matchSoapRpc(const TzXmlNamespace& candidate) const {
    return candidate.sameUri(getSoapRpc());
}

const TzXmlName& TzSoap12RecVersion::getSoapAttributeQName(SoapAttribute attribute) const {
    return Table::soap12Rec().attribute(attribute);
}

const TzXmlName& TzSoap12RecVersion::getSoapElementQName(SoapElement element) const {
    return Table::soap12Rec().element(element);
}

const TzXmlName& TzSoap12RecVersion::getIdName() { return Table::soap12Rec().term(Table::Id); }

const TzXmlName& TzSoap12RecVersion::getNodeTypeName() {
    return Table::soap12Rec().term(Table::NodeType);
}

const TzXmlName& TzSoap12RecVersion::getRelayName() {
    return Table::soap12Rec().term(Table::Relay);
}

bool TzSoap12RecVersion::isRelayed(const TzSoapType& entry) {
    const TzXmlAttribute* const relay = entry.findAttribute(getRelayName());
    return relay != entry.attributesEnd() && tzSoapIsTrue(relay->getValue());
}

const TzXmlName& TzSoap12RecVersion::getReasonTextName() {
    return Table::soap12Rec().term(Table::ReasonText);
}

const TzXmlName& TzSoap12RecVersion::getUpgradeName() {
    return Table::soap12Rec().term(Table::UpgradeEntry);
}

const TzXmlName& TzSoap12RecVersion::getSupportedEnvelopeName() {
    return Table::soap12Rec().term(Table::SupportedEnvelope);
}

const TzXmlName& TzSoap12RecVersion::getDuplicateIdCode() {
    return Table::soap12Rec().term(Table::DuplicateId);
}

const TzXmlName& TzSoap12RecVersion::getRpcResultName() {
    return Table::soap12Rec().term(Table::RpcResult);
}

const TzCString& TzSoap12RecVersion::getNoEncodingStyle() {
    return Table::soap12Rec().noEncodingStyle();
}
