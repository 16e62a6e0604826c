// SPDX-License-Identifier: MIT
#pragma once

#include <tz/thread/TzMutexLock.h>
#include <tz/thread/TzTMonitor.h>

#include <atomic>
#include <optional>
#include <utility>

/// A handle of a value that the first `get` makes; several threads may call `get` at once.
///
/// A copy shares the value, so copying makes it.
template <typename Handle> class TzSoapMadeOnce : private TzTMonitor<TzMutexLock> {
public:
    TzSoapMadeOnce() noexcept = default;
    TzSoapMadeOnce(const TzSoapMadeOnce& other)
        : TzTMonitor<TzMutexLock>(other), handle_(other.get()), made_(true) {}
    TzSoapMadeOnce& operator=(const TzSoapMadeOnce&) = delete;
    ~TzSoapMadeOnce() = default;

    /// The value, valid as long as this object.
    const Handle& get() const {
        if (!made_.load(std::memory_order_acquire)) {
            make();
        }
        return *handle_;
    }
    /// The value, null before the first `get`.
    const Handle* find() const noexcept {
        return made_.load(std::memory_order_acquire) ? &*handle_ : nullptr;
    }

private:
    void make() const {
        Handle fresh; // takes memory, so it comes before the lock
        const Guard guard(lock());
        if (!made_.load(std::memory_order_relaxed)) {
            handle_ = std::move(fresh);
            made_.store(true, std::memory_order_release);
        }
    }

    mutable std::optional<Handle> handle_;
    mutable std::atomic<bool> made_{false};
};
