// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <tz/mime/TzMimePart.h>

/// Body of a reference to a MIME part of the message's package. Threads as for its base.
class TZSOAP_API TzSoapReferenceToMimePartImp : public TzSoapReferenceTypeImp {
public:
    /// A reference without name, text and target.
    TzSoapReferenceToMimePartImp();
    /// A reference named `name` without text and target.
    explicit TzSoapReferenceToMimePartImp(TzXmlName name);
    /// Copies the element and shares the part.
    TzSoapReferenceToMimePartImp(const TzSoapReferenceToMimePartImp& other);
    TzSoapReferenceToMimePartImp& operator=(const TzSoapReferenceToMimePartImp&) = delete;
    ~TzSoapReferenceToMimePartImp() override;

    /// A new body that refers to the part, too.
    TzSoapElementImp* clone() const override;
    /// False.
    bool isSoapReference() const override;
    using TzSoapReferenceTypeImp::setReference;
    /// Refers to `part` from now on: under "cid:" and its Content-ID, else under its
    /// Content-Location. `TzXmlBadArgError` BAD_REFERENCE "identified" when it has neither header,
    /// and nothing changes.
    void setReference(const TzMimePart& part) override;
    /// The text under which `part` is referred to; `TzXmlBadArgError` BAD_REFERENCE "identified"
    /// when it has neither header.
    static TzCString textFor(const TzMimePart& part);
    /// Refers to `part` from now on, under `text`, which is what `textFor` says of it: all
    /// references to one part share it.
    void refer(const TzMimePart& part, const TzXmlAttribute::SharedValue& text);
    /// The part referred to; `TzXmlBadArgError` BAD_REFERENCE "mime" without one.
    TzMimePart& getMimeReference() override;

private:
    TzMimePart part_;
};
