// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapAttributeSet.h>
#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapContentHandler.h>
#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

class TzSoapGenericTypeHandler;
class TzSoapType;
class TzSoapTypeImp;

/// Reads an element that nothing marks: a composite value if it has child elements, a simple value (or
/// the report of a misunderstood header entry) if it has none.
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
    TzSoapContentBase::SchemaType getSchemaType(const TzSoapTypeImp& value) const;
    TzSoapType makeSimple();
    TzSoapType makeMisunderstood();
    TzXmlName misunderstoodName(const TzSoapTypeImp& value) const;
    void describe(TzSoapTypeImp& value);
    void hand(const TzSoapType& value);

    TzXmlName name_;
    TzXmlAttributeSet attributes_;
    TzCString text_;
    TzSoapGenericTypeHandler* owner_ = nullptr;
};
