// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include "output/TzSoapStyleTraits.h"

#include <string_view>

class TzSoapElementImp;
class TzSoapMessageImp;
class TzSoapScope;
class TzSoapStartTag;
class TzXmlAttributeSet;

/// What the writer, the serializer and literal messages do differently: where an element's
/// declarations go, how prefixes are invented, and where the encoding style is written. Immutable.
/// What does nothing unless overridden is of no concern to rules that write no style.
class TzSoapScopeRules {
public:
    TzSoapScopeRules(const TzSoapScopeRules&) = delete;
    TzSoapScopeRules& operator=(const TzSoapScopeRules&) = delete;

    /// What the style of the message changes.
    const TzSoapStyleTraits& style() const noexcept { return style_; }
    /// Declares on the envelope of `message`, which is the innermost element of `scope`, what is
    /// used within it.
    virtual void declareUsed(TzSoapScope& scope, const TzSoapMessageImp& message) const = 0;
    /// An element that carries `attributes` is opened in `scope`; nothing of it is qualified yet.
    virtual void enter(TzSoapScope& scope, const TzXmlAttributeSet& attributes) const = 0;
    /// Collects a declaration that the element carries as an attribute.
    virtual void collectDeclaration(TzSoapScope&, std::string_view /*prefix*/,
                                    std::string_view /*uri*/) const {}
    /// A prefix made from `prefix` that can be declared for `uri` in `scope`.
    virtual TzCString uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                                   std::string_view uri) const = 0;
    /// Collects the style in the text, which need not stay, as the one that the element states.
    virtual void collectStyle(TzSoapStartTag&, std::string_view) const {}
    /// Declares what the style attribute needs, which the element states.
    virtual void qualifyStyle(TzSoapStartTag&) const {}
    /// Writes the style, which the element states, when it is not among the collected attributes.
    virtual void writeStyle(TzSoapStartTag&) const {}
    /// Collects what the body of a message, the element, has besides the attributes of every block.
    virtual void collectBodyProperties(TzSoapStartTag&, const TzSoapElementImp&) const {}

protected:
    explicit TzSoapScopeRules(const TzSoapStyleTraits& style) noexcept : style_(style) {}
    ~TzSoapScopeRules() = default;

private:
    const TzSoapStyleTraits& style_;
};
