// SPDX-License-Identifier: MIT
#include <tz/pointer/TzBodyBase.h>

/// Bodies of this thread that have no reference left and wait for the deletion under way to end.
template <typename Lock> struct TzTCountingBody<Lock>::Waiting {
    TzTCountingBody* first = nullptr;
    bool deleting = false;

    static Waiting& ofThisThread() noexcept {
        static thread_local Waiting waiting;
        return waiting;
    }

    void push(TzTCountingBody* body) noexcept {
        body->countOrNext_ = reinterpret_cast<std::uintptr_t>(first);
        first = body;
    }

    TzTCountingBody* pop() noexcept {
        TzTCountingBody* body = first;
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the count's place serves the dead as a link
        first = reinterpret_cast<TzTCountingBody*>(body->countOrNext_);
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
}

template class TzTCountingBody<TzMutexLock>;
