// SPDX-License-Identifier: MIT
#include <soap/TzSoapHeaderImp.h>

#include <soap/TzSoapParseContext.h>

#include <utility>

void TzSoapHeaderImp::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                               TzSoapParseContext* context) {
    wasRead_ = true;
    begin(*this, name, attributes, context);
}

void TzSoapHeaderImp::endElement(const TzXmlName&) {
    // Deliberate: a fixed line number, so that the text of the error never changes.
    reading("..\\TzSoapHeaderImp", 74).resolveAndClearIdReferences();
    close();
}

void TzSoapHeaderImp::characters(const TzCString& text) { takeText(text, entries_); }

void TzSoapHeaderImp::addChild(const TzSoapType& child) { entries_.append(child); }

void TzSoapHeaderImp::takeChild(TzSoapType&& child) { entries_.append(std::move(child)); }
