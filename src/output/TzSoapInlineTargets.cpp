// SPDX-License-Identifier: MIT
#include "output/TzSoapInlineTargets.h"

#include <soap/TzSoapReferenceTypeImp.h>

#include "model/TzSoapAccess.h"
#include "model/TzSoapVersionTable.h"
#include "values/TzSoapHeldValues.h"

#include <utility>

namespace {

bool isSimple(const TzSoapTypeImp& value) {
    return value.getSoapTypeId() == TzSoapContentBase::Simple;
}

bool isReference(const TzSoapTypeImp& value) {
    return value.getSoapTypeId() == TzSoapContentBase::Reference;
}

} // namespace

TzSoapInlineTargets::Id TzSoapInlineTargets::idOf(const TzSoapTypeImp& value) {
    const TzSoapAttributeSet& attributes = value.getAttributeSet();
    if (attributes.empty()) {
        return {};
    }
    const TzXmlName& encoded = TzSoapVersionTable::soap12Rec().term(TzSoapVersionTable::Id);
    return {attributes.find(encoded) != attributes.end(), value.getIdAttribute()};
}

void TzSoapInlineTargets::add(TzSoapTypeImp& value) {
    isEmpty_ = false;
    settle(value);
    // What a reference was found to refer to was searched then.
    if (!found_.contains(&value)) {
        findReferences(value);
    }
}

void TzSoapInlineTargets::settle(TzSoapTypeImp& value) {
    const auto take = [this](TzSoapTypeImp& body) {
        if (Id id = idOf(body); !id.second.empty()) {
            settled_.insert(std::move(id));
        }
        // The target of a reference does not stand there.
        if (!isSimple(body) && !isReference(body) && standing_.isNew(body)) {
            waiting_.push_back(&body);
        }
    };
    take(value);
    while (!waiting_.empty()) {
        TzSoapTypeImp& next = *waiting_.back();
        waiting_.pop_back();
        TzSoapHeldValues::forEachHeld(
            next, [&take](const TzSoapType& held) { take(TzSoapAccess::body(held)); });
    }
}

void TzSoapInlineTargets::findReferences(TzSoapTypeImp& value) {
    const auto take = [this](TzSoapTypeImp& body) {
        if (!isSimple(body) && searched_.isNew(body)) {
            waiting_.push_back(&body);
        }
    };
    take(value);
    while (!waiting_.empty()) {
        TzSoapTypeImp& next = *waiting_.back();
        waiting_.pop_back();
        TzSoapHeldValues::forEachHeld(next, [&](const TzSoapType& held) {
            TzSoapTypeImp& body = TzSoapAccess::body(held);
            if (!isReference(next)) {
                take(body);
            } else if (found_.insert(&body).second) {
                referred_.insert(idOf(body));
                waiting_.push_back(&body);
            }
        });
    }
}

bool TzSoapInlineTargets::takePlace(TzSoapReferenceTypeImp& reference) {
    if (!reference.isSoapReference() || !reference.hasReference()) {
        return false;
    }
    TzSoapTypeImp& body = TzSoapAccess::body(reference.getSoapReference());
    const Id id = idOf(body);
    // A value that has lost its id meanwhile must also be written only once, or a ring would never
    // end.
    const bool due =
        id.second.empty() ? placedWithoutId_.insert(&body).second : !settled_.contains(id);
    if (due) {
        add(body);
    }
    return due;
}

bool TzSoapInlineTargets::isRepeated(const TzSoapTypeImp& value) {
    const Id id = idOf(value);
    return !id.second.empty() && referred_.contains(id) && !written_.insert(id).second;
}

void TzSoapInlineTargets::clear() { *this = TzSoapInlineTargets(); }
