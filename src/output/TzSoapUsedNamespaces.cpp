// SPDX-License-Identifier: MIT
#include "output/TzSoapUsedNamespaces.h"

#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/xml/TzXmlAttribute.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapFaultSpelling.h"
#include "model/TzSoapOuterNamespaces.h"
#include "output/TzSoapSchemaLabels.h"
#include "output/TzSoapScope.h"
#include "values/TzSoapHeldValues.h"

#include <algorithm>
#include <utility>

void TzSoapUsedNamespaces::declare(const TzSoapMessageImp& message) {
    names_ = &message.getSoapVersion();
    const TzSoapHeaderImp& header = TzSoapAccess::body(message.getSoapHeader());
    const TzSoapBodyImp& body = TzSoapAccess::body(message.getSoapBody());
    useList(header, header.entries());
    useList(body, body.entries());
    if (body.hasSoapFault()) {
        useFault(TzSoapAccess::body(body.getSoapFault()));
    }
}

void TzSoapUsedNamespaces::useFault(const TzSoapFaultImp& fault) {
    const TzSoapFaultSpelling* const read = fault.spelling();
    const bool declares = read != nullptr && openScope(read->attributes);
    if (read == nullptr) {
        use(fault.getCode().getNamespace());
    } else {
        for (const TzXmlNamespace& needed : read->declarations) {
            use(needed);
        }
    }
    if (fault.hasDetail()) {
        // Under the name that it was read with, or the one that the version gives it.
        enter(TzSoapAccess::body(fault.getDetails()), read != nullptr);
        walk();
    }
    if (declares) {
        within_.popScope();
    }
}

void TzSoapUsedNamespaces::useList(const TzSoapElementImp& block, const TzSoapValueList& values) {
    Open opened{{}, openScope(block.getAttributeSet())};
    for (const TzSoapType& value : values) {
        opened.rest.push_back(&value);
    }
    std::reverse(opened.rest.begin(), opened.rest.end());
    open_.push_back(std::move(opened));
    walk();
}

void TzSoapUsedNamespaces::walk() {
    while (!open_.empty()) {
        Open& innermost = open_.back();
        if (innermost.rest.empty()) {
            if (innermost.declares) {
                within_.popScope();
            }
            open_.pop_back();
            continue;
        }
        const TzSoapTypeImp& value = TzSoapAccess::body(*innermost.rest.back());
        innermost.rest.pop_back();
        enter(value);
    }
}

void TzSoapUsedNamespaces::enter(const TzSoapTypeImp& value, bool isNamed) {
    const bool declares = openScope(value.getAttributeSet());
    useValue(value, isNamed);
    const TzSoapContentBase::SoapTypeId kind = value.getSoapTypeId();
    const bool holds = kind == TzSoapContentBase::Composite || kind == TzSoapContentBase::Array;
    if (!holds || !met_.isNew(value)) {
        if (declares) {
            within_.popScope();
        }
        return;
    }
    Open opened{{}, declares};
    // The values are only looked at.
    TzSoapHeldValues::forEachHeld(const_cast<TzSoapTypeImp&>(value),
                                  [&](const TzSoapType& held) { opened.rest.push_back(&held); });
    std::reverse(opened.rest.begin(), opened.rest.end());
    open_.push_back(std::move(opened));
}

bool TzSoapUsedNamespaces::openScope(const TzXmlAttributeSet& attributes) {
    return TzSoapOuterNamespaces::openScope(within_, attributes);
}

void TzSoapUsedNamespaces::useValue(const TzSoapTypeImp& value, bool isNamed) {
    if (value.getSoapTypeId() == TzSoapContentBase::UserDefined &&
        !static_cast<const TzSoapUserDefinedTypeImp&>(value).getMarkup().empty()) {
        const auto& markup = static_cast<const TzSoapUserDefinedTypeImp&>(value);
        for (const TzXmlNamespace& needed : markup.getDeclarations()) {
            use(needed);
        }
        return;
    }
    // Not the virtual operation, which the placeholders of an array refuse.
    if (const TzXmlName& name = value.TzXmlElementImp::getName(); isNamed && !isRespelled(value)) {
        use(name.getNamespace());
    }
    for (const TzXmlAttribute& attribute : value.getAttributeSet()) {
        if (!attribute.isNamespaceDeclaration()) {
            use(attribute.getName().getNamespace());
        }
    }
    if (value.getSoapTypeId() == TzSoapContentBase::Simple) {
        const auto& simple = static_cast<const TzSoapSimpleTypeImp&>(value);
        if (simple.getTypeShouldBeEncoded()) {
            return useType(TzSoapSchemaLabels::instance()[simple.getType()], value);
        }
    }
    useType(value.getTypeValue(), value);
}

// A report has one name in the model, whatever its version calls it.
bool TzSoapUsedNamespaces::isRespelled(const TzSoapTypeImp& value) const {
    const TzXmlName& own = names_->getSoapElementQName(TzSoapVersion::Misunderstood);
    return value.getSoapTypeId() == TzSoapContentBase::Misunderstood && !own.isEmpty() &&
           !(own == value.getName());
}

void TzSoapUsedNamespaces::useType(const TzXmlName& type, const TzSoapTypeImp& value) {
    if (type.isEmpty()) {
        return;
    }
    const TzXmlName& attribute = TzSoapAttributeSet::getTypeAttributeName();
    const TzSoapAttributeSet& attributes = value.getAttributeSet();
    if (attributes.find(attribute) == attributes.end()) {
        use(attribute.getNamespace());
    }
    use(type.getNamespace());
}

void TzSoapUsedNamespaces::use(const TzXmlNamespace& nameSpace) {
    const TzCString& prefix = nameSpace.getPrefix();
    if (prefix.empty() || nameSpace.getUri().empty() ||
        nameSpace.sameUri(TzXmlNamespace::getXml()) || within_.find(prefix) != nullptr) {
        return;
    }
    scope_.declareUnbound(prefix, nameSpace.getUri());
}
