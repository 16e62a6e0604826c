// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

/// Body of the report of a header entry that was not understood. Only the reference count is
/// locked.
class TZSOAP_API TzSoapMisunderstoodTypeImp : public TzSoapTypeImp {
public:
    /// An element without name and attributes that reports the empty name.
    TzSoapMisunderstoodTypeImp();
    /// The SOAP 1.2 element that reports `qname`: declares its namespace and spells it in the
    /// attribute "qname".
    explicit TzSoapMisunderstoodTypeImp(const TzXmlName& qname);
    /// Copies everything; the count starts anew.
    TzSoapMisunderstoodTypeImp(const TzSoapMisunderstoodTypeImp& other);
    TzSoapMisunderstoodTypeImp& operator=(const TzSoapMisunderstoodTypeImp& other) = default;
    ~TzSoapMisunderstoodTypeImp() override;

    /// `Misunderstood`.
    TzSoapContentBase::SoapTypeId getSoapTypeId() const override;
    /// "Misunderstood".
    const TzCString& getSoapTypeIdAsString() const override;
    /// A new body with a copy of the content.
    TzSoapElementImp* clone() const override;

    /// The name of the entry that was not understood.
    const TzXmlName& getQualifiedName() const noexcept { return qualifiedName_; }
    /// Replaces that name only: the attribute "qname" and the declaration stay as they are.
    void setQualifiedName(const TzXmlName& qname);

private:
    TzXmlName qualifiedName_;
};
