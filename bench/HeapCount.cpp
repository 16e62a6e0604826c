// SPDX-License-Identifier: MIT
#include "HeapCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> liveBytes{0};
std::atomic<std::size_t> liveAllocations{0};

/// In front of every block: how many bytes were asked for.
constexpr std::size_t HeadSize = alignof(std::max_align_t);

void* allocate(std::size_t size) {
    auto* head = static_cast<std::size_t*>(std::malloc(size + HeadSize));
    if (head == nullptr) {
        throw std::bad_alloc();
    }
    *head = size;
    liveBytes.fetch_add(size, std::memory_order_relaxed);
    liveAllocations.fetch_add(1, std::memory_order_relaxed);
    return reinterpret_cast<char*>(head) + HeadSize;
}

void give(void* block) noexcept {
    if (block == nullptr) {
        return;
    }
    auto* head = reinterpret_cast<std::size_t*>(static_cast<char*>(block) - HeadSize);
    liveBytes.fetch_sub(*head, std::memory_order_relaxed);
    liveAllocations.fetch_sub(1, std::memory_order_relaxed);
    std::free(head);
}

} // namespace

HeapCount HeapCount::now() noexcept { return {liveBytes.load(), liveAllocations.load()}; }

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* block) noexcept { give(block); }
void operator delete[](void* block) noexcept { give(block); }
void operator delete(void* block, std::size_t) noexcept { give(block); }
void operator delete[](void* block, std::size_t) noexcept { give(block); }
