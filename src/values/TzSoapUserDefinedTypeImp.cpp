// SPDX-License-Identifier: MIT
#include <soap/TzSoapUserDefinedTypeImp.h>

#include <soap/TzSoapUtils.h>

#include <utility>

TzSoapUserDefinedTypeImp::TzSoapUserDefinedTypeImp() = default;

TzSoapUserDefinedTypeImp::TzSoapUserDefinedTypeImp(TzXmlName name, TzCString markup)
    : TzSoapTypeImp(std::move(name)), value_(std::move(markup)) {}

TzSoapUserDefinedTypeImp::TzSoapUserDefinedTypeImp(const TzSoapUserDefinedTypeImp& other) = default;

TzSoapUserDefinedTypeImp::~TzSoapUserDefinedTypeImp() = default;

TzSoapContentBase::SoapTypeId TzSoapUserDefinedTypeImp::getSoapTypeId() const {
    return TzSoapContentBase::UserDefined;
}

const TzCString& TzSoapUserDefinedTypeImp::getSoapTypeIdAsString() const {
    return TzSoapUtils::userDefinedString;
}

TzSoapElementImp* TzSoapUserDefinedTypeImp::clone() const {
    return new TzSoapUserDefinedTypeImp(*this);
}

void TzSoapUserDefinedTypeImp::setValue(TzCString markup) noexcept {
    value_ = std::move(markup);
    markup_.clear();
    declarations_.clear();
}

void TzSoapUserDefinedTypeImp::setMarkup(TzCString markup,
                                         std::vector<TzXmlNamespace> declarations) noexcept {
    markup_ = std::move(markup);
    declarations_ = std::move(declarations);
}
