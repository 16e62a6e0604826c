// SPDX-License-Identifier: MIT
#include <soap/TzSoapMisunderstoodType.h>

#include <soap/TzSoapMisunderstoodTypeImp.h>

#include "model/TzSoapBodyAs.h"

TzSoapMisunderstoodType::TzSoapMisunderstoodType()
    : TzSoapMisunderstoodType(new TzSoapMisunderstoodTypeImp()) {}

TzSoapMisunderstoodType::TzSoapMisunderstoodType(const TzXmlName& qname)
    : TzSoapMisunderstoodType(new TzSoapMisunderstoodTypeImp(qname)) {}

TzSoapMisunderstoodType::TzSoapMisunderstoodType(TzSoapMisunderstoodTypeImp* body) noexcept
    : TzSoapType(body) {}

TzSoapMisunderstoodType::~TzSoapMisunderstoodType() = default;

TzSoapMisunderstoodTypeImp& TzSoapMisunderstoodType::body() const {
    return tzSoapBodyAs<TzSoapMisunderstoodTypeImp>(bodyBase(), "TzSoapMisunderstoodType");
}

TzSoapMisunderstoodType TzSoapMisunderstoodType::copy() const {
    return TzSoapMisunderstoodType(static_cast<TzSoapMisunderstoodTypeImp*>(body().clone()));
}

TzXmlName TzSoapMisunderstoodType::getQualifiedName() const { return body().getQualifiedName(); }

void TzSoapMisunderstoodType::setQualifiedName(const TzXmlName& qname) {
    body().setQualifiedName(qname);
}
