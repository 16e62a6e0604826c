// SPDX-License-Identifier: MIT
#include <soap/TzSoapParseContext.h>

#include "reading/TzSoapReadingState.h"

TzSoapParseContext::TzSoapParseContext() : state_(std::make_unique<TzSoapReadingState>()) {}

TzSoapParseContext::~TzSoapParseContext() = default;

TzSoapParseContext::EncodingStyles& TzSoapParseContext::getEncodingStyles() {
    return state_->styles.expose();
}

TzSoapParseContext::Namespaces& TzSoapParseContext::getNamespaces() noexcept {
    return state_->names.expose();
}

TzSoapParseContext::References& TzSoapParseContext::getReferences() {
    return state_->references.references();
}

TzSoapParseContext::IdEntries& TzSoapParseContext::getIdEntries() noexcept {
    return state_->references.idEntries();
}

void TzSoapParseContext::keep(const TzSoapType& value) { state_->references.keep(value); }

void TzSoapParseContext::setMimeMultipart(const TzMimeMultipart& multipart) {
    state_->package = multipart;
}

const TzMimeMultipart& TzSoapParseContext::getMimeMultipart() const noexcept {
    return state_->package;
}

void TzSoapParseContext::setSoapMessageImp(TzSoapMessageImp* message) noexcept {
    state_->message = message;
}

TzSoapMessageImp* TzSoapParseContext::getSoapMessageImp() const noexcept { return state_->message; }

void TzSoapParseContext::setParser(TzXmlSAXParser* parser) noexcept { state_->parser = parser; }

TzXmlSAXParser* TzSoapParseContext::getParser() const noexcept { return state_->parser; }

TzSoapVersion::Version TzSoapParseContext::getVersion() const { return state_->version(); }

TzCString TzSoapParseContext::getNsUriForPrefix(const TzCString& prefix) const {
    return state_->names.uriFor(prefix, state_->parser);
}

void TzSoapParseContext::resolveAndClearIdReferences() {
    state_->references.resolve(state_->package);
}
