// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

/// Body of a user-defined value: the markup of an element that the application decodes itself. Only
/// the reference count is locked.
class TZSOAP_API TzSoapUserDefinedTypeImp : public TzSoapTypeImp {
public:
    /// A value without name and markup.
    TzSoapUserDefinedTypeImp();
    /// A value named `name` that holds `markup`.
    TzSoapUserDefinedTypeImp(TzXmlName name, TzCString markup);
    /// Copies everything; the count starts anew.
    TzSoapUserDefinedTypeImp(const TzSoapUserDefinedTypeImp& other);
    TzSoapUserDefinedTypeImp& operator=(const TzSoapUserDefinedTypeImp& other) = default;
    ~TzSoapUserDefinedTypeImp() override;

    /// `UserDefined`.
    TzSoapContentBase::SoapTypeId getSoapTypeId() const override;
    /// "UserDefined".
    const TzCString& getSoapTypeIdAsString() const override;
    /// A new body with a copy of the content.
    TzSoapElementImp* clone() const override;

    /// The markup, "" unless set; valid until the value changes.
    const TzCString& getValue() const noexcept { return value_; }
    /// Replaces the markup. It is written as it stands: the caller answers for its being
    /// well-formed.
    void setValue(TzCString markup) noexcept;

private:
    TzCString value_;
    TzCString reserved_; // travels with copies; no operation reads or sets it
};
