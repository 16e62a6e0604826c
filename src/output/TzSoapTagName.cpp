// SPDX-License-Identifier: MIT
#include "output/TzSoapTagName.h"

#include "model/TzSoapLasting.h"

const TzXmlName& TzSoapTagName::unnamedName() {
    static TzSoapLasting<const TzXmlName> unnamed(
        [] { return TzXmlName("unnamed", TzXmlNamespace("tznone", "urn:tz-soap:unnamed")); });
    return *unnamed;
}

[[gnu::hot]] void TzSoapTagName::writeStartTag(TzXmlWriter& xml) const {
    xml.writeMarkup(TzXmlWriter::StartTag, *this, TzXmlWriter::EndTag);
}

[[gnu::hot]] void TzSoapTagName::writeEndTag(TzXmlWriter& xml) const {
    xml.writeMarkupLine(TzXmlWriter::StartEndTag, *this, TzXmlWriter::EndTag);
}

TzSoapTagName TzSoapTagName::ofUnusual(const TzXmlName& name) noexcept {
    if (name.isEmpty()) {
        return {{{}, {}, unnamedName().qualifiedText()}, true, true};
    }
    const TzCString& prefix = name.getPrefix();
    return {{prefix, colonAfter(prefix), name.getLocalName()}, false, false};
}
