// SPDX-License-Identifier: MIT
#include "HeapCount.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

std::size_t liveBytes = 0;
std::size_t liveAllocations = 0;
std::size_t peak = 0;

/// In front of every block: how many bytes were asked for.
constexpr std::size_t HeadSize = alignof(std::max_align_t);

void* allocate(std::size_t size) {
    auto* head = static_cast<std::size_t*>(std::malloc(size + HeadSize));
    if (head == nullptr) {
        throw std::bad_alloc();
    }
    *head = size;
    liveBytes += size;
    ++liveAllocations;
    peak = std::max(peak, liveBytes);
    return reinterpret_cast<char*>(head) + HeadSize;
}

void give(void* block) noexcept {
    if (block == nullptr) {
        return;
    }
    auto* head = reinterpret_cast<std::size_t*>(static_cast<char*>(block) - HeadSize);
    liveBytes -= *head;
    --liveAllocations;
    std::free(head);
}

} // namespace

HeapCount HeapCount::now() noexcept { return {liveBytes, liveAllocations}; }

void HeapCount::startPeak() noexcept { peak = liveBytes; }

std::size_t HeapCount::peakBytes() noexcept { return peak; }

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* block) noexcept { give(block); }
void operator delete[](void* block) noexcept { give(block); }
void operator delete(void* block, std::size_t) noexcept { give(block); }
void operator delete[](void* block, std::size_t) noexcept { give(block); }
