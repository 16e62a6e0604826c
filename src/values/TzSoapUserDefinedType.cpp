// SPDX-License-Identifier: MIT
#include <soap/TzSoapUserDefinedType.h>

#include <soap/TzSoapUserDefinedTypeImp.h>

#include "model/TzSoapBodyAs.h"

TzSoapUserDefinedType::TzSoapUserDefinedType()
    : TzSoapUserDefinedType(new TzSoapUserDefinedTypeImp()) {}

TzSoapUserDefinedType::TzSoapUserDefinedType(TzSoapUserDefinedTypeImp* body) noexcept
    : TzSoapType(body) {}

TzSoapUserDefinedType::~TzSoapUserDefinedType() = default;

TzSoapUserDefinedTypeImp& TzSoapUserDefinedType::body() const {
    return tzSoapBodyAs<TzSoapUserDefinedTypeImp>(bodyBase(), "TzSoapUserDefinedType");
}

TzSoapUserDefinedType TzSoapUserDefinedType::copy() const {
    return TzSoapUserDefinedType(static_cast<TzSoapUserDefinedTypeImp*>(body().clone()));
}

TzCString TzSoapUserDefinedType::getValue() const { return body().getValue(); }
