// SPDX-License-Identifier: MIT
#include <tz/thread/TzTSpares.h>

#include <mutex>

namespace {

// Neither has a destructor, because a `TzTSpares` of another library may end after the statics of
// this one.
constinit std::mutex listLock;
constinit TzSpares* list = nullptr;

} // namespace

TzSpares::TzSpares() noexcept {
    const std::lock_guard guard(listLock);
    next_ = list;
    list = this;
}

void TzSpares::end() noexcept {
    const std::lock_guard guard(listLock);
    TzSpares** place = &list;
    while (*place != this) {
        place = &(*place)->next_;
    }
    *place = next_;
}

[[gnu::hot]] std::size_t TzSpares::threadNumber() noexcept {
    static constinit std::atomic<std::size_t> latest{0};
    // A look-up of 8 bytes that every program has room for; the usual one is a call. No destructor,
    // because it would keep a library that is to be unloaded.
    [[gnu::tls_model("initial-exec")]] static thread_local std::size_t number = 0; // from 1
    if (number == 0) {
        number = latest.fetch_add(1, std::memory_order_relaxed) + 1;
    }
    return number - 1;
}

void TzSpares::dropOfThisThread() noexcept {
    const std::lock_guard guard(listLock);
    for (TzSpares* spares = list; spares != nullptr; spares = spares->next_) {
        spares->drop();
    }
}
