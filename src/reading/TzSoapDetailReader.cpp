// SPDX-License-Identifier: MIT
#include "reading/TzSoapDetailReader.h"

#include <soap/TzSoapCompositeTypeImp.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapFaultSpellingReader.h"

#include <string_view>

void TzSoapDetailReader::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                                  TzSoapParseContext* context) {
    if (spelling_ != nullptr) {
        spelling_->startDetail();
    }
    detail_.populate(name, attributes, context);
    acceptEvents(context);
}

void TzSoapDetailReader::startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    detail_.startElement(name, attributes);
}

void TzSoapDetailReader::endElement(const TzXmlName& name) {
    if (spelling_ != nullptr) {
        spelling_->endDetail();
    }
    declineEvents();
    detail_.endElement(name);
}

void TzSoapDetailReader::characters(const TzCString& text) {
    if (spelling_ != nullptr) {
        detail_.characters(text);
    }
    const std::string_view trimmed = TzXmlUtils::trim(text);
    if (!trimmed.empty()) {
        text_.append(text_.empty() ? 0 : 1, TzXmlUtils::NewlineUtf8).append(trimmed);
    }
}
