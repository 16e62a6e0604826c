// SPDX-License-Identifier: MIT
#include <soap/TzSoapContentHandler.h>

#include <soap/TzSoapParseContext.h>
#include <tz/xml/TzXmlSAXParser.h>

void TzSoapContentHandler::startElement(const TzXmlName&, const TzXmlAttributeSet&) {}

void TzSoapContentHandler::endElement(const TzXmlName&) {}

void TzSoapContentHandler::characters(const TzCString& text) {
    if (context_ != nullptr && !text.empty()) {
        context_->noteDroppedText(text);
    }
}

TzSoapContentHandler::~TzSoapContentHandler() = default;

void TzSoapContentHandler::acceptEvents(TzSoapParseContext* context) {
    context_ = context;
    TzXmlSAXParser& parser = *context->getParser();
    previous_ = parser.getContentHandler();
    parser.setContentHandler(this);
}

void TzSoapContentHandler::declineEvents() {
    context_->getParser()->setContentHandler(previous_);
    previous_ = nullptr;
    context_ = nullptr;
}
