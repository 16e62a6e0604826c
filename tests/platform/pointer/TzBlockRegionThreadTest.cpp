// SPDX-License-Identifier: MIT
#include "pointer/TzBlockRegion.h"

#include <tz/pointer/TzBlocks.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t Size = 112;

struct Placed {
    TzBlocks::Block* block;
    void* place;
};

/// Makes objects with so many bytes and writes to all of them.
std::vector<Placed> makeIn(TzBlocks& blocks, std::size_t bytes) {
    std::vector<Placed> objects;
    while (objects.size() < bytes / Size) {
        void* const place = blocks.room(Size);
        std::memset(place, 'o', Size);
        objects.push_back({blocks.use(Size), place});
    }
    return objects;
}

void leave(const Placed& object) { TzBlocks::leave(object.block, object.place, Size); }

} // namespace

TEST(TzBlockRegionThread, BlocksEndAndAreTakenOnManyAtOnce) {
    constexpr std::size_t Threads = 4;
    TzBlocks::Plan plan{2 * TzBlockRegion::Size};
    TzBlocks blocks(plan);
    const std::vector<Placed> objects = makeIn(blocks, 2 * TzBlockRegion::Size);
    blocks.finish();
    std::vector<std::thread> threads;
    threads.reserve(Threads);
    for (std::size_t mine = 0; mine < Threads; ++mine) {
        threads.emplace_back([mine, &objects] {
            for (std::size_t i = mine; i < objects.size(); i += Threads) {
                leave(objects[i]);
                if (i % 1000 == 0) {
                    TzBlocks own;
                    for (const Placed& object : makeIn(own, 4 * TzBlocks::LargestBlock)) {
                        leave(object);
                    }
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    TzBlocks none;
    for (const Placed& object : makeIn(none, 4 * TzBlocks::LargestBlock)) {
        EXPECT_EQ(object.block->region, nullptr);
        leave(object);
    }
}

TEST(TzBlockRegionThread, EveryThreadMayTakeRegions) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int round = 0; round < 3; ++round) {
                TzBlocks::Plan plan{3 * TzBlockRegion::Size};
                TzBlocks blocks(plan);
                const std::vector<Placed> objects = makeIn(blocks, 3 * TzBlockRegion::Size);
                EXPECT_NE(objects[objects.size() / 2].block->region, nullptr);
                for (const Placed& object : objects) {
                    leave(object);
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}
