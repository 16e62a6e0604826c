// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// What a parser accepts unless it is given other limits. Plain numbers, so that code that only
/// states limits does not need the parser.
struct TzXmlDefaultLimits {
    /// Depth of elements.
    static constexpr std::size_t Depth = 1000;
    /// Number of attributes of one element.
    static constexpr std::size_t Attributes = 200000;
    /// Length of a namespace's URI in bytes.
    static constexpr std::size_t UriLength = 2048;
    /// Length of a declared prefix in bytes.
    static constexpr std::size_t PrefixLength = 128;
};
