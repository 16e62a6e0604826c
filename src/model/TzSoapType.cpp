// SPDX-License-Identifier: MIT
#include <soap/TzSoapType.h>

#include <soap/TzSoapTypeImp.h>

TzSoapType::TzSoapType() : TzSoapType(new TzSoapTypeImp()) {}

TzSoapType::TzSoapType(const TzXmlName& name) : TzSoapType(new TzSoapTypeImp(name)) {}

TzSoapType::TzSoapType(TzSoapTypeImp* body) noexcept : TzHandleBase(body) {}

[[gnu::hot]] TzSoapTypeImp& TzSoapType::body() const {
    return static_cast<TzSoapTypeImp&>(bodyBase());
}

TzSoapElementImp& TzSoapType::elementBody() const { return body(); }

TzXmlName& TzSoapType::getName() { return body().getName(); }

void TzSoapType::setName(const TzXmlName& name) { body().setName(name); }

TzCString TzSoapType::getActorAttribute() const { return body().getActorAttribute(); }

void TzSoapType::setActor(const TzCString& actor) { body().setActor(actor); }

void TzSoapType::removeActorAttribute() { body().removeActorAttribute(); }

bool TzSoapType::getMustUnderstand() const { return body().getMustUnderstand(); }

void TzSoapType::setMustUnderstand(bool mustUnderstand) {
    body().setMustUnderstand(mustUnderstand);
}

void TzSoapType::removeMustUnderstandAttribute() { body().removeMustUnderstandAttribute(); }

TzCString TzSoapType::getMustUnderstandAttribute() const {
    return body().getMustUnderstandAttribute();
}

TzCString TzSoapType::getMustUnderstandAttribute(TzSoapVersion::Version version) const {
    return body().getMustUnderstandAttribute(version);
}

TzSoapContentBase::SoapTypeId TzSoapType::getSoapTypeId() const { return body().getSoapTypeId(); }

const TzCString& TzSoapType::getSoapTypeIdAsString() const {
    return body().getSoapTypeIdAsString();
}

void TzSoapType::setNull(bool null) { body().setNull(null); }

bool TzSoapType::isNull() const { return body().isNull(); }

void TzSoapType::setEscapeText(EscapeText escape) { body().setEscapeText(escape); }

TzSoapContentBase::EscapeText TzSoapType::getEscapeText() const { return body().getEscapeText(); }

TzSoapType TzSoapType::copy() const {
    return TzSoapType(static_cast<TzSoapTypeImp*>(body().clone()));
}
