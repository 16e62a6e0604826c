// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>

/// Asks for the first of `size` bytes at `begin`, which will be looked at soon.
inline void tzPrefetch(const void* begin, std::size_t size) noexcept {
    constexpr std::size_t line = 64; // the usual size: a wrong one only costs time
    constexpr std::size_t most = 2048;
    const char* const bytes = static_cast<const char*>(begin);
    for (std::size_t at = 0; at < std::min(size, most); at += line) {
        __builtin_prefetch(bytes + at);
    }
}
