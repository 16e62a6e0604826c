// SPDX-License-Identifier: MIT
#include "output/TzSoapValueOutput.h"

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include <algorithm>
#include <utility>

namespace {

/// Deliberate: the line that is reported when markup has no start tag to put the style in.
constexpr int NoStartTagLine = 669;

/// Whether `type` is the type under which values show `label`, prefix included.
bool isLabel(const TzXmlName& type, const TzXmlName& label) {
    return type.isSame(label) || (type.getNamespace() == label.getNamespace() &&
                                  type.getLocalName() == label.getLocalName());
}

} // namespace

[[gnu::hot]] bool TzSoapValueOutput::isNil(const TzSoapTypeImp& value) {
    return !value.getAttributeSet().empty() && value.isNull() && !value.isVerbatim();
}

void TzSoapValueOutput::collect(TzSoapTypeImp& value, const TzXmlName& type,
                                std::string_view position, Encoding encoding) {
    startTag_.begin(value.getAttributeSet());
    startTag_.qualifyName(std::as_const(value).getName());
    startTag_.collectValue(value, type, position);
    if (encoding == Encoding::Soap) {
        startTag_.ensureStyle();
    }
    startTag_.qualifyStyle();
}

void TzSoapValueOutput::start(const TzSoapTagName& name, const TzSoapTypeImp& value) {
    startTag_.write(name);
    context_.xml().write(TzXmlWriter::EndTag);
    context_.book().noteWritten(value);
}

void TzSoapValueOutput::writeEmpty(const TzSoapTagName& name, const TzSoapTypeImp& value) {
    startTag_.write(name);
    context_.xml().writeMarkupLine(TzXmlWriter::UnpairedTag);
    context_.book().noteWritten(value);
}

void TzSoapValueOutput::writeGeneric(TzSoapTypeImp& value, std::string_view position) {
    const TzXmlName& name = std::as_const(value).getName();
    const TzSoapOpenElement element(context_);
    collect(value, value.getTypeValue(), position, Encoding::None);
    const TzSoapTagName tag = TzSoapTagName::of(name);
    start(tag, value);
    context_.xml().writeNewLine();
    tag.writeEndTag(context_.xml());
}

[[gnu::hot]] void TzSoapValueOutput::writeSimple(TzSoapSimpleTypeImp& value) {
    const TzXmlName* type = &value.getTypeValue();
    const bool typeShown = value.getTypeShouldBeEncoded();
    if (typeShown && !isLabel(*type, labels_[value.getType()])) {
        type = &labels_[value.getType()];
        value.setTypeAttribute(*type);
    }
    const TzXmlName& name = std::as_const(value).getName();
    const bool escapes = value.getEscapeText() != TzSoapContentBase::EscapeOff;
    if (const auto* tags = escapes ? startTag_.readyTags(name, value, *type, typeShown) : nullptr) {
        context_.scope().checkDepth(1);
        context_.xml().writeElement(tags->start, value.text(), tags->end);
        return;
    }
    startTag_.lookAround();
    const TzSoapTagName tag = TzSoapTagName::of(name);
    TzSoapStartTag::Brief brief;
    if (startTag_.isBrief(tag, name, value, *type, typeShown, brief)) {
        context_.scope().checkDepth(1);
        if (escapes && typeShown) {
            context_.xml().writeElement(tag, labels_.restOfTag(value.getType()), value.text());
            return;
        }
        brief.pass([&](const auto&... rest) {
            context_.xml().writeMarkup(TzXmlWriter::StartTag, tag, rest...);
        });
        writeRest(tag, value.text(), escapes);
    } else if (value.hasProperties() && context_.scope().depth() < context_.scope().depthLimit() &&
               startTag_.writeShort(tag, name, value, *type)) {
        context_.xml().writeMarkup(TzXmlWriter::EndTag);
        writeRest(tag, value.text(), escapes);
    } else {
        writeSimpleAt(value, {});
    }
}

[[gnu::hot]] void TzSoapValueOutput::writeRest(const TzSoapTagName& tag, std::string_view content,
                                               bool escapes) {
    if (escapes) {
        context_.xml().writeRest(content, tag);
    } else {
        context_.xml().write(content);
        tag.writeEndTag(context_.xml());
    }
}

void TzSoapValueOutput::writeSimpleAt(TzSoapSimpleTypeImp& value, std::string_view position) {
    const TzSoapTagName tag = TzSoapTagName::of(std::as_const(value).getName());
    const TzSoapOpenElement element(context_);
    const TzXmlName& label = labels_[value.getType()];
    const TzXmlName& type = value.getTypeValue();
    const bool isLabelled = value.getTypeShouldBeEncoded() && !isLabel(type, label);
    collect(value, isLabelled ? label : type, position, Encoding::Soap);
    start(tag, value);
    if (!isNil(value)) {
        context_.xml().write(value.text(), value.getEscapeText() != TzSoapContentBase::EscapeOff);
    }
    tag.writeEndTag(context_.xml());
}

void TzSoapValueOutput::writeUserDefined(TzSoapUserDefinedTypeImp& value,
                                         std::string_view position) {
    if (!value.getMarkup().empty()) {
        return writeOwnMarkup(value);
    }
    const TzCString& markup = value.getValue();
    if (markup.starts_with(TzXmlWriter::StartTag)) {
        writeMarkup(markup, value);
        return;
    }
    const TzXmlName& name = std::as_const(value).getName();
    const TzSoapOpenElement element(context_);
    collect(value, value.getTypeValue(), position, Encoding::Soap);
    const TzSoapTagName tag = TzSoapTagName::of(name);
    start(tag, value);
    if (!isNil(value)) {
        context_.xml().write(markup);
    }
    tag.writeEndTag(context_.xml());
}

void TzSoapValueOutput::writeOwnMarkup(const TzSoapUserDefinedTypeImp& value) {
    const std::string_view markup = value.getMarkup();
    const std::size_t nameEnd = std::min(markup.find_first_of(" \t\r\n/>"), markup.size());
    TzXmlWriter& xml = context_.xml();
    xml.write(markup.substr(0, nameEnd));
    const TzXmlName& style = context_.soap().getSoapAttributeQName(TzSoapVersion::EncodingStyle);
    if (context_.rules().style().statesEncoding &&
        markup.find(style.getLocalName()) == std::string_view::npos) {
        startTag_.writeAttribute(context_.scope().envelopePrefix(), style.getLocalName(),
                                 value.getEncodingStyleAttribute());
    }
    for (const TzXmlNamespace& needed : value.getDeclarations()) {
        if (context_.scope().uriFor(needed.getPrefix()) != needed.getUri()) {
            startTag_.writeDeclaration(needed.getPrefix(), needed.getUri());
        }
    }
    xml.write(markup.substr(nameEnd));
    context_.book().noteWritten(value);
}

void TzSoapValueOutput::writeMarkup(const TzCString& markup, const TzSoapTypeImp& value) {
    const TzCString& style =
        context_.soap().getSoapAttributeQName(TzSoapVersion::EncodingStyle).getLocalName();
    if (markup.find(style) != TzCString::npos) {
        context_.xml().write(markup);
    } else {
        const std::string_view whole = markup;
        const std::size_t place = styleInsertion(markup);
        context_.xml().write(whole.substr(0, place));
        startTag_.writeAttribute(context_.scope().envelopePrefix(), style,
                                 value.getEncodingStyleAttribute());
        context_.xml().write(whole.substr(place));
    }
    context_.book().noteWritten(value);
}

std::size_t TzSoapValueOutput::styleInsertion(const TzCString& markup) const {
    const std::size_t blank = markup.find(' ');
    if (blank != TzCString::npos) {
        return blank;
    }
    const std::size_t end = markup.find(TzXmlWriter::EndTag);
    const std::size_t unpaired = markup.find(TzXmlWriter::UnpairedTag);
    if (end == TzCString::npos) {
        TzThrow(TzXmlInternalError(
            TzMessage(tzsoap_INTERNAL_ERROR(), context_.unit(), NoStartTagLine)));
    }
    // The end of an empty-element tag must stay in one piece.
    return unpaired < end ? unpaired : end;
}

TzXmlName TzSoapValueOutput::reportName(const TzXmlName& own) const {
    // The report has one name in the model; each version that has reports spells it its own way.
    const TzXmlName& usual =
        TzSoapVersion::getLatestSoapVersion().getSoapElementQName(TzSoapVersion::Misunderstood);
    const TzXmlName& name = context_.soap().getSoapElementQName(TzSoapVersion::Misunderstood);
    if (name.isEmpty() || name == usual || !(own == usual)) {
        return own;
    }
    return {name.getLocalName(), TzXmlNamespace(startTag_.soapPrefix(name), name.getUri())};
}

void TzSoapValueOutput::writeMisunderstood(TzSoapTypeImp& value, std::string_view position) {
    const TzXmlName name = reportName(std::as_const(value).getName());
    const TzSoapOpenElement element(context_);
    startTag_.begin(value.getAttributeSet());
    startTag_.qualifyName(name);
    startTag_.collectValue(value, value.getTypeValue(), position);
    startTag_.qualifyStyle();
    writeEmpty(TzSoapTagName::of(name), value);
}

void TzSoapValueOutput::writeReference(TzSoapReferenceTypeImp& value, std::string_view position) {
    const TzXmlName& name = std::as_const(value).getName();
    const TzSoapOpenElement element(context_);
    startTag_.begin(value.getAttributeSet());
    startTag_.qualifyName(name);
    startTag_.collectValue(value, value.getTypeValue(), position);
    startTag_.renameReference(value);
    startTag_.qualifyStyle();
    writeEmpty(TzSoapTagName::of(name), value);
    if (value.hasReference()) {
        keepTarget(value);
    }
}

void TzSoapValueOutput::keepTarget(TzSoapReferenceTypeImp& reference) {
    // Deliberate: checks the kind twice, because a derived body may change its answer.
    if (reference.isSoapReference()) {
        if (!reference.isSoapReference()) {
            TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_SOAP_REFERENCE())));
        }
        if (!context_.habits().targetsInline) {
            context_.book().noteReference(reference.getSoapReference());
        }
    } else if (context_.multipart() != nullptr) {
        if (reference.isSoapReference()) {
            TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_MIME_REFERENCE())));
        }
        context_.multipart()->insertPart(reference.getMimeReference());
        context_.book().noteAttachment();
    }
}

void TzSoapValueOutput::writePlaceholder(std::string_view position) {
    const TzXmlName name;
    const TzSoapOpenElement element(context_);
    startTag_.begin(TzXmlAttributeSet());
    startTag_.collectPosition(position);
    startTag_.collectSchemaInstance(TzSoapAttributeSet::getNullAttributeName(),
                                    TzSoapAttributeSet::getTrueAttributeValue());
    const TzSoapTagName tag = TzSoapTagName::of(name);
    startTag_.write(tag);
    context_.xml().write(TzXmlWriter::EndTag);
    tag.writeEndTag(context_.xml());
}
