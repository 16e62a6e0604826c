// SPDX-License-Identifier: MIT
#include <soap/TzSoapReferenceTypeImp.h>

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapUtils.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlParseError.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapReadingState.h"

void TzSoapReferenceTypeImp::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                                      TzSoapParseContext* context) {
    setName(name);
    // The declarations on the element may bind the prefix of its type.
    TzSoapReadingState& reading = TzSoapAccess::reading(*context);
    reading.names.open(*this);
    TzSoapUtils::copyAttributes(attributes, *this, context);
    reading.names.close();
    const auto handle = TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(this));
    reading.references.fileId(handle);
    const auto* text = getAttributeSet().find(TzSoapVersion::getSoapAttributeName(
        isSoapReference() ? TzSoapVersion::Ref : TzSoapVersion::Href, reading.version()));
    if (text != getAttributeSet().end()) {
        reading.references.add(text->getValue(), *this);
    }
    open(*this, context, nullptr);
}

void TzSoapReferenceTypeImp::startElement(const TzXmlName&, const TzXmlAttributeSet&) {
    refuseContent();
}

void TzSoapReferenceTypeImp::addChild(const TzSoapType&) { refuseContent(); }

void TzSoapReferenceTypeImp::refuseContent() const {
    const TzXmlSAXParser* parser = context() == nullptr ? nullptr : context()->getParser();
    TzThrow(TzXmlParseError(TzMessage(tzsoap_ILLEGAL_REFERENCE()), TzCString(),
                            parser == nullptr ? 0 : parser->getLine(),
                            parser == nullptr ? 0 : parser->getColumn()));
}
