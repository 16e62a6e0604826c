// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>
#include <cstddef>

/// Memory for many blocks that the system provides at once, as a large page, if it can. Page by
/// page it interrupts the program, which takes a third of the time of reading a long text.
///
/// Not locked.
class TzBlockRegion {
public:
    /// Size of a region in bytes: a large page.
    static constexpr std::size_t Size = std::size_t{2} << 20;
    /// Size of a block: a small page, so that each can go back to the system.
    static constexpr std::size_t BlockSize = 4096;
    /// Number of blocks in a region.
    static constexpr std::size_t Blocks = Size / BlockSize;

    /// A new region. Null without memory, and where pages have other sizes.
    static TzBlockRegion* open() noexcept;
    TzBlockRegion(const TzBlockRegion&) = delete;
    TzBlockRegion& operator=(const TzBlockRegion&) = delete;
    ~TzBlockRegion();

    /// Whether all blocks are in use.
    bool isFull() const noexcept { return used_ == Blocks; }
    /// Whether none is.
    bool isEmpty() const noexcept { return used_ == 0; }
    /// Whether `discard` is worth it: less than half of them is in use, and an eighth or more is
    /// free and has its memory.
    bool isWasteful() const noexcept { return used_ < Blocks / 2 && leftCount_ >= Blocks / 8; }
    /// Whether `discard` was called: the region is no large page any longer.
    bool isDiscarded() const noexcept { return isDiscarded_; }
    /// The first free block; there must be one. At most as many steps as there are blocks.
    void* take() noexcept;
    /// Ends the use of `block`.
    void giveBack(void* block) noexcept;
    /// Gives the memory of free blocks back to the system until they are taken again. The system
    /// may take what belongs to a large page only when it runs short.
    void discard() noexcept;
    /// Lets the system take the memory of the region, which is empty, when it runs short.
    void lend() noexcept;

    // Its place in a list, which is not the region's affair.
    TzBlockRegion* next = nullptr;
    TzBlockRegion* previous = nullptr;
    bool isWaste = false;

private:
    explicit TzBlockRegion(std::byte* memory) noexcept;

    std::byte* memory_;
    std::size_t used_ = 0;
    std::size_t firstFree_ = 0; // all blocks before it are in use
    std::bitset<Blocks> inUse_;
    std::bitset<Blocks> left_; // free ones whose memory may be there
    std::size_t leftCount_ = Blocks;
    bool isDiscarded_ = false;
};
