// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeTypeImp.h>

#include <soap/TzSoapUtils.h>

#include <utility>

TzSoapCompositeTypeImp::TzSoapCompositeTypeImp() = default;

TzSoapCompositeTypeImp::TzSoapCompositeTypeImp(TzXmlName name) : TzSoapTypeImp(std::move(name)) {}

TzSoapCompositeTypeImp::TzSoapCompositeTypeImp(const TzSoapCompositeTypeImp& other) = default;

[[gnu::hot]] TzSoapContentBase::SoapTypeId TzSoapCompositeTypeImp::getSoapTypeId() const {
    return TzSoapContentBase::Composite;
}

const TzCString& TzSoapCompositeTypeImp::getSoapTypeIdAsString() const {
    return TzSoapUtils::compositeString;
}

TzSoapElementImp* TzSoapCompositeTypeImp::clone() const {
    return new TzSoapCompositeTypeImp(*this);
}
