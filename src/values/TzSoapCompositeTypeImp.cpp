// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeTypeImp.h>

#include <soap/TzSoapUtils.h>

#include <utility>

TzSoapCompositeTypeImp::TzSoapCompositeTypeImp() = default;

TzSoapCompositeTypeImp::TzSoapCompositeTypeImp(TzXmlName name) : TzSoapTypeImp(std::move(name)) {}

TzSoapCompositeTypeImp::TzSoapCompositeTypeImp(const TzSoapCompositeTypeImp& other) = default;

TzSoapCompositeTypeImp::~TzSoapCompositeTypeImp() = default;

TzSoapContentBase::SoapTypeId TzSoapCompositeTypeImp::getSoapTypeId() const {
    return TzSoapContentBase::Composite;
}

const TzCString& TzSoapCompositeTypeImp::getSoapTypeIdAsString() const {
    return TzSoapUtils::compositeString;
}

TzSoapElementImp* TzSoapCompositeTypeImp::clone() const {
    return new TzSoapCompositeTypeImp(*this);
}

void TzSoapCompositeTypeImp::addChild(const TzSoapType& child) { children_.append(child); }

[[gnu::hot]] void TzSoapCompositeTypeImp::takeChild(TzSoapType&& child) {
    children_.append(std::move(child));
}

void TzSoapCompositeTypeImp::characters(const TzCString& text) { takeText(text, children_); }

void TzSoapCompositeTypeImp::doStart(const TzXmlName& childName,
                                     const TzXmlAttributeSet& childAttributes,
                                     TzSoapParseContext* context) {
    open(*this, context, nullptr);
    startElement(childName, childAttributes);
}

void TzSoapCompositeTypeImp::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                                      TzSoapParseContext* context) {
    begin(*this, name, attributes, context);
}
