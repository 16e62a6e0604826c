// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentHandler.h>
#include <soap/TzSoapUserDefinedType.h>

#include "model/TzSoapOuterNamespaces.h"

#include <cstddef>

class TzSoapGenericTypeHandler;
class TzSoapParseContext;

/// Keeps an element as its source spells it, because the program asked for it by name.
///
/// Belongs to one reading on one thread; reused for one element after the other.
class TzSoapMarkupHandler final : public TzSoapContentHandler {
public:
    /// Starts keeping the element `name`; `owner` gets it.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                  TzSoapParseContext* context, TzSoapGenericTypeHandler* owner);

    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    void endElement(const TzXmlName& name) override;
    void characters(const TzCString&) override {}

private:
    TzSoapUserDefinedType value_;
    TzSoapOuterNamespaces outer_;
    TzSoapGenericTypeHandler* owner_ = nullptr;
    std::size_t begin_ = 0;
    std::size_t depth_ = 0;
};
