// SPDX-License-Identifier: MIT
#include <soap/TzSoapReferenceTypeImp.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapUtils.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapVersionTable.h"

#include <utility>

namespace {

bool isOneOf(const TzXmlName& name, const TzXmlName& one, const TzXmlName& other) {
    return name == one || name == other;
}

} // namespace

TzSoapReferenceTypeImp::TzSoapReferenceTypeImp() = default;

TzSoapReferenceTypeImp::TzSoapReferenceTypeImp(TzXmlName name) : TzSoapTypeImp(std::move(name)) {}

TzSoapReferenceTypeImp::TzSoapReferenceTypeImp(const TzSoapReferenceTypeImp& other) = default;

TzSoapReferenceTypeImp::~TzSoapReferenceTypeImp() = default;

TzSoapContentBase::SoapTypeId TzSoapReferenceTypeImp::getSoapTypeId() const {
    return TzSoapContentBase::Reference;
}

const TzCString& TzSoapReferenceTypeImp::getSoapTypeIdAsString() const {
    return TzSoapUtils::referenceString;
}

void TzSoapReferenceTypeImp::setReference(const TzSoapType&) {
    TzThrow(TzXmlDomainError(TzMessage(tzsoap_BAD_REFERENCE(), "mime")));
}

void TzSoapReferenceTypeImp::setReference(const TzMimePart&) {
    TzThrow(TzXmlDomainError(TzMessage(tzsoap_BAD_REFERENCE(), "soap")));
}

TzSoapType& TzSoapReferenceTypeImp::getSoapReference() {
    TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_SOAP_REFERENCE())));
}

TzMimePart& TzSoapReferenceTypeImp::getMimeReference() {
    TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_MIME_REFERENCE())));
}

void TzSoapReferenceTypeImp::accept(const TzCString& text, TzSoapVersion::SoapAttribute attribute) {
    accept(TzXmlAttribute(TzSoapVersion::getLatestSoapVersion().getSoapAttributeQName(attribute),
                          text));
}

void TzSoapReferenceTypeImp::accept(const TzXmlAttribute::SharedValue& text,
                                    TzSoapVersion::SoapAttribute attribute) {
    TzXmlAttribute made(TzSoapVersion::getLatestSoapVersion().getSoapAttributeQName(attribute), {});
    made.shareValue(text);
    accept(std::move(made));
}

// Make the attribute first: nothing fails after that.
void TzSoapReferenceTypeImp::accept(TzXmlAttribute text) {
    const TzSoapVersion& latest = TzSoapVersion::getLatestSoapVersion();
    const TzXmlName& ref = latest.getSoapAttributeQName(TzSoapVersion::Ref);
    const TzXmlName& href = latest.getSoapAttributeQName(TzSoapVersion::Href);
    TzSoapAttributeSet& attributes = getAttributeSet();
    const TzXmlName& encoded = TzSoapVersionTable::soap12Rec().attribute(TzSoapVersion::Ref);
    auto* const named = text.getName() == ref ? attributes.find(encoded) : attributes.end();
    if (named != attributes.end()) {
        const TzCString& fragment = text.getValue();
        *named = TzXmlAttribute(encoded, fragment.substr(fragment.starts_with('#') ? 1 : 0));
    } else if (attributes.size() == 1 && isOneOf(attributes.begin()->getName(), ref, href)) {
        *attributes.begin() = std::move(text); // the usual form of a reference
    } else {
        TzSoapAttributeSet changed = attributes;
        changed.erase(ref);
        changed.erase(href);
        changed.add(std::move(text));
        attributes = std::move(changed);
    }
    hasReference_ = true;
}
