// SPDX-License-Identifier: MIT
#include <tz/thread/TzMutexLock.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

TEST(TzMutexLockThread, LetsOneThreadInAtATime) {
    constexpr int Threads = 4;
    constexpr int Rounds = 20000;
    TzMutexLock lock;
    int counter = 0; // not atomic on purpose
    std::vector<std::thread> threads;
    for (int i = 0; i < Threads; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < Rounds; ++round) {
                lock.acquire();
                ++counter;
                lock.release();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(counter, Threads * Rounds);
}

TEST(TzMutexLockThread, WaitsForTheHolder) {
    TzMutexLock lock;
    int value = 0;
    lock.acquire();
    std::thread other([&] {
        lock.acquire();
        EXPECT_EQ(value, 1);
        value = 2;
        lock.release();
    });
    // Long enough for the other one to give up spinning and to yield.
    for (int i = 0; i < 1000; ++i) {
        std::this_thread::yield();
    }
    value = 1;
    lock.release();
    other.join();
    EXPECT_EQ(value, 2);
}
