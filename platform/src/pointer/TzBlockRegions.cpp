// SPDX-License-Identifier: MIT
#include "pointer/TzBlockRegions.h"

#include "tools/TzPlatformLasting.h"

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
    const std::lock_guard guard(mutex_);
    TzBlockRegion* const region = regionWithRoom(mayOpen);
    if (region == nullptr) {
        return nullptr;
    }
    auto* const block = ::new (region->take()) TzBlocks::Block;
    block->region = region;
    if (region->isFull()) {
        leave(*region);
    }
    return block;
}

TzBlockRegion* TzBlockRegions::regionWithRoom(bool mayOpen) noexcept {
    if (withWaste_.first() != nullptr) {
        return withWaste_.first();
    }
    if (withRoom_.first() != nullptr || !mayOpen) {
        return withRoom_.first();
    }
    TzBlockRegion* region = spare_.first();
    if (region != nullptr) {
        spare_.remove(*region);
        --spares_;
    } else {
        region = TzBlockRegion::open();
    }
    if (region != nullptr) {
        enter(*region, false);
    }
    return region;
}

void TzBlockRegions::endBlock(TzBlocks::Block& block) noexcept {
    const std::lock_guard guard(mutex_);
    TzBlockRegion& region = *block.region;
    if (!region.isFull()) {
        leave(region);
    }
    region.giveBack(&block);
    if (region.isEmpty()) {
        retire(region);
    } else {
        enter(region, region.isSparse());
    }
}

void TzBlockRegions::retire(TzBlockRegion& region) noexcept {
    if (spares_ == MostSpare) {
        delete &region;
        return;
    }
    region.lend();
    spare_.add(region);
    ++spares_;
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
    const std::lock_guard guard(mutex_);
    while (TzBlockRegion* const region = withWaste_.first()) {
        region->discard();
        leave(*region);
        enter(*region, false);
    }
}

void TzBlockRegions::drop() noexcept {
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
