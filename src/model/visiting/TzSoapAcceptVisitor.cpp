// SPDX-License-Identifier: MIT
// How each handle calls the visitor that it is given.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapVisitor.h>

void TzSoapMessage::acceptVisitor(TzSoapVisitor& visitor) {
    static_cast<void>(bodyBase()); // a visitor sees no handle without a body
    visitor.visit(*this);
}

void TzSoapMessage::acceptVisitor(TzSoapConstVisitor& visitor) const {
    static_cast<void>(bodyBase()); // a visitor sees no handle without a body
    visitor.visit(*this);
}

void TzSoapHeader::acceptVisitor(TzSoapVisitor& visitor) {
    static_cast<void>(bodyBase()); // a visitor sees no handle without a body
    visitor.visit(*this);
}

void TzSoapHeader::acceptVisitor(TzSoapConstVisitor& visitor) const {
    static_cast<void>(bodyBase()); // a visitor sees no handle without a body
    visitor.visit(*this);
}

void TzSoapBody::acceptVisitor(TzSoapVisitor& visitor) {
    static_cast<void>(bodyBase()); // a visitor sees no handle without a body
    visitor.visit(*this);
}

void TzSoapBody::acceptVisitor(TzSoapConstVisitor& visitor) const {
    static_cast<void>(bodyBase()); // a visitor sees no handle without a body
    visitor.visit(*this);
}

void TzSoapFault::acceptVisitor(TzSoapVisitor& visitor) {
    static_cast<void>(bodyBase()); // a visitor sees no handle without a body
    visitor.visit(*this);
}

void TzSoapFault::acceptVisitor(TzSoapConstVisitor& visitor) const {
    static_cast<void>(bodyBase()); // a visitor sees no handle without a body
    visitor.visit(*this);
}

void TzSoapType::acceptVisitor(TzSoapVisitor& visitor) { visitor.doVisit(*this); }

void TzSoapType::acceptVisitor(TzSoapConstVisitor& visitor) const { visitor.doVisit(*this); }
