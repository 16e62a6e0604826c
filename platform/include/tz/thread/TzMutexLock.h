// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>

#include <sys/single_threaded.h>

#include <atomic>

/// A lock of one byte for sections of a few instructions.
///
/// Small enough to sit in every counted body; not recursive. A thread that finds it taken spins a
/// moment, then yields, so a holder that was scheduled away does not burn the others' time.
class TZ_PLATFORM_API TzMutexLock {
public:
    /// A free lock.
    TzMutexLock() noexcept = default;
    TzMutexLock(const TzMutexLock&) = delete;
    TzMutexLock& operator=(const TzMutexLock&) = delete;

    /// Takes the lock, waiting until it is free.
    void acquire() noexcept {
        if (__libc_single_threaded != 0) {
            taken_.store(true, std::memory_order_relaxed); // no other thread can take it
        } else if (taken_.exchange(true, std::memory_order_acquire)) [[unlikely]] {
            acquireSlowly();
        }
    }
    /// Gives the lock back; only its holder may call this.
    void release() noexcept { taken_.store(false, std::memory_order_release); }

private:
    void acquireSlowly() noexcept;

    std::atomic<bool> taken_{false};
};
