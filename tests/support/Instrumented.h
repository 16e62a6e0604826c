// SPDX-License-Identifier: MIT
#pragma once

// Whether a sanitizer watches memory: what a test measures in bytes is the sanitizer's as well
// then.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool Instrumented = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
inline constexpr bool Instrumented = true;
#else
inline constexpr bool Instrumented = false;
#endif
#else
inline constexpr bool Instrumented = false;
#endif
