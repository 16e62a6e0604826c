// SPDX-License-Identifier: MIT
#include "output/TzSoapTagName.h"

#include "model/TzSoapLasting.h"

const TzXmlName& TzSoapTagName::unnamedName() {
    static TzSoapLasting<const TzXmlName> unnamed(
        [] { return TzXmlName("unnamed", TzXmlNamespace("tznone", "urn:tz-soap:unnamed")); });
    return *unnamed;
}

TzSoapTagName TzSoapTagName::unnamed() noexcept {
    const TzXmlName& name = unnamedName();
    return {name.getPrefix(), TzXmlWriter::Colon, name.getLocalName(), true};
}
