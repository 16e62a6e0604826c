// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// What the replaced operators new and delete have counted.
struct HeapCount {
    std::size_t bytes;       ///< Asked for and not given back.
    std::size_t allocations; ///< Made and not given back.

    /// The count at this moment.
    static HeapCount now() noexcept;

    friend HeapCount operator-(const HeapCount& left, const HeapCount& right) noexcept {
        return {left.bytes - right.bytes, left.allocations - right.allocations};
    }
};
