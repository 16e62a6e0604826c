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
#include <tz/pointer/TzBodyInBlock.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapVersionTable.h"
#include "reading/TzSoapReadingState.h"
#include "reading/TzSoapVerbatimAttributes.h"

#include <string_view>
#include <utility>

namespace {

/// Deliberate: internal errors name this source and fixed line numbers, so that their texts never
/// change from one version to the next.
constexpr const char* Unit = "..\\TzSoapUnknownTypeHandler";

/// The name of the reports of misunderstood entries in the model, and in all messages of the
/// versions known by default.
const TzXmlName& misunderstoodElement() {
    static const TzXmlName& name = TzSoapVersion::getSoapElementName(
        TzSoapVersion::Misunderstood, TzSoapVersion::getLatestVersion());
    return name;
}

/// Whether an element named `name` is such a report in a message of `version`.
bool isMisunderstood(const TzXmlName& name, TzSoapVersion::Version version) {
    return !name.getUri().empty() &&
           (name == misunderstoodElement() ||
            name == TzSoapVersion::getSoapElementName(TzSoapVersion::Misunderstood, version));
}

bool hasText(std::string_view text) { return !TzXmlUtils::trim(text).empty(); }

/// Whether an element without children says that it is a struct, as some versions can.
bool isEmptyStruct(const TzSoapElementImp& element, const TzSoapReadingState& reading) {
    if (element.getAttributeSet().empty() || reading.isLiteral()) {
        return false;
    }
    const TzXmlName& nodeType =
        TzSoapVersionTable::of(reading.version()).term(TzSoapVersionTable::NodeType);
    const auto* const found =
        nodeType.isEmpty() ? element.attributesEnd() : element.findAttribute(nodeType);
    return found != element.attributesEnd() && found->getValue() == "struct";
}

} // namespace

TzSoapUnknownTypeHandler::TzSoapUnknownTypeHandler()
    : value_(TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(nullptr))) {}

TzSoapUnknownTypeHandler::~TzSoapUnknownTypeHandler() = default;

[[gnu::hot]] void TzSoapUnknownTypeHandler::populate(const TzXmlName& name,
                                                     const TzXmlAttributeSet& attributes,
                                                     TzSoapParseContext* context,
                                                     TzSoapGenericTypeHandler* owner) {
    if (this->context() != nullptr) {
        // A reading that failed left this element half read.
        value_ = TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(nullptr));
    }
    text_.clear();
    owner_ = owner;
    acceptEvents(context);
    begin(name, attributes);
}

[[gnu::hot]] void TzSoapUnknownTypeHandler::begin(const TzXmlName& name,
                                                  const TzXmlAttributeSet& attributes) {
    if (!TzSoapAccess::hasBody(value_)) {
        element_ =
            TzBodyInBlock<TzSoapSimpleTypeImp>::make(TzSoapAccess::reading(*context()).bodies);
        value_ = TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(element_));
    }
    element_->TzXmlElementImp::getName() = name;
    statedType_ = TzSoapContentBase::xsdUnknown;
    TzSoapReadingState& reading = TzSoapAccess::reading(*context());
    if (reading.isLiteral()) {
        return beginLiterally(attributes, reading);
    }
    if (const TzXmlAttribute* type = reading.names.findOnlyType(attributes)) {
        const TzSoapTypeNames::Type& stated =
            reading.names.resolveType(type->getValue(), reading.parser);
        element_->setTypeAttribute(stated.name);
        statedType_ = stated.schemaType;
        return;
    }
    if (attributes.empty()) {
        return;
    }
    // The declarations on the element may bind the prefix of its type.
    reading.names.open(*element_);
    TzSoapUtils::copyAttributes(attributes, *element_, context());
    reading.names.close();
}

void TzSoapUnknownTypeHandler::beginLiterally(const TzXmlAttributeSet& attributes,
                                              TzSoapReadingState& reading) {
    if (attributes.empty()) {
        element_->setVerbatim(true);
        return;
    }
    reading.names.open(*element_);
    tzSoapReadVerbatim(attributes, *element_, reading);
    reading.names.close();
}

[[gnu::hot]] void TzSoapUnknownTypeHandler::characters(const TzCString& text) { text_ += text; }

void TzSoapUnknownTypeHandler::startElement(const TzXmlName& name,
                                            const TzXmlAttributeSet& attributes) {
    TzSoapParseContext& reading = this->reading(Unit, 72);
    auto* body = TzBodyInBlock<TzSoapCompositeTypeImp>::make(TzSoapAccess::reading(reading).bodies);
    const auto composite = TzSoapAccess::handle<TzSoapCompositeType>(body);
    if (TzSoapAccess::reading(reading).isLiteral()) {
        body->children().setTextBefore(body->childrenEnd(), text_);
    } else {
        TzSoapAccess::reading(reading).noteDroppedText(text_);
    }
    body->takeElement(*element_);
    hand(TzSoapType(composite));
    body->doStart(name, attributes, &reading);
}

[[gnu::hot]] void TzSoapUnknownTypeHandler::endElement(const TzXmlName&) {
    const TzSoapReadingState& reading = TzSoapAccess::reading(this->reading(Unit, 81));
    if (isMisunderstood(element_->TzXmlElementImp::getName(), reading.version()) &&
        (!reading.isLiteral() || text_.empty())) {
        finishMisunderstood();
    } else if (isEmptyStruct(*element_, reading) && !hasText(text_)) {
        auto* body = new TzSoapCompositeTypeImp();
        const auto composite = TzSoapAccess::handle<TzSoapCompositeType>(body);
        body->takeElement(*element_);
        hand(TzSoapType(composite));
    } else {
        finishSimple();
    }
}

[[gnu::hot]] void TzSoapUnknownTypeHandler::hand(TzSoapType&& value) {
    TzSoapAccess::reading(*context()).references.fileId(value);
    owner_->takeChild(std::move(value));
    declineEvents();
}

[[gnu::hot]] TzSoapContentBase::SchemaType TzSoapUnknownTypeHandler::getSchemaType() const {
    if (statedType_ != TzSoapContentBase::xsdUnknown) {
        return statedType_;
    }
    const TzXmlName& type = element_->getTypeValue();
    if (!type.isEmpty()) {
        return TzSoapContentBase::schemaTypeFromName(type.getLocalName());
    }
    const TzSoapMessageImp* message = context()->getSoapMessageImp();
    if (message == nullptr || !message->getTypeRegistry().typeExists(element_->getName())) {
        return TzSoapContentBase::xsdUnknown;
    }
    return TzSoapContentBase::schemaTypeFromName(
        message->getTypeRegistry().lookupType(element_->getName()).getLocalName());
}

[[gnu::hot]] void TzSoapUnknownTypeHandler::finishSimple() {
    element_->setEncodedString(std::move(text_), getSchemaType());
    hand(std::move(value_));
}

void TzSoapUnknownTypeHandler::finishMisunderstood() {
    TzSoapAccess::reading(*context()).noteDroppedText(text_);
    auto* body = new TzSoapMisunderstoodTypeImp();
    const auto value = TzSoapAccess::handle<TzSoapMisunderstoodType>(body);
    body->setQualifiedName(misunderstoodName());
    body->takeElement(*element_);
    if (!TzSoapAccess::reading(*context()).isLiteral() &&
        !(body->TzXmlElementImp::getName() == misunderstoodElement())) {
        body->setName(misunderstoodElement());
    }
    hand(TzSoapType(value));
}

TzXmlName TzSoapUnknownTypeHandler::misunderstoodName() const {
    const auto* qname = element_->findAttribute(TzXmlName("qname"));
    if (qname == element_->attributesEnd()) {
        return {};
    }
    TzXmlName name(qname->getValue());
    const auto* own = element_->findNamespaceAttribute(name.getPrefix());
    name.setNamespace({name.getPrefix(), own != element_->attributesEnd()
                                             ? own->getValue()
                                             : context()->getNsUriForPrefix(name.getPrefix())});
    return name;
}
