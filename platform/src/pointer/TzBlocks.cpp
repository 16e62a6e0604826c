// SPDX-License-Identifier: MIT
#include <tz/pointer/TzBlocks.h>

#include <algorithm>
#include <new>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define TZ_POISON_OBJECTS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TZ_POISON_OBJECTS
#endif
#endif
#ifdef TZ_POISON_OBJECTS
#include <sanitizer/asan_interface.h>
#endif

namespace {

// The address sanitizer sees blocks, not the objects in them, unless it is shown which are gone.
void poison([[maybe_unused]] void* place, [[maybe_unused]] std::size_t size) noexcept {
#ifdef TZ_POISON_OBJECTS
    ASAN_POISON_MEMORY_REGION(place, size);
#endif
}

} // namespace

void TzBlocks::nextBlock() {
    const std::size_t size = std::min(std::max(2 * end_, FirstBlock), LargestBlock);
    auto* const fresh = ::new (::operator new(size)) Block;
    leaveBlock();
    block_ = fresh;
    used_ = sizeof(Block);
    end_ = size;
    made_ = 0;
}

void TzBlocks::leaveBlock() noexcept {
    Block* const block = std::exchange(block_, nullptr);
    if (block != nullptr && block->users.leave(MostUsers - made_)) {
        ::operator delete(block);
    }
}

void TzBlocks::finish() noexcept {
    leaveBlock();
    used_ = 0;
    end_ = 0;
}

void TzBlocks::leave(Block* block, void* place, std::size_t size) noexcept {
    poison(place, size);
    if (block->users.leave()) {
        ::operator delete(block);
    }
}
