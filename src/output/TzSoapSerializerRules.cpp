// SPDX-License-Identifier: MIT
#include "output/TzSoapSerializerRules.h"

#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlAttributeSet.h>

#include "output/TzSoapScope.h"
#include "output/TzSoapStartTag.h"

#include <algorithm>

namespace {

/// `number` in decimal plus one; "" is 0.
TzCString increment(std::string_view number) {
    TzCString digits(number.substr(std::min(number.find_first_not_of('0'), number.size())));
    auto digit = digits.rbegin();
    for (; digit != digits.rend() && *digit == '9'; ++digit) {
        *digit = '0';
    }
    if (digit == digits.rend()) {
        return digits.insert(0, 1, '1');
    }
    ++*digit;
    return digits;
}

/// The candidate that follows `prefix`: its trailing number, 0 without one, plus one.
TzCString nextPrefix(std::string_view prefix) {
    if (prefix.empty()) {
        prefix = TzSoapStartTag::PrefixBase;
    }
    const std::size_t stem = prefix.find_last_not_of("0123456789") + 1;
    return TzCString(prefix.substr(0, stem)).append(increment(prefix.substr(stem)));
}

} // namespace

const TzSoapSerializerRules& TzSoapSerializerRules::instance() noexcept {
    static const TzSoapSerializerRules rules;
    return rules;
}

bool TzSoapSerializerRules::isStylePresent(const TzSoapScope& scope,
                                           std::string_view style) noexcept {
    const std::string_view inForce = scope.outerStyle();
    return !inForce.empty() && inForce == style;
}

void TzSoapSerializerRules::enter(TzSoapScope& scope, const TzXmlAttributeSet& attributes) const {
    for (const TzXmlAttribute& attribute : attributes) {
        if (attribute.isNamespaceDeclaration()) {
            scope.declare(attribute.declaredNamespace());
        }
    }
}

void TzSoapSerializerRules::collectDeclaration(TzSoapScope&, const TzXmlAttribute&) const {}

TzCString TzSoapSerializerRules::uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                                              std::string_view uri) const {
    TzCString current(prefix);
    for (;;) {
        const TzCString& bound = scope.uriFor(current);
        if (bound.empty() || bound == uri) {
            return current;
        }
        current = nextPrefix(current);
    }
}

void TzSoapSerializerRules::collectStyle(TzSoapStartTag& tag, std::string_view style) const {
    if (!style.empty() && !isStylePresent(tag.scope(), style)) {
        tag.collectSoap(TzSoapVersion::EncodingStyle, style);
    }
    tag.scope().setOwnStyle(style);
}

void TzSoapSerializerRules::qualifyStyle(TzSoapStartTag&) const {}

void TzSoapSerializerRules::writeStyle(TzSoapStartTag&) const {}

void TzSoapSerializerRules::collectBodyProperties(TzSoapStartTag& tag,
                                                  const TzSoapElementImp& body) const {
    tag.collectRoot(body);
}
