// SPDX-License-Identifier: MIT
#include "output/TzSoapScope.h"

#include <soap/TzSoapVersion.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSchemaUtils.h>

#include <algorithm>
#include <utility>

[[gnu::hot]] void TzSoapScope::dropDeclarations() noexcept {
    declarations_.closeScope();
    numberedUpTo_ = std::min(numberedUpTo_, declarations_.size());
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

void TzSoapScope::declare(std::string_view prefix, std::string_view uri) {
    if (uri.empty() && !prefix.empty()) {
        return;
    }
    if (!hasDeclarations()) {
        declarations_.openScope();
    }
    declarations_.add(prefix, uri);
    ++declarationChanges_;
}

void TzSoapScope::declareNew(std::string_view prefix, std::string_view uri) {
    if (uri.empty()) {
        return;
    }
    if (!hasDeclarations()) {
        declarations_.openScope();
    }
    declarations_.addNew(prefix, uri);
    ++declarationChanges_;
}

[[gnu::hot]] bool TzSoapScope::lacksDeclaration(const TzXmlNamespace& needed) const noexcept {
    if (exactNames_) {
        const bool canBeDeclared = needed.getPrefix().empty() || !needed.getUri().empty();
        return canBeDeclared && uriFor(needed.getPrefix()) != needed.getUri() &&
               !needed.sameUri(TzXmlNamespace::getXml());
    }
    const std::string_view prefix = needed.getPrefix();
    const std::string_view bound = uriFor(prefix);
    return prefix.empty() ? bound != needed.getUri()
                          : bound.empty() && prefix != TzXmlNamespace::getXmlns().getPrefix();
}

TzCString TzSoapScope::numberFor(std::string_view base, std::string_view first,
                                 std::string_view uri) const {
    if (!numbered_) {
        numbered_.emplace();
    }
    const std::size_t unchanged = std::exchange(numberedUpTo_, 0);
    numbered_->follow(declarations_, unchanged);
    numberedUpTo_ = declarations_.size();
    return numbered_->lowest(base, first, uri);
}

[[gnu::hot]] void TzSoapScope::setOwnStyle(std::string_view style) {
    dropStyles(around_.styles);
    if (style.empty()) {
        return;
    }
    styles_.reserve(styles_.size() + style.size());
    styleEnds_.push_back(styles_.size() + style.size());
    style.copy(styles_.extend(style.size()), style.size());
    ++styleChanges_;
}

[[gnu::hot]] void TzSoapScope::setPrefixes(const TzCString& envelope, const TzCString& encoding) {
    envelopePrefix_ = envelope;
    encodingPrefix_ = encoding;
}

[[gnu::hot]] const TzCString& TzSoapScope::envelopePrefix() const {
    return envelopePrefix_.empty() ? soap_->getSoapEnv().getPrefix() : envelopePrefix_;
}

const TzCString& TzSoapScope::encodingPrefix() const {
    return encodingPrefix_.empty() ? soap_->getSoapEnc().getPrefix() : encodingPrefix_;
}
