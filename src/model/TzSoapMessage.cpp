// SPDX-License-Identifier: MIT
#include <soap/TzSoapMessage.h>

#include <soap/TzSoapMessageImp.h>

#include "model/TzSoapLasting.h"

TZSOAP_EARLY const TzCString TzSoapMessage::EnvelopeLabel = "Envelope";

TzSoapMessage::TzSoapMessage(TzSoapVersion::Version version)
    : TzSoapMessage(new TzSoapMessageImp(version)) {}

TzSoapMessage::TzSoapMessage(TzSoapMessageImp* body) noexcept : TzHandleBase(body) {}

TzSoapMessage::~TzSoapMessage() = default;

[[gnu::hot]] TzSoapMessageImp& TzSoapMessage::body() const {
    return static_cast<TzSoapMessageImp&>(bodyBase());
}

TzSoapElementImp& TzSoapMessage::elementBody() const { return body(); }

TzCString TzSoapMessage::getMessageType() const {
    return "SOAPMessage:" + getSoapVersion().getSoapEnv().getUri();
}

TzSoapVersion::Version TzSoapMessage::getVersion() const { return body().getVersion(); }

TzSoapVersion& TzSoapMessage::getSoapVersion() const { return body().getSoapVersion(); }

void TzSoapMessage::setVersion(TzSoapVersion::Version version) { body().setVersion(version); }

TzSoapHeader& TzSoapMessage::getSoapHeader() { return body().getSoapHeader(); }

const TzSoapHeader& TzSoapMessage::getSoapHeader() const { return body().getSoapHeader(); }

TzSoapBody& TzSoapMessage::getSoapBody() { return body().getSoapBody(); }

const TzSoapBody& TzSoapMessage::getSoapBody() const { return body().getSoapBody(); }

void TzSoapMessage::setSoapPrefix(const TzCString& prefix) { body().setSoapPrefix(prefix); }

TzCString TzSoapMessage::getSoapPrefix() const { return body().getSoapPrefix(); }

void TzSoapMessage::setSoapEncodingPrefix(const TzCString& prefix) {
    body().setSoapEncodingPrefix(prefix);
}

TzCString TzSoapMessage::getSoapEncodingPrefix() const { return body().getSoapEncodingPrefix(); }

void TzSoapMessage::declareTypeNamespaces() {
    for (const TzXmlNamespace& declared : {TzXmlNamespace::getXsd(), TzXmlNamespace::getXsi()}) {
        if (findNamespaceAttribute(declared.getPrefix()) == attributesEnd()) {
            addNamespaceAttribute(declared);
        }
    }
}

void TzSoapMessage::setProlog(const TzXmlProlog& prolog) { body().setProlog(prolog); }

const TzXmlProlog& TzSoapMessage::getProlog() const { return body().getProlog(); }

bool TzSoapMessage::hasProlog() const { return body().hasProlog(); }

void TzSoapMessage::removeProlog() { body().removeProlog(); }

void TzSoapMessage::setTypeRegistry(const TzSoapTypeRegistry& registry) {
    body().setTypeRegistry(registry);
}

TzSoapTypeRegistry& TzSoapMessage::getTypeRegistry() { return body().getTypeRegistry(); }

const TzSoapTypeRegistry& TzSoapMessage::getTypeRegistry() const {
    return body().getTypeRegistry();
}

void TzSoapMessage::setStyle(TzSoapStyle style) { body().setStyle(style); }

TzSoapStyle TzSoapMessage::getStyle() const { return body().getStyle(); }

void TzSoapMessage::setMarkupElements(const std::vector<TzXmlName>& names) {
    body().setMarkupElements(names);
}

const std::vector<TzXmlName>& TzSoapMessage::getMarkupElements() const {
    return body().getMarkupElements();
}

void TzSoapMessage::setReadLimits(const TzSoapReadLimits& limits) { body().setReadLimits(limits); }

TzSoapReadLimits TzSoapMessage::getReadLimits() const { return body().getReadLimits(); }

bool TzSoapMessage::hasDroppedText() const { return body().getDroppedText().count > 0; }

TzSoapDroppedText TzSoapMessage::getDroppedText() const { return body().getDroppedText(); }

TzSoapMessage TzSoapMessage::copy() const { return TzSoapMessage(body().clone()); }
