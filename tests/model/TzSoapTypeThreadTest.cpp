// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <utility>
#include <vector>

namespace {

constexpr int Threads = 8;

/// Runs `action` on several threads at once and waits for all of them.
void onThreads(const std::function<void()>& action) {
    std::vector<std::thread> threads;
    for (int i = 0; i < Threads; ++i) {
        threads.emplace_back(action);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/// A body that counts its end.
class Witness : public TzSoapSimpleTypeImp {
public:
    explicit Witness(std::atomic<int>& freed) : freed_(freed) {}
    ~Witness() override { ++freed_; }

private:
    std::atomic<int>& freed_;
};

} // namespace

TEST(TzSoapTypeThread, OneHandleIsCopiedAndDestroyedOnManyThreads) {
    const TzSoapSimpleType value("v", 7, TzSoapType::xsdInt, false);
    onThreads([&value] {
        std::vector<TzSoapType> kept;
        for (int i = 0; i < 2000; ++i) {
            const TzSoapType copy = value;
            TzSoapType assigned;
            assigned = copy;
            if (i % 16 == 0) {
                kept.push_back(std::move(assigned));
            }
        }
    });
    EXPECT_EQ(TzSoapAccess::body(value).referenceCount(), 1U);
    EXPECT_EQ(value.getInt(), 7);
}

TEST(TzSoapTypeThread, ContainersOfOneThreadShareAValueOfAll) {
    const TzSoapSimpleType shared("v", 7, TzSoapType::xsdInt, false);
    onThreads([&shared] {
        for (int i = 0; i < 200; ++i) {
            TzSoapCompositeType composite("s");
            for (int child = 0; child < 10; ++child) {
                composite.appendChild(shared);
            }
            TzSoapCompositeType copy = composite.copy();
            composite.clearChildren();
            EXPECT_EQ(copy.childCount(), 10U);
        }
    });
    EXPECT_EQ(TzSoapAccess::body(shared).referenceCount(), 1U);
}

TEST(TzSoapTypeThread, TheLastThreadFreesTheValue) {
    std::atomic<int> freed = 0;
    for (int round = 0; round < 100; ++round) {
        std::vector<TzSoapType> handles(Threads,
                                        TzSoapAccess::handle<TzSoapSimpleType>(new Witness(freed)));
        std::vector<std::thread> threads;
        for (TzSoapType& handle : handles) {
            threads.emplace_back([mine = std::move(handle)]() mutable { mine = TzSoapType(); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(freed, round + 1) << "freed once, whichever thread was the last";
    }
}
