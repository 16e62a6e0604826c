// SPDX-License-Identifier: MIT
#include "pointer/TzBlockRegions.h"

#include "tools/TzPlatformLasting.h"

#include <memory>
#include <new>

constinit std::atomic<bool> TzBlockRegions::hasRoom{false};
constinit std::atomic<bool> TzBlockRegions::hasWaste{false};

TzBlockRegions& TzBlockRegions::ofProgram() noexcept {
    static TzPlatformLasting<TzBlockRegions> regions([] { return TzBlockRegions(); });
    return *regions;
}

TzBlockRegions::~TzBlockRegions() {
    end();
    drop();
}

TzBlocks::Block* TzBlockRegions::takeBlock(bool mayOpen) noexcept {
    {
        const std::lock_guard guard(mutex_);
        if (TzBlockRegion* const region = regionWithRoom(mayOpen)) {
            return cut(*region);
        }
    }
    // Not under the lock: memory that is short may bring the program back here.
    TzBlockRegion* const opened = mayOpen ? TzBlockRegion::open() : nullptr;
    if (opened == nullptr) {
        return nullptr;
    }
    const std::lock_guard guard(mutex_);
    enter(*opened, false);
    return cut(*opened);
}

TzBlockRegion* TzBlockRegions::regionWithRoom(bool mayReuse) noexcept {
    if (withRoom_.first() != nullptr) {
        return withRoom_.first();
    }
    if (withWaste_.first() != nullptr || !mayReuse) {
        return withWaste_.first();
    }
    TzBlockRegion* const region = spare_.first();
    if (region != nullptr) {
        spare_.remove(*region);
        --spares_;
        enter(*region, false);
    }
    return region;
}

TzBlocks::Block* TzBlockRegions::cut(TzBlockRegion& region) noexcept {
    auto* const block = ::new (region.take()) TzBlocks::Block;
    block->region = &region;
    if (region.isFull()) {
        leave(region);
    }
    return block;
}

void TzBlockRegions::endBlock(TzBlocks::Block& block) noexcept {
    std::unique_ptr<TzBlockRegion> gone; // after the lock
    const std::lock_guard guard(mutex_);
    TzBlockRegion& region = *block.region;
    const bool wasFull = region.isFull();
    region.giveBack(&block);
    if (!wasFull) {
        if (!region.isEmpty() && region.isWaste == region.isWasteful()) {
            return; // it stays where it is, as most do
        }
        leave(region);
    }
    if (!region.isEmpty()) {
        enter(region, region.isWasteful());
    } else if (!keepSpare(region)) {
        gone.reset(&region);
    }
}

bool TzBlockRegions::keepSpare(TzBlockRegion& region) noexcept {
    if (region.isDiscarded() || spares_ == MostSpare) {
        return false;
    }
    region.lend();
    spare_.add(region);
    ++spares_;
    return true;
}

void TzBlockRegions::enter(TzBlockRegion& region, bool isWaste) noexcept {
    region.isWaste = isWaste;
    (isWaste ? withWaste_ : withRoom_).add(region);
    hasRoom.store(true, std::memory_order_relaxed);
    if (isWaste) {
        hasWaste.store(true, std::memory_order_relaxed);
    }
}

void TzBlockRegions::leave(TzBlockRegion& region) noexcept {
    (region.isWaste ? withWaste_ : withRoom_).remove(region);
    const bool isWasteLeft = withWaste_.first() != nullptr;
    hasWaste.store(isWasteLeft, std::memory_order_relaxed);
    hasRoom.store(isWasteLeft || withRoom_.first() != nullptr, std::memory_order_relaxed);
}

void TzBlockRegions::discardWaste() noexcept {
    while (discardSomeWaste()) {
    }
}

bool TzBlockRegions::discardSomeWaste() noexcept {
    const std::lock_guard guard(mutex_);
    TzBlockRegion* const region = withWaste_.first();
    if (region != nullptr) {
        region->discard();
        leave(*region);
        enter(*region, false);
    }
    return region != nullptr;
}

void TzBlockRegions::drop() noexcept {
    discardWaste();
    const std::lock_guard guard(mutex_);
    while (TzBlockRegion* const region = spare_.first()) {
        spare_.remove(*region);
        delete region;
    }
    spares_ = 0;
}

void TzBlockRegions::List::add(TzBlockRegion& region) noexcept {
    region.previous = nullptr;
    region.next = first_;
    if (first_ != nullptr) {
        first_->previous = &region;
    }
    first_ = &region;
}

void TzBlockRegions::List::remove(TzBlockRegion& region) noexcept {
    (region.previous != nullptr ? region.previous->next : first_) = region.next;
    if (region.next != nullptr) {
        region.next->previous = region.previous;
    }
}
