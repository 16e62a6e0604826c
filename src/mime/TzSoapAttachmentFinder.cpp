// SPDX-License-Identifier: MIT
#include "mime/TzSoapAttachmentFinder.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapTypeImp.h>

#include "model/TzSoapAccess.h"

void TzSoapAttachmentFinder::visit(const TzSoapMisunderstoodType&) {}

void TzSoapAttachmentFinder::visit(const TzSoapReferenceType& value) {
    if (!value.hasReference()) {
        return;
    }
    if (value.isMimeReference()) {
        found_ = true;
    } else if (targets_ == Targets::Visited) {
        enqueue(value.getSoapReference());
        walk();
    }
}

void TzSoapAttachmentFinder::visit(const TzSoapUserDefinedType&) { foundUserDefined_ = true; }

void TzSoapAttachmentFinder::visit(const TzSoapSimpleType&) {}

void TzSoapAttachmentFinder::visit(const TzSoapFault& fault) {
    enqueue(fault.getDetails());
    walk();
}

void TzSoapAttachmentFinder::visit(const TzSoapCompositeType& value) {
    for (auto child = value.childrenBegin(); child != value.childrenEnd(); ++child) {
        enqueue(*child);
    }
    walk();
}

void TzSoapAttachmentFinder::visit(const TzSoapSparseArrayType& value) {
    for (const auto& [index, item] : value) {
        enqueue(item);
    }
    walk();
}

void TzSoapAttachmentFinder::visit(const TzSoapCompactArrayType& value) {
    for (const TzSoapDefaultType& item : TzSoapAccess::body(value).storedItems()) {
        enqueue(item);
    }
    walk();
}

void TzSoapAttachmentFinder::visit(const TzSoapArrayType&) {}

void TzSoapAttachmentFinder::visit(const TzSoapType&) {}

void TzSoapAttachmentFinder::visit(const TzSoapBody& body) {
    if (body.hasSoapFault()) {
        body.getSoapFault().acceptVisitor(*this);
    }
    for (auto entry = body.entriesBegin(); entry != body.entriesEnd(); ++entry) {
        enqueue(*entry);
    }
    walk();
}

void TzSoapAttachmentFinder::visit(const TzSoapHeader& header) {
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        enqueue(*entry);
    }
    walk();
}

void TzSoapAttachmentFinder::visit(const TzSoapMessage& message) {
    message.getSoapHeader().acceptVisitor(*this);
    message.getSoapBody().acceptVisitor(*this);
}

void TzSoapAttachmentFinder::enqueue(const TzSoapType& value) {
    // Most values are simple: visit them without the list.
    const TzSoapTypeImp& body = TzSoapAccess::body(value);
    if (body.getSoapTypeId() != TzSoapContentBase::Simple && met_.isNew(body)) {
        waiting_.push_back(&value);
    }
}

void TzSoapAttachmentFinder::walk() {
    if (walking_) {
        return;
    }
    walking_ = true;
    while (!waiting_.empty()) {
        const TzSoapType& value = *waiting_.back();
        waiting_.pop_back();
        value.acceptVisitor(*this);
    }
    walking_ = false;
}
