// SPDX-License-Identifier: MIT
#include <tz/thread/TzMutexLock.h>

#include <thread>

void TzMutexLock::acquireSlowly() noexcept {
    // The sections are a few instructions long: spin for a moment before yielding the processor.
    constexpr int SpinsBeforeYield = 64;
    for (int spins = 0; taken_.exchange(true, std::memory_order_acquire); ++spins) {
        while (taken_.load(std::memory_order_relaxed)) {
            if (++spins > SpinsBeforeYield) {
                std::this_thread::yield();
            }
        }
    }
}
