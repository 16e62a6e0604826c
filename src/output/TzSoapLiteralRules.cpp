// SPDX-License-Identifier: MIT
#include "output/TzSoapLiteralRules.h"

#include "output/TzSoapScope.h"
#include "output/TzSoapSerializerRules.h"
#include "output/TzSoapUsedNamespaces.h"
#include "output/TzSoapWriterRules.h"

const TzSoapLiteralRules& TzSoapLiteralRules::instance() noexcept {
    static const TzSoapLiteralRules rules;
    return rules;
}

void TzSoapLiteralRules::declareUsed(TzSoapScope& scope, const TzSoapMessageImp& message) const {
    TzSoapUsedNamespaces(scope).declare(message);
}

void TzSoapLiteralRules::enter(TzSoapScope& scope, const TzXmlAttributeSet& attributes) const {
    TzSoapSerializerRules::instance().enter(scope, attributes);
}

TzCString TzSoapLiteralRules::uniquePrefix(const TzSoapScope& scope, std::string_view prefix,
                                           std::string_view uri) const {
    return TzSoapWriterRules::instance().uniquePrefix(scope, prefix, uri);
}
