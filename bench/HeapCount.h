// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// What the replaced operators new and delete have counted since `start`. They count for a program
/// with one thread: locked instructions would be charged to whatever is measured.
struct HeapCount {
    std::size_t bytes;       ///< Of the blocks made and not given back, their headers included.
    std::size_t allocations; ///< Made and not given back.

    /// Begins to count. Until then nothing is counted, so that measured work pays for no counting.
    static void start() noexcept;
    /// The count at this moment.
    static HeapCount now() noexcept;
    /// Begins to look for the largest number of bytes, counting if nothing has begun to.
    static void startPeak() noexcept;
    /// The largest number of bytes since then.
    static std::size_t peakBytes() noexcept;

    friend HeapCount operator-(const HeapCount& left, const HeapCount& right) noexcept {
        return {left.bytes - right.bytes, left.allocations - right.allocations};
    }
};
