// SPDX-License-Identifier: MIT
#pragma once

/// Base of objects that guard part of their state by a lock.
///
/// The lock belongs to the object, not to its value: copying leaves both locks as they are.
template <typename Lock> class TzTMonitor {
protected:
    /// Holds the monitor's lock as long as it lives.
    class Guard {
    public:
        explicit Guard(Lock& lock) noexcept : lock_(lock) { lock_.acquire(); }
        ~Guard() { lock_.release(); }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;

    private:
        Lock& lock_;
    };

    TzTMonitor() noexcept = default;
    TzTMonitor(const TzTMonitor&) noexcept {}
    TzTMonitor& operator=(const TzTMonitor&) noexcept { return *this; }
    ~TzTMonitor() = default;

    /// The lock itself.
    Lock& lock() const noexcept { return lock_; }

private:
    mutable Lock lock_;
};
