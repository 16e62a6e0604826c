// SPDX-License-Identifier: MIT
#include "output/TzSoapReferenceBook.h"

#include <soap/TzSoapTypeImp.h>

#include "model/TzSoapAccess.h"

void TzSoapReferenceBook::noteWritten(const TzSoapTypeImp& value) {
    if (value.getAttributeSet().empty()) {
        return;
    }
    const TzCString& id = value.getIdAttribute();
    if (!id.empty()) {
        // The map holds a handle, and only a body that is not const can have a handle.
        auto& body = const_cast<TzSoapTypeImp&>(value);
        writtenIds_.emplace(id, TzSoapAccess::handle<TzSoapType>(&body));
    }
}

void TzSoapReferenceBook::noteReference(const TzSoapType& target) {
    targets_.emplace_back(TzSoapAccess::body(target).getIdAttribute(), target);
}

bool TzSoapReferenceBook::isDue(const Target& target) {
    const auto& [id, value] = target;
    return id.empty() ? writtenWithoutId_.insert(&TzSoapAccess::body(value)).second
                      : writtenIds_.find(id) == writtenIds_.end();
}

void TzSoapReferenceBook::noteAttachment() noexcept {
    attached_ = true;
    entriesAttached_ |= !writesTargets_;
}
