// SPDX-License-Identifier: MIT
#include "output/TzSoapWriterRules.h"

#include "output/TzSoapScope.h"
#include "output/TzSoapStartTag.h"

const TzSoapWriterRules& TzSoapWriterRules::instance() noexcept {
    static const TzSoapWriterRules rules;
    return rules;
}

void TzSoapWriterRules::declareUsed(TzSoapScope&, const TzSoapMessageImp&) const {}

void TzSoapWriterRules::enter(TzSoapScope&, const TzXmlAttributeSet&) const {}

void TzSoapWriterRules::collectDeclaration(TzSoapScope& scope, std::string_view prefix,
                                           std::string_view uri) const {
    const std::string_view bound = scope.uriFor(prefix);
    // No prefix can stand for the namespace without URI, so that one is declared where it stands.
    if (bound.empty() && !prefix.empty()) {
        scope.declareNew(prefix, uri);
    } else if (bound.empty() || (prefix.empty() && uri.empty())) {
        scope.declare(prefix, uri);
    } else if (bound != uri) {
        scope.declare(uniquePrefix(scope, prefix, uri), uri);
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
