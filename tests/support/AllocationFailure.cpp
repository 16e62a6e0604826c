// SPDX-License-Identifier: MIT
#include "support/AllocationFailure.h"

#include <tz/thread/TzTSpares.h>

#include <cstdlib>

namespace {

thread_local std::size_t countdown = 0; // 0: nothing is to fail
thread_local bool lasting = false;      // whether all fail after the first that does
thread_local bool reached = false;
thread_local std::ptrdiff_t live = 0;
thread_local std::size_t made = 0;
thread_local std::size_t asked = 0;

void* take(std::size_t size) noexcept {
    asked += size;
    if (countdown != 0 && --countdown == 0) {
        reached = true;
        countdown = lasting ? 1 : 0;
        return nullptr;
    }
    void* block = std::malloc(size != 0 ? size : 1);
    if (block != nullptr) {
        ++live;
        ++made;
    }
    return block;
}

void* takeOrThrow(std::size_t size) {
    void* block = take(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void giveBack(void* block) noexcept {
    if (block != nullptr) {
        --live;
        std::free(block);
    }
}

} // namespace

AllocationFailure::AllocationFailure(std::size_t nth, OutOfMemory kind) noexcept {
    reached = false;
    lasting = kind == OutOfMemory::FromThenOn;
    countdown = nth;
}

AllocationFailure::~AllocationFailure() { countdown = 0; }

bool AllocationFailure::happened() const noexcept { return reached; }

std::ptrdiff_t liveAllocations() noexcept {
    TzSpares::dropOfThisThread();
    return live;
}

std::ptrdiff_t liveAllocationsWithSpares() noexcept { return live; }

std::size_t madeAllocations() noexcept { return made; }

std::size_t askedBytes() noexcept { return asked; }

// All forms, so that none of them meets one of a sanitizer's own.
void* operator new(std::size_t size) { return takeOrThrow(size); }
void* operator new[](std::size_t size) { return takeOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return take(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return take(size); }
void operator delete(void* block) noexcept { giveBack(block); }
void operator delete[](void* block) noexcept { giveBack(block); }
void operator delete(void* block, std::size_t) noexcept { giveBack(block); }
void operator delete[](void* block, std::size_t) noexcept { giveBack(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { giveBack(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { giveBack(block); }
