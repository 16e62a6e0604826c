// SPDX-License-Identifier: MIT
#include "output/TzSoapEnvelopeTag.h"

#include <soap/TzSoapMessageImp.h>
#include <tz/thread/TzTSpares.h>
#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlWriter.h>

#include "model/TzSoapIsExactly.h"
#include "model/TzSoapLasting.h"
#include "output/TzSoapOutputContext.h"
#include "output/TzSoapScope.h"
#include "output/TzSoapScopeRules.h"
#include "output/TzSoapStartTag.h"
#include "output/TzSoapTagName.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <typeinfo>
#include <utility>

namespace {

using Spares = TzTSpares<TzSoapEnvelopeTag>;

Spares& spares() {
    static TzSoapLasting<Spares> instance([] { return Spares(); });
    return *instance;
}

/// Whether `message` states `style`, "" for none, in a version that lets envelopes state one.
bool statesStyle(const TzSoapMessageImp& message, const TzSoapOutputContext& context,
                 std::string_view style) {
    const bool isStated = context.habits().blocksStateStyle && message.hasProperties() &&
                          message.hasEncodingStyleAttribute();
    if (!isStated || style.empty()) {
        return !isStated && style.empty();
    }
    // A derived body may answer otherwise; all others need no copy of the text.
    return tzSoapIsExactly<TzSoapMessageImp>(typeid(message))
               ? *message.sharedEncodingStyle() == style
               : message.getEncodingStyleAttribute() == style;
}

} // namespace

[[gnu::hot]] bool TzSoapEnvelopeTag::isOf(const TzSoapMessageImp& message,
                                          const TzSoapOutputContext& context) const {
    const TzXmlName& name = message.getName();
    return context.scope().depth() == 1 && rules_ == &context.rules() &&
           table_ == &context.table() && prefix_ == name.getPrefix().size() &&
           name_ == name.qualifiedText() && uri_ == name.getUri() && hasDeclarationsOf(message) &&
           statesStyle(message, context, style_);
}

[[gnu::hot]] bool TzSoapEnvelopeTag::hasDeclarationsOf(const TzSoapMessageImp& message) const {
    const TzXmlAttributeSet& attributes = message.getAttributeSet();
    const auto isAlike = [](const Declared& known, const TzXmlAttribute& attribute) {
        const TzXmlName& name = attribute.getName();
        return name.getPrefix().size() == TzXmlNamespace::XmlnsPrefix.size() &&
               known.name == name.qualifiedText() && known.uri == attribute.getValue();
    };
    return std::equal(carried_.begin(), carried_.end(), attributes.begin(), attributes.end(),
                      isAlike);
}

[[gnu::hot]] void TzSoapEnvelopeTag::enter(TzSoapScope& scope) const {
    scope.enterOutermost(declarations_);
    scope.setOwnStyle(style_);
}

[[gnu::hot]] void TzSoapEnvelopeTag::write(const TzSoapOutputContext& context,
                                           const TzSoapTagName& name) const {
    context.xml().writeMarkupLine(TzXmlWriter::StartTag, name, declarations_.innermostText(),
                                  std::string_view(styleAttribute_), TzXmlWriter::EndTag);
    context.xml().incrementIndent();
}

bool TzSoapEnvelopeTag::isKept(const TzSoapMessageImp& message, const TzSoapOutputContext& context,
                               const TzSoapStartTag& tag) {
    const TzSoapScope& scope = context.scope();
    const TzXmlAttributeSet& attributes = message.getAttributeSet();
    // Where names are exact, the envelope declares what is used within it.
    if (scope.depth() != 1 || scope.hasExactNames() || attributes.size() > MostDeclarations ||
        !tag.hasReadyDeclarations() || !tag.isStylePlain()) {
        return false;
    }
    const TzXmlName& name = message.getName();
    std::size_t text = name.qualifiedText().size() + name.getUri().size() +
                       scope.ownStyle().size() + scope.declarations().innermostText().size();
    for (const TzXmlAttribute& attribute : attributes) {
        if (!attribute.isNamespaceDeclaration()) {
            return false;
        }
        text += attribute.getName().qualifiedText().size() + attribute.getValue().size();
    }
    return text <= MostText;
}

void TzSoapEnvelopeTag::keep(const TzSoapMessageImp& message, const TzSoapOutputContext& context,
                             TzSoapStartTag& tag) {
    if (!isKept(message, context, tag)) {
        return;
    }
    rules_ = nullptr; // should memory run out now
    const TzXmlName& name = message.getName();
    name_ = name.qualifiedText();
    prefix_ = name.getPrefix().size();
    uri_ = name.getUri();
    carried_.clear();
    for (const TzXmlAttribute& attribute : message.getAttributeSet()) {
        carried_.push_back({attribute.getName().qualifiedText(), attribute.getValue()});
    }
    style_ = context.scope().ownStyle();
    declarations_.assign(context.scope().declarations());
    styleAttribute_ = tag.styleAttribute();
    around_ = tag.around();
    table_ = &context.table();
    rules_ = &context.rules();
}

[[gnu::hot]] TzSoapEnvelopeTagInUse::TzSoapEnvelopeTagInUse() : tag_(spares().take()) {
    if (tag_ == nullptr) {
        tag_ = std::make_unique<TzSoapEnvelopeTag>();
    }
}

[[gnu::hot]] TzSoapEnvelopeTagInUse::~TzSoapEnvelopeTagInUse() {
    spares().giveBack(std::move(tag_));
}
