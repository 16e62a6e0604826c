// SPDX-License-Identifier: MIT
#include "output/TzSoapWriterRules.h"

#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlSchemaUtils.h>

#include "output/TzSoapScope.h"
#include "output/TzSoapStartTag.h"

const TzSoapWriterRules& TzSoapWriterRules::instance() noexcept {
    static const TzSoapWriterRules rules;
    return rules;
}

void TzSoapWriterRules::enter(TzSoapScope&, const TzXmlAttributeSet&) const {}

void TzSoapWriterRules::collectDeclaration(TzSoapScope& scope,
                                           const TzXmlAttribute& declaration) const {
    const TzXmlNamespace declared = declaration.declaredNamespace();
    const TzCString& bound = scope.uriFor(declared.getPrefix());
    if (bound.empty()) {
        scope.declare(declared);
    } else if (bound != declared.getUri()) {
        scope.declare(TzXmlNamespace(uniquePrefix(scope, declared.getPrefix(), declared.getUri()),
                                     declared.getUri()));
    }
}

TzCString TzSoapWriterRules::uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                                          std::string_view uri) const {
    const TzCString base(prefix.empty() ? TzSoapStartTag::PrefixBase : prefix);
    for (unsigned long number = 1;; ++number) {
        TzCString candidate = base + TzXmlSchemaUtils::ConvertTypeToString(number);
        const TzCString& bound = scope.uriFor(candidate);
        if (bound.empty() || bound == uri) {
            return candidate;
        }
    }
}

void TzSoapWriterRules::collectStyle(TzSoapStartTag& tag, std::string_view style) const {
    tag.scope().setOwnStyle(style);
}

void TzSoapWriterRules::qualifyStyle(TzSoapStartTag& tag) const {
    TzSoapScope& scope = tag.scope();
    scope.declareUnbound(scope.envelopePrefix(), tag.soap().getSoapEnv().getUri());
}

void TzSoapWriterRules::writeStyle(TzSoapStartTag& tag) const {
    const TzSoapScope& scope = tag.scope();
    tag.writeAttribute(
        scope.envelopePrefix(),
        tag.soap().getSoapAttributeQName(TzSoapVersion::EncodingStyle).getLocalName(),
        scope.ownStyle());
}

void TzSoapWriterRules::collectBodyProperties(TzSoapStartTag&, const TzSoapElementImp&) const {}
