// SPDX-License-Identifier: MIT
#include <soap/TzSoapUserDefinedType.h>

#include <soap/TzSoapUserDefinedTypeImp.h>

TzSoapUserDefinedType::TzSoapUserDefinedType()
    : TzSoapUserDefinedType(new TzSoapUserDefinedTypeImp()) {}

TzSoapUserDefinedType::TzSoapUserDefinedType(TzSoapUserDefinedTypeImp* body) noexcept
    : TzSoapType(body) {}

TzSoapUserDefinedType::~TzSoapUserDefinedType() = default;

TzSoapUserDefinedTypeImp& TzSoapUserDefinedType::body() const {
    return static_cast<TzSoapUserDefinedTypeImp&>(bodyBase());
}

TzSoapUserDefinedType TzSoapUserDefinedType::copy() const {
    return TzSoapUserDefinedType(static_cast<TzSoapUserDefinedTypeImp*>(body().clone()));
}

TzCString TzSoapUserDefinedType::getValue() const { return body().getValue(); }
