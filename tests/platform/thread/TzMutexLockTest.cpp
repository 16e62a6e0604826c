// SPDX-License-Identifier: MIT
#include <tz/thread/TzMutexLock.h>

#include <gtest/gtest.h>

#include <tz/thread/TzTMonitor.h>

#include <type_traits>

TEST(TzMutexLock, TakesOneByte) { EXPECT_EQ(sizeof(TzMutexLock), 1U); }

TEST(TzMutexLock, IsFreeAgainAfterRelease) {
    TzMutexLock lock;
    for (int i = 0; i < 3; ++i) {
        lock.acquire();
        lock.release();
    }
    static_assert(!std::is_copy_constructible_v<TzMutexLock>);
}

namespace {

/// Counts calls instead of locking.
struct CountingLock {
    void acquire() { ++acquired; }
    void release() { ++released; }
    int acquired = 0;
    int released = 0;
};

struct Monitored : TzTMonitor<CountingLock> {
    void enter() const { const Guard guard(lock()); }
    const CountingLock& counts() const { return lock(); }
};

} // namespace

TEST(TzTMonitor, GuardHoldsTheLockForItsLife) {
    const Monitored monitored;
    monitored.enter();
    monitored.enter();
    EXPECT_EQ(monitored.counts().acquired, 2);
    EXPECT_EQ(monitored.counts().released, 2);
}

TEST(TzTMonitor, CopiesHaveALockOfTheirOwn) {
    Monitored first;
    first.enter();
    Monitored second(first);
    EXPECT_EQ(second.counts().acquired, 0);
    second.enter();
    second.enter();
    first = second;
    EXPECT_EQ(first.counts().acquired, 1);
}
