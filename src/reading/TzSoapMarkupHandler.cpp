// SPDX-License-Identifier: MIT
#include "reading/TzSoapMarkupHandler.h"

#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapUserDefinedTypeImp.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapReadingState.h"
#include "reading/TzSoapVerbatimAttributes.h"

void TzSoapMarkupHandler::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                                   TzSoapParseContext* context, TzSoapGenericTypeHandler* owner) {
    value_ = TzSoapUserDefinedType();
    outer_ = TzSoapOuterNamespaces();
    owner_ = owner;
    depth_ = 0;
    begin_ = context->getParser()->getEventBegin();
    acceptEvents(context);
    TzSoapReadingState& reading = TzSoapAccess::reading(*context);
    TzSoapUserDefinedTypeImp& body = TzSoapAccess::body(value_);
    body.setName(name);
    reading.names.open(body);
    tzSoapReadVerbatim(attributes, body, reading);
    reading.names.close();
    startElement(name, attributes);
}

void TzSoapMarkupHandler::startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    ++depth_;
    outer_.open(name, attributes);
}

void TzSoapMarkupHandler::endElement(const TzXmlName&) {
    outer_.close();
    if (--depth_ > 0) {
        return;
    }
    const TzXmlSAXParser& parser = *context()->getParser();
    TzSoapAccess::body(value_).setMarkup(parser.getSource(begin_, parser.getEventEnd()),
                                         outer_.declarations());
    TzSoapReadingState& reading = TzSoapAccess::reading(*context());
    if (!reading.isLiteral()) {
        reading.references.fileId(value_);
    }
    owner_->addChild(value_);
    declineEvents();
}
