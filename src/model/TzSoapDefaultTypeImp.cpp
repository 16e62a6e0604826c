// SPDX-License-Identifier: MIT
#include <soap/TzSoapDefaultTypeImp.h>

#include <soap/TzSoapCatalog.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapLasting.h"

namespace {

[[noreturn]] void refuse() {
    TzThrow(TzXmlError(TzMessage(tzsoap_BAD_USAGE(), "TzSoapDefaultType")));
}

} // namespace

TZSOAP_EARLY const TzCString TzSoapDefaultTypeImp::DefaultString = "Default";

TzSoapDefaultTypeImp::TzSoapDefaultTypeImp() = default;

TzSoapDefaultTypeImp::~TzSoapDefaultTypeImp() = default;

const TzCString& TzSoapDefaultTypeImp::getSoapTypeIdAsString() const { return DefaultString; }

void TzSoapDefaultTypeImp::setName(const TzXmlName&) { refuse(); }

TzXmlName& TzSoapDefaultTypeImp::getName() { refuse(); }

const TzXmlName& TzSoapDefaultTypeImp::getName() const { refuse(); }

void TzSoapDefaultTypeImp::addNamespaceAttribute(const TzXmlNamespace&) { refuse(); }

TzXmlAttribute* TzSoapDefaultTypeImp::findNamespaceAttribute(const TzXmlNamespace&) { refuse(); }

const TzXmlAttribute* TzSoapDefaultTypeImp::findNamespaceAttribute(const TzXmlNamespace&) const {
    refuse();
}

TzXmlAttribute* TzSoapDefaultTypeImp::findNamespaceAttribute(const TzCString&) { refuse(); }

const TzXmlAttribute* TzSoapDefaultTypeImp::findNamespaceAttribute(const TzCString&) const {
    refuse();
}

void TzSoapDefaultTypeImp::removeNamespaceAttribute(const TzCString&) { refuse(); }

void TzSoapDefaultTypeImp::removeNamespaceAttribute(const TzXmlNamespace&) { refuse(); }

void TzSoapDefaultTypeImp::setDefaultNamespaceAttribute(const TzCString&) { refuse(); }

void TzSoapDefaultTypeImp::setDefaultNamespaceAttribute(const TzXmlNamespace&) { refuse(); }

void TzSoapDefaultTypeImp::unsetDefaultNamespaceAttribute() { refuse(); }

TzCString TzSoapDefaultTypeImp::getDefaultNamespaceAttribute() const { refuse(); }

const TzXmlAttribute* TzSoapDefaultTypeImp::attributesBegin() const { refuse(); }

TzXmlAttribute* TzSoapDefaultTypeImp::attributesBegin() { refuse(); }

const TzXmlAttribute* TzSoapDefaultTypeImp::attributesEnd() const { refuse(); }

TzXmlAttribute* TzSoapDefaultTypeImp::attributesEnd() { refuse(); }

std::size_t TzSoapDefaultTypeImp::attributeCount() const { refuse(); }

void TzSoapDefaultTypeImp::clearAttributes() { refuse(); }

void TzSoapDefaultTypeImp::addAttribute(const TzXmlAttribute&) { refuse(); }

void TzSoapDefaultTypeImp::addAttribute(const TzXmlName&, const TzCString&) { refuse(); }

void TzSoapDefaultTypeImp::removeAttribute(TzXmlAttribute*) { refuse(); }

void TzSoapDefaultTypeImp::removeAttribute(const TzXmlAttribute&) { refuse(); }

void TzSoapDefaultTypeImp::removeAttribute(const TzXmlName&) { refuse(); }

TzXmlAttribute* TzSoapDefaultTypeImp::findAttribute(const TzXmlAttribute&) { refuse(); }

const TzXmlAttribute* TzSoapDefaultTypeImp::findAttribute(const TzXmlAttribute&) const { refuse(); }

TzXmlAttribute* TzSoapDefaultTypeImp::findAttribute(const TzXmlName&) { refuse(); }

const TzXmlAttribute* TzSoapDefaultTypeImp::findAttribute(const TzXmlName&) const { refuse(); }

bool TzSoapDefaultTypeImp::hasAttribute(const TzXmlAttribute&) const { refuse(); }

bool TzSoapDefaultTypeImp::hasAttribute(const TzXmlName&) const { refuse(); }

TzCString TzSoapDefaultTypeImp::getEncodingStyleAttribute() const { refuse(); }

void TzSoapDefaultTypeImp::setEncodingStyle(const TzCString&) { refuse(); }

bool TzSoapDefaultTypeImp::hasEncodingStyleAttribute() const { refuse(); }

void TzSoapDefaultTypeImp::removeEncodingStyleAttribute() { refuse(); }

const TzCString& TzSoapDefaultTypeImp::getIdAttribute() const { refuse(); }

void TzSoapDefaultTypeImp::setIdAttribute(const TzCString&) { refuse(); }

void TzSoapDefaultTypeImp::removeIdAttribute() { refuse(); }

TzCString TzSoapDefaultTypeImp::getRootAttribute() const { refuse(); }

bool TzSoapDefaultTypeImp::getRoot() const { refuse(); }

void TzSoapDefaultTypeImp::setRoot(bool) { refuse(); }

bool TzSoapDefaultTypeImp::isRootAttributeSet() const { refuse(); }

void TzSoapDefaultTypeImp::removeRootAttribute() { refuse(); }

TzCString TzSoapDefaultTypeImp::getTypeAttribute() const { refuse(); }

void TzSoapDefaultTypeImp::setTypeAttribute(const TzXmlName&) { refuse(); }

void TzSoapDefaultTypeImp::removeTypeAttribute() { refuse(); }

const TzCString& TzSoapDefaultTypeImp::getActorAttribute() const { refuse(); }

void TzSoapDefaultTypeImp::setActor(const TzCString&) { refuse(); }

void TzSoapDefaultTypeImp::removeActorAttribute() { refuse(); }

bool TzSoapDefaultTypeImp::getMustUnderstand() const { refuse(); }

void TzSoapDefaultTypeImp::setMustUnderstand(bool) { refuse(); }

void TzSoapDefaultTypeImp::removeMustUnderstandAttribute() { refuse(); }

TzCString TzSoapDefaultTypeImp::getMustUnderstandAttribute() const { refuse(); }

TzCString TzSoapDefaultTypeImp::getMustUnderstandAttribute(TzSoapVersion::Version) const {
    refuse();
}

TzCString TzSoapDefaultTypeImp::getOffsetAttribute() const { refuse(); }

void TzSoapDefaultTypeImp::setOffsetAttribute(const TzCString&) { refuse(); }

void TzSoapDefaultTypeImp::removeOffsetAttribute() { refuse(); }

TzSoapElementImp* TzSoapDefaultTypeImp::clone() const { refuse(); }

void TzSoapDefaultTypeImp::setEscapeText(TzSoapContentBase::EscapeText) { refuse(); }

TzSoapContentBase::EscapeText TzSoapDefaultTypeImp::getEscapeText() const { refuse(); }
