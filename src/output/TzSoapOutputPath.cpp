// SPDX-License-Identifier: MIT
#include "output/TzSoapOutputPath.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapMisunderstoodTypeImp.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapReferenceTypeImp.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapUserDefinedTypeImp.h>

#include "model/TzSoapAccess.h"

#include <utility>

void TzSoapOutputPath::assign(const TzSoapOutputPath& other) {
    context = TzSoapOutputContext(other.context);
    startTag.reset();
}

[[gnu::hot]] void TzSoapOutputPath::write(const TzSoapMisunderstoodType& value) {
    values.writeMisunderstood(TzSoapAccess::body(value), {});
}

[[gnu::hot]] void TzSoapOutputPath::write(TzSoapConstVisitor& visitor,
                                          const TzSoapReferenceType& value) {
    containers.write(visitor, TzSoapAccess::body(value));
}

[[gnu::hot]] void TzSoapOutputPath::write(const TzSoapUserDefinedType& value) {
    values.writeUserDefined(TzSoapAccess::body(value), {});
}

[[gnu::hot]] void TzSoapOutputPath::write(const TzSoapSimpleType& value) {
    values.writeSimple(TzSoapAccess::body(value));
}

[[gnu::hot]] void TzSoapOutputPath::write(TzSoapConstVisitor& visitor, const TzSoapFault& fault) {
    faults.write(visitor, TzSoapAccess::body(fault));
}

[[gnu::hot]] void TzSoapOutputPath::write(TzSoapConstVisitor& visitor,
                                          const TzSoapCompositeType& value) {
    TzSoapCompositeTypeImp& body = TzSoapAccess::body(value);
    containers.write(visitor, std::as_const(body).getName(), body);
}

[[gnu::hot]] void TzSoapOutputPath::write(TzSoapConstVisitor& visitor,
                                          const TzSoapSparseArrayType& value) {
    containers.write(visitor, TzSoapAccess::body(value));
}

[[gnu::hot]] void TzSoapOutputPath::write(TzSoapConstVisitor& visitor,
                                          const TzSoapCompactArrayType& value) {
    containers.write(visitor, TzSoapAccess::body(value));
}

[[gnu::hot]] void TzSoapOutputPath::write(const TzSoapType& value) {
    values.writeGeneric(TzSoapAccess::body(value), {});
}

[[gnu::hot]] void TzSoapOutputPath::write(TzSoapConstVisitor& visitor, const TzSoapBody& body) {
    messages.write(visitor, TzSoapAccess::body(body));
}

[[gnu::hot]] void TzSoapOutputPath::write(TzSoapConstVisitor& visitor, const TzSoapHeader& header) {
    messages.write(visitor, TzSoapAccess::body(header));
}

[[gnu::hot]] void TzSoapOutputPath::write(TzSoapConstVisitor& visitor,
                                          const TzSoapMessage& message) {
    messages.write(visitor, TzSoapAccess::body(message));
}
