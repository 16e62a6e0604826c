// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

/// How the characters of a text stand in its bytes, as far as its first bytes tell.
struct TzXmlByteForm {
    std::size_t unit = 1;       ///< Bytes of one code unit: 1, 2 (UTF-16) or 4 (UTF-32).
    bool bigEndian = false;     ///< Order of the bytes of a unit.
    std::size_t markLength = 0; ///< Bytes of the byte-order mark at the beginning.

    /// Looks at the byte-order mark or, without one, at where the zero bytes of the first character
    /// stand.
    static TzXmlByteForm of(std::string_view text) noexcept;
};
