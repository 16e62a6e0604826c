// SPDX-License-Identifier: MIT
#pragma once

#include "output/TzSoapScopeRules.h"

/// The rules of the writer: a prefix once bound stays, prefixes that clash are numbered from 1, and
/// the encoding style follows the declarations.
class TzSoapWriterRules final : public TzSoapScopeRules {
public:
    /// The rules.
    static const TzSoapWriterRules& instance() noexcept;

    void declareUsed(TzSoapScope& scope, const TzSoapMessageImp& message) const override;
    void enter(TzSoapScope& scope, const TzXmlAttributeSet& attributes) const override;
    void collectDeclaration(TzSoapScope& scope, std::string_view prefix,
                            std::string_view uri) const override;
    TzCString uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                           std::string_view uri) const override;
    void collectStyle(TzSoapStartTag& tag, std::string_view style) const override;
    void qualifyStyle(TzSoapStartTag& tag) const override;
    void writeStyle(TzSoapStartTag& tag) const override;
    void collectBodyProperties(TzSoapStartTag& tag, const TzSoapElementImp& body) const override;

private:
    TzSoapWriterRules() noexcept : TzSoapScopeRules(TzSoapStyleTraits::encoded()) {}
};
