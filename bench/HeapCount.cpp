// SPDX-License-Identifier: MIT
#include "HeapCount.h"

#include <malloc.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

/// What the allocator keeps in front of each block.
constexpr std::ptrdiff_t BlockHeader = 8;

bool counting = false;
// Below 0 where blocks go that were made before counting began.
std::ptrdiff_t liveBytes = 0;
std::ptrdiff_t liveAllocations = 0;
std::ptrdiff_t peak = 0;

std::ptrdiff_t sizeOf(void* block) noexcept {
    return static_cast<std::ptrdiff_t>(malloc_usable_size(block)) + BlockHeader;
}

void note(std::ptrdiff_t bytes) noexcept {
    liveBytes += bytes;
    peak = std::max(peak, liveBytes);
}

// The allocator reports what a block takes: a note before each block would
// spread the values that are measured over more memory than they have in a program.
void count(void* block) noexcept {
    note(sizeOf(block));
    ++liveAllocations;
}

void* allocate(std::size_t size) {
    void* const block = std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    if (counting) {
        count(block);
    }
    return block;
}

void give(void* block) noexcept {
    if (counting && block != nullptr) {
        liveBytes -= sizeOf(block);
        --liveAllocations;
    }
    std::free(block);
}

} // namespace

void HeapCount::start() noexcept { counting = true; }

HeapCount HeapCount::now() noexcept {
    return {static_cast<std::size_t>(liveBytes), static_cast<std::size_t>(liveAllocations)};
}

void HeapCount::startPeak() noexcept {
    start();
    peak = liveBytes;
}

std::size_t HeapCount::peakBytes() noexcept { return static_cast<std::size_t>(peak); }

// What the library takes from the system itself; an allocator's own calls do not come here.
extern "C" [[gnu::visibility("default")]] void* mmap(void* place, std::size_t size, int access,
                                                     int flags, int file, off_t offset) {
    const auto result = syscall(SYS_mmap, place, size, access, flags, file, offset);
    if (counting && result != -1) {
        note(static_cast<std::ptrdiff_t>(size));
    }
    return reinterpret_cast<void*>(result);
}

extern "C" [[gnu::visibility("default")]] int munmap(void* place, std::size_t size) {
    const auto result = static_cast<int>(syscall(SYS_munmap, place, size));
    if (counting && result == 0) {
        note(-static_cast<std::ptrdiff_t>(size));
    }
    return result;
}

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* block) noexcept { give(block); }
void operator delete[](void* block) noexcept { give(block); }
void operator delete(void* block, std::size_t) noexcept { give(block); }
void operator delete[](void* block, std::size_t) noexcept { give(block); }
