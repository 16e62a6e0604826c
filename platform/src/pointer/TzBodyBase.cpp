// SPDX-License-Identifier: MIT
#include <tz/pointer/TzBodyBase.h>

#include "pointer/TzBlockRegions.h"
#include "pointer/TzTRing.h"

/// Bodies of this thread that have no reference left and wait for the deletion under way to end.
template <typename Lock> struct TzTCountingBody<Lock>::Waiting {
    TzTCountingBody* first = nullptr;
    bool deleting = false;

    static Waiting& ofThisThread() noexcept {
        // A look-up of 16 bytes that every program has room for; the usual one is a call.
        [[gnu::tls_model("initial-exec")]] static thread_local Waiting waiting;
        return waiting;
    }

    void push(TzTCountingBody* body) noexcept {
        body->count_ = reinterpret_cast<std::uintptr_t>(first);
        first = body;
    }

    TzTCountingBody* pop() noexcept {
        TzTCountingBody* body = first;
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the count's place serves the dead as a link
        first = reinterpret_cast<TzTCountingBody*>(body->count_);
        prefetch(body->count_);
        return body;
    }
};

template <typename Lock> void TzTCountingBody<Lock>::dispose(TzTCountingBody* body) noexcept {
    Waiting& waiting = Waiting::ofThisThread();
    if (waiting.deleting) {
        waiting.push(body);
        return;
    }
    waiting.deleting = true;
    delete body;
    while (waiting.first != nullptr) {
        delete waiting.pop();
    }
    waiting.deleting = false;
    TzBlockRegions::dropWaste();
}

template <typename Lock> void TzTCountingBody<Lock>::addInRing(std::uintptr_t ring) noexcept {
    TzTRing<Lock>::add(TzTRing<Lock>::countedAt(ring));
}

template <typename Lock> bool TzTCountingBody<Lock>::removeInRing(std::uintptr_t ring) noexcept {
    return TzTRing<Lock>::remove(TzTRing<Lock>::countedAt(ring));
}

template <typename Lock>
std::uintptr_t TzTCountingBody<Lock>::countInRing(std::uintptr_t ring) noexcept {
    return TzTRing<Lock>::count(TzTRing<Lock>::countedAt(ring));
}

template class TzTCountingBody<TzMutexLock>;
