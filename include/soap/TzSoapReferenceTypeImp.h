// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapGenericTypeHandler.h>
#include <soap/TzSoapTypeImp.h>
#include <soap/TzSoapVersion.h>
#include <tz/xml/TzXmlAttribute.h>

class TzMimePart;
class TzSoapType;

/// Body of a reference: an empty element whose attribute names a value of its message or a
/// MIME part. What it refers to is the derived class's affair; reads itself.
///
/// The target may be missing: then only the reference text, an attribute, is there. Not locked: one
/// reference is used by one thread at a time.
class TZSOAP_API TzSoapReferenceTypeImp : public TzSoapTypeImp, public TzSoapGenericTypeHandler {
public:
    TzSoapReferenceTypeImp& operator=(const TzSoapReferenceTypeImp&) = delete;
    ~TzSoapReferenceTypeImp() override;

    /// `Reference`.
    TzSoapContentBase::SoapTypeId getSoapTypeId() const override;
    /// "Reference".
    const TzCString& getSoapTypeIdAsString() const override;
    /// A new body with a copy of the attributes and the target; the caller's handle takes it over.
    TzSoapElementImp* clone() const override = 0;

    /// Whether this refers to a value of the message; otherwise it refers to a MIME part.
    virtual bool isSoapReference() const = 0;
    /// Whether a target has been set.
    bool hasReference() const noexcept { return hasReference_; }
    /// Refers to `target`, which must have an id; here `TzXmlDomainError` BAD_REFERENCE "mime".
    virtual void setReference(const TzSoapType& target);
    /// Refers to `part`, which must have a Content-ID or a Content-Location; here
    /// `TzXmlDomainError` BAD_REFERENCE "soap".
    virtual void setReference(const TzMimePart& part);
    /// The value referred to; here `TzXmlBadArgError` BAD_SOAP_REFERENCE.
    virtual TzSoapType& getSoapReference();
    /// The MIME part referred to; here `TzXmlBadArgError` BAD_MIME_REFERENCE.
    virtual TzMimePart& getMimeReference();

    /// Starts reading: takes name and attributes and waits in the context's references for a
    /// target.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                  TzSoapParseContext* context);
    /// `TzXmlParseError` ILLEGAL_REFERENCE where the parser stands: a reference has no content.
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    /// `TzXmlParseError` ILLEGAL_REFERENCE where the parser stands: a reference has no content.
    void addChild(const TzSoapType& child) override;

protected:
    /// A reference without name, text and target.
    TzSoapReferenceTypeImp();
    /// A reference named `name` without text and target.
    explicit TzSoapReferenceTypeImp(TzXmlName name);
    /// Copies the element and whether there is a target.
    TzSoapReferenceTypeImp(const TzSoapReferenceTypeImp& other);

    /// Makes `text` the reference text, in place of one of either version, as the value of
    /// `attribute`; there is a target from now on.
    void accept(const TzCString& text, TzSoapVersion::SoapAttribute attribute);
    /// Does the same with a `text` that other references share.
    void accept(const TzXmlAttribute::SharedValue& text, TzSoapVersion::SoapAttribute attribute);
    /// Forgets the target; the reference text stays.
    void forgetReference() noexcept { hasReference_ = false; }

private:
    void accept(TzXmlAttribute text);
    [[noreturn]] void refuseContent() const;

    bool hasReference_ = false;
};
