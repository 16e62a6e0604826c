// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// What a reading left out because the model has no place for it: text beside child elements. A
/// plain value.
struct TzSoapDroppedText {
    /// Number of texts that were left out. Text between two tags is one, unless it is white space.
    std::size_t count = 0;
    /// Line of the tag that follows the first of them, from 1; 0 without any. In a package: of its
    /// root part.
    std::size_t line = 0;
    /// Column in characters of that tag, from 1; 0 without any.
    std::size_t column = 0;
};
