// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/thread/TzUseCount.h>

#include <cstddef>

class TzBlockRegion;

/// Makes small objects many at a time, in blocks of memory.
///
/// A block goes with the last of its objects, so an object that is kept holds back its block, 4 KiB
/// at most. The first blocks are smaller. A maker that expects to need megabytes has its blocks cut
/// from regions of 2 MiB, whose free blocks serve all makers and give their memory back. One maker
/// belongs to one thread; its objects may go to other threads and may outlive it.
class TZ_PLATFORM_API TzBlocks {
public:
    /// What the makers of one piece of work expect to need.
    struct Plan {
        std::size_t left = 0; ///< Bytes of the blocks to come; 0 if unknown.
    };
    /// The beginning of a block; objects follow.
    struct alignas(16) Block {
        TzUseCount users{MostUsers};
        TzBlockRegion* region = nullptr; ///< What it was cut from, null for memory of its own.
    };
    /// Size of the largest blocks in bytes: 4 KiB with what an allocator adds, and objects of 112
    /// bytes, which are the most frequent, fill it.
    static constexpr std::size_t LargestBlock = 4048;
    /// Size of the first block.
    static constexpr std::size_t FirstBlock = 512;
    /// Objects of up to this size find room in every block.
    static constexpr std::size_t LargestObject = FirstBlock - sizeof(Block);

    TzBlocks() noexcept = default;
    /// A maker that follows `plan`, which lives as long, and takes its blocks off it.
    explicit TzBlocks(Plan& plan) noexcept : plan_(&plan) {}
    TzBlocks(const TzBlocks&) = delete;
    TzBlocks& operator=(const TzBlocks&) = delete;
    ~TzBlocks() { finish(); }

    /// Memory for an object of `size` bytes, at most `LargestObject`: aligned to 16 bytes as long
    /// as all sizes are multiples of that. It is given again until `use`. `std::bad_alloc` without
    /// memory.
    void* room(std::size_t size) {
        if (end_ - used_ < size) [[unlikely]] {
            nextBlock();
        }
        return reinterpret_cast<std::byte*>(block_) + used_;
    }
    /// Notes that an object of `size` bytes took the room. Its block, which it has to `leave`.
    Block* use(std::size_t size) noexcept {
        used_ += size;
        ++made_;
        return block_;
    }
    /// Gives up the block that has room left; what comes next begins small again.
    void finish() noexcept;
    /// An object of `size` bytes at `place` in `block` has ended.
    static void leave(Block* block, void* place, std::size_t size) noexcept;

private:
    // More than any block has objects, so that making one changes no count: the maker takes off
    // what it did not make when it leaves the block.
    static constexpr std::ptrdiff_t MostUsers = LargestBlock;

    void nextBlock();
    Block* newBlock(std::size_t size);
    void leaveBlock() noexcept;
    static void end(Block* block) noexcept;

    Plan* plan_ = nullptr;
    Block* block_ = nullptr;
    std::size_t used_ = 0; // bytes from the beginning of the block
    std::size_t end_ = 0;
    std::ptrdiff_t made_ = 0; // objects in the block
};
