// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>

class TzMimePart;
class TzSoapReferenceTypeImp;

/// Handle of a reference: an empty element that points at a value of its message or at a MIME
/// part of its package.
///
/// Values that were read and refer to each other in a ring live as long as anybody else holds one
/// of them, whatever becomes of the message they were read in, and go with the last such handle
/// (`TzBodyRing` has the rules). A ring that the program makes is never freed by its handles alone:
/// set one of its references to something else first. Threads as for `TzSoapType`.
class TZSOAP_API TzSoapReferenceType : public TzSoapType {
public:
    /// A reference without name and target: to a value when `soapReference`, else to a MIME part.
    explicit TzSoapReferenceType(bool soapReference);
    /// A reference to a value, named `name`, without target.
    explicit TzSoapReferenceType(const TzXmlName& name);
    /// A pointer would be taken for a boolean: say `TzXmlName` for a text, and give a name before
    /// the value referred to.
    explicit TzSoapReferenceType(const volatile void*) = delete;
    /// A reference to the value `target`; `TzXmlBadArgError` BAD_REFERENCE "identified" when that
    /// has no id.
    TzSoapReferenceType(const TzXmlName& name, const TzSoapType& target);
    /// A reference to the MIME part `target`; `TzXmlBadArgError` BAD_REFERENCE "identified" when
    /// that has neither Content-ID nor Content-Location.
    TzSoapReferenceType(const TzXmlName& name, const TzMimePart& target);
    TzSoapReferenceType(const TzSoapReferenceType&) noexcept = default;
    TzSoapReferenceType(TzSoapReferenceType&&) noexcept = default;
    TzSoapReferenceType& operator=(const TzSoapReferenceType&) noexcept = default;
    TzSoapReferenceType& operator=(TzSoapReferenceType&&) noexcept = default;
    ~TzSoapReferenceType() override;

    /// A new reference to the target.
    TzSoapReferenceType copy() const;
    /// Whether a target has been set.
    bool hasReference() const;
    /// Whether this refers to a MIME part; otherwise it refers to a value.
    bool isMimeReference() const;
    /// Refers to the value `target` under "#" and its id. `TzXmlBadArgError` BAD_REFERENCE
    /// "identified" without an id, `TzXmlDomainError` BAD_REFERENCE "mime" on a reference to a
    /// MIME part; nothing changes then.
    void setReference(const TzSoapType& target);
    /// Refers to the MIME part `target` under "cid:" and its Content-ID, else under its
    /// Content-Location. `TzXmlBadArgError` BAD_REFERENCE "identified" when it has neither,
    /// `TzXmlDomainError` BAD_REFERENCE "soap" on a reference to a value; nothing changes then.
    void setReference(const TzMimePart& target);
    /// The value referred to. `TzXmlBadArgError`: BAD_SOAP_REFERENCE on a reference to a MIME part,
    /// BAD_REFERENCE "soap" without target.
    TzSoapType& getSoapReference();
    /// The value referred to. `TzXmlBadArgError` as for the mutable overload.
    TzSoapType& getSoapReference() const;
    /// The MIME part referred to. `TzXmlBadArgError`: BAD_MIME_REFERENCE on a reference to a value,
    /// BAD_REFERENCE "mime" without target.
    TzMimePart& getMimeReference();
    /// The MIME part referred to. `TzXmlBadArgError` as for the mutable overload.
    TzMimePart& getMimeReference() const;

protected:
    /// A handle to `body`, which may be null.
    explicit TzSoapReferenceType(TzSoapReferenceTypeImp* body) noexcept;
    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzSoapReferenceTypeImp& body() const;

private:
    friend struct TzSoapAccess;
};
