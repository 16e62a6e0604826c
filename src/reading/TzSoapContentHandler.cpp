// SPDX-License-Identifier: MIT
#include <soap/TzSoapContentHandler.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapParseContext.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
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
    TzXmlSAXParser* const parser = context != nullptr ? context->getParser() : nullptr;
    if (parser == nullptr) {
        refuseEvent("..\\TzSoapContentHandler", 21);
    }
    context_ = context;
    previous_ = parser->getContentHandler();
    parser->setContentHandler(this);
}

void TzSoapContentHandler::declineEvents() {
    context_->getParser()->setContentHandler(previous_);
    previous_ = nullptr;
    context_ = nullptr;
}

void TzSoapContentHandler::refuseEvent(const char* unit, int line) {
    TzThrow(TzXmlInternalError(TzMessage(tzsoap_INTERNAL_ERROR(), unit, line)));
}
