// SPDX-License-Identifier: MIT
#include <soap/TzSoapDefaultType.h>

#include <soap/TzSoapDefaultTypeImp.h>

TzSoapDefaultType::TzSoapDefaultType() : TzSoapType(new TzSoapDefaultTypeImp()) {}

TzSoapDefaultType::TzSoapDefaultType(TzSoapTypeImp* body) noexcept : TzSoapType(body) {}

TzSoapDefaultType& TzSoapDefaultType::operator=(const TzSoapType& value) noexcept {
    TzSoapType::operator=(value);
    return *this;
}

TzSoapDefaultType TzSoapDefaultType::copy() const {
    return TzSoapDefaultType(static_cast<TzSoapTypeImp*>(body().clone()));
}
