// SPDX-License-Identifier: MIT
#include <soap/TzSoapTypeImp.h>

#include "model/TzSoapLasting.h"

#include <utility>

TZSOAP_EARLY const TzCString TzSoapTypeImp::MyIdString = "Default";

TzSoapTypeImp::TzSoapTypeImp() = default;

TzSoapTypeImp::TzSoapTypeImp(TzXmlName name) : TzSoapElementImp(std::move(name)) {}

TzSoapTypeImp::TzSoapTypeImp(const TzSoapTypeImp& other) = default;

TzSoapContentBase::SoapTypeId TzSoapTypeImp::getSoapTypeId() const {
    return TzSoapContentBase::Generic;
}

const TzCString& TzSoapTypeImp::getSoapTypeIdAsString() const { return MyIdString; }

TzSoapElementImp* TzSoapTypeImp::clone() const { return new TzSoapTypeImp(*this); }

void TzSoapTypeImp::setNull(bool null) {
    getAttributeSet().setNullAttribute(null);
    setVerbatim(false); // the content that was read need not stay
}

bool TzSoapTypeImp::isNull() const { return getAttributeSet().getNullAttribute(); }

void TzSoapTypeImp::setEscapeText(TzSoapContentBase::EscapeText escape) { escapeText_ = escape; }

[[gnu::hot]] TzSoapContentBase::EscapeText TzSoapTypeImp::getEscapeText() const {
    return escapeText_;
}
