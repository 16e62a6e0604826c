// SPDX-License-Identifier: MIT
#include <soap/TzSoap12Version.h>

#include "model/TzSoapLasting.h"
#include "model/TzSoapVersionTable.h"

using Table = TzSoapVersionTable;

TzSoap12Version::TzSoap12Version() noexcept = default;

TzSoap12Version::TzSoap12Version(const TzSoap12Version&) noexcept = default;

TzSoap12Version& TzSoap12Version::operator=(const TzSoap12Version&) noexcept = default;

TzSoap12Version::~TzSoap12Version() = default;

[[gnu::hot]] TzSoapVersion& TzSoap12Version::getSoapVersion() {
    static TzSoapLasting<TzSoap12Version> version([] { return TzSoap12Version(); });
    return *version;
}

TzSoapVersion::Version TzSoap12Version::getVersion() const { return V1_2; }

const TzXmlNamespace& TzSoap12Version::getSoapEnv() const {
    return Table::soap12().nameSpace(Table::Envelope);
}

const TzXmlNamespace& TzSoap12Version::getSoapEnc() const {
    return Table::soap12().nameSpace(Table::Encoding);
}

const TzXmlNamespace& TzSoap12Version::getSoapFault() const {
    return Table::soap12().nameSpace(Table::Faults);
}

const TzXmlNamespace& TzSoap12Version::getSoapRpc() const {
    return Table::soap12().nameSpace(Table::Rpc);
}

const TzXmlNamespace& TzSoap12Version::getSoapUpgrade() const {
    return Table::soap12().nameSpace(Table::Upgrade);
}

const TzCString& TzSoap12Version::getSoapRole(SoapRole role) const {
    return Table::soap12().role(role);
}

const TzXmlName& TzSoap12Version::getFaultCode(SoapFaultCode code) const {
    return Table::soap12().faultCode(code);
}

const TzXmlName& TzSoap12Version::getSubFaultCode(SoapSubFaultCode code) const {
    return Table::soap12().subFaultCode(code);
}

const TzCString& TzSoap12Version::getSoapEncodingStyle() const { return getSoapEnc().getUri(); }

bool TzSoap12Version::matchSoapEnv(const TzXmlNamespace& candidate) const {
    return matchNamespaces(candidate, getSoapEnv());
}

bool TzSoap12Version::matchSoapEnc(const TzXmlNamespace& candidate) const {
    return matchNamespaces(candidate, getSoapEnc());
}

bool TzSoap12Version::matchSoapRpc(const TzXmlNamespace& candidate) const {
    return matchNamespaces(candidate, getSoapRpc());
}

bool TzSoap12Version::matchSoapFault(const TzXmlNamespace& candidate) const {
    return matchNamespaces(candidate, getSoapFault());
}

bool TzSoap12Version::matchSoapUpgrade(const TzXmlNamespace& candidate) const {
    return matchNamespaces(candidate, getSoapUpgrade());
}

const TzXmlName& TzSoap12Version::getSoapAttributeQName(SoapAttribute attribute) const {
    return Table::soap12().attribute(attribute);
}

const TzXmlName& TzSoap12Version::getSoapElementQName(SoapElement element) const {
    return Table::soap12().element(element);
}
