// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlNamespace.h>

#include <vector>

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
    const TzCString& getValue() const noexcept { return value_.empty() ? markup_ : value_; }
    /// The element as its source spelt it, in UTF-8; "" where that is not known.
    const TzCString& getMarkup() const noexcept { return markup_; }
    /// Sets the element as its source spells it, and the declarations around it that it needs.
    void setMarkup(TzCString markup, std::vector<TzXmlNamespace> declarations) noexcept;
    /// The declarations that the markup of `getMarkup` needs around it.
    const std::vector<TzXmlNamespace>& getDeclarations() const noexcept { return declarations_; }
    /// Replaces the markup. It is written as it stands: the caller answers for its being
    /// well-formed.
    void setValue(TzCString markup) noexcept;

private:
    TzCString value_;
    TzCString markup_;
    std::vector<TzXmlNamespace> declarations_;
    TzCString reserved_; // travels with copies; no operation reads or sets it
};
