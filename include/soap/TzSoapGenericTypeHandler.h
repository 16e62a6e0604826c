// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentHandler.h>
#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

struct TzSoapStyleInForce;
class TzSoapElementImp;
class TzSoapReadingState;
class TzSoapType;
class TzSoapValueList;
class TzXmlElementImp;

/// Base of the elements that hold values: decides for each child element what kind of value it is
/// and hands it to the handler that reads it; finished values come back through `addChild`.
///
/// Belongs to one reading on one thread.
class TZSOAP_API TzSoapGenericTypeHandler : public TzSoapContentHandler {
public:
    /// A child element starts: chooses its handler, which takes the events over.
    /// `TzXmlInternalError` INTERNAL_ERROR for an impossible state.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    /// The owner's element ends: closes its scopes and gives the events back.
    void endElement(const TzXmlName& name) override;
    ~TzSoapGenericTypeHandler() override;

    /// Takes a child value: complete, or about to be read through the same body.
    virtual void addChild(const TzSoapType& child) = 0;
    /// Does nothing here.
    virtual void addPcdata();
    /// Takes a child value out of `child`, which is left without a body.
    /// Calls `addChild` unless overridden.
    virtual void takeChild(TzSoapType&& child);

protected:
    TzSoapGenericTypeHandler();
    /// Copies nothing: a copy takes part in no reading.
    TzSoapGenericTypeHandler(const TzSoapGenericTypeHandler& other) noexcept;
    /// Copies nothing.
    TzSoapGenericTypeHandler& operator=(const TzSoapGenericTypeHandler&) noexcept { return *this; }

    /// Starts receiving for `element`, whose attributes are read already: its declarations and
    /// `style`, if not null, are in force until `close`.
    void open(TzXmlElementImp& element, TzSoapParseContext* context, const TzCString* style);
    /// Starts receiving at the start tag of `element`: takes its name and adds its attributes.
    void begin(TzSoapElementImp& element, const TzXmlName& name,
               const TzXmlAttributeSet& attributes, TzSoapParseContext* context);
    /// Text beside the children, whose list is `children`: adds it to that in a literal message.
    void takeText(const TzCString& text, TzSoapValueList& children);
    /// Ends receiving: closes the scopes that `open` opened and gives the events back.
    void close();
    /// Takes the encoding style of the last child out of force. Called at each next event; an owner
    /// that reads a child in another way calls it first.
    void popChildStyle();

private:
    /// What the attributes say about a child element.
    enum SoapType : int { NotSpecial = 0, SoapReference = 1, MimeReference = 2, Array = 3 };

    SoapType getType(const TzXmlAttributeSet& attributes, TzCString& type, TzCString& size) const;
    bool isApplicationType(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                           const TzSoapStyleInForce& style, TzXmlName& type) const;
    void doSoapEncoding(const TzXmlName& name, const TzXmlAttributeSet& attributes);
    void doUserDefinedEncoding(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                               const TzXmlName& type, const TzCString& encodingStyle);
    TzXmlName typeOf(const TzXmlName& name, const TzXmlAttributeSet& attributes) const;
    void readReference(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                       bool soapReference);
    void pushChildStyle(const TzXmlAttributeSet& attributes);
    TzSoapReadingState& state() const noexcept;

    bool childStylePushed_ = false;
    bool ownStylePushed_ = false;
};
