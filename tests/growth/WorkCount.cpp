// SPDX-License-Identifier: MIT
#include "growth/WorkCount.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

// Nothing in this file may count itself, nor call what counts.
#define NOT_COUNTED __attribute__((no_sanitize_coverage))

namespace {

WorkCount total;
std::size_t live = 0;
std::size_t liveAtStart = 0;
std::size_t mostLive = 0;

NOT_COUNTED void* take(std::size_t size) {
    void* const block = std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    total.allocated += size;
    live += malloc_usable_size(block);
    if (live > mostLive) {
        mostLive = live;
    }
    return block;
}

NOT_COUNTED void give(void* block) noexcept {
    if (block != nullptr) {
        live -= malloc_usable_size(block);
        std::free(block);
    }
}

} // namespace

NOT_COUNTED void startCounting() noexcept {
    total = WorkCount();
    liveAtStart = live;
    mostLive = live;
}

NOT_COUNTED WorkCount counted() noexcept {
    WorkCount now = total;
    now.peak = mostLive - liveAtStart;
    return now;
}

NOT_COUNTED void* operator new(std::size_t size) { return take(size); }
NOT_COUNTED void* operator new[](std::size_t size) { return take(size); }
NOT_COUNTED void operator delete(void* block) noexcept { give(block); }
NOT_COUNTED void operator delete[](void* block) noexcept { give(block); }
NOT_COUNTED void operator delete(void* block, std::size_t) noexcept { give(block); }
NOT_COUNTED void operator delete[](void* block, std::size_t) noexcept { give(block); }

extern "C" {

/// Called by every block of code that was compiled to be counted.
NOT_COUNTED void __sanitizer_cov_trace_pc() { ++total.blocks; }

// The linker has each call of NAME go to __wrap_NAME, and calls of __real_NAME to the function.
void* __real_memcpy(void*, const void*, std::size_t);
void* __real_memmove(void*, const void*, std::size_t);
void* __real_memset(void*, int, std::size_t);
int __real_memcmp(const void*, const void*, std::size_t);
void* __real_memchr(const void*, int, std::size_t);
void* __real_memrchr(const void*, int, std::size_t);
void* __real_memmem(const void*, std::size_t, const void*, std::size_t);
std::size_t __real_strlen(const char*);
std::size_t __real__ZSt11_Hash_bytesPKvmm(const void*, std::size_t, std::size_t);

NOT_COUNTED void* __wrap_memcpy(void* to, const void* from, std::size_t size) {
    total.handled += size;
    return __real_memcpy(to, from, size);
}

NOT_COUNTED void* __wrap_memmove(void* to, const void* from, std::size_t size) {
    total.handled += size;
    return __real_memmove(to, from, size);
}

NOT_COUNTED void* __wrap_memset(void* to, int byte, std::size_t size) {
    total.handled += size;
    return __real_memset(to, byte, size);
}

// Counts up to the first difference, which is as far as the function goes.
NOT_COUNTED int __wrap_memcmp(const void* left, const void* right, std::size_t size) {
    const auto* const a = static_cast<const char*>(left);
    const auto* const b = static_cast<const char*>(right);
    std::size_t same = 0;
    while (same < size && a[same] == b[same]) {
        ++same;
    }
    total.handled += same;
    return __real_memcmp(left, right, size);
}

NOT_COUNTED void* __wrap_memchr(const void* in, int byte, std::size_t size) {
    void* const found = __real_memchr(in, byte, size);
    total.handled += found == nullptr
                         ? size
                         : std::size_t(static_cast<char*>(found) - static_cast<const char*>(in));
    return found;
}

NOT_COUNTED void* __wrap_memrchr(const void* in, int byte, std::size_t size) {
    void* const found = __real_memrchr(in, byte, size);
    total.handled +=
        found == nullptr
            ? size
            : size - std::size_t(static_cast<char*>(found) - static_cast<const char*>(in));
    return found;
}

NOT_COUNTED void* __wrap_memmem(const void* in, std::size_t size, const void* sought,
                                std::size_t length) {
    void* const found = __real_memmem(in, size, sought, length);
    total.handled += found == nullptr
                         ? size
                         : std::size_t(static_cast<char*>(found) - static_cast<const char*>(in));
    return found;
}

NOT_COUNTED std::size_t __wrap_strlen(const char* text) {
    const std::size_t length = __real_strlen(text);
    total.handled += length;
    return length;
}

NOT_COUNTED std::size_t __wrap__ZSt11_Hash_bytesPKvmm(const void* bytes, std::size_t size,
                                                      std::size_t seed) {
    total.handled += size;
    return __real__ZSt11_Hash_bytesPKvmm(bytes, size, seed);
}

} // extern "C"
