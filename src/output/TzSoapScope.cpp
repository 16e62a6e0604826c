// SPDX-License-Identifier: MIT
#include "output/TzSoapScope.h"

#include <soap/TzSoapVersion.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSchemaUtils.h>

void TzSoapScope::dropDeclarations() noexcept {
    namespaces_.popScope();
    ++declarationChanges_;
}

void TzSoapScope::refuseDepth() const {
    TzThrow(TzXmlDomainError(TzMessage("Elements nested deeper than " +
                                       TzXmlSchemaUtils::ConvertTypeToString(depthLimit_) +
                                       " levels are not written")));
}

void TzSoapScope::refuseRing() {
    TzThrow(TzXmlDomainError(TzMessage("A value that stands within itself is not written")));
}

void TzSoapScope::declare(const TzXmlNamespace& declared) {
    if (declared.getUri().empty() && !declared.getPrefix().empty()) {
        return;
    }
    if (!hasDeclarations()) {
        namespaces_.pushScope();
    }
    namespaces_.add(declared);
    ++declarationChanges_;
}

void TzSoapScope::declareUnbound(std::string_view prefix, const TzCString& uri) {
    if (uriFor(prefix).empty()) {
        declare(TzXmlNamespace(prefix, uri));
    }
}

bool TzSoapScope::needsDeclaration(const TzXmlName& name) const noexcept {
    const TzXmlNamespace& needed = name.getNamespace();
    if (needed.getUri().empty() || needed.getPrefix() == TzXmlNamespace::getXmlns().getPrefix()) {
        return false;
    }
    const TzCString& bound = uriFor(needed.getPrefix());
    return needed.getPrefix().empty() ? bound != needed.getUri() : bound.empty();
}

void TzSoapScope::setOwnStyle(std::string_view style) {
    dropStyles(around_.styles);
    if (style.empty()) {
        return;
    }
    if (stylesUsed_ == styles_.size()) {
        styles_.emplace_back();
    }
    styles_[stylesUsed_].assign(style);
    ++stylesUsed_;
    ++styleChanges_;
}

void TzSoapScope::setPrefixes(const TzCString& envelope, const TzCString& encoding) {
    envelopePrefix_ = envelope;
    encodingPrefix_ = encoding;
}

const TzCString& TzSoapScope::envelopePrefix() const {
    return envelopePrefix_.empty() ? soap_->getSoapEnv().getPrefix() : envelopePrefix_;
}

const TzCString& TzSoapScope::encodingPrefix() const {
    return encodingPrefix_.empty() ? soap_->getSoapEnc().getPrefix() : encodingPrefix_;
}
