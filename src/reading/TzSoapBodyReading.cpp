// SPDX-License-Identifier: MIT
#include <soap/TzSoapBodyImp.h>

#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapParseContext.h>

#include "model/TzSoapAccess.h"

#include <utility>

void TzSoapBodyImp::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                             TzSoapParseContext* context) {
    begin(*this, name, attributes, context);
}

void TzSoapBodyImp::startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) {
    const TzSoapVersion& names = TzSoapVersion::getSoapVersion(version_);
    if (!names.matchSoapElement(name, TzSoapVersion::Fault)) {
        return TzSoapGenericTypeHandler::startElement(name, attributes);
    }
    // Deliberate: a fixed line number, so that the text of the error never changes.
    TzSoapParseContext& reading = this->reading("..\\TzSoapBodyImp", 80);
    popChildStyle();
    hasFaultElement_ = true;
    textBeforeFault_ = entries_.textBefore(entries_.end());
    entries_.setTextBefore(entries_.end(), {});
    TzSoapAccess::body(fault_).populate(name, attributes, &reading);
}

void TzSoapBodyImp::endElement(const TzXmlName&) {
    reading("..\\TzSoapBodyImp", 88).resolveAndClearIdReferences();
    close();
}

void TzSoapBodyImp::characters(const TzCString& text) { takeText(text, entries_); }

void TzSoapBodyImp::addChild(const TzSoapType& child) { entries_.append(child); }

void TzSoapBodyImp::takeChild(TzSoapType&& child) { entries_.append(std::move(child)); }
