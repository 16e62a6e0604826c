// SPDX-License-Identifier: MIT
//
// Regions as the makers of blocks use them.
#include "pointer/TzAddressSanitizer.h"
#include "pointer/TzBlockRegions.h"

#include "support/AllocationFailure.h"

#include <tz/pointer/TzBlocks.h>
#include <tz/pointer/TzBodyBase.h>
#include <tz/thread/TzTSpares.h>

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

using Block = TzBlocks::Block;

constexpr std::size_t Size = TzBlocks::LargestObject;
constexpr std::size_t InLargest = (TzBlocks::LargestBlock - sizeof(Block)) / Size;
constexpr std::size_t InSmaller = 7; // in all blocks before the first of the largest size
constexpr std::size_t BytesOfSmaller = 512 + 1024 + 2048;
constexpr std::size_t SmallerBlocks = 3;
constexpr std::size_t BlocksInRegion = TzBlockRegion::Blocks;

struct Placed {
    Block* block;
    void* place;
};

/// Makes an object and writes to all of it.
Placed makeIn(TzBlocks& blocks) {
    void* const place = blocks.room(Size);
    std::memset(place, 'o', Size);
    return {blocks.use(Size), place};
}

void leave(const Placed& object) { TzBlocks::leave(object.block, object.place, Size); }

/// The objects of one block.
using Filled = std::vector<Placed>;

void leave(const Filled& block) {
    for (const Placed& object : block) {
        leave(object);
    }
}

/// Fills `count` blocks of the largest size with what `blocks` makes.
std::vector<Filled> fillBlocks(TzBlocks& blocks, std::size_t count) {
    std::vector<Filled> filled(count);
    for (Filled& block : filled) {
        block.reserve(InLargest);
        std::generate_n(std::back_inserter(block), InLargest, [&blocks] { return makeIn(blocks); });
    }
    return filled;
}

/// Fills the smaller blocks first; their objects end at once.
std::vector<Filled> beginAndFillBlocks(TzBlocks& blocks, std::size_t count) {
    for (std::size_t i = 0; i < InSmaller; ++i) {
        leave(makeIn(blocks));
    }
    return fillBlocks(blocks, count);
}

void leaveAll(const std::vector<Filled>& blocks) {
    for (const Filled& block : blocks) {
        leave(block);
    }
}

/// Blocks that a maker without a plan gets from regions, of `most` that it fills.
std::size_t freeBlocks(std::size_t most) {
    TzBlocks blocks;
    const std::vector<Filled> filled = beginAndFillBlocks(blocks, most);
    const auto free = std::count_if(filled.begin(), filled.end(), [](const Filled& block) {
        return block.front().block->region != nullptr;
    });
    leaveAll(filled);
    return static_cast<std::size_t>(free);
}

/// A maker's blocks that fill `count` regions.
std::vector<Filled> fillRegions(std::size_t count) {
    TzBlocks::Plan plan{BytesOfSmaller + count * TzBlockRegion::Size};
    TzBlocks blocks(plan);
    return beginAndFillBlocks(blocks, count * BlocksInRegion);
}

const std::byte* placeOf(const Filled& block) {
    return reinterpret_cast<const std::byte*>(block.front().block);
}

/// Pages of the block's region that take up memory; -1 when it went back to the system.
std::ptrdiff_t residentPages(const std::byte* block) {
    const std::uintptr_t region = reinterpret_cast<std::uintptr_t>(block) / TzBlockRegion::Size;
    std::array<unsigned char, TzBlockRegion::Blocks> pages{};
    if (mincore(reinterpret_cast<void*>(region * TzBlockRegion::Size), TzBlockRegion::Size,
                pages.data()) != 0) {
        return -1;
    }
    return std::count_if(pages.begin(), pages.end(), [](unsigned char page) { return page % 2; });
}

/// Takes a new region for one object, and no other memory that stays if it fails.
void useARegion() {
    TzSpares::dropOfThisThread();
    TzBlocks::Plan plan{BytesOfSmaller + TzBlockRegion::Size};
    TzBlocks blocks(plan);
    for (std::size_t i = 0; i <= InSmaller; ++i) {
        leave(makeIn(blocks));
    }
}

/// Pages that the process has addresses for, without what waits for use.
[[maybe_unused]] std::size_t pagesOfProcess() {
    TzSpares::dropOfThisThread();
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages;
}

/// Ends a body, as the last handle of any value does.
void endSomeBody() {
    class Body final : public TzBodyBase {};
    TzBodyBase::dispose(new Body);
}

} // namespace

TEST(TzBlockRegion, IsTakenByAMakerThatExpectsToNeedIt) {
    TzSpares::dropOfThisThread();
    TzBlocks::Plan plan{BytesOfSmaller + TzBlockRegion::Size};
    TzBlocks blocks(plan);
    const std::size_t made = madeAllocations();
    const std::vector<Filled> filled = beginAndFillBlocks(blocks, 1);
    const std::size_t ofThisTest = 2; // vectors
    EXPECT_EQ(madeAllocations() - made, SmallerBlocks + 1 + ofThisTest);
    EXPECT_NE(filled[0][0].block->region, nullptr);
    EXPECT_EQ(plan.left, TzBlockRegion::Size - TzBlocks::LargestBlock);
    leaveAll(filled);
}

TEST(TzBlockRegion, IsNotTakenForLess) {
    TzBlocks::Plan plan{BytesOfSmaller + TzBlockRegion::Size - 1};
    TzBlocks blocks(plan);
    const std::vector<Filled> filled = beginAndFillBlocks(blocks, 2);
    EXPECT_EQ(filled[0][0].block->region, nullptr);
    EXPECT_EQ(filled[1][0].block->region, nullptr);
    leaveAll(filled);
}

TEST(TzBlockRegion, IsFilledPageByPage) {
    TzBlocks::Plan plan{BytesOfSmaller + TzBlockRegion::Size};
    TzBlocks blocks(plan);
    const std::vector<Filled> filled = beginAndFillBlocks(blocks, BlocksInRegion + 1);
    const std::byte* const first = placeOf(filled[0]);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(first) % TzBlockRegion::Size, 0U);
    for (std::size_t i = 0; i < BlocksInRegion; ++i) {
        ASSERT_EQ(filled[i][0].block->region, filled[0][0].block->region) << i;
        ASSERT_EQ(placeOf(filled[i]) - first, static_cast<std::ptrdiff_t>(i * 4096));
    }
    EXPECT_EQ(filled[BlocksInRegion][0].block->region, nullptr);
    leaveAll(filled);
}

TEST(TzBlockRegion, APlanMayComeToItsEnd) {
    TzBlocks::Plan plan{600};
    TzBlocks blocks(plan);
    leave(makeIn(blocks));
    EXPECT_EQ(plan.left, 88U);
    leave(makeIn(blocks));
    EXPECT_EQ(plan.left, 0U);
}

TEST(TzBlockRegion, LendsWhatIsFreeToEveryMaker) {
    std::vector<Filled> filled = fillRegions(1);
    const Placed kept = filled[7].back();
    filled[7].pop_back();
    leaveAll(filled);
    EXPECT_EQ(freeBlocks(BlocksInRegion + 10), BlocksInRegion - 1);
    EXPECT_EQ(freeBlocks(BlocksInRegion + 10), BlocksInRegion - 1);
    leave(kept);
    EXPECT_EQ(freeBlocks(1), 0U);
}

TEST(TzBlockRegion, IsOneOfSeveralWhoseBlocksEndInAnyOrder) {
    const std::ptrdiff_t before = liveAllocations();
    constexpr std::size_t Regions = 4;
    for (const std::array<std::size_t, Regions> order :
         {std::array<std::size_t, Regions>{0, 1, 2, 3}, {3, 2, 1, 0}, {1, 3, 0, 2}, {2, 0, 3, 1}}) {
        const std::vector<Filled> filled = fillRegions(Regions);
        const auto blockOf = [&filled](std::size_t region, std::size_t index) -> const Filled& {
            return filled[region * BlocksInRegion + index];
        };
        for (const std::size_t region : order) {
            ASSERT_NE(blockOf(region, 0)[0].block->region, nullptr);
            leave(blockOf(region, region));
            leave(blockOf(region, BlocksInRegion - 1));
        }
        EXPECT_EQ(freeBlocks(100), 2 * Regions);
        std::size_t left = Regions;
        for (const std::size_t region : order) {
            for (std::size_t i = 0; i < BlocksInRegion - 1; ++i) {
                if (i != region) {
                    leave(blockOf(region, i));
                }
                if (i == BlocksInRegion / 2 || i == BlocksInRegion / 4 * 3) {
                    endSomeBody();
                }
            }
            --left;
            EXPECT_EQ(freeBlocks(100), 2 * left) << "after region " << region;
        }
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TzBlockRegion, IsUsedThoughAnotherOneGoes) {
    const std::vector<Filled> filled = fillRegions(2);
    for (std::size_t i = 0; i < filled.size(); ++i) {
        if (i != 0 && i != BlocksInRegion) {
            leave(filled[i]);
        }
    }
    leave(filled[0]);
    EXPECT_EQ(freeBlocks(3), 3U);
    leave(filled[BlocksInRegion]);
}

TEST(TzBlockRegion, AnObjectThatIsKeptHoldsBackOnePage) {
    std::vector<Filled> filled = fillRegions(1);
    const std::byte* const place = placeOf(filled[7]);
    const Placed kept = filled[7].back();
    filled[7].pop_back();
    leaveAll(filled);
    endSomeBody();
    EXPECT_EQ(residentPages(place), 1);
    leave(kept);
}

TEST(TzBlockRegion, AnObjectThatIsKeptInAnyPlaceHoldsBackOnePage) {
    TzSpares::dropOfThisThread();
    TzBlocks::Plan plan{BytesOfSmaller + TzBlockRegion::Size};
    TzBlocks blocks(plan);
    std::vector<Filled> filled = beginAndFillBlocks(blocks, 50); // the others were never in use
    blocks.finish();
    const Placed kept = filled[7].back();
    filled[7].pop_back();
    leaveAll(filled);
    endSomeBody();
    EXPECT_EQ(residentPages(reinterpret_cast<const std::byte*>(kept.block)), 1);
    leave(kept);
    TzSpares::dropOfThisThread();
}

TEST(TzBlockRegion, ThatWasGivenBackInPartsDoesNotWait) {
    TzSpares::dropOfThisThread();
    const std::vector<Filled> filled = fillRegions(1);
    const std::byte* const place = placeOf(filled[0]);
    for (std::size_t i = 1; i < BlocksInRegion; ++i) {
        leave(filled[i]);
    }
    endSomeBody();
    leave(filled[0]);
    EXPECT_EQ(residentPages(place), -1);
}

TEST(TzBlockRegion, GivesBackManyBlocksAtATime) {
    const std::vector<Filled> filled = fillRegions(1);
    for (std::size_t i = 100; i < BlocksInRegion; ++i) {
        leave(filled[i]);
    }
    endSomeBody();
    for (std::size_t i = 0; i < 63; ++i) {
        leave(filled[i]);
    }
    endSomeBody();
    EXPECT_EQ(residentPages(placeOf(filled[99])), 100);
    leave(filled[63]);
    endSomeBody();
    EXPECT_EQ(residentPages(placeOf(filled[99])), 36);
    for (std::size_t i = 64; i < 100; ++i) {
        leave(filled[i]);
    }
}

TEST(TzBlockRegion, WhatIsLeftAfterAMakerGoesWhenTheThreadSaysSo) {
    TzSpares::dropOfThisThread();
    std::vector<Filled> filled = fillRegions(1);
    const Placed kept = filled[7].back();
    filled[7].pop_back();
    leaveAll(filled);
    TzSpares::dropOfThisThread();
    EXPECT_EQ(residentPages(reinterpret_cast<const std::byte*>(kept.block)), 1);
    leave(kept);
}

TEST(TzBlockRegion, KeepsItsMemoryWhileHalfOfItIsUsed) {
    const std::vector<Filled> filled = fillRegions(1);
    for (std::size_t i = 0; i < BlocksInRegion / 2; ++i) {
        leave(filled[i]);
    }
    endSomeBody();
    EXPECT_EQ(residentPages(placeOf(filled.back())), std::ptrdiff_t{BlocksInRegion});
    leave(filled[BlocksInRegion - 2]);
    endSomeBody();
    EXPECT_EQ(residentPages(placeOf(filled.back())), std::ptrdiff_t{BlocksInRegion / 2 - 1});
    EXPECT_EQ(freeBlocks(1000), BlocksInRegion / 2 + 1);
    for (std::size_t i = BlocksInRegion / 2; i < BlocksInRegion; ++i) {
        if (i != BlocksInRegion - 2) {
            leave(filled[i]);
        }
    }
}

TEST(TzBlockRegion, UsesAgainWhatWasGivenBackToTheSystem) {
    const std::vector<Filled> filled = fillRegions(1);
    for (std::size_t i = 10; i < BlocksInRegion; ++i) {
        leave(filled[i]);
    }
    endSomeBody();
    EXPECT_EQ(residentPages(placeOf(filled[0])), 10);
    TzBlocks blocks;
    const std::vector<Filled> later = beginAndFillBlocks(blocks, 20);
    blocks.finish();
    EXPECT_EQ(placeOf(later[0]) - placeOf(filled[0]), 10 * 4096);
    EXPECT_GE(residentPages(placeOf(filled[0])), 30);
    leaveAll(later);
    for (std::size_t i = 0; i < 10; ++i) {
        leave(filled[i]);
    }
}

TEST(TzBlockRegion, WaitsEmptyForTheNextMaker) {
    const std::vector<Filled> filled = fillRegions(TzBlockRegions::MostSpare + 2);
    leaveAll(filled);
    std::vector<const std::byte*> there;
    for (std::size_t i = 0; i < filled.size(); i += BlocksInRegion) {
        const auto* const place = reinterpret_cast<const std::byte*>(filled[i][0].block);
        if (residentPages(place) != -1) {
            there.push_back(place);
        }
    }
    EXPECT_EQ(there.size(), TzBlockRegions::MostSpare);
    const std::vector<Filled> next = fillRegions(1);
    EXPECT_NE(std::find(there.begin(), there.end(), placeOf(next[0])), there.end());
    leaveAll(next);
    TzSpares::dropOfThisThread();
    for (const std::byte* place : there) {
        EXPECT_EQ(residentPages(place), -1);
    }
}

TEST(TzBlockRegion, IsNotTakenForTheMakerWithoutAPlanThoughItWaits) {
    leaveAll(fillRegions(1));
    EXPECT_EQ(freeBlocks(2), 0U);
}

TEST(TzBlockRegion, WithoutMemoryForItABlockIsEnough) {
    EXPECT_EQ(failEachAllocation(useARegion, OutOfMemory::Once, 1), SmallerBlocks + 1);
}

#if !defined(TZ_ADDRESS_SANITIZER) && !defined(__SANITIZE_THREAD__)
// A sanitizer takes memory, too, and would not get it.
TEST(TzBlockRegion, TakesNoMoreAddressesThanItHas) {
    useARegion();
    const std::size_t before = pagesOfProcess();
    useARegion();
    failEachAllocation(useARegion, OutOfMemory::Once, 1);
    EXPECT_LT(pagesOfProcess(), before + TzBlockRegion::Blocks);
}

TEST(TzBlockRegion, WithoutRoomForItABlockIsEnough) {
    TzSpares::dropOfThisThread();
    TzBlocks::Plan plan{BytesOfSmaller + TzBlockRegion::Size};
    TzBlocks blocks(plan);
    for (std::size_t i = 0; i < InSmaller; ++i) {
        leave(makeIn(blocks));
    }
    std::vector<char>(100000); // room for a block in what the allocator has already
    rlimit usual{};
    getrlimit(RLIMIT_AS, &usual);
    const rlimit low{TzBlockRegion::Size, usual.rlim_max};
    setrlimit(RLIMIT_AS, &low);
    errno = 0;
    void* const place = blocks.room(Size);
    const int error = errno;
    setrlimit(RLIMIT_AS, &usual);
    EXPECT_EQ(error, 0);
    const Placed object{blocks.use(Size), place};
    EXPECT_EQ(object.block->region, nullptr);
    leave(object);
}
#endif
