// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapType.h>

/// Body of a reference to a value of its message. Threads as for its base.
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

    /// A new body that refers to the target, too.
    TzSoapElementImp* clone() const override;
    /// True.
    bool isSoapReference() const override;
    using TzSoapReferenceTypeImp::setReference;
    /// Refers to `target` from now on, under the text "#" and the id that it has at this moment;
    /// `TzXmlBadArgError` BAD_REFERENCE "identified" without an id, and nothing changes.
    void setReference(const TzSoapType& target) override;
    /// The value referred to; `TzXmlBadArgError` BAD_REFERENCE "soap" without one.
    TzSoapType& getSoapReference() override;
    /// The value referred to, an empty handle without a target.
    const TzSoapType& getReference() const noexcept { return target_; }
    /// Lets go of the target and keeps the reference text: breaks a ring of values that hold each
    /// other.
    void clearReference() noexcept;

private:
    TzSoapType target_; // empty without a target
};
