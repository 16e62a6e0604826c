// SPDX-License-Identifier: MIT
#include <soap/TzSoapSparseArrayType.h>

#include <soap/TzSoapSparseArrayImp.h>

#include "model/TzSoapBodyAs.h"

using Index = std::vector<unsigned int>;

TzSoapSparseArrayType::TzSoapSparseArrayType(const TzCString& elementType, unsigned int size)
    : TzSoapSparseArrayType(TzXmlName(), elementType, size) {}

TzSoapSparseArrayType::TzSoapSparseArrayType(const TzXmlName& name, const TzCString& elementType,
                                             unsigned int size)
    : TzSoapSparseArrayType(new TzSoapSparseArrayImp(name, elementType, size)) {}

TzSoapSparseArrayType::TzSoapSparseArrayType(const TzCString& elementType, const TzCString& bounds)
    : TzSoapSparseArrayType(TzXmlName(), elementType, bounds) {}

TzSoapSparseArrayType::TzSoapSparseArrayType(const TzXmlName& name, const TzCString& elementType,
                                             const TzCString& bounds)
    : TzSoapSparseArrayType(new TzSoapSparseArrayImp(name, elementType, bounds)) {}

TzSoapSparseArrayType::TzSoapSparseArrayType(const TzCString& elementType, const Index& bounds)
    : TzSoapSparseArrayType(TzXmlName(), elementType, bounds) {}

TzSoapSparseArrayType::TzSoapSparseArrayType(const TzXmlName& name, const TzCString& elementType,
                                             const Index& bounds)
    : TzSoapSparseArrayType(new TzSoapSparseArrayImp(name, elementType, bounds)) {}

TzSoapSparseArrayType::TzSoapSparseArrayType(TzSoapSparseArrayImp* body) noexcept
    : TzSoapArrayType(body) {}

TzSoapSparseArrayType::~TzSoapSparseArrayType() = default;

TzSoapSparseArrayImp& TzSoapSparseArrayType::body() const {
    return tzSoapBodyAs<TzSoapSparseArrayImp>(bodyBase(), "TzSoapSparseArrayType");
}

const TzSoapSparseArrayImp& TzSoapSparseArrayType::constBody() const { return body(); }

TzSoapSparseArrayType TzSoapSparseArrayType::copy() const {
    return TzSoapSparseArrayType(static_cast<TzSoapSparseArrayImp*>(body().clone()));
}

TzSoapSparseArrayType::iterator TzSoapSparseArrayType::begin() { return body().begin(); }

TzSoapSparseArrayType::iterator TzSoapSparseArrayType::end() { return body().end(); }

TzSoapSparseArrayType::const_iterator TzSoapSparseArrayType::begin() const {
    return constBody().begin();
}

TzSoapSparseArrayType::const_iterator TzSoapSparseArrayType::end() const {
    return constBody().end();
}
