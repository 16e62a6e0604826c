// SPDX-License-Identifier: MIT
#include <tz/thread/TzTSpares.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <set>
#include <thread>
#include <vector>

namespace {

/// Knows how many of it there are.
class Counted {
public:
    Counted() { ++alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --alive; }

    static inline std::atomic<int> alive{0};
    int uses = 0;
};

using Spares = TzTSpares<Counted>;

} // namespace

TEST(TzTSparesThread, WhatIsGivenBackIsTakenOnce) {
    Spares spares;
    EXPECT_EQ(spares.take(), nullptr);
    auto object = std::make_unique<Counted>();
    const Counted* const given = object.get();
    spares.giveBack(std::move(object));
    const std::unique_ptr<Counted> taken = spares.take();
    EXPECT_EQ(taken.get(), given);
    EXPECT_EQ(spares.take(), nullptr);
}

TEST(TzTSparesThread, TheLatestOfTwoStays) {
    Spares spares;
    auto latest = std::make_unique<Counted>();
    const Counted* const expected = latest.get();
    spares.giveBack(std::make_unique<Counted>());
    spares.giveBack(std::move(latest));
    EXPECT_EQ(Counted::alive, 1);
    EXPECT_EQ(spares.take().get(), expected);
}

TEST(TzTSparesThread, WhatWaitsGoesWithThem) {
    {
        Spares spares;
        spares.giveBack(std::make_unique<Counted>());
        EXPECT_EQ(Counted::alive, 1);
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(TzTSparesThread, WhatWaitsForThisThreadCanBeDropped) {
    Spares spares;
    Spares others;
    std::thread([&spares] { spares.giveBack(std::make_unique<Counted>()); }).join();
    spares.giveBack(std::make_unique<Counted>());
    others.giveBack(std::make_unique<Counted>());
    EXPECT_EQ(Counted::alive, 3);
    {
        const Spares third;
        TzSpares::dropOfThisThread();
    }
    EXPECT_EQ(Counted::alive, 1);
    EXPECT_EQ(spares.take(), nullptr);
    EXPECT_EQ(others.take(), nullptr);
}

TEST(TzTSparesThread, AThreadDoesNotFindWhatAnotherLeft) {
    Spares spares;
    spares.giveBack(std::make_unique<Counted>());
    std::thread([&spares] { EXPECT_EQ(spares.take(), nullptr); }).join();
    EXPECT_NE(spares.take(), nullptr);
}

TEST(TzTSparesThread, ThreadsAreNumberedOneByOne) {
    std::set<std::size_t> numbers;
    for (int i = 0; i < 8; ++i) {
        std::thread([&numbers] { numbers.insert(TzSpares::threadNumber()); }).join();
    }
    EXPECT_EQ(numbers.size(), 8U);
    EXPECT_EQ(*numbers.rbegin() - *numbers.begin(), 7U);
    EXPECT_FALSE(numbers.contains(TzSpares::threadNumber()));
    EXPECT_EQ(TzSpares::threadNumber(), TzSpares::threadNumber());
}

TEST(TzTSparesThread, ManyThreadsShareThePlaces) {
    constexpr int Threads = 2 * static_cast<int>(Spares::Places);
    constexpr int Rounds = 200;
    std::atomic<int> uses{0};
    {
        Spares spares;
        std::vector<std::thread> threads;
        for (int i = 0; i < Threads; ++i) {
            threads.emplace_back([&] {
                for (int round = 0; round < Rounds; ++round) {
                    auto object = spares.take();
                    if (object == nullptr) {
                        object = std::make_unique<Counted>();
                    }
                    ++object->uses; // what a race would spoil
                    ++uses;
                    spares.giveBack(std::move(object));
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_LE(Counted::alive, static_cast<int>(Spares::Places));
    }
    EXPECT_EQ(uses, Threads * Rounds);
    EXPECT_EQ(Counted::alive, 0);
}
