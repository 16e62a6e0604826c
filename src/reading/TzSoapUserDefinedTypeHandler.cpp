// SPDX-License-Identifier: MIT
#include <soap/TzSoapUserDefinedTypeHandler.h>

#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <soap/TzSoapUtils.h>
#include <tz/xml/TzXmlWriter.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapReadingState.h"

#include <utility>

namespace {

/// Deliberate: internal errors name this source and fixed line numbers, so that their texts never
/// change from one version to the next.
constexpr const char* Unit = "..\\TzSoapUserDefinedTypeHandler";

} // namespace

TzSoapUserDefinedTypeHandler::TzSoapUserDefinedTypeHandler() = default;

TzSoapUserDefinedTypeHandler::~TzSoapUserDefinedTypeHandler() = default;

void TzSoapUserDefinedTypeHandler::populate(const TzXmlName& name,
                                            const TzXmlAttributeSet& attributes,
                                            const TzXmlName& type, const TzCString& encodingStyle,
                                            TzSoapParseContext* context,
                                            TzSoapGenericTypeHandler* owner) {
    name_ = name;
    type_ = type;
    attributes_ = attributes;
    owner_ = owner;
    markup_.clear();
    nesting_ = 1;
    appendStartTag(name, attributes);
    acceptEvents(context);
    encodingStyle_ = TzSoapAccess::reading(*context).styles.share(encodingStyle);
}

void TzSoapUserDefinedTypeHandler::startElement(const TzXmlName& name,
                                                const TzXmlAttributeSet& attributes) {
    static_cast<void>(reading(Unit, 40));
    appendStartTag(name, attributes);
    if (name == name_) {
        ++nesting_;
    }
}

void TzSoapUserDefinedTypeHandler::characters(const TzCString& text) { markup_ += text; }

void TzSoapUserDefinedTypeHandler::endElement(const TzXmlName& name) {
    static_cast<void>(reading(Unit, 49));
    appendEndTag(name);
    if (name == name_ && --nesting_ == 0) {
        complete();
    }
}

void TzSoapUserDefinedTypeHandler::appendStartTag(const TzXmlName& name,
                                                  const TzXmlAttributeSet& attributes) {
    markup_ += TzXmlWriter::StartTag;
    name.appendQualifiedName(markup_);
    markup_ += ' ';
    markup_ += TzSoapUtils::getAttributesAsString(attributes);
    markup_ += TzXmlWriter::EndTag;
}

void TzSoapUserDefinedTypeHandler::appendEndTag(const TzXmlName& name) {
    markup_ += TzXmlWriter::StartEndTag;
    name.appendQualifiedName(markup_);
    markup_ += TzXmlWriter::EndTag;
}

void TzSoapUserDefinedTypeHandler::complete() {
    auto* body = new TzSoapUserDefinedTypeImp();
    const auto value = TzSoapAccess::handle<TzSoapUserDefinedType>(body);
    body->setName(name_);
    TzSoapUtils::copyAttributes(std::move(attributes_), *body, context());
    body->setTypeAttribute(type_);
    body->shareEncodingStyle(encodingStyle_);
    body->setValue(std::move(markup_));
    TzSoapAccess::reading(*context()).references.fileId(value);
    owner_->addChild(value);
    declineEvents();
}
