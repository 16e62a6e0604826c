// SPDX-License-Identifier: MIT
#include "output/TzSoapTagName.h"

#include "model/TzSoapLasting.h"

const TzXmlName& TzSoapTagName::unnamedName() {
    static TzSoapLasting<const TzXmlName> unnamed(
        [] { return TzXmlName("unnamed", TzXmlNamespace("tznone", "urn:tz-soap:unnamed")); });
    return *unnamed;
}

void TzSoapTagName::writeStartTag(TzXmlWriter& xml) const {
    xml.writeMarkup(TzXmlWriter::StartTag, *this, TzXmlWriter::EndTag);
}

void TzSoapTagName::writeEndTag(TzXmlWriter& xml) const {
    xml.writeMarkupLine(TzXmlWriter::StartEndTag, *this, TzXmlWriter::EndTag);
}

TzSoapTagName TzSoapTagName::unnamed() noexcept {
    const TzXmlName& name = unnamedName();
    return {{name.getPrefix(), TzXmlWriter::Colon, name.getLocalName()}, true, true};
}
