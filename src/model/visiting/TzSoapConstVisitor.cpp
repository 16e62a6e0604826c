// SPDX-License-Identifier: MIT
#include <soap/TzSoapConstVisitor.h>

#include "model/visiting/TzSoapDispatch.h"

TzSoapConstVisitor::~TzSoapConstVisitor() = default;

void TzSoapConstVisitor::doVisit(const TzSoapType& value) {
    using Dispatch = TzSoapDispatch<TzSoapVisitedConst, TzSoapConstVisitor, const TzSoapType>;
    Dispatch::run(*this, value, {"TzSoapConstVisitor", 63});
}
