// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzBlocks.h>
#include <tz/thread/TzTSpares.h>

#include "pointer/TzBlockRegion.h"

#include <atomic>
#include <cstddef>
#include <mutex>

/// The regions that the program's blocks are cut from. Any number of threads may use them at once.
///
/// Free blocks of a region serve whoever needs blocks next. Much that is free in a region of which
/// less than half is in use is waste: `dropWaste` gives it back to the system. That is not done at
/// once, because often the rest of the region ends too. Up to four empty regions wait for the next
/// text, at the disposal of a system that runs short of memory.
class TzBlockRegions final : public TzSpares {
public:
    /// Most empty regions that wait.
    static constexpr std::size_t MostSpare = 4;

    /// Gives the waste of the program back to the system.
    static void dropWaste() noexcept {
        if (hasWaste.load(std::memory_order_relaxed)) [[unlikely]] {
            ofProgram().discardWaste();
        }
    }

    TzBlockRegions() noexcept = default;
    TzBlockRegions(const TzBlockRegions&) = delete;
    TzBlockRegions& operator=(const TzBlockRegions&) = delete;
    ~TzBlockRegions();

    /// A new block of a region of the program that is in use and has room; if there is none and
    /// `mayOpen`, of one more. Null otherwise, and without memory.
    static TzBlocks::Block* take(bool mayOpen) noexcept {
        // Most programs have none, and need not lock.
        const bool isWorthALook = mayOpen || hasRoom.load(std::memory_order_relaxed);
        return isWorthALook ? ofProgram().takeBlock(mayOpen) : nullptr;
    }
    /// Ends the use of `block`, which came from there.
    static void giveBack(TzBlocks::Block* block) noexcept { ofProgram().endBlock(*block); }

private:
    /// A list that is linked through the regions.
    class List {
    public:
        TzBlockRegion* first() const noexcept { return first_; }
        void add(TzBlockRegion& region) noexcept;
        void remove(TzBlockRegion& region) noexcept;

    private:
        TzBlockRegion* first_ = nullptr;
    };

    // Whether there are any, for a look that takes no lock and makes nothing.
    static constinit std::atomic<bool> hasRoom;
    static constinit std::atomic<bool> hasWaste;

    /// Those of the program. They last until all of its objects are gone.
    static TzBlockRegions& ofProgram() noexcept;

    TzBlocks::Block* takeBlock(bool mayOpen) noexcept;
    void endBlock(TzBlocks::Block& block) noexcept;
    TzBlockRegion* regionWithRoom(bool mayReuse) noexcept;
    TzBlocks::Block* cut(TzBlockRegion& region) noexcept;
    void enter(TzBlockRegion& region, bool isWaste) noexcept;
    void leave(TzBlockRegion& region) noexcept;
    bool keepSpare(TzBlockRegion& region) noexcept;
    void discardWaste() noexcept;
    bool discardSomeWaste() noexcept;
    void drop() noexcept override;

    std::mutex mutex_;
    List withRoom_; // and without waste
    List withWaste_;
    List spare_;
    std::size_t spares_ = 0;
};
