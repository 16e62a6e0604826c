// SPDX-License-Identifier: MIT
#include <tz/pointer/TzHandleBase.h>

#include <tz/thread/TzTHRInvalidPointer.h>

#include "pointer/TzTRing.h"

using Ring = TzTRing<TzMutexLock>;

TzHandleBase::Place TzHandleBase::shareLink(Place link) noexcept {
    Ring::Member& member = Ring::memberOf(link);
    Ring::add(member);
    return placeOf(member.body);
}

TzHandleBase::Place TzHandleBase::leaveRing(Place link) noexcept {
    Ring::Member& member = Ring::memberOf(link);
    Ring::turnLink(member);
    return placeOf(member.body);
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
