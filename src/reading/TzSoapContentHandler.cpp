// SPDX-License-Identifier: MIT
#include <soap/TzSoapContentHandler.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapParseContext.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapReadingState.h"

void TzSoapContentHandler::startElement(const TzXmlName&, const TzXmlAttributeSet&) {}

void TzSoapContentHandler::endElement(const TzXmlName&) {}

[[gnu::hot]] void TzSoapContentHandler::characters(const TzCString& text) {
    if (context_ != nullptr && !text.empty()) {
        TzSoapAccess::reading(*context_).noteDroppedText(text);
    }
}

TzSoapContentHandler::~TzSoapContentHandler() = default;

[[gnu::hot]] void TzSoapContentHandler::acceptEvents(TzSoapParseContext* context) {
    TzXmlSAXParser* const parser = context != nullptr ? context->getParser() : nullptr;
    if (parser == nullptr) {
        // Deliberate: a fixed line number, so that the text of the error never changes.
        refuseEvent("..\\TzSoapContentHandler", 21);
    }
    context_ = context;
    previous_ = parser->getContentHandler();
    parser->setContentHandler(this);
}

[[gnu::hot]] void TzSoapContentHandler::declineEvents() {
    context_->getParser()->setContentHandler(previous_);
    previous_ = nullptr;
    context_ = nullptr;
}

void TzSoapContentHandler::refuseEvent(const char* unit, int line) {
    TzThrow(TzXmlInternalError(TzMessage(tzsoap_INTERNAL_ERROR(), unit, line)));
}
