// SPDX-License-Identifier: MIT
#include "output/TzSoapOutputContext.h"

#include <soap/TzSoapConstVisitor.h>

#include "output/TzSoapLiteralRules.h"

TzSoapOutputContext::TzSoapOutputContext(const Kind& kind, TzXmlWriter* xml,
                                         TzMimeMultipart* multipart)
    : kind_(&kind), rules_(&kind.rules), xml_(xml), multipart_(multipart),
      soap_(&TzSoapVersion::getLatestSoapVersion()),
      table_(&TzSoapVersionTable::of(soap_->getVersion())),
      shared_(std::make_shared<Shared>(*soap_)) {}

void TzSoapOutputContext::separate() {
    if (!isWithin_) {
        shared_ = std::make_shared<Shared>(*shared_);
    }
}

void TzSoapOutputContext::setVersion(TzSoapVersion::Version version) {
    soap_ = &TzSoapVersion::getSoapVersion(version);
    table_ = &TzSoapVersionTable::of(version);
    scope().noteVersion();
    if (!isWithin_) {
        scope().setVersion(*soap_);
    }
}

void TzSoapOutputContext::fixVersion(TzSoapVersion::Version version) {
    setVersion(version);
    versionFixed_ = true;
}

void TzSoapOutputContext::takePrefixes(const TzCString& envelope, const TzCString& encoding) {
    if (!isWithin_) {
        scope().setPrefixes(envelope, encoding);
    }
}

const TzSoapScopeRules& TzSoapOutputContext::rulesOf(TzSoapStyle style) const noexcept {
    return style == TzSoapStyle::Literal ? TzSoapLiteralRules::instance() : kind_->rules;
}

bool TzSoapOutputContext::isServed(const TzSoapConstVisitor& visitor) const noexcept {
    return typeid(visitor) == kind_->visitor;
}
