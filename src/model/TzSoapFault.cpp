// SPDX-License-Identifier: MIT
#include <soap/TzSoapFault.h>

#include <soap/TzSoapFaultImp.h>

TzSoapFault::TzSoapFault() : TzSoapFault(TzSoapVersion::getLatestVersion()) {}

TzSoapFault::TzSoapFault(TzSoapVersion::Version version)
    : TzSoapFault(new TzSoapFaultImp(
          TzSoapVersion::getSoapElementName(TzSoapVersion::Fault, version), version)) {}

TzSoapFault::TzSoapFault(TzSoapFaultImp* body) noexcept : TzHandleBase(body) {}

TzSoapFault::~TzSoapFault() = default;

[[gnu::hot]] TzSoapFaultImp& TzSoapFault::body() const {
    return static_cast<TzSoapFaultImp&>(bodyBase());
}

TzSoapFault TzSoapFault::copy() const { return TzSoapFault(body().clone()); }

void TzSoapFault::setCode(const TzXmlName& code) { body().setCode(code); }

TzXmlName TzSoapFault::getCode() const { return body().getCode(); }

TzXmlName TzSoapFault::getCodeValue() const { return body().getCodeValue(); }

void TzSoapFault::addSubcode(const TzXmlName& subcode) { body().addSubcode(subcode); }

TzXmlName TzSoapFault::getSubcode(unsigned int index) const { return body().getSubcode(index); }

TzXmlName TzSoapFault::getSubcodeValue(unsigned int index) const {
    return body().getSubcodeValue(index);
}

unsigned int TzSoapFault::getSubcodeCount() const { return body().getSubcodeCount(); }

void TzSoapFault::clearSubcodes() { body().clearSubcodes(); }

void TzSoapFault::addFaultCodeQualifier(const TzCString& qualifier) {
    body().addSubcode(TzXmlName(qualifier, TzXmlNamespace::getEmptyNamespace()));
}

void TzSoapFault::setReason(const TzCString& reason) { body().setReason(reason); }

TzCString TzSoapFault::getReason() const { return body().getReason(); }

void TzSoapFault::addReason(const TzCString& reason, const TzCString& language) {
    body().addReason({reason, language});
}

TzCString TzSoapFault::getReason(const TzCString& language) const {
    return body().getReason(language);
}

const std::vector<TzSoapReason>& TzSoapFault::getReasons() const { return body().getReasons(); }

void TzSoapFault::setNode(const TzCString& node) { body().setNode(node); }

const TzCString& TzSoapFault::getNode() const { return body().getNode(); }

void TzSoapFault::setRole(const TzCString& role) { body().setRole(role); }

const TzCString& TzSoapFault::getRole() const { return body().getRole(); }

void TzSoapFault::addDetailEntry(const TzCString& name, const TzSoapType& value) {
    body().addDetailEntry(name, value);
}

void TzSoapFault::setDetails(const TzSoapCompositeType& details) { body().setDetails(details); }

const TzSoapCompositeType& TzSoapFault::getDetails() const { return body().getDetails(); }

const TzCString& TzSoapFault::getDetailText() const { return body().getDetailText(); }

void TzSoapFault::setDetailText(const TzCString& text) { body().setDetailText(text); }

const TzXmlName& TzSoapFault::getName() const { return body().getName(); }

void TzSoapFault::clear() { body().clear(); }
