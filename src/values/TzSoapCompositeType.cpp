// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeType.h>

#include <soap/TzSoapCompositeTypeImp.h>

#include "model/TzSoapBodyAs.h"

TzSoapCompositeType::TzSoapCompositeType() : TzSoapCompositeType(new TzSoapCompositeTypeImp()) {}

TzSoapCompositeType::TzSoapCompositeType(const TzXmlName& name)
    : TzSoapCompositeType(new TzSoapCompositeTypeImp(name)) {}

TzSoapCompositeType::TzSoapCompositeType(TzSoapCompositeTypeImp* body) noexcept
    : TzSoapType(body) {}

TzSoapCompositeType::~TzSoapCompositeType() = default;

TzSoapCompositeTypeImp& TzSoapCompositeType::body() const {
    return tzSoapBodyAs<TzSoapCompositeTypeImp>(bodyBase(), "TzSoapCompositeType");
}

TzSoapCompositeType TzSoapCompositeType::copy() const {
    return TzSoapCompositeType(static_cast<TzSoapCompositeTypeImp*>(body().clone()));
}

unsigned int TzSoapCompositeType::childCount() const { return body().childCount(); }

TzSoapCompositeType::iterator TzSoapCompositeType::childrenBegin() {
    return body().childrenBegin();
}

TzSoapCompositeType::const_iterator TzSoapCompositeType::childrenBegin() const {
    return body().childrenBegin();
}

TzSoapCompositeType::iterator TzSoapCompositeType::childrenEnd() { return body().childrenEnd(); }

TzSoapCompositeType::const_iterator TzSoapCompositeType::childrenEnd() const {
    return body().childrenEnd();
}

void TzSoapCompositeType::appendChild(const TzSoapType& child) { body().appendChild(child); }

void TzSoapCompositeType::prependChild(const TzSoapType& child) { body().prependChild(child); }

TzSoapCompositeType::iterator TzSoapCompositeType::insertChild(iterator position,
                                                               const TzSoapType& child) {
    return body().insertChild(position, child);
}

TzSoapCompositeType::iterator TzSoapCompositeType::removeChild(iterator position) {
    return body().removeChild(position);
}

void TzSoapCompositeType::removeChild(const TzXmlName& name) { body().removeChild(name); }

void TzSoapCompositeType::removeAllChildren(const TzXmlName& name) {
    body().removeAllChildren(name);
}

void TzSoapCompositeType::clearChildren() { body().clearChildren(); }

bool TzSoapCompositeType::hasText() const { return body().children().hasText(); }

TzCString TzSoapCompositeType::getTextBefore(const_iterator position) const {
    return body().children().textBefore(position);
}

void TzSoapCompositeType::setTextBefore(const_iterator position, const TzCString& text) {
    body().children().setTextBefore(position, text);
}

TzSoapCompositeType::iterator TzSoapCompositeType::findChild(const TzXmlName& name) {
    return body().findChild(name);
}

TzSoapCompositeType::const_iterator TzSoapCompositeType::findChild(const TzXmlName& name) const {
    return body().findChild(name);
}

bool operator==(const TzSoapCompositeType& left, const TzSoapCompositeType& right) {
    return left.getName() == right.getName();
}
