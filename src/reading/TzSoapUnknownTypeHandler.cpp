// SPDX-License-Identifier: MIT
#include <soap/TzSoapUnknownTypeHandler.h>

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapMisunderstoodTypeImp.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapTypeRegistry.h>
#include <soap/TzSoapUtils.h>

#include "model/TzSoapAccess.h"

#include <utility>

namespace {

const TzXmlName& misunderstoodElement() {
    return TzSoapVersion::getSoapElementName(TzSoapVersion::Misunderstood, TzSoapVersion::V1_2);
}

} // namespace

TzSoapUnknownTypeHandler::TzSoapUnknownTypeHandler() = default;

TzSoapUnknownTypeHandler::~TzSoapUnknownTypeHandler() = default;

void TzSoapUnknownTypeHandler::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                                        TzSoapParseContext* context,
                                        TzSoapGenericTypeHandler* owner) {
    name_ = name;
    attributes_ = attributes;
    text_.clear();
    owner_ = owner;
    acceptEvents(context);
}

void TzSoapUnknownTypeHandler::characters(const TzCString& text) { text_ += text; }

void TzSoapUnknownTypeHandler::startElement(const TzXmlName& name,
                                            const TzXmlAttributeSet& attributes) {
    auto* body = new TzSoapCompositeTypeImp(std::move(name_));
    const auto composite = TzSoapAccess::handle<TzSoapCompositeType>(body);
    describe(*body);
    TzSoapParseContext* reading = context();
    hand(composite);
    body->doStart(name, attributes, reading);
}

void TzSoapUnknownTypeHandler::endElement(const TzXmlName&) {
    hand(name_ == misunderstoodElement() ? makeMisunderstood() : makeSimple());
}

void TzSoapUnknownTypeHandler::hand(const TzSoapType& value) {
    context()->fileId(value);
    owner_->addChild(value);
    declineEvents();
}

void TzSoapUnknownTypeHandler::describe(TzSoapTypeImp& value) {
    // Its own declarations may bind the prefix of its type.
    TzSoapParseContext& reading = *context();
    reading.getNamespaces().push_back(&value);
    TzSoapUtils::copyAttributes(std::move(attributes_), value, &reading);
    reading.getNamespaces().pop_back();
}

TzSoapContentBase::SchemaType
TzSoapUnknownTypeHandler::getSchemaType(const TzSoapTypeImp& value) const {
    const TzXmlName& type = value.getTypeValue();
    if (!type.isEmpty()) {
        return TzSoapContentBase::schemaTypeFromName(type.getLocalName());
    }
    TzSoapMessageImp* message = context()->getSoapMessageImp();
    if (message == nullptr || !message->getTypeRegistry().typeExists(value.getName())) {
        return TzSoapContentBase::xsdUnknown;
    }
    return TzSoapContentBase::schemaTypeFromName(
        message->getTypeRegistry().lookupType(value.getName()).getLocalName());
}

TzSoapType TzSoapUnknownTypeHandler::makeSimple() {
    auto* body = new TzSoapSimpleTypeImp();
    TzSoapType value = TzSoapAccess::handle<TzSoapSimpleType>(body);
    body->getName() = std::move(name_);
    describe(*body);
    body->setEncodedString(std::move(text_), getSchemaType(*body));
    return value;
}

TzSoapType TzSoapUnknownTypeHandler::makeMisunderstood() {
    auto* body = new TzSoapMisunderstoodTypeImp();
    TzSoapType value = TzSoapAccess::handle<TzSoapMisunderstoodType>(body);
    body->getName() = std::move(name_);
    describe(*body);
    body->setQualifiedName(misunderstoodName(*body));
    return value;
}

TzXmlName TzSoapUnknownTypeHandler::misunderstoodName(const TzSoapTypeImp& value) const {
    const auto* qname = value.findAttribute(TzXmlName("qname"));
    if (qname == value.attributesEnd()) {
        return {};
    }
    TzXmlName name(qname->getValue());
    const auto* own = value.findNamespaceAttribute(name.getPrefix());
    name.setNamespace({name.getPrefix(), own != value.attributesEnd()
                                             ? own->getValue()
                                             : context()->getNsUriForPrefix(name.getPrefix())});
    return name;
}
