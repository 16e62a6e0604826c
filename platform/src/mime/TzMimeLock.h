// SPDX-License-Identifier: MIT
#pragma once

#include <tz/thread/TzMutexLock.h>

/// Holds a lock as long as it lives.
class TzMimeLock {
public:
    explicit TzMimeLock(TzMutexLock& lock) noexcept : lock_(lock) { lock_.acquire(); }
    ~TzMimeLock() { lock_.release(); }
    TzMimeLock(const TzMimeLock&) = delete;
    TzMimeLock& operator=(const TzMimeLock&) = delete;

private:
    TzMutexLock& lock_;
};
