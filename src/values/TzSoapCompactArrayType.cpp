// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayType.h>

#include <soap/TzSoapCompactArrayImp.h>

#include "model/TzSoapBodyAs.h"

using Index = std::vector<unsigned int>;

TzSoapCompactArrayType::TzSoapCompactArrayType(const TzCString& elementType, unsigned int size,
                                               unsigned int start)
    : TzSoapCompactArrayType(TzXmlName(), elementType, size, start) {}

TzSoapCompactArrayType::TzSoapCompactArrayType(const TzXmlName& name, const TzCString& elementType,
                                               unsigned int size, unsigned int start)
    : TzSoapCompactArrayType(new TzSoapCompactArrayImp(name, elementType, size, start)) {}

TzSoapCompactArrayType::TzSoapCompactArrayType(const TzCString& elementType,
                                               const TzCString& bounds, const TzCString& start)
    : TzSoapCompactArrayType(TzXmlName(), elementType, bounds, start) {}

TzSoapCompactArrayType::TzSoapCompactArrayType(const TzXmlName& name, const TzCString& elementType,
                                               const TzCString& bounds, const TzCString& start)
    : TzSoapCompactArrayType(new TzSoapCompactArrayImp(name, elementType, bounds, start)) {}

TzSoapCompactArrayType::TzSoapCompactArrayType(const TzCString& elementType, const Index& bounds,
                                               const Index& start)
    : TzSoapCompactArrayType(TzXmlName(), elementType, bounds, start) {}

TzSoapCompactArrayType::TzSoapCompactArrayType(const TzXmlName& name, const TzCString& elementType,
                                               const Index& bounds, const Index& start)
    : TzSoapCompactArrayType(new TzSoapCompactArrayImp(name, elementType, bounds, start)) {}

TzSoapCompactArrayType::TzSoapCompactArrayType(const TzSoapCompactArrayType& other,
                                               const Index& newBounds)
    : TzSoapCompactArrayType(new TzSoapCompactArrayImp(other.body(), newBounds)) {}

TzSoapCompactArrayType::TzSoapCompactArrayType(const TzXmlName& name,
                                               const TzSoapCompactArrayType& other,
                                               const Index& newBounds)
    : TzSoapCompactArrayType(other, newBounds) {
    setName(name);
}

TzSoapCompactArrayType::TzSoapCompactArrayType(TzSoapCompactArrayImp* body) noexcept
    : TzSoapArrayType(body) {}

TzSoapCompactArrayType::~TzSoapCompactArrayType() = default;

TzSoapCompactArrayImp& TzSoapCompactArrayType::body() const {
    return tzSoapBodyAs<TzSoapCompactArrayImp>(bodyBase(), "TzSoapCompactArrayType");
}

const TzSoapCompactArrayImp& TzSoapCompactArrayType::constBody() const { return body(); }

TzSoapCompactArrayType TzSoapCompactArrayType::copy() const {
    return TzSoapCompactArrayType(static_cast<TzSoapCompactArrayImp*>(body().clone()));
}

unsigned int TzSoapCompactArrayType::entries() const { return body().entries(); }

std::vector<unsigned int> TzSoapCompactArrayType::assignedPositions() const {
    return constBody().assignedPositions();
}

TzSoapDefaultType* TzSoapCompactArrayType::begin() { return body().begin(); }

TzSoapDefaultType* TzSoapCompactArrayType::end() { return body().end(); }

const TzSoapDefaultType* TzSoapCompactArrayType::begin() const { return constBody().begin(); }

const TzSoapDefaultType* TzSoapCompactArrayType::end() const { return constBody().end(); }
