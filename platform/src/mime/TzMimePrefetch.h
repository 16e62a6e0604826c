// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>

/// Brings memory into the cache before it is read.
namespace TzMimePrefetch {

/// Prefetches the first of `size` bytes at `begin`, which will be read soon.
inline void prefetch(const void* begin, std::size_t size) noexcept {
    constexpr std::size_t CacheLine = 64; // the usual size: a wrong one only costs time
    constexpr std::size_t Most = 2048;
    const char* const bytes = static_cast<const char*>(begin);
    for (std::size_t at = 0; at < std::min(size, Most); at += CacheLine) {
        __builtin_prefetch(bytes + at);
    }
}

} // namespace TzMimePrefetch
