// SPDX-License-Identifier: MIT
#include <tz/pointer/TzBodyRing.h>

#include <tz/pointer/TzHandleBase.h>

#include "pointer/TzTRing.h"

using Ring = TzTRing<TzMutexLock>;

void TzBodyRing::close(std::span<TzBodyBase* const> bodies, std::span<TzHandleBase* const> links) {
    Ring& ring = *new Ring(bodies); // deletes itself
    ring.takeCounts();
    for (TzHandleBase* link : links) {
        Ring::Member& member = *Ring::find(link->bodyBase());
        Ring::addLink(member);
        link->place_ = Ring::numberOf(member);
    }
    ring.letGo();
}

void TzBodyRing::join(const TzBodyBase& holder, TzHandleBase& handle) noexcept {
    if (!TzHandleBase::isBody(handle.place_)) {
        return;
    }
    const Ring::Member* const from = Ring::find(holder);
    Ring::Member* const to = from == nullptr ? nullptr : Ring::find(*handle.bodyPointer());
    if (to != nullptr && to->ring == from->ring && Ring::addLinkIfHeld(*to)) {
        handle.place_ = Ring::numberOf(*to);
    }
}

bool TzBodyRing::contains(const TzBodyBase& body) noexcept { return Ring::find(body) != nullptr; }
