// SPDX-License-Identifier: MIT
#include "support/AllocationFailure.h"

#include <tz/pointer/TzBlocks.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <thread>
#include <vector>

namespace {

struct Placed {
    TzBlocks::Block* block;
    void* place;
};

constexpr std::size_t Size = 48;

Placed makeIn(TzBlocks& blocks, std::size_t size = Size) {
    void* const place = blocks.room(size);
    return {blocks.use(size), place};
}

void leave(const Placed& object, std::size_t size = Size) {
    TzBlocks::leave(object.block, object.place, size);
}

} // namespace

TEST(TzBlocks, WithoutAnObjectTakeNoMemory) {
    const std::size_t before = madeAllocations();
    const TzBlocks blocks;
    EXPECT_EQ(madeAllocations(), before);
}

TEST(TzBlocks, ObjectsLieOneAfterTheOther) {
    TzBlocks blocks;
    const Placed first = makeIn(blocks);
    const Placed second = makeIn(blocks);
    EXPECT_EQ(second.block, first.block);
    EXPECT_EQ(static_cast<std::byte*>(second.place) - static_cast<std::byte*>(first.place),
              std::ptrdiff_t{Size});
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(first.place) % 16, 0U);
    leave(first);
    leave(second);
}

TEST(TzBlocks, RoomIsGivenAgainUntilItIsUsed) {
    TzBlocks blocks;
    void* const room = blocks.room(Size);
    EXPECT_EQ(blocks.room(Size), room);
    const Placed object = makeIn(blocks);
    EXPECT_EQ(object.place, room);
    EXPECT_NE(blocks.room(Size), room);
    leave(object);
}

TEST(TzBlocks, GrowUpToTheLargest) {
    TzBlocks blocks;
    std::vector<Placed> objects;
    std::vector<std::size_t> inEach;
    while (inEach.size() < 6) {
        objects.push_back(makeIn(blocks));
        if (objects.size() == 1 || objects.back().block != objects[objects.size() - 2].block) {
            inEach.push_back(0);
        }
        ++inEach.back();
    }
    inEach.pop_back(); // the one that was begun last
    const auto fitting = [](std::size_t block) { return (block - sizeof(TzBlocks::Block)) / Size; };
    EXPECT_EQ(inEach, (std::vector<std::size_t>{fitting(512), fitting(1024), fitting(2048),
                                                fitting(TzBlocks::LargestBlock),
                                                fitting(TzBlocks::LargestBlock)}));
    for (const Placed& object : objects) {
        leave(object);
    }
}

TEST(TzBlocks, ABlockGoesWithTheLastObject) {
    const std::ptrdiff_t before = liveAllocations();
    {
        TzBlocks blocks;
        const Placed first = makeIn(blocks);
        const Placed second = makeIn(blocks);
        leave(second);
        leave(first);
        EXPECT_EQ(liveAllocations(), before + 1); // there may be more to come
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TzBlocks, ObjectsOutliveTheirMaker) {
    const std::ptrdiff_t before = liveAllocations();
    Placed first{};
    Placed second{};
    {
        TzBlocks blocks;
        first = makeIn(blocks);
        second = makeIn(blocks);
    }
    leave(first);
    EXPECT_EQ(liveAllocations(), before + 1);
    leave(second);
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TzBlocks, AnObjectThatIsKeptHoldsBackOneBlock) {
    const std::ptrdiff_t before = liveAllocations();
    TzBlocks blocks;
    const Placed kept = makeIn(blocks);
    for (int i = 0; i < 1000; ++i) {
        leave(makeIn(blocks));
    }
    EXPECT_EQ(liveAllocations(), before + 2); // its block and the one that is filled now
    leave(kept);
}

TEST(TzBlocks, BeginSmallAgainWhenFinished) {
    const std::ptrdiff_t before = liveAllocations();
    TzBlocks blocks;
    for (int i = 0; i < 1000; ++i) {
        leave(makeIn(blocks));
    }
    blocks.finish();
    EXPECT_EQ(liveAllocations(), before);
    const std::size_t asked = askedBytes();
    leave(makeIn(blocks));
    EXPECT_EQ(askedBytes() - asked, TzBlocks::FirstBlock);
    blocks.finish();
    blocks.finish();
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TzBlocks, EveryBlockHasRoomForTheLargestObject) {
    TzBlocks blocks;
    const Placed object = makeIn(blocks, TzBlocks::LargestObject);
    const Placed next = makeIn(blocks, TzBlocks::LargestObject);
    EXPECT_NE(next.block, object.block);
    leave(object, TzBlocks::LargestObject);
    leave(next, TzBlocks::LargestObject);
}

TEST(TzBlocks, WithoutMemoryNothingChanges) {
    const std::ptrdiff_t before = liveAllocations();
    TzBlocks blocks;
    const Placed object = makeIn(blocks, TzBlocks::LargestObject);
    {
        const AllocationFailure failure(1);
        EXPECT_THROW(blocks.room(TzBlocks::LargestObject), std::bad_alloc);
    }
    const Placed next = makeIn(blocks, TzBlocks::LargestObject);
    leave(object, TzBlocks::LargestObject);
    leave(next, TzBlocks::LargestObject);
    blocks.finish();
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TzBlocks, ObjectsMayEndOnOtherThreads) {
    constexpr std::size_t Threads = 4;
    std::array<std::vector<Placed>, Threads> objects;
    {
        TzBlocks blocks;
        for (std::size_t i = 0; i < 4000; ++i) {
            objects[i % Threads].push_back(makeIn(blocks));
        }
    }
    std::vector<std::thread> threads;
    threads.reserve(Threads);
    for (const std::vector<Placed>& mine : objects) {
        threads.emplace_back([&mine] {
            for (const Placed& object : mine) {
                leave(object);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}
