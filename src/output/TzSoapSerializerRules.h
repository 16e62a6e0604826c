// SPDX-License-Identifier: MIT
#pragma once

#include "output/TzSoapScopeRules.h"

/// The rules of the serializer: an element's declarations are in force before anything else of it
/// is handled, prefixes are numbered only where they clash, an encoding style that is in force
/// already is left out, and a body's root is written.
class TzSoapSerializerRules final : public TzSoapScopeRules {
public:
    /// The rules.
    static const TzSoapSerializerRules& instance() noexcept;
    /// Whether `style` is in force around the innermost element of `scope`.
    static bool isStylePresent(const TzSoapScope& scope, std::string_view style) noexcept;

    void declareUsed(TzSoapScope& scope, const TzSoapMessageImp& message) const override;
    void enter(TzSoapScope& scope, const TzXmlAttributeSet& attributes) const override;
    TzCString uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                           std::string_view uri) const override;
    void collectStyle(TzSoapStartTag& tag, std::string_view style) const override;
    void qualifyStyle(TzSoapStartTag& tag) const override;
    void writeStyle(TzSoapStartTag& tag) const override;
    void collectBodyProperties(TzSoapStartTag& tag, const TzSoapElementImp& body) const override;

private:
    TzSoapSerializerRules() noexcept : TzSoapScopeRules(TzSoapStyleTraits::encoded()) {}
};
