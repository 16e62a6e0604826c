// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <tz/xml/TzXmlName.h>

class TzSoapMisunderstoodTypeImp;

/// Handle of the report of a header entry that was not understood: one stands in the header of a
/// SOAP 1.2 fault for each such entry.
///
/// The element's name is that of SOAP 1.2 whatever the message's version. Every operation on a
/// handle without a body throws `TzTHRInvalidPointer` "Invalid pointer". Threads: see `TzSoapType`.
class TZSOAP_API TzSoapMisunderstoodType : public TzSoapType {
public:
    /// An element without name and attributes that reports the empty name.
    TzSoapMisunderstoodType();
    /// The report of the entry `qname`: declares its namespace and spells it in the attribute
    /// "qname".
    explicit TzSoapMisunderstoodType(const TzXmlName& qname);
    TzSoapMisunderstoodType(const TzSoapMisunderstoodType&) noexcept = default;
    TzSoapMisunderstoodType(TzSoapMisunderstoodType&&) noexcept = default;
    TzSoapMisunderstoodType& operator=(const TzSoapMisunderstoodType&) noexcept = default;
    TzSoapMisunderstoodType& operator=(TzSoapMisunderstoodType&&) noexcept = default;
    ~TzSoapMisunderstoodType() override;

    /// A new report with a copy of the content.
    TzSoapMisunderstoodType copy() const;
    /// The name of the entry that was not understood.
    TzXmlName getQualifiedName() const;
    /// Replaces that name only: the attribute "qname" and the declaration, and so what is written,
    /// stay as they are.
    void setQualifiedName(const TzXmlName& qname);

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapMisunderstoodType(TzSoapMisunderstoodTypeImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapMisunderstoodTypeImp& body() const;

private:
    friend struct TzSoapAccess;
};
