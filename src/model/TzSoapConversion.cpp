// SPDX-License-Identifier: MIT
#include "model/TzSoapConversion.h"

#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapFaultConversion.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::string_view LeftOut = "left out";
constexpr std::string_view KeptAsItIs = "kept as it is";

/// The declared prefix of `uri` on `element`, "" when there is none.
TzCString prefixFor(const TzSoapElementImp& element, const TzCString& uri) {
    const auto* const found = std::find_if(element.attributesBegin(), element.attributesEnd(),
                                           [&uri](const TzXmlAttribute& attribute) {
                                               return attribute.isNamespaceDeclaration() &&
                                                      attribute.getValue() == uri &&
                                                      !attribute.getName().getLocalName().empty();
                                           });
    return found != element.attributesEnd() ? found->getName().getLocalName() : TzCString();
}

} // namespace

TzSoapConversion::TzSoapConversion(TzSoapMessage& message, const TzSoapVersion& target)
    : message_(message), terms_(message.getSoapVersion(), target) {}

std::vector<TzCString> TzSoapConversion::run() {
    const TzCString soapPrefix = message_.getSoapPrefix();
    TzSoapAccess::body(message_).setVersion(terms_.target().getVersion());
    TzSoapElementImp& envelope = TzSoapAccess::body(message_);
    convertElement(envelope);
    choosePrefixes(soapPrefix);
    style_ = takeStyle(envelope, TzCString());
    message_.acceptVisitor(*this);
    return std::move(losses_);
}

void TzSoapConversion::choosePrefixes(const TzCString& soapPrefix) {
    const TzSoapElementImp& envelope = TzSoapAccess::body(message_);
    // A prefix that nobody declares is one that the old version proposed.
    if (envelope.findNamespaceAttribute(soapPrefix) != envelope.attributesEnd()) {
        message_.setSoapPrefix(soapPrefix);
    }
    const TzXmlNamespace& encoding = terms_.target().getSoapEnc();
    const TzCString declared = prefixFor(envelope, encoding.getUri());
    message_.setSoapEncodingPrefix(declared.empty() ? encoding.getPrefix() : declared);
}

void TzSoapConversion::lose(const TzCString& what, std::string_view how) {
    losses_.push_back(what + ": " + TzCString(how));
}

void TzSoapConversion::wait(const TzSoapType& value) {
    if (TzSoapArrayTypeImp::isPlaceholder(value)) {
        return;
    }
    const TzSoapTypeImp& body = TzSoapAccess::body(value);
    if (body.getIdAttribute().empty() || converted_.insert(&body).second) {
        waiting_.push_back(value);
    }
}

void TzSoapConversion::walk() {
    while (!waiting_.empty()) {
        TzSoapType value = std::move(waiting_.back());
        waiting_.pop_back();
        const std::size_t before = waiting_.size();
        convertElement(TzSoapAccess::body(value));
        value.acceptVisitor(*this);
        // The first of the values in it comes next, for losses to be in the order of the message.
        std::reverse(waiting_.begin() + static_cast<std::ptrdiff_t>(before), waiting_.end());
    }
}

TzCString TzSoapConversion::takeStyle(TzSoapElementImp& container, const TzCString& around) {
    const TzCString style = container.getEncodingStyleAttribute();
    container.removeEncodingStyleAttribute();
    container.getAttributeSet().removeEncodingStyleAttribute();
    return style.empty() ? around : style;
}

void TzSoapConversion::convertEntry(TzSoapType& entry, const TzCString& style) {
    wait(entry);
    walk();
    // SOAP's own style is stated by whoever writes.
    if (!style.empty() && !terms_.isOwnStyle(style) && !entry.hasEncodingStyleAttribute()) {
        entry.setEncodingStyle(style);
    }
}

void TzSoapConversion::visit(TzSoapMessage& message) {
    message.getSoapHeader().acceptVisitor(*this);
    message.getSoapBody().acceptVisitor(*this);
}

void TzSoapConversion::visit(TzSoapHeader& header) {
    TzSoapElementImp& element = TzSoapAccess::body(header);
    convertElement(element);
    const TzCString style = takeStyle(element, style_);
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd();) {
        const bool report = entry->getSoapTypeId() == TzSoapContentBase::Misunderstood;
        if (report && !terms_.hasMisunderstood()) {
            lose("header entry " + entry->getName().asString(), LeftOut);
            entry = header.removeHeaderEntry(entry);
            continue;
        }
        convertEntry(*entry, style);
        ++entry;
    }
}

void TzSoapConversion::visit(TzSoapBody& body) {
    TzSoapElementImp& element = TzSoapAccess::body(body);
    convertElement(element);
    const TzCString style = takeStyle(element, style_);
    if (body.hasSoapFault()) {
        body.getSoapFault().acceptVisitor(*this);
        TzSoapType detail = body.getSoapFault().getDetails();
        convertEntry(detail, style);
    }
    for (auto entry = body.entriesBegin(); entry != body.entriesEnd(); ++entry) {
        convertEntry(*entry, style);
    }
}

void TzSoapConversion::visit(TzSoapFault& fault) {
    TzSoapFaultConversion conversion(terms_, message_.getSoapPrefix());
    conversion.convert(TzSoapAccess::body(fault));
    for (const auto& [what, how] : conversion.losses()) {
        lose(what, how);
    }
}

void TzSoapConversion::visit(TzSoapMisunderstoodType&) {}

void TzSoapConversion::visit(TzSoapSimpleType&) {}

void TzSoapConversion::visit(TzSoapType&) {}

void TzSoapConversion::visit(TzSoapUserDefinedType& value) {
    const TzSoapVersion& source = terms_.source();
    const TzCString markup = value.getValue();
    if (!value.getActorAttribute().empty() ||
        markup.find(source.getSoapEnv().getUri()) != TzCString::npos ||
        markup.find(source.getSoapEnc().getUri()) != TzCString::npos) {
        lose("markup of " + value.getName().asString(), KeptAsItIs);
    }
}

void TzSoapConversion::visit(TzSoapReferenceType& value) {
    if (value.isMimeReference()) {
        return;
    }
    if (value.hasReference()) {
        return wait(value.getSoapReference());
    }
    // Without a target the attribute alone tells what kind of reference this is.
    const TzXmlName& name = terms_.source().getSoapAttributeQName(TzSoapVersion::Ref);
    if (const auto* const text = value.findAttribute(name); text != value.attributesEnd()) {
        const TzCString kept = text->getValue();
        value.removeAttribute(name);
        value.addAttribute(terms_.target().getSoapAttributeQName(TzSoapVersion::Ref), kept);
    }
}

void TzSoapConversion::visit(TzSoapCompositeType& value) {
    for (auto child = value.childrenBegin(); child != value.childrenEnd(); ++child) {
        wait(*child);
    }
}

void TzSoapConversion::visit(TzSoapArrayType& value) { convertArray(value); }

void TzSoapConversion::visit(TzSoapSparseArrayType& value) {
    convertArray(value);
    for (auto& [index, item] : value) {
        wait(item);
    }
}

void TzSoapConversion::visit(TzSoapCompactArrayType& value) {
    convertArray(value);
    for (const TzSoapDefaultType& item : TzSoapAccess::body(value).storedItems()) {
        wait(item);
    }
}

void TzSoapConversion::convertArray(TzSoapArrayType& array) {
    TzSoapArrayTypeImp& body = TzSoapAccess::body(array);
    // The shape of inner arrays is stated by themselves.
    const TzCString itemType = body.getElementType();
    if (terms_.itemTypeIsName() && itemType.find('[') != TzCString::npos) {
        body.setElementType(message_.getSoapEncodingPrefix() + ":Array");
        lose("item type " + itemType + " of " + body.getName().asString(),
             TzCString("became ") + body.getElementType());
    }
}

void TzSoapConversion::convertElement(TzSoapElementImp& element) {
    convertNames(element);
    if (!element.getAttributeSet().empty()) {
        convertAttributes(element);
    }
    if (!element.hasProperties()) {
        return;
    }
    if (element.hasEncodingStyleAttribute()) {
        element.setEncodingStyle(terms_.encodingStyle(element.getEncodingStyleAttribute()));
    }
    if (!element.getActorAttribute().empty()) {
        element.setActor(convertRole(element.getActorAttribute(), element.getName()));
    }
}

void TzSoapConversion::convertNames(TzSoapElementImp& element) {
    TzXmlName& name = element.getName();
    if (const auto converted = terms_.nameSpace(name.getNamespace())) {
        name.setNamespace(*converted);
    } else if (terms_.isLost(name.getNamespace())) {
        lose("element " + name.asString() + " of " + name.getUri(), KeptAsItIs);
    }
    const TzXmlName& type = element.getTypeValue();
    if (const auto converted = terms_.nameSpace(type.getNamespace())) {
        element.setTypeAttribute(TzXmlName(type.getLocalName(), *converted));
    }
}

void TzSoapConversion::convertAttributes(TzSoapElementImp& element) {
    TzSoapAttributeSet converted;
    const TzSoapAttributeSet& attributes = element.getAttributeSet();
    for (const TzXmlAttribute& attribute : attributes) {
        convertAttribute(attribute, element.getName(), converted);
    }
    element.getAttributeSet() = std::move(converted);
}

void TzSoapConversion::convertAttribute(const TzXmlAttribute& attribute, const TzXmlName& element,
                                        TzSoapAttributeSet& converted) {
    const TzXmlName& name = attribute.getName();
    if (attribute.isNamespaceDeclaration()) {
        const auto declared = terms_.nameSpace(attribute.declaredNamespace());
        converted.add(name, declared ? declared->getUri() : attribute.getValue());
        return;
    }
    const auto home = terms_.nameSpace(name.getNamespace());
    if (!home) {
        converted.add(attribute);
        return;
    }
    TzSoapVersion::SoapAttribute kind{};
    TzSoapVersion::Version version{};
    if (!TzSoapVersion::isSoapAttribute(name, kind, version)) {
        converted.add(TzXmlName(name.getLocalName(), *home), attribute.getValue());
        return;
    }
    const TzXmlName& counterpart = terms_.target().getSoapAttributeQName(kind);
    if (counterpart.isEmpty()) {
        lose("attribute " + name.asString() + " of " + element.asString(), LeftOut);
        return;
    }
    const TzXmlNamespace& where = counterpart.getUri().empty() ? counterpart.getNamespace() : *home;
    converted.add(TzXmlName(counterpart.getLocalName(), where),
                  convertValue(kind, attribute.getValue(), element));
}

TzCString TzSoapConversion::convertValue(TzSoapVersion::SoapAttribute attribute,
                                         const TzCString& value, const TzXmlName& element) {
    switch (attribute) {
    case TzSoapVersion::EncodingStyle:
        return terms_.encodingStyle(value);
    case TzSoapVersion::Actor:
        return convertRole(value, element);
    case TzSoapVersion::Position:
    case TzSoapVersion::Offset:
        return terms_.index(value);
    default:
        return value;
    }
}

TzCString TzSoapConversion::convertRole(const TzCString& role, const TzXmlName& element) {
    const TzSoapVersionTerms::Role converted = terms_.role(role);
    if (!converted.known) {
        lose("role " + role + " of " + element.asString(), KeptAsItIs);
    }
    return converted.uri;
}
