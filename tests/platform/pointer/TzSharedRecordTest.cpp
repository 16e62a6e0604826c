// SPDX-License-Identifier: MIT
#include "support/AllocationFailure.h"

#include <tz/pointer/TzSharedRecord.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

/// A value that counts how many values of its class exist.
struct Counted {
    static std::atomic<int> alive;

    explicit Counted(std::string what = "") : text(std::move(what)) { ++alive; }
    Counted(const Counted& other) : text(other.text) { ++alive; }
    Counted(Counted&& other) noexcept : text(std::move(other.text)) { ++alive; }
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --alive; }

    std::string text;
};

std::atomic<int> Counted::alive{0};

using Record = TzSharedRecord<Counted>;

} // namespace

TEST(TzSharedRecord, WithoutAValueStandsForTheEmptyOne) {
    const Record none;
    EXPECT_EQ(none->text, "");
    EXPECT_TRUE(none.isSame(Record()));
    EXPECT_FALSE(none.isSame(Record(Counted(""))));
}

TEST(TzSharedRecord, CopiesShareAndTheLastOneFrees) {
    static_cast<void>(Record()->text); // the empty value is made once and stays
    const int before = Counted::alive;
    {
        const Record first(Counted("a"));
        Record second(first);
        EXPECT_TRUE(second.isSame(first));
        EXPECT_EQ(&*second, &*first);
        EXPECT_EQ(Counted::alive, before + 1);
        second = Record(Counted("b"));
        EXPECT_EQ(second->text, "b");
        EXPECT_EQ(first->text, "a");
        EXPECT_EQ(Counted::alive, before + 2);
        second = first;
        EXPECT_EQ(Counted::alive, before + 1);
        const Record& alias = second;
        second = alias;
        EXPECT_EQ(second->text, "a");
    }
    EXPECT_EQ(Counted::alive, before);
}

TEST(TzSharedRecord, MovesLeaveTheSourceEmpty) {
    Record from(Counted("a"));
    Record to(std::move(from));
    EXPECT_EQ(to->text, "a");
    EXPECT_TRUE(from.isSame(Record())); // NOLINT(bugprone-use-after-move)
    from = Record(Counted("b"));
    const int alive = Counted::alive;
    to = std::move(from);
    EXPECT_EQ(to->text, "b");
    EXPECT_TRUE(from.isSame(Record())); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(Counted::alive, alive - 1);
}

TEST(TzSharedRecord, MadeManyAtATimeLiveAsLongAsTheyAreUsed) {
    static_cast<void>(Record()->text);
    const int before = Counted::alive;
    std::vector<Record> kept;
    {
        Record::Maker maker;
        for (int i = 0; i < 100; ++i) {
            const Record made = maker.make(Counted(std::to_string(i)));
            EXPECT_EQ(made->text, std::to_string(i));
            if (i % 10 == 0) {
                kept.push_back(made);
            }
        }
        EXPECT_EQ(Counted::alive, before + 10);
    }
    EXPECT_EQ(kept.back()->text, "90");
    kept.erase(kept.begin(), kept.end() - 1);
    EXPECT_EQ(kept.back()->text, "90");
    EXPECT_EQ(Counted::alive, before + 1);
    kept.clear();
    EXPECT_EQ(Counted::alive, before);
}

TEST(TzSharedRecord, MadeManyAtATimeTakeFewAllocations) {
    Record::Maker maker;
    std::vector<Record> kept;
    kept.reserve(64);
    const std::size_t made = madeAllocations();
    for (int i = 0; i < 64; ++i) {
        kept.push_back(maker.make(Counted("a")));
    }
    EXPECT_EQ(madeAllocations(), made + 4);
}

TEST(TzSharedRecord, AFailedAllocationLeavesNothingBehind) {
    static_cast<void>(Record()->text);
    const int before = Counted::alive;
    EXPECT_GE(failEachAllocation([] {
                  Record::Maker maker;
                  std::vector<Record> kept;
                  for (int i = 0; i < 20; ++i) {
                      kept.push_back(maker.make(Counted("a text of more than fifteen characters")));
                  }
              }),
              20U);
    EXPECT_EQ(Counted::alive, before);
}

TEST(TzSharedRecordThread, MadeManyAtATimeAreDroppedByMany) {
    static_cast<void>(Record()->text);
    const int before = Counted::alive;
    {
        Record::Maker maker;
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            std::vector<Record> mine;
            for (int record = 0; record < 100; ++record) {
                mine.push_back(maker.make(Counted("shared")));
            }
            threads.emplace_back([mine = std::move(mine)]() mutable { mine.clear(); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    EXPECT_EQ(Counted::alive, before);
}

TEST(TzSharedRecordThread, OneValueIsCopiedAndDroppedByMany) {
    static_cast<void>(Record()->text);
    const int before = Counted::alive;
    {
        const Record shared(Counted("shared"));
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([copy = shared] {
                for (int round = 0; round < 10'000; ++round) {
                    const Record another(copy);
                    EXPECT_EQ(another->text, "shared");
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    EXPECT_EQ(Counted::alive, before);
}
