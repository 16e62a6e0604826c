// SPDX-License-Identifier: MIT
#include "reading/TzSoapVerbatimAttributes.h"

#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapVersion.h>
#include <tz/xml/TzXmlAttributeSet.h>

#include "model/TzSoapBooleanText.h"
#include "reading/TzSoapReadingState.h"

namespace {

/// Makes a property of an attribute with a namespace, if it is one.
void takeProperty(const TzXmlAttribute& attribute, TzSoapElementImp& element,
                  TzSoapVersion::Version version) {
    const TzXmlName& name = attribute.getName();
    if (TzSoapVersion::matchSoapAttributeName(name, TzSoapVersion::MustUnderstand, version)) {
        element.setMustUnderstand(tzSoapIsTrue(attribute.getValue()));
    } else if (TzSoapVersion::matchSoapAttributeName(name, TzSoapVersion::Actor, version)) {
        element.setActor(attribute.getValue());
    }
}

} // namespace

void tzSoapReadVerbatim(const TzXmlAttributeSet& attributes, TzSoapElementImp& element,
                        TzSoapReadingState& reading) {
    TzSoapAttributeSet& set = element.getAttributeSet();
    const bool isFresh = set.empty(); // a second Body adds to the first
    if (isFresh) {
        set.reserve(attributes.size());
    }
    const TzXmlName& typeName = TzSoapAttributeSet::getTypeAttributeName();
    const TzXmlAttribute* type = nullptr;
    for (const TzXmlAttribute& attribute : attributes) {
        if (isFresh) {
            set.append(attribute);
        } else {
            set.add(attribute);
        }
        if (attribute.isNamespaceDeclaration() || attribute.getName().getUri().empty()) {
            continue;
        }
        if (attribute.getName() == typeName) {
            type = &attribute;
        } else {
            takeProperty(attribute, element, reading.version());
        }
    }
    element.setVerbatim(true);
    // Last, because the declarations among the others may bind its prefix.
    if (type != nullptr) {
        element.setTypeAttribute(reading.resolveName(type->getValue()));
    }
}
