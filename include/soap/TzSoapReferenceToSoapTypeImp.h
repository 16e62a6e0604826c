// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapType.h>

/// Body of a reference to a value of the same message. Threads as for its base.
class TZSOAP_API TzSoapReferenceToSoapTypeImp : public TzSoapReferenceTypeImp {
public:
    /// A reference without name, text and target.
    TzSoapReferenceToSoapTypeImp();
    /// A reference named `name` without text and target.
    explicit TzSoapReferenceToSoapTypeImp(TzXmlName name);
    /// Copies the element and shares the target.
    TzSoapReferenceToSoapTypeImp(const TzSoapReferenceToSoapTypeImp& other);
    TzSoapReferenceToSoapTypeImp& operator=(const TzSoapReferenceToSoapTypeImp&) = delete;
    ~TzSoapReferenceToSoapTypeImp() override;

    /// A new body that refers to the same target.
    TzSoapElementImp* clone() const override;
    /// True.
    bool isSoapReference() const override;
    using TzSoapReferenceTypeImp::setReference;
    /// Refers to `target` from now on, under the text "#" and the id that it has at this moment;
    /// `TzXmlBadArgError` BAD_REFERENCE "identified" when it has none, and nothing changes.
    void setReference(const TzSoapType& target) override;
    /// The value referred to; `TzXmlBadArgError` BAD_REFERENCE "soap" when there is none.
    TzSoapType& getSoapReference() override;
    /// The value referred to, a handle without a body when there is none.
    const TzSoapType& getReference() const noexcept { return target_; }
    /// Lets go of the target and keeps the reference text: breaks a ring of values that hold each
    /// other.
    void clearReference() noexcept;

private:
    TzSoapType target_; // without a body while there is no target
};
