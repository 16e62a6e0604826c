// SPDX-License-Identifier: MIT
#include <soap/TzSoapVisitor.h>

#include "model/visiting/TzSoapDispatch.h"

TzSoapVisitor::~TzSoapVisitor() = default;

void TzSoapVisitor::doVisit(TzSoapType& value) {
    using Dispatch = TzSoapDispatch<TzSoapVisitedMutable, TzSoapVisitor, TzSoapType>;
    Dispatch::run(*this, value, {"TzSoapVisitor", 63});
}
