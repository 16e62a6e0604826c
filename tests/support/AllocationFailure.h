// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

/// Whether memory is there again after a failure.
enum class OutOfMemory { Once, FromThenOn };

/// As long as it lives, the n-th allocation (from 1) that this thread makes by operator new fails,
/// and all later ones on demand.
class AllocationFailure {
public:
    explicit AllocationFailure(std::size_t nth, OutOfMemory kind = OutOfMemory::Once) noexcept;
    AllocationFailure(const AllocationFailure&) = delete;
    AllocationFailure& operator=(const AllocationFailure&) = delete;
    ~AllocationFailure();

    /// Whether that many allocations happened.
    bool happened() const noexcept;
};

/// Blocks that this thread took by operator new, less those that it gave back. Drops those first
/// that wait for the next reading on this thread.
std::ptrdiff_t liveAllocations() noexcept;

/// The same, and drops nothing.
std::ptrdiff_t liveAllocationsWithSpares() noexcept;

/// Blocks that this thread took by operator new so far.
std::size_t madeAllocations() noexcept;

/// Bytes that this thread got from operator new so far.
std::size_t askedBytes() noexcept;

/// Runs `action` with its 1st, 2nd ... allocation failing until it needs no more. Each failure must
/// arrive as std::bad_alloc, but for `spared` that the action can do without, and every run must
/// give back what it took. Returns the number of failures.
template <typename Action>
std::size_t failEachAllocation(const Action& action, OutOfMemory kind = OutOfMemory::Once,
                               std::size_t spared = 0) {
    action(); // statics of the first use stay
    for (std::size_t nth = 1;; ++nth) {
        const std::ptrdiff_t before = liveAllocations();
        bool failed = false;
        bool arrived = false;
        {
            const AllocationFailure failure(nth, kind);
            try {
                action();
            } catch (const std::bad_alloc&) {
                arrived = true;
            }
            failed = failure.happened();
        }
        EXPECT_EQ(liveAllocations(), before) << "allocation " << nth;
        if (failed && !arrived && spared > 0) {
            --spared;
        } else {
            EXPECT_EQ(arrived, failed) << "allocation " << nth;
        }
        if (!failed) {
            return nth - 1;
        }
    }
}
