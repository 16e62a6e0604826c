// SPDX-License-Identifier: MIT
#include <tz/pointer/TzHandleBase.h>

#include <tz/thread/TzTHRInvalidPointer.h>

#include "pointer/TzTRing.h"

using Ring = TzTRing<TzMutexLock>;

void TzHandleBase::copyLink() noexcept {
    Ring::Member& member = Ring::memberOf(place_);
    Ring::add(member);
    place_ = placeOf(member.body);
}

void TzHandleBase::takeLink() noexcept {
    Ring::Member& member = Ring::memberOf(place_);
    Ring::turnLink(member);
    place_ = placeOf(member.body);
}

void TzHandleBase::releaseLink(Place link) noexcept { Ring::removeLink(Ring::memberOf(link)); }

TzBodyBase* TzHandleBase::linkedBody() const noexcept {
    return place_ == NoBody ? nullptr : Ring::memberOf(place_).body;
}

TzBodyBase& TzHandleBase::linkedBodyBase() const {
    TzBodyBase* const body = linkedBody();
    if (body == nullptr) {
        throw TzTHRInvalidPointer("Invalid pointer");
    }
    return *body;
}
