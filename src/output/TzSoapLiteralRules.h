// SPDX-License-Identifier: MIT
#pragma once

#include "output/TzSoapScopeRules.h"

/// The rules of literal messages, whoever writes them: declarations stay on the elements that carry
/// them, all that is missing is declared on the envelope where it can stand, and no encoding style
/// is written.
class TzSoapLiteralRules final : public TzSoapScopeRules {
public:
    /// The rules.
    static const TzSoapLiteralRules& instance() noexcept;

    void declareUsed(TzSoapScope& scope, const TzSoapMessageImp& message) const override;
    void enter(TzSoapScope& scope, const TzXmlAttributeSet& attributes) const override;
    void collectDeclaration(TzSoapScope& scope, const TzXmlAttribute& declaration) const override;
    TzCString uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                           std::string_view uri) const override;
    void collectStyle(TzSoapStartTag& tag, std::string_view style) const override;
    void qualifyStyle(TzSoapStartTag& tag) const override;
    void writeStyle(TzSoapStartTag& tag) const override;
    void collectBodyProperties(TzSoapStartTag& tag, const TzSoapElementImp& body) const override;

private:
    TzSoapLiteralRules() noexcept : TzSoapScopeRules(TzSoapStyleTraits::literal()) {}
};
