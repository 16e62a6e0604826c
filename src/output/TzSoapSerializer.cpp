// SPDX-License-Identifier: MIT
#include <soap/TzSoapSerializer.h>

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapTypeImp.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapLasting.h"
#include "output/TzSoapSerializerOutput.h"

namespace {

/// The element that a handle of any kind stands for.
template <typename Handle> const TzSoapElementImp& elementOf(const Handle& handle) {
    return TzSoapAccess::body(handle);
}

TzSoapTagOutput::TagName tagOf(const TzSoapType& value) {
    return TzSoapTagOutput::tagName(elementOf(value).getName());
}

} // namespace

// Real strings and a real name, made before any object of the program.
TZSOAP_EARLY const TzCString TzSoapSerializer::Fault = "Fault";
TZSOAP_EARLY const TzCString TzSoapSerializer::Prefix(TzSoapTagOutput::PrefixBase);
TZSOAP_EARLY const TzXmlName TzSoapSerializer::UnknownName = TzSoapTagOutput::unnamedName();

TzSoapSerializer::TzSoapSerializer()
    : output_(std::make_unique<TzSoapSerializerOutput>(typeid(TzSoapSerializer))) {}

TzSoapSerializer::TzSoapSerializer(const TzSoapSerializer& other)
    : TzSoapConstVisitor(other), output_(std::make_unique<TzSoapSerializerOutput>(*other.output_)) {
}

TzSoapSerializer& TzSoapSerializer::operator=(const TzSoapSerializer& other) {
    *output_ = *other.output_;
    return *this;
}

TzSoapSerializer::~TzSoapSerializer() = default;

TzCString TzSoapSerializer::getSerializedString() const& { return output_->writtenText(); }

TzCString TzSoapSerializer::getSerializedString() && { return output_->takeText(); }

TzMimeMultipart TzSoapSerializer::getMultipart() const { return output_->copyOfParts(); }

void TzSoapSerializer::visit(const TzSoapMisunderstoodType& value) { output_->write(value); }

void TzSoapSerializer::visit(const TzSoapReferenceType& value) { output_->write(value); }

void TzSoapSerializer::visit(const TzSoapUserDefinedType& value) { output_->write(value); }

void TzSoapSerializer::visit(const TzSoapSimpleType& value) { output_->write(value); }

void TzSoapSerializer::visit(const TzSoapFault& fault) { output_->write(*this, fault); }

void TzSoapSerializer::visit(const TzSoapCompositeType& value) { output_->write(*this, value); }

void TzSoapSerializer::visit(const TzSoapSparseArrayType& value) { output_->write(*this, value); }

void TzSoapSerializer::visit(const TzSoapCompactArrayType& value) { output_->write(*this, value); }

void TzSoapSerializer::visit(const TzSoapArrayType&) {}

void TzSoapSerializer::visit(const TzSoapType& value) { output_->write(value); }

void TzSoapSerializer::visit(const TzSoapBody& body) { output_->write(*this, body); }

void TzSoapSerializer::visit(const TzSoapHeader& header) { output_->write(*this, header); }

void TzSoapSerializer::visit(const TzSoapMessage& message) { output_->write(*this, message); }

void TzSoapSerializer::verifyQualifiedName(const TzXmlName& name) { output_->qualifyName(name); }

TzXmlAttribute TzSoapSerializer::getVerifiedAttribute(const TzXmlAttribute& attribute) {
    return output_->verified(attribute);
}

bool TzSoapSerializer::adjustSoapAttributeVersion(TzXmlAttribute& attribute) const {
    return output_->adjustVersion(attribute);
}

TzCString TzSoapSerializer::getUniquePrefix(const TzCString& prefix, const TzCString& uri) const {
    return output_->uniquePrefix(prefix, uri);
}

void TzSoapSerializer::pushNamesAndEncodings(const TzSoapMessage& message) {
    output_->push(elementOf(message));
}

void TzSoapSerializer::pushNamesAndEncodings(const TzSoapHeader& header) {
    output_->push(elementOf(header));
}

void TzSoapSerializer::pushNamesAndEncodings(const TzSoapBody& body) {
    output_->push(elementOf(body));
}

void TzSoapSerializer::pushNamesAndEncodings(const TzSoapType& value) {
    output_->push(elementOf(value));
}

void TzSoapSerializer::popNamesAndEncodings(const TzSoapMessage&) { output_->pop(); }

void TzSoapSerializer::popNamesAndEncodings(const TzSoapHeader&) { output_->pop(); }

void TzSoapSerializer::popNamesAndEncodings(const TzSoapBody&) { output_->pop(); }

void TzSoapSerializer::popNamesAndEncodings(const TzSoapType&) { output_->pop(); }

void TzSoapSerializer::populateAttributeSet(const TzSoapMessage& message) {
    output_->collectAttributes(elementOf(message));
}

void TzSoapSerializer::populateAttributeSet(const TzSoapHeader& header) {
    output_->collectAttributes(elementOf(header));
}

void TzSoapSerializer::populateAttributeSet(const TzSoapBody& body) {
    output_->collectAttributes(elementOf(body));
    output_->collectBodyProperties(elementOf(body));
}

void TzSoapSerializer::populateAttributeSet(const TzSoapType& value) {
    output_->collectValueOf(TzSoapAccess::body(value));
}

void TzSoapSerializer::clearAttributeSet() { output_->state().attributes.clear(); }

bool TzSoapSerializer::isEncodingStylePresent(const TzCString& style) const {
    return output_->isStylePresent(style);
}

TzCString TzSoapSerializer::getLastSpecifiedEncodingStyle() const {
    return TzCString(output_->outerStyle());
}

bool TzSoapSerializer::getLastSpecifiedEncodingStyleState() const { return true; }

void TzSoapSerializer::ensureSoapEncodingStyleIsPresent(const TzSoapType& value) {
    if (!elementOf(value).hasEncodingStyleAttribute()) {
        output_->ensureStyle();
    }
}

void TzSoapSerializer::writeNamespaceAttributes() { output_->writeDeclarations(); }

void TzSoapSerializer::writeNonNamespaceAttributes() { output_->writeAttributes(); }

void TzSoapSerializer::writeQualifiedName(const TzXmlName& name) {
    output_->writeElementName(TzSoapTagOutput::tagName(name));
}

void TzSoapSerializer::writeTypeStartTag(const TzSoapType& value, bool newline) {
    output_->writeStartTag(tagOf(value));
    output_->text().write(TzXmlWriter::EndTag);
    if (newline) {
        output_->text().writeNewLine();
    }
    clearAttributeSet();
}

void TzSoapSerializer::writeTypeEmptyTag(const TzSoapType& value) {
    output_->writeStartTag(tagOf(value));
    output_->text().writeMarkupLine(TzXmlWriter::UnpairedTag);
    clearAttributeSet();
}

void TzSoapSerializer::writeTypeEndTag(const TzSoapType& value) {
    output_->writeEndTag(tagOf(value));
}

void TzSoapSerializer::writeSubCode(const TzSoapFault& fault, unsigned int count,
                                    unsigned int index) {
    output_->writeSubcodesOf(TzSoapAccess::body(fault), index, count);
}
