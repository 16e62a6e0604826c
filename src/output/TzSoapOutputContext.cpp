// SPDX-License-Identifier: MIT
#include "output/TzSoapOutputContext.h"

#include <soap/TzSoapConstVisitor.h>

#include "output/TzSoapLiteralRules.h"

[[gnu::hot]] TzSoapOutputContext::TzSoapOutputContext(const Kind& kind, TzXmlWriter* xml,
                                                      TzMimeMultipart* multipart, Shared& shared)
    : kind_(&kind), rules_(&kind.rules), xml_(xml), multipart_(multipart),
      soap_(&TzSoapVersion::getLatestSoapVersion()),
      table_(&TzSoapVersionTable::of(TzSoapVersion::getLatestVersion())), shared_(&shared) {}

[[gnu::hot]] TzSoapOutputContext::TzSoapOutputContext(const TzSoapOutputContext& other)
    : TzSoapOutputContext(other, other.keeper_) {
    isWithin_ = other.isWithin_;
    if (!isWithin_) {
        const auto copy = std::make_shared<Shared>(*other.shared_);
        shared_ = copy.get();
        keeper_ = copy;
    }
}

[[gnu::hot]] TzSoapOutputContext::TzSoapOutputContext(const TzSoapOutputContext& other,
                                                      const std::shared_ptr<void>& keeper)
    : kind_(other.kind_), rules_(other.rules_), xml_(other.xml_), multipart_(other.multipart_),
      soap_(other.soap_), table_(other.table_), shared_(other.shared_),
      keeper_(other.keeper_ != nullptr ? other.keeper_ : keeper), compact_(other.compact_),
      isWithin_(true), versionFixed_(other.versionFixed_), inEnvelope_(other.inEnvelope_),
      standalone_(other.standalone_) {}

[[gnu::hot]] void TzSoapOutputContext::setVersion(TzSoapVersion::Version version) {
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

[[gnu::hot]] void TzSoapOutputContext::takePrefixes(const TzCString& envelope,
                                                    const TzCString& encoding) {
    if (!isWithin_) {
        scope().setPrefixes(envelope, encoding);
    }
}

[[gnu::hot]] const TzSoapScopeRules&
TzSoapOutputContext::rulesOf(TzSoapStyle style) const noexcept {
    return style == TzSoapStyle::Literal ? TzSoapLiteralRules::instance() : kind_->rules;
}

[[gnu::hot]] bool TzSoapOutputContext::isServed(const TzSoapConstVisitor& visitor) const noexcept {
    return typeid(visitor) == kind_->visitor;
}
