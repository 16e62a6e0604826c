// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// An encoding in which each byte stands for one character, the first 128 of them for those of
/// ASCII.
struct TzXmlSingleByteEncoding {
    /// Number of encodings known.
    static constexpr std::size_t Count = 32;
    /// All encodings.
    static const std::array<TzXmlSingleByteEncoding, Count> All;

    std::string_view names;          ///< Its names, a blank before and after each.
    std::array<char16_t, 128> upper; ///< The characters of the bytes from 0x80 on, 0 for none.
};
