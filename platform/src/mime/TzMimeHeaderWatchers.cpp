// SPDX-License-Identifier: MIT
#include "mime/TzMimeHeaderWatchers.h"

namespace {

void raiseFlag(const std::weak_ptr<std::atomic<bool>>& watcher) noexcept {
    if (const auto changed = watcher.lock()) {
        changed->store(true, std::memory_order_release);
    }
}

} // namespace

void TzMimeHeaderWatchers::add(const std::weak_ptr<std::atomic<bool>>& changed) {
    const Guard guard(lock());
    if (first_.expired()) {
        first_ = changed;
        return;
    }
    others_.remove_if([](const auto& watcher) { return watcher.expired(); });
    others_.push_front(changed);
}

void TzMimeHeaderWatchers::raise() {
    const Guard guard(lock());
    raiseFlag(first_);
    for (const std::weak_ptr<std::atomic<bool>>& watcher : others_) {
        raiseFlag(watcher);
    }
    others_.clear();
}
