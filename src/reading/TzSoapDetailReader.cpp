// SPDX-License-Identifier: MIT
#include "reading/TzSoapDetailReader.h"

#include <soap/TzSoapCompositeTypeImp.h>
#include <tz/xml/TzXmlUtils.h>

#include <string_view>

void TzSoapDetailReader::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                                  TzSoapParseContext* context) {
    detail_.populate(name, attributes, context);
    acceptEvents(context);
}

void TzSoapDetailReader::startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    detail_.startElement(name, attributes);
}

void TzSoapDetailReader::endElement(const TzXmlName& name) {
    declineEvents();
    detail_.endElement(name);
}

void TzSoapDetailReader::characters(const TzCString& text) {
    const std::string_view trimmed = TzXmlUtils::trim(text);
    if (!trimmed.empty()) {
        text_.append(text_.empty() ? 0 : 1, TzXmlUtils::NewlineUtf8).append(trimmed);
    }
}
