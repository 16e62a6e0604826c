// SPDX-License-Identifier: MIT
#pragma once

#include <sys/single_threaded.h>

#include <atomic>
#include <cstddef>

/// How many users something has, who may live on different threads.
class TzUseCount {
public:
    /// Starts with `users` users.
    explicit TzUseCount(std::ptrdiff_t users = 1) noexcept : users_(users) {}
    TzUseCount(const TzUseCount&) = delete;
    TzUseCount& operator=(const TzUseCount&) = delete;

    /// One user more; the caller is a user already.
    void add() noexcept { change(1); }
    /// `users` users less; true when they were the last ones and the caller must dispose of what
    /// they used.
    [[nodiscard]] bool leave(std::ptrdiff_t users = 1) noexcept { return change(-users) == users; }

private:
    // Returns what the count was. Without a second thread it needs no locked instruction.
    std::ptrdiff_t change(std::ptrdiff_t by) noexcept {
        if (__libc_single_threaded != 0) {
            const std::ptrdiff_t before = users_.load(std::memory_order_relaxed);
            users_.store(before + by, std::memory_order_relaxed);
            return before;
        }
        return users_.fetch_add(by, std::memory_order_acq_rel);
    }

    std::atomic<std::ptrdiff_t> users_;
};
