// SPDX-License-Identifier: MIT
#include <tz/pointer/TzBlocks.h>

#include "pointer/TzAddressSanitizer.h"
#include "pointer/TzBlockRegions.h"

#include <algorithm>
#include <new>
#include <utility>

void TzBlocks::nextBlock() {
    const std::size_t size = std::min(std::max(2 * end_, FirstBlock), LargestBlock);
    Block* const fresh = newBlock(size);
    leaveBlock();
    block_ = fresh;
    used_ = sizeof(Block);
    end_ = size;
    made_ = 0;
}

TzBlocks::Block* TzBlocks::newBlock(std::size_t size) {
    Block* block = nullptr;
    if (size == LargestBlock) {
        const bool mayOpen = plan_ != nullptr && plan_->left >= TzBlockRegion::Size;
        block = TzBlockRegions::take(mayOpen);
    }
    if (block != nullptr) {
        // Objects may have ended there.
        TzAddressSanitizer::unpoison(block + 1, size - sizeof(Block));
    } else {
        block = ::new (::operator new(size)) Block;
    }
    if (plan_ != nullptr) {
        plan_->left -= std::min(plan_->left, size);
    }
    return block;
}

void TzBlocks::end(Block* block) noexcept {
    if (block->region != nullptr) {
        TzBlockRegions::giveBack(block);
    } else {
        ::operator delete(block);
    }
}

void TzBlocks::leaveBlock() noexcept {
    Block* const block = std::exchange(block_, nullptr);
    if (block != nullptr && block->users.leave(MostUsers - made_)) {
        end(block);
    }
}

void TzBlocks::finish() noexcept {
    leaveBlock();
    used_ = 0;
    end_ = 0;
}

void TzBlocks::leave(Block* block, void* place, std::size_t size) noexcept {
    TzAddressSanitizer::poison(place, size);
    if (block->users.leave()) {
        end(block);
    }
}
