// SPDX-License-Identifier: MIT
#include "HeapCount.h"

#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

std::size_t liveBytes = 0;
std::size_t liveAllocations = 0;
std::size_t peak = 0;

// The allocator reports what a block takes: a note before each block would
// spread the values that are measured over more memory than they have in a program.
void* allocate(std::size_t size) {
    void* const block = std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    liveBytes += malloc_usable_size(block);
    ++liveAllocations;
    peak = std::max(peak, liveBytes);
    return block;
}

void give(void* block) noexcept {
    if (block != nullptr) {
        liveBytes -= malloc_usable_size(block);
        --liveAllocations;
        std::free(block);
    }
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
