// SPDX-License-Identifier: MIT
#include "output/TzSoapWriterRules.h"

#include <tz/xml/TzXmlAttribute.h>

#include "output/TzSoapScope.h"
#include "output/TzSoapStartTag.h"

const TzSoapWriterRules& TzSoapWriterRules::instance() noexcept {
    static const TzSoapWriterRules rules;
    return rules;
}

void TzSoapWriterRules::declareUsed(TzSoapScope&, const TzSoapMessageImp&) const {}

void TzSoapWriterRules::enter(TzSoapScope&, const TzXmlAttributeSet&) const {}

void TzSoapWriterRules::collectDeclaration(TzSoapScope& scope,
                                           const TzXmlAttribute& declaration) const {
    const TzXmlNamespace declared = declaration.declaredNamespace();
    const TzCString& bound = scope.uriFor(declared.getPrefix());
    // No prefix can stand for the namespace without URI, so that one is declared where it stands.
    if (bound.empty() || declared.isEmpty()) {
        scope.declare(declared);
    } else if (bound != declared.getUri()) {
        scope.declare(TzXmlNamespace(uniquePrefix(scope, declared.getPrefix(), declared.getUri()),
                                     declared.getUri()));
    }
}

TzCString TzSoapWriterRules::uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                                          std::string_view uri) const {
    const TzCString base(prefix.empty() ? TzSoapStartTag::PrefixBase : prefix);
    return base + scope.numberFor(base, "1", uri);
}

void TzSoapWriterRules::collectStyle(TzSoapStartTag& tag, std::string_view style) const {
    tag.scope().setOwnStyle(style);
}

void TzSoapWriterRules::qualifyStyle(TzSoapStartTag& tag) const { tag.bindStyle(); }

void TzSoapWriterRules::writeStyle(TzSoapStartTag& tag) const {
    tag.writeAttribute(
        tag.stylePrefix(),
        tag.soap().getSoapAttributeQName(TzSoapVersion::EncodingStyle).getLocalName(),
        tag.scope().ownStyle());
}

void TzSoapWriterRules::collectBodyProperties(TzSoapStartTag&, const TzSoapElementImp&) const {}
