// SPDX-License-Identifier: MIT
#include <soap/TzSoapReferenceToSoapTypeImp.h>

#include <soap/TzSoapCatalog.h>
#include <tz/pointer/TzBodyRing.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>

#include "model/TzSoapAccess.h"

#include <utility>

namespace {

TzSoapType noTarget() {
    return TzSoapAccess::handle<TzSoapType>(static_cast<TzSoapTypeImp*>(nullptr));
}

} // namespace

TzSoapReferenceToSoapTypeImp::TzSoapReferenceToSoapTypeImp()
    : TzSoapReferenceToSoapTypeImp(TzXmlName()) {}

TzSoapReferenceToSoapTypeImp::TzSoapReferenceToSoapTypeImp(TzXmlName name)
    : TzSoapReferenceTypeImp(std::move(name)), target_(noTarget()) {}

TzSoapReferenceToSoapTypeImp::TzSoapReferenceToSoapTypeImp(
    const TzSoapReferenceToSoapTypeImp& other) = default;

TzSoapReferenceToSoapTypeImp::~TzSoapReferenceToSoapTypeImp() = default;

TzSoapElementImp* TzSoapReferenceToSoapTypeImp::clone() const {
    return new TzSoapReferenceToSoapTypeImp(*this);
}

bool TzSoapReferenceToSoapTypeImp::isSoapReference() const { return true; }

void TzSoapReferenceToSoapTypeImp::setReference(const TzSoapType& target) {
    const TzCString& id = TzSoapAccess::body(target).getIdAttribute();
    if (id.empty()) {
        TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_REFERENCE(), "identified")));
    }
    accept("#" + id, TzSoapVersion::Ref);
    target_ = target;
    TzBodyRing::join(*this, target_); // a ring of the reading stays a ring
}

TzSoapType& TzSoapReferenceToSoapTypeImp::getSoapReference() {
    if (!hasReference()) {
        TzThrow(TzXmlBadArgError(TzMessage(tzsoap_BAD_REFERENCE(), "soap")));
    }
    return target_;
}

void TzSoapReferenceToSoapTypeImp::clearReference() noexcept {
    forgetReference();
    target_ = noTarget();
}
