// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentBase.h>
#include <soap/TzSoapElementImp.h>
#include <soap/TzSoapExport.h>
#include <tz/pointer/TzBodyBase.h>

/// Body of a generic value: an element with a name and attributes and without content; base
/// of the bodies of all other kinds of values. Only the reference count is locked.
class TZSOAP_API TzSoapTypeImp : public TzSoapElementImp, public TzBodyBase {
public:
    /// A value without name.
    TzSoapTypeImp();
    /// A value named `name`.
    explicit TzSoapTypeImp(TzXmlName name);
    /// Copies the element and how its text is escaped; the count starts anew.
    TzSoapTypeImp(const TzSoapTypeImp& other);
    TzSoapTypeImp& operator=(const TzSoapTypeImp& other) = default;
    ~TzSoapTypeImp() override = default;

    /// What kind of value this is: `Generic` here.
    virtual TzSoapContentBase::SoapTypeId getSoapTypeId() const;
    /// The kind as text: "Default" here.
    virtual const TzCString& getSoapTypeIdAsString() const;
    /// A new body of its class with a copy of the content; the caller's handle takes it over.
    virtual TzSoapElementImp* clone() const;
    /// Sets the xsi "nil" attribute to "1" or "0".
    virtual void setNull(bool null);
    /// Whether the xsi "nil" attribute is "1".
    virtual bool isNull() const;
    /// Sets how the text is written.
    virtual void setEscapeText(TzSoapContentBase::EscapeText escape);
    /// How the text is written; `EscapeOn` unless set.
    virtual TzSoapContentBase::EscapeText getEscapeText() const;

    /// The kind as text of generic and default values: "Default".
    static const TzCString MyIdString;
};
