// SPDX-License-Identifier: MIT
#include "LiteralHints.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>

#include <vector>

namespace {

bool isMarked(const TzSoapType& value) {
    const TzSoapType::SoapTypeId kind = value.getSoapTypeId();
    return value.hasEncodingStyleAttribute() || !value.getTypeAttribute().empty() ||
           (kind != TzSoapType::Simple && kind != TzSoapType::Composite);
}

bool hasNamespaces(const TzSoapType& entry) {
    const auto composite = tzSoapCast<TzSoapCompositeType>(entry);
    return !entry.getName().getUri().empty() && composite && composite->childCount() > 0 &&
           !composite->childrenBegin()->getName().getUri().empty();
}

} // namespace

bool LiteralHints::looksLiteral(const TzSoapMessage& message) {
    const TzSoapBody& body = message.getSoapBody();
    if (message.hasEncodingStyleAttribute() || body.hasEncodingStyleAttribute() ||
        body.hasSoapFault() || body.entryCount() == 0) {
        return false;
    }
    bool named = false;
    std::vector<TzSoapType> rest;
    for (auto entry = body.entriesBegin(); entry != body.entriesEnd(); ++entry) {
        named = named || hasNamespaces(*entry);
        rest.push_back(*entry);
    }
    while (!rest.empty()) {
        const TzSoapType value = rest.back();
        rest.pop_back();
        if (isMarked(value)) {
            return false;
        }
        if (const auto composite = tzSoapCast<TzSoapCompositeType>(value)) {
            rest.insert(rest.end(), composite->childrenBegin(), composite->childrenEnd());
        }
    }
    return named || message.hasDroppedText();
}
