// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

/// The arithmetic of array shapes: bounds and start index, rightmost axis fastest, one entry for
/// each axis, a leftmost bound of 0 being open. 64 bits inside; what exceeds 32 bits is reported.
struct TzSoapShape {
    using Index = std::vector<unsigned int>;
    /// The largest number of positions, the largest position and the largest entry.
    static constexpr std::uint64_t Largest = std::numeric_limits<unsigned int>::max();

    /// Product of the bounds but an open leftmost one; 0 for {0} and without axes.
    /// `TzXmlBoundsError` BAD_INDEX_VECTOR for a 0 on another axis and for a product beyond 32
    /// bits.
    static unsigned int allocSizeOf(const Index& bounds);
    /// `TzXmlBoundsError` MISMATCH_BOUNDS, MISMATCH_VECTOR or BAD_INDEX_VECTOR unless both make a
    /// shape.
    static void check(const Index& bounds, const Index& start);
    /// The distance of neighbours on each axis, for bounds that passed a check.
    static Index stepsOf(const Index& bounds);
    /// The index at a position; `TzXmlBoundsError` BAD_INDEX_VECTOR naming the index before when
    /// its leftmost entry exceeds 32 bits.
    static Index indexAt(std::uint64_t position, const Index& steps);
    /// Whether an index lies within a shape; on an open axis every entry does.
    static bool contains(const Index& index, const Index& start, const Index& bounds) noexcept {
        if (index.size() != bounds.size()) {
            return false;
        }
        for (std::size_t axis = 0; axis < bounds.size(); ++axis) {
            const bool open = axis == 0 && bounds[axis] == 0;
            if (!open && (index[axis] < start[axis] || index[axis] >= bounds[axis])) {
                return false;
            }
        }
        return true;
    }

    /// Positions from `base` to the end of a shape that has `allocated`.
    static constexpr std::uint64_t blockFrom(std::uint64_t base, std::uint64_t allocated) noexcept {
        return allocated > base ? allocated - base : 0;
    }
    /// How many items are added to `size`, in steps of one more than a block, until the one at
    /// `offset` is among them.
    static constexpr std::uint64_t growthFor(std::uint64_t offset, std::uint64_t size,
                                             std::uint64_t block) noexcept {
        return ((offset - size) / (block + 1) + 1) * (block + 1);
    }

    /// Throws `TzXmlBoundsError` INDEX_RANGE_VEC.
    [[noreturn]] static void throwOutOfRange(const Index& index, const Index& start,
                                             const Index& bounds);
    /// Throws `TzXmlBoundsError` BAD_INDEX_VECTOR naming the largest entry; the detail says which
    /// limit is exceeded, that of 32 bits unless stated.
    [[noreturn]] static void
    throwTooLarge(const Index& vector,
                  std::string_view detail = "an array has at most 4294967295 positions");
};
