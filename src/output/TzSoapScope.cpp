// SPDX-License-Identifier: MIT
#include "output/TzSoapScope.h"

#include <soap/TzSoapVersion.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSchemaUtils.h>

#include <algorithm>
#include <utility>

void TzSoapScope::dropDeclarations() noexcept {
    namespaces_.popScope();
    numberedUpTo_ = std::min(numberedUpTo_, namespaces_.all().size());
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
    if (exactNames_) {
        const bool canBeDeclared = needed.getPrefix().empty() || !needed.getUri().empty();
        return canBeDeclared && uriFor(needed.getPrefix()) != needed.getUri() &&
               !needed.sameUri(TzXmlNamespace::getXml());
    }
    if (needed.getUri().empty() || needed.getPrefix() == TzXmlNamespace::getXmlns().getPrefix()) {
        return false;
    }
    const TzCString& bound = uriFor(needed.getPrefix());
    return needed.getPrefix().empty() ? bound != needed.getUri() : bound.empty();
}

TzCString TzSoapScope::numberFor(std::string_view base, std::string_view first,
                                 std::string_view uri) const {
    const std::vector<TzXmlNamespace>& declared = namespaces_.all();
    const std::size_t unchanged = std::exchange(numberedUpTo_, 0);
    numbered_.follow(declared, unchanged);
    numberedUpTo_ = declared.size();
    return numbered_.lowest(base, first, uri);
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
