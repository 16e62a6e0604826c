// SPDX-License-Identifier: MIT
#include "output/TzSoapWriterOutput.h"

#include <tz/xml/TzXmlSchemaUtils.h>

TzSoapWriterOutput::~TzSoapWriterOutput() = default;

void TzSoapWriterOutput::enterDeclarations(const TzXmlAttributeSet&) {}

void TzSoapWriterOutput::collectDeclaration(const TzXmlAttribute& declaration) {
    const TzXmlNamespace declared = declaration.declaredNamespace();
    const TzCString& bound = uriForPrefix(declared.getPrefix());
    if (bound.empty()) {
        declare(declared);
    } else if (bound != declared.getUri()) {
        declare(TzXmlNamespace(uniquePrefix(declared.getPrefix(), declared.getUri()),
                               declared.getUri()));
    }
}

TzCString TzSoapWriterOutput::uniquePrefix(std::string_view prefix, std::string_view uri) const {
    const TzCString base(prefix.empty() ? PrefixBase : prefix);
    for (unsigned long number = 1;; ++number) {
        TzCString candidate = base + TzXmlSchemaUtils::ConvertTypeToString(number);
        const TzCString& bound = uriForPrefix(candidate);
        if (bound.empty() || bound == uri) {
            return candidate;
        }
    }
}

void TzSoapWriterOutput::collectStyle(std::string_view style) { setOwnStyle(style); }

void TzSoapWriterOutput::doQualifyStyle() {
    declareUnbound(envelopePrefix(), soap().getSoapEnv().getUri());
}

void TzSoapWriterOutput::writeStyle() {
    text().writeQualifiedAttribute(
        envelopePrefix(), soap().getSoapAttributeQName(TzSoapVersion::EncodingStyle).getLocalName(),
        ownStyle());
}
