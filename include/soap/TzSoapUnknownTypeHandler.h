// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapContentHandler.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

class TzSoapGenericTypeHandler;
class TzSoapReadingState;
class TzSoapSimpleTypeImp;

/// Reads an element that nothing marks: a composite value if it has child elements, a simple value
/// (or the report of a misunderstood header entry) otherwise.
///
/// Belongs to one reading on one thread; reused for one element after the other.
class TZSOAP_API TzSoapUnknownTypeHandler : public TzSoapContentHandler {
public:
    TzSoapUnknownTypeHandler();
    ~TzSoapUnknownTypeHandler() override;

    /// Starts reading the element `name`; its value goes to `owner` when it is known.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                  TzSoapParseContext* context, TzSoapGenericTypeHandler* owner);

    /// A first child: the value is composite, it reads on itself.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    /// The element's end without children.
    void endElement(const TzXmlName& name) override;
    /// Keeps the text.
    void characters(const TzCString& text) override;

private:
    void begin(const TzXmlName& name, const TzXmlAttributeSet& attributes);
    void beginLiterally(const TzXmlAttributeSet& attributes, TzSoapReadingState& reading);
    TzSoapContentBase::SchemaType getSchemaType() const;
    TzXmlName misunderstoodName() const;
    void finishSimple();
    void finishMisunderstood();
    void hand(TzSoapType&& value);

    // The element as a simple value, which most elements turn out to be. When it turns out to be
    // something else, that takes the element over and this body serves the next one.
    TzSoapSimpleTypeImp* element_ = nullptr;
    TzSoapType value_; // holds element_
    TzCString text_;
    TzSoapGenericTypeHandler* owner_ = nullptr;
    // What the type attribute says, if the element has no other; otherwise it has to be looked up.
    TzSoapContentBase::SchemaType statedType_ = TzSoapContentBase::xsdUnknown;
};
