// SPDX-License-Identifier: MIT
#include <soap/TzSoap11Version.h>

#include "model/TzSoapLasting.h"
#include "model/TzSoapVersionTable.h"

using Table = TzSoapVersionTable;

TzSoap11Version::TzSoap11Version() noexcept = default;

TzSoap11Version::TzSoap11Version(const TzSoap11Version&) noexcept = default;

TzSoap11Version& TzSoap11Version::operator=(const TzSoap11Version&) noexcept = default;

TzSoap11Version::~TzSoap11Version() = default;

[[gnu::hot]] TzSoapVersion& TzSoap11Version::getSoapVersion() {
    static TzSoapLasting<TzSoap11Version> version([] { return TzSoap11Version(); });
    return *version;
}

[[gnu::hot]] TzSoapVersion::Version TzSoap11Version::getVersion() const { return V1_1; }

const TzXmlNamespace& TzSoap11Version::getSoapEnv() const {
    return Table::soap11().nameSpace(Table::Envelope);
}

const TzXmlNamespace& TzSoap11Version::getSoapEnc() const {
    return Table::soap11().nameSpace(Table::Encoding);
}

const TzCString& TzSoap11Version::getSoapRole(SoapRole role) const {
    return Table::soap11().role(role);
}

const TzXmlName& TzSoap11Version::getFaultCode(SoapFaultCode code) const {
    return Table::soap11().faultCode(code);
}

const TzXmlName& TzSoap11Version::getSubFaultCode(SoapSubFaultCode code) const {
    return Table::soap11().subFaultCode(code);
}

const TzCString& TzSoap11Version::getSoapEncodingStyle() const { return getSoapEnc().getUri(); }

bool TzSoap11Version::matchSoapEnv(const TzXmlNamespace& candidate) const {
    return matchNamespaces(candidate, getSoapEnv());
}

bool TzSoap11Version::matchSoapEnc(const TzXmlNamespace& candidate) const {
    return matchNamespaces(candidate, getSoapEnc());
}

const TzXmlName& TzSoap11Version::getSoapAttributeQName(SoapAttribute attribute) const {
    return Table::soap11().attribute(attribute);
}

const TzXmlName& TzSoap11Version::getSoapElementQName(SoapElement element) const {
    return Table::soap11().element(element);
}
