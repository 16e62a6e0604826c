// SPDX-License-Identifier: MIT
#include <soap/TzSoapReferenceType.h>

#include <soap/TzSoapReferenceToMimePartImp.h>
#include <soap/TzSoapReferenceToSoapTypeImp.h>

#include "model/TzSoapBodyAs.h"

namespace {

TzSoapReferenceTypeImp* newBody(bool soapReference) {
    if (soapReference) {
        return new TzSoapReferenceToSoapTypeImp();
    }
    return new TzSoapReferenceToMimePartImp();
}

} // namespace

TzSoapReferenceType::TzSoapReferenceType(bool soapReference)
    : TzSoapReferenceType(newBody(soapReference)) {}

TzSoapReferenceType::TzSoapReferenceType(const TzXmlName& name)
    : TzSoapReferenceType(new TzSoapReferenceToSoapTypeImp(name)) {}

TzSoapReferenceType::TzSoapReferenceType(const TzXmlName& name, const TzSoapType& target)
    : TzSoapReferenceType(name) {
    setReference(target);
}

TzSoapReferenceType::TzSoapReferenceType(const TzXmlName& name, const TzMimePart& target)
    : TzSoapReferenceType(new TzSoapReferenceToMimePartImp(name)) {
    setReference(target);
}

TzSoapReferenceType::TzSoapReferenceType(TzSoapReferenceTypeImp* body) noexcept
    : TzSoapType(body) {}

TzSoapReferenceType::~TzSoapReferenceType() = default;

TzSoapReferenceTypeImp& TzSoapReferenceType::body() const {
    return tzSoapBodyAs<TzSoapReferenceTypeImp, TzSoapReferenceToSoapTypeImp,
                        TzSoapReferenceToMimePartImp>(bodyBase(), "TzSoapReferenceType");
}

TzSoapReferenceType TzSoapReferenceType::copy() const {
    return TzSoapReferenceType(static_cast<TzSoapReferenceTypeImp*>(body().clone()));
}

bool TzSoapReferenceType::hasReference() const { return body().hasReference(); }

bool TzSoapReferenceType::isMimeReference() const { return !body().isSoapReference(); }

void TzSoapReferenceType::setReference(const TzSoapType& target) { body().setReference(target); }

void TzSoapReferenceType::setReference(const TzMimePart& target) { body().setReference(target); }

TzSoapType& TzSoapReferenceType::getSoapReference() { return body().getSoapReference(); }

TzSoapType& TzSoapReferenceType::getSoapReference() const { return body().getSoapReference(); }

TzMimePart& TzSoapReferenceType::getMimeReference() { return body().getMimeReference(); }

TzMimePart& TzSoapReferenceType::getMimeReference() const { return body().getMimeReference(); }
