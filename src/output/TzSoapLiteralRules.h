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
    TzCString uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                           std::string_view uri) const override;

private:
    TzSoapLiteralRules() noexcept : TzSoapScopeRules(TzSoapStyleTraits::literal()) {}
};
