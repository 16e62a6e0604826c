// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define TZ_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TZ_ADDRESS_SANITIZER
#endif
#endif
#ifdef TZ_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#include <sanitizer/lsan_interface.h>
#endif

/// What the address sanitizer is told of memory that the library divides itself; nothing without
/// it.
namespace TzAddressSanitizer {

/// `size` bytes at `place` must not be used.
inline void poison([[maybe_unused]] void* place, [[maybe_unused]] std::size_t size) noexcept {
#ifdef TZ_ADDRESS_SANITIZER
    ASAN_POISON_MEMORY_REGION(place, size);
#endif
}

/// They may be used again.
inline void unpoison([[maybe_unused]] void* place, [[maybe_unused]] std::size_t size) noexcept {
#ifdef TZ_ADDRESS_SANITIZER
    ASAN_UNPOISON_MEMORY_REGION(place, size);
#endif
}

/// What pointers in `size` bytes at `place`, which come from the system, lead to is not lost.
inline void addRoot([[maybe_unused]] void* place, [[maybe_unused]] std::size_t size) noexcept {
#ifdef TZ_ADDRESS_SANITIZER
    __lsan_register_root_region(place, size);
#endif
}

/// These bytes go back to the system.
inline void removeRoot([[maybe_unused]] void* place, [[maybe_unused]] std::size_t size) noexcept {
#ifdef TZ_ADDRESS_SANITIZER
    __lsan_unregister_root_region(place, size);
    unpoison(place, size);
#endif
}

} // namespace TzAddressSanitizer
