// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentHandler.h>
#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlName.h>

class TzSoapArrayType;
class TzSoapGenericTypeHandler;

/// Reads the start of an array: the first member decides whether it is sparse or compact, then the
/// array reads on itself.
///
/// Belongs to one reading on one thread; reused for one element after the other.
class TZSOAP_API TzSoapArrayTypeHandler : public TzSoapContentHandler {
public:
    TzSoapArrayTypeHandler();
    ~TzSoapArrayTypeHandler() override;

    /// Starts reading the array `name` of items of `type` and the shape `size`; `owner` gets it.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes, const TzCString& type,
                  const TzCString& size, TzSoapParseContext* context,
                  TzSoapGenericTypeHandler* owner);

    /// The first member. `TzXmlBadArgError` BAD_INDEX_STRING or `TzXmlBoundsError` for a bad shape.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    /// The array's end without members: an empty compact array. Errors as for the first member.
    void endElement(const TzXmlName& name) override;

private:
    void finishStartElement(const TzSoapArrayType& array, const TzXmlName& childName,
                            const TzXmlAttributeSet& childAttributes);
    void populateArray(const TzSoapArrayType& array);

    TzXmlName name_;
    TzXmlAttributeSet attributes_;
    TzCString type_;
    TzCString size_;
    TzSoapGenericTypeHandler* owner_ = nullptr;
};
