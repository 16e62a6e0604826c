// SPDX-License-Identifier: MIT
#include <soap/TzSoapGenericTypeHandler.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapEncodingStyleTypeRegistry.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapUtils.h>
#include <soap/TzSoapValueList.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlElementImp.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapVersionTable.h"
#include "reading/TzSoapReadingState.h"
#include "reading/TzSoapVerbatimAttributes.h"

#include <utility>

namespace {

/// Deliberate: internal errors name this source and fixed line numbers, so that their texts never
/// change from one version to the next.
constexpr const char* Unit = "..\\TzSoapGenericTypeHandler";

/// The attribute of `version` that `attribute` stands for, null if absent.
const TzXmlAttribute* findSoap(const TzXmlAttributeSet& attributes,
                               TzSoapVersion::SoapAttribute attribute,
                               TzSoapVersion::Version version) {
    const TzXmlName& name = TzSoapVersion::getSoapAttributeName(attribute, version);
    if (name.isEmpty()) {
        return nullptr;
    }
    const auto* found = attributes.find(name);
    return found == attributes.end() ? nullptr : found;
}

/// Whether an element says that it is an array and nothing about its shape, as some versions can.
bool isArrayNode(const TzXmlAttributeSet& attributes, TzSoapVersion::Version version) {
    const TzXmlName& name = TzSoapVersionTable::of(version).term(TzSoapVersionTable::NodeType);
    if (name.isEmpty()) {
        return false;
    }
    const auto* const found = attributes.find(name);
    return found != attributes.end() && found->getValue() == "array";
}

/// Whether an attribute can have a meaning in SOAP here: most elements have no such
/// attribute.
bool mayMark(const TzXmlAttributeSet& attributes, const TzSoapVersion& names) {
    for (const TzXmlAttribute& attribute : attributes) {
        const TzXmlNamespace& nameSpace = attribute.getName().getNamespace();
        if (nameSpace.getUri().empty() || nameSpace.sameUri(names.getSoapEnc()) ||
            nameSpace.sameUri(names.getSoapEnv())) {
            return true;
        }
    }
    return false;
}

} // namespace

TzSoapGenericTypeHandler::TzSoapGenericTypeHandler() = default;

TzSoapGenericTypeHandler::TzSoapGenericTypeHandler(const TzSoapGenericTypeHandler& other) noexcept
    : TzSoapContentHandler(other) {}

TzSoapGenericTypeHandler::~TzSoapGenericTypeHandler() = default;

void TzSoapGenericTypeHandler::takeChild(TzSoapType&& child) {
    const TzSoapType taken(std::move(child));
    addChild(taken);
}

void TzSoapGenericTypeHandler::addPcdata() {}

void TzSoapGenericTypeHandler::open(TzXmlElementImp& element, TzSoapParseContext* context,
                                    const TzCString* style) {
    acceptEvents(context);
    // A failed reading may have left the marks of its scopes.
    childStylePushed_ = false;
    ownStylePushed_ = style != nullptr;
    TzSoapReadingState& state = TzSoapAccess::reading(*context);
    state.names.open(element);
    if (style != nullptr) {
        state.pushStyle(*style);
    }
}

void TzSoapGenericTypeHandler::begin(TzSoapElementImp& element, const TzXmlName& name,
                                     const TzXmlAttributeSet& attributes,
                                     TzSoapParseContext* context) {
    if (context == nullptr || !TzSoapAccess::reading(*context).isLiteral()) {
        return open(element, context, TzSoapUtils::beginElement(element, name, attributes));
    }
    element.setName(name);
    open(element, context, nullptr);
    tzSoapReadVerbatim(attributes, element, state());
}

void TzSoapGenericTypeHandler::takeText(const TzCString& text, TzSoapValueList& children) {
    if (context() == nullptr || !state().isLiteral()) {
        return TzSoapContentHandler::characters(text);
    }
    children.setTextBefore(children.end(), text);
}

void TzSoapGenericTypeHandler::close() {
    TzSoapReadingState& reading = TzSoapAccess::reading(this->reading(Unit, 97));
    const std::size_t pushed = std::size_t{childStylePushed_} + std::size_t{ownStylePushed_};
    if (reading.names.isEmpty() || reading.styles.size() < pushed) {
        refuseEvent(Unit, 98);
    }
    popChildStyle();
    if (std::exchange(ownStylePushed_, false)) {
        reading.popStyle();
    }
    reading.names.close();
    declineEvents();
}

void TzSoapGenericTypeHandler::endElement(const TzXmlName&) { close(); }

TzSoapReadingState& TzSoapGenericTypeHandler::state() const noexcept {
    return TzSoapAccess::reading(*context());
}

void TzSoapGenericTypeHandler::pushChildStyle(const TzXmlAttributeSet& attributes) {
    const TzXmlAttribute* style =
        findSoap(attributes, TzSoapVersion::EncodingStyle, state().version());
    childStylePushed_ = style != nullptr;
    if (style != nullptr) {
        state().pushStyle(style->getValue());
    }
}

[[gnu::hot]] void TzSoapGenericTypeHandler::popChildStyle() {
    if (childStylePushed_) {
        if (state().styles.size() == 0) {
            refuseEvent(Unit, 122);
        }
        childStylePushed_ = false;
        state().popStyle();
    }
}

[[gnu::hot]] void TzSoapGenericTypeHandler::startElement(const TzXmlName& name,
                                                         const TzXmlAttributeSet& attributes) {
    const TzSoapReadingState& reading = TzSoapAccess::reading(this->reading(Unit, 132));
    const TzSoapVersion& names = TzSoapVersion::getSoapVersion(reading.version());
    popChildStyle();
    if (reading.takesMarkup(name)) {
        return state().handlers().rare().markup.populate(name, attributes, context(), this);
    }
    if (reading.isLiteral()) {
        return state().handlers().unknown.populate(name, attributes, context(), this);
    }
    const bool marked =
        state().names.findOnlyType(attributes) == nullptr && mayMark(attributes, names);
    if (marked) {
        pushChildStyle(attributes);
    }
    const TzSoapStyleInForce& style = state().styles.inForce();
    TzXmlName type;
    if (isApplicationType(name, attributes, style, type)) {
        doUserDefinedEncoding(name, attributes, type, style.first);
    } else if (marked) {
        doSoapEncoding(name, attributes);
    } else {
        state().handlers().unknown.populate(name, attributes, context(), this);
    }
}

[[gnu::hot]] bool TzSoapGenericTypeHandler::isApplicationType(const TzXmlName& name,
                                                              const TzXmlAttributeSet& attributes,
                                                              const TzSoapStyleInForce& style,
                                                              TzXmlName& type) const {
    const auto& registry = *TzSoapEncodingStyleTypeRegistry::getRegistry();
    if (style.soapEncoding && (style.first.empty() || registry.empty())) {
        return false;
    }
    type = typeOf(name, attributes);
    return !style.soapEncoding || registry.lookupType(style.first, type);
}

TzXmlName TzSoapGenericTypeHandler::typeOf(const TzXmlName& name,
                                           const TzXmlAttributeSet& attributes) const {
    TzXmlName type = TzSoapUtils::getTypeValue(attributes, context());
    TzSoapMessageImp* message = state().message;
    if (type.isEmpty() && message != nullptr && message->getTypeRegistry().typeExists(name)) {
        type = message->getTypeRegistry().lookupType(name);
    }
    return type;
}

TzSoapGenericTypeHandler::SoapType
TzSoapGenericTypeHandler::getType(const TzXmlAttributeSet& attributes, TzCString& type,
                                  TzCString& size) const {
    const TzSoapVersion::Version version = state().version();
    const TzXmlAttribute* href = findSoap(attributes, TzSoapVersion::Href, version);
    if (const TzXmlAttribute* ref = findSoap(attributes, TzSoapVersion::Ref, version)) {
        // If one attribute serves both kinds of reference, its text shows which kind it is.
        return ref == href && !ref->getValue().starts_with('#') ? MimeReference : SoapReference;
    }
    if (href != nullptr) {
        return MimeReference;
    }
    SoapType found = NotSpecial;
    if (const auto* arrayType = findSoap(attributes, TzSoapVersion::ArrayType, version)) {
        TzSoapUtils::getElementTypeAndSize(arrayType->getValue(), type, size);
        found = Array;
    }
    if (const auto* itemType = findSoap(attributes, TzSoapVersion::ItemType, version)) {
        type = itemType->getValue();
        found = Array;
    }
    if (const auto* arraySize = findSoap(attributes, TzSoapVersion::ArraySize, version)) {
        size = arraySize->getValue();
        found = Array;
    }
    return found == NotSpecial && isArrayNode(attributes, version) ? Array : found;
}

void TzSoapGenericTypeHandler::doSoapEncoding(const TzXmlName& name,
                                              const TzXmlAttributeSet& attributes) {
    TzCString type;
    TzCString size;
    switch (getType(attributes, type, size)) {
    case NotSpecial:
        state().handlers().unknown.populate(name, attributes, context(), this);
        return;
    case SoapReference:
        return readReference(name, attributes, true);
    case MimeReference:
        return readReference(name, attributes, false);
    case Array:
        state().handlers().array.populate(name, attributes, type, size, context(), this);
        return;
    }
    TzThrow(TzXmlInternalError(TzMessage(tzsoap_INTERNAL_ERROR(), Unit, 158)));
}

void TzSoapGenericTypeHandler::readReference(const TzXmlName& name,
                                             const TzXmlAttributeSet& attributes,
                                             bool soapReference) {
    const TzSoapReferenceType reference(soapReference);
    TzSoapAccess::body(reference).populate(name, attributes, context());
    addChild(reference);
}

void TzSoapGenericTypeHandler::doUserDefinedEncoding(const TzXmlName& name,
                                                     const TzXmlAttributeSet& attributes,
                                                     const TzXmlName& type,
                                                     const TzCString& encodingStyle) {
    state().handlers().rare().userDefined.populate(name, attributes, type, encodingStyle, context(),
                                                   this);
    popChildStyle();
}
