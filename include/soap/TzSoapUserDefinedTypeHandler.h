// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentHandler.h>
#include <soap/TzSoapExport.h>
#include <tz/pointer/TzSharedRecord.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>

class TzSoapGenericTypeHandler;

/// Keeps an element that the application decodes itself as markup text.
///
/// The text is what was read, its entities decoded and not escaped again: a program that writes
/// it out again writes received text as markup. Belongs to one reading on one thread; reused for
/// one element after the other.
class TZSOAP_API TzSoapUserDefinedTypeHandler : public TzSoapContentHandler {
public:
    TzSoapUserDefinedTypeHandler();
    ~TzSoapUserDefinedTypeHandler() override;

    /// Starts keeping the element `name` of the given type and encoding style; `owner` gets it.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes, const TzXmlName& type,
                  const TzCString& encodingStyle, TzSoapParseContext* context,
                  TzSoapGenericTypeHandler* owner);

    /// Keeps the start tag of a nested element.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    /// Keeps an end tag; at the element's own end hands the value to the owner.
    void endElement(const TzXmlName& name) override;
    /// Keeps text.
    void characters(const TzCString& text) override;

private:
    void appendStartTag(const TzXmlName& name, const TzXmlAttributeSet& attributes);
    void appendEndTag(const TzXmlName& name);
    void complete();

    TzXmlName name_;
    TzXmlName type_;
    TzSharedRecord<TzCString> encodingStyle_;
    TzXmlAttributeSet attributes_;
    TzCString markup_;
    std::size_t nesting_ = 0; // open elements of the element's own name
    TzSoapGenericTypeHandler* owner_ = nullptr;
};
