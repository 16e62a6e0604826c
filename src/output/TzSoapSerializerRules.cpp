// SPDX-License-Identifier: MIT
#include "output/TzSoapSerializerRules.h"

#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlAttributeSet.h>

#include "output/TzSoapScope.h"
#include "output/TzSoapStartTag.h"

const TzSoapSerializerRules& TzSoapSerializerRules::instance() noexcept {
    static const TzSoapSerializerRules rules;
    return rules;
}

bool TzSoapSerializerRules::isStylePresent(const TzSoapScope& scope,
                                           std::string_view style) noexcept {
    const std::string_view inForce = scope.outerStyle();
    return !inForce.empty() && inForce == style;
}

void TzSoapSerializerRules::declareUsed(TzSoapScope&, const TzSoapMessageImp&) const {}

void TzSoapSerializerRules::enter(TzSoapScope& scope, const TzXmlAttributeSet& attributes) const {
    for (const TzXmlAttribute& attribute : attributes) {
        if (attribute.isNamespaceDeclaration()) {
            scope.declare(attribute.getName().getLocalName(), attribute.getValue());
        }
    }
}

TzCString TzSoapSerializerRules::uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                                              std::string_view uri) const {
    const std::string_view bound = scope.uriFor(prefix);
    if (bound.empty() || bound == uri) {
        return TzCString(prefix);
    }
    const std::string_view taken = prefix.empty() ? TzSoapStartTag::PrefixBase : prefix;
    const std::string_view stem = taken.substr(0, taken.find_last_not_of("0123456789") + 1);
    const TzCString first = TzSoapNumberedPrefixes::increment(taken.substr(stem.size()));
    return TzCString(stem).append(scope.numberFor(stem, first, uri));
}

void TzSoapSerializerRules::collectStyle(TzSoapStartTag& tag, std::string_view style) const {
    if (!style.empty() && !isStylePresent(tag.scope(), style)) {
        tag.collectSoap(TzSoapVersion::EncodingStyle, tag.keep(style));
    }
    tag.scope().setOwnStyle(style);
}

void TzSoapSerializerRules::qualifyStyle(TzSoapStartTag&) const {}

void TzSoapSerializerRules::writeStyle(TzSoapStartTag&) const {}

void TzSoapSerializerRules::collectBodyProperties(TzSoapStartTag& tag,
                                                  const TzSoapElementImp& body) const {
    tag.collectRoot(body);
}
