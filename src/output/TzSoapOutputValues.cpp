// SPDX-License-Identifier: MIT
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapMisunderstoodTypeImp.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapAccess.h"
#include "output/TzSoapOutput.h"
#include "output/TzSoapSchemaLabels.h"

#include <limits>
#include <typeinfo>
#include <utility>

namespace {

/// What is named where markup has no place for the style.
constexpr int NoStartTagLine = 669;

/// Whether a value is nil; one without attributes is not.
bool isNil(const TzSoapTypeImp& value) {
    return !value.getAttributeSet().empty() && value.isNull();
}

/// Makes a simple value that shows its type carry it.
void showType(TzSoapSimpleTypeImp& value) {
    const TzXmlName& label = tzSoapSchemaLabel(value.getType());
    const TzXmlName& type = value.getTypeValue();
    if (!(type.getNamespace() == label.getNamespace() &&
          type.getLocalName() == label.getLocalName())) {
        value.setTypeAttribute(label);
    }
}

} // namespace

void TzSoapOutput::collectValue(const TzXmlName& name, const TzSoapTypeImp& value,
                                Encoding encoding) {
    qualifyName(name);
    collectAttributes(value);
    if (encoding == Encoding::Soap) {
        ensureStyle();
    }
    qualifyStyle();
}

void TzSoapOutput::startValue(const TagName& name, const TzSoapTypeImp& value) {
    writeStartTag(name);
    text().write(TzXmlWriter::EndTag);
    remember(value);
}

void TzSoapOutput::writeEmpty(const TagName& name, const TzSoapTypeImp& value) {
    writeStartTag(name);
    text().write(TzXmlWriter::UnpairedTag);
    text().writeNewLine();
    remember(value);
}

void TzSoapOutput::remember(const TzSoapTypeImp& value) {
    if (value.getAttributeSet().empty()) {
        return;
    }
    const TzCString& id = value.getIdAttribute();
    if (!id.empty()) {
        // The map holds a handle, and handles are made on bodies that may be changed.
        auto& body = const_cast<TzSoapTypeImp&>(value);
        state().writtenIds.emplace(id, TzSoapAccess::handle<TzSoapType>(&body));
    }
}

void TzSoapOutput::write(const TzSoapType& value) {
    const TzSoapTypeImp& body = TzSoapAccess::body(value);
    const Element element(*this, body.getAttributeSet());
    collectValue(body.getName(), body, Encoding::None);
    const TagName tag = tagName(body.getName());
    startValue(tag, body);
    text().writeNewLine();
    writeEndTag(tag);
}

void TzSoapOutput::write(const TzSoapSimpleType& value) { writeSimple(TzSoapAccess::body(value)); }

void TzSoapOutput::writeSimple(TzSoapSimpleTypeImp& value) {
    const bool typeShown = value.getTypeShouldBeEncoded();
    if (typeShown) {
        showType(value);
    }
    const TzXmlName& name = std::as_const(value).getName();
    const TagName tag = tagName(name);
    BriefStart brief;
    if (isBrief(tag, name, value, typeShown, brief)) {
        checkDepth(1);
        text().writeMarkupLine(TzXmlWriter::StartTag, tag.prefix, tag.colon, tag.local, brief.open,
                               brief.typePrefix, brief.typeColon, brief.type, brief.close,
                               contentOf(value), TzXmlWriter::StartEndTag, tag.prefix, tag.colon,
                               tag.local, TzXmlWriter::EndTag);
        return;
    }
    const Element element(*this, value.getAttributeSet());
    collectValue(name, value, Encoding::Soap);
    startValue(tag, value);
    if (!isNil(value)) {
        text().write(contentOf(value));
    }
    writeEndTag(tag);
}

std::string_view TzSoapOutput::contentOf(const TzSoapSimpleTypeImp& value) {
    return value.getEscapeText() == TzSoapContentBase::EscapeOff ? value.text()
                                                                 : text().escaped(value.text());
}

bool TzSoapOutput::writeDirectly(TzSoapConstVisitor& visitor, const TzSoapType& child) {
    // What the visitor would be asked to visit comes back here anyway, unless its class is derived.
    if (typeid(visitor) != *visitor_) {
        return false;
    }
    TzSoapTypeImp& body = TzSoapAccess::body(child);
    switch (body.getSoapTypeId()) {
    case TzSoapContentBase::Simple:
        writeSimple(static_cast<TzSoapSimpleTypeImp&>(body));
        return true;
    case TzSoapContentBase::Composite:
        writeComposite(visitor, std::as_const(body).getName(),
                       static_cast<TzSoapCompositeTypeImp&>(body));
        return true;
    default:
        return false;
    }
}

void TzSoapOutput::writeChild(TzSoapConstVisitor& visitor, const TzSoapType& child) {
    if (!writeDirectly(visitor, child)) {
        child.acceptVisitor(visitor);
    }
}

void TzSoapOutput::write(const TzSoapUserDefinedType& value) {
    const TzSoapUserDefinedTypeImp& body = TzSoapAccess::body(value);
    const TzCString& markup = body.getValue();
    if (markup.starts_with(TzXmlWriter::StartTag)) {
        writeMarkup(markup, body);
        return;
    }
    const Element element(*this, body.getAttributeSet());
    collectValue(body.getName(), body, Encoding::Soap);
    const TagName tag = tagName(body.getName());
    startValue(tag, body);
    if (!isNil(body)) {
        text().write(markup);
    }
    writeEndTag(tag);
}

void TzSoapOutput::writeMarkup(const TzCString& markup, const TzSoapTypeImp& value) {
    const TzCString& style =
        soap().getSoapAttributeQName(TzSoapVersion::EncodingStyle).getLocalName();
    setPosition({});
    if (markup.find(style) != TzCString::npos) {
        text().write(markup);
    } else {
        const std::string_view whole = markup;
        const std::size_t place = styleInsertion(markup);
        text().write(whole.substr(0, place));
        text().writeQualifiedAttribute(envelopePrefix(), style, value.getEncodingStyleAttribute());
        text().write(whole.substr(place));
    }
    remember(value);
}

std::size_t TzSoapOutput::styleInsertion(const TzCString& markup) const {
    const std::size_t blank = markup.find(' ');
    if (blank != TzCString::npos) {
        return blank;
    }
    const std::size_t end = markup.find(TzXmlWriter::EndTag);
    const std::size_t unpaired = markup.find(TzXmlWriter::UnpairedTag);
    if (end == TzCString::npos) {
        TzThrow(TzXmlInternalError(TzMessage(tzsoap_INTERNAL_ERROR(), unit_, NoStartTagLine)));
    }
    // The end of an empty-element tag is not to be torn apart.
    return unpaired < end ? unpaired : end;
}

void TzSoapOutput::write(const TzSoapMisunderstoodType& value) {
    const TzSoapMisunderstoodTypeImp& body = TzSoapAccess::body(value);
    const Element element(*this, body.getAttributeSet());
    collectValue(body.getName(), body, Encoding::None);
    writeEmpty(tagName(body.getName()), body);
}

void TzSoapOutput::write(const TzSoapReferenceType& reference) {
    const TzSoapReferenceTypeImp& body = TzSoapAccess::body(reference);
    const Element element(*this, body.getAttributeSet());
    qualifyName(body.getName());
    collectAttributes(static_cast<const TzSoapTypeImp&>(body));
    renameReference(body);
    qualifyStyle();
    writeEmpty(tagName(body.getName()), body);
    if (body.hasReference()) {
        keepTarget(body, reference);
    }
}

void TzSoapOutput::keepTarget(const TzSoapReferenceTypeImp& reference,
                              const TzSoapReferenceType& handle) {
    if (reference.isSoapReference()) {
        if (!reference.isSoapReference()) {
            TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_SOAP_REFERENCE())));
        }
        const TzSoapType& target = handle.getSoapReference();
        state().pendingReferences.emplace_back(TzSoapAccess::body(target).getIdAttribute(), target);
    } else if (multipart_ != nullptr) {
        if (reference.isSoapReference()) {
            TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_MIME_REFERENCE())));
        }
        multipart_->insertPart(handle.getMimeReference());
        state().attached |= !state().writesTargets;
    }
}

void TzSoapOutput::write(TzSoapConstVisitor& visitor, const TzSoapCompositeType& value) {
    TzSoapCompositeTypeImp& body = TzSoapAccess::body(value);
    writeComposite(visitor, std::as_const(body).getName(), body);
}

void TzSoapOutput::writeComposite(TzSoapConstVisitor& visitor, const TzXmlName& name,
                                  TzSoapCompositeTypeImp& value) {
    const Element element(*this, value.getAttributeSet());
    const TagName tag = tagName(name);
    BriefStart brief;
    if (isBrief(tag, name, value, false, brief)) {
        text().writeMarkupLine(TzXmlWriter::StartTag, tag.prefix, tag.colon, tag.local, brief.open,
                               brief.typePrefix, brief.typeColon, brief.type, brief.close);
        text().incrementIndent();
    } else {
        collectValue(name, value, Encoding::Soap);
        startBlock(tag);
        remember(value);
    }
    if (isNil(value)) {
        state().wroteAll &= value.childCount() == 0;
    } else {
        for (auto child = value.childrenBegin(); child != value.childrenEnd(); ++child) {
            writeChild(visitor, *child);
        }
    }
    endBlock(tag);
}

void TzSoapOutput::startArray(const TagName& name, TzSoapArrayTypeImp& array) {
    qualifyName(std::as_const(array).getName());
    collectAttributes(static_cast<const TzSoapTypeImp&>(array));
    collectShape(array);
    ensureStyle();
    qualifyStyle();
    startBlock(name);
    remember(array);
    state().wroteAll &= !isNil(array) && array.getCountElementsToWrite() == 0 &&
                        TzSoapArrayTypeImp::isDefaultOffset(array.getOffsetIndex());
}

void TzSoapOutput::write(TzSoapConstVisitor& visitor, const TzSoapCompactArrayType& array) {
    TzSoapCompactArrayImp& body = TzSoapAccess::body(array);
    const Element element(*this, body.getAttributeSet());
    const TagName tag = tagName(std::as_const(body).getName());
    startArray(tag, body);
    if (!isNil(body)) {
        for (const TzSoapDefaultType& item : body.itemsToWrite()) {
            writeItem(visitor, item);
        }
    }
    endBlock(tag);
}

void TzSoapOutput::write(TzSoapConstVisitor& visitor, const TzSoapSparseArrayType& array) {
    TzSoapSparseArrayImp& body = TzSoapAccess::body(array);
    const Element element(*this, body.getAttributeSet());
    const TagName tag = tagName(std::as_const(body).getName());
    startArray(tag, body);
    unsigned int left = body.getCountElementsToWrite() != 0
                            ? body.getCountElementsToWrite()
                            : std::numeric_limits<unsigned int>::max();
    for (const auto& [index, item] : std::as_const(body)) {
        if (isNil(body) || left-- == 0) {
            break;
        }
        const TzCString position = TzSoapArrayTypeImp::vectorToString(index, true, version());
        setPosition(position);
        writeItem(visitor, item);
        setPosition({});
    }
    endBlock(tag);
}

void TzSoapOutput::writeItem(TzSoapConstVisitor& visitor, const TzSoapType& item) {
    if (writeDirectly(visitor, item)) {
        return;
    }
    if (TzSoapArrayTypeImp::isPlaceholder(item)) {
        writePlaceholder();
    } else {
        item.acceptVisitor(visitor);
    }
}

void TzSoapOutput::writePlaceholder() {
    const Element element(*this, TzXmlAttributeSet());
    collectPosition();
    collectSchemaInstance(TzSoapAttributeSet::getNullAttributeName(),
                          TzSoapAttributeSet::getTrueAttributeValue());
    const TagName tag = tagName(TzXmlName());
    writeStartTag(tag);
    text().write(TzXmlWriter::EndTag);
    writeEndTag(tag);
}
