// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>

#include <cstddef>
#include <string>
#include <string_view>

/// Text of the libraries: bytes, UTF-8 unless said otherwise, NUL bytes allowed, compared byte by
/// byte.
using TzCString = std::string;

/// Position of the first occurrence of `wanted` in `text` at or after `from`, ASCII letters
/// compared without case; `TzCString::npos` if absent. Ignores the locale. O(text *
/// wanted).
TZ_PLATFORM_API std::size_t tzFindIgnoreCase(std::string_view text, std::string_view wanted,
                                             std::size_t from = 0) noexcept;

/// Whether both texts are equal, ASCII letters compared without case.
TZ_PLATFORM_API bool tzEqualIgnoreCase(std::string_view left, std::string_view right) noexcept;

/// `text` in quotes, as messages show it: only the beginning, followed by "...", when it is longer
/// than 80 bytes.
TZ_PLATFORM_API TzCString tzQuoted(std::string_view text);
