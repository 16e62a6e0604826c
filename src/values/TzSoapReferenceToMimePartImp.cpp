// SPDX-License-Identifier: MIT
#include <soap/TzSoapReferenceToMimePartImp.h>

#include <soap/TzSoapCatalog.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include <utility>

TzSoapReferenceToMimePartImp::TzSoapReferenceToMimePartImp() = default;

TzSoapReferenceToMimePartImp::TzSoapReferenceToMimePartImp(TzXmlName name)
    : TzSoapReferenceTypeImp(std::move(name)) {}

TzSoapReferenceToMimePartImp::TzSoapReferenceToMimePartImp(
    const TzSoapReferenceToMimePartImp& other) = default;

TzSoapReferenceToMimePartImp::~TzSoapReferenceToMimePartImp() = default;

TzSoapElementImp* TzSoapReferenceToMimePartImp::clone() const {
    return new TzSoapReferenceToMimePartImp(*this);
}

bool TzSoapReferenceToMimePartImp::isSoapReference() const { return false; }

TzCString TzSoapReferenceToMimePartImp::textFor(const TzMimePart& part) {
    if (const auto id = part.getContentId()) {
        return "cid:" + *id;
    }
    if (auto location = part.getContentLocation()) {
        return *std::move(location);
    }
    TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_REFERENCE(), "identified")));
}

void TzSoapReferenceToMimePartImp::refer(const TzMimePart& part,
                                         const TzXmlAttribute::SharedValue& text) {
    accept(text, TzSoapVersion::Href);
    part_ = part;
}

void TzSoapReferenceToMimePartImp::setReference(const TzMimePart& part) {
    accept(textFor(part), TzSoapVersion::Href);
    part_ = part;
}

TzMimePart& TzSoapReferenceToMimePartImp::getMimeReference() {
    if (!hasReference()) {
        TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_REFERENCE(), "mime")));
    }
    return part_;
}
