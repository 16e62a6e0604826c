// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeTypeImp.h>

#include <soap/TzSoapParseContext.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapReadingState.h"

#include <utility>

void TzSoapCompositeTypeImp::addChild(const TzSoapType& child) { children_.append(child); }

[[gnu::hot]] void TzSoapCompositeTypeImp::takeChild(TzSoapType&& child) {
    if (TzSoapParseContext* const reading = context()) {
        TzSoapAccess::append(children_, std::move(child), TzSoapAccess::reading(*reading).links);
    } else {
        children_.append(std::move(child));
    }
}

void TzSoapCompositeTypeImp::characters(const TzCString& text) { takeText(text, children_); }

void TzSoapCompositeTypeImp::doStart(const TzXmlName& childName,
                                     const TzXmlAttributeSet& childAttributes,
                                     TzSoapParseContext* context) {
    open(*this, context, nullptr);
    startElement(childName, childAttributes);
}

void TzSoapCompositeTypeImp::populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                                      TzSoapParseContext* context) {
    begin(*this, name, attributes, context);
}
