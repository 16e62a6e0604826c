// SPDX-License-Identifier: MIT
#include <tz/pointer/TzSharedRecord.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

/// A value that counts how many of its kind there are.
struct Counted {
    static int alive;

    explicit Counted(std::string what = "") : text(std::move(what)) { ++alive; }
    Counted(const Counted& other) : text(other.text) { ++alive; }
    Counted(Counted&& other) noexcept : text(std::move(other.text)) { ++alive; }
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --alive; }

    std::string text;
};

int Counted::alive = 0;

using Record = TzSharedRecord<Counted>;

} // namespace

TEST(TzSharedRecord, withoutAValueStandsForTheEmptyOne) {
    const Record none;
    EXPECT_EQ(none->text, "");
    EXPECT_TRUE(none.isSame(Record()));
    EXPECT_FALSE(none.isSame(Record(Counted(""))));
}

TEST(TzSharedRecord, copiesShareAndTheLastOneFrees) {
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

TEST(TzSharedRecord, movesLeaveTheSourceEmpty) {
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

TEST(TzSharedRecordThread, oneValueIsCopiedAndDroppedByMany) {
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
