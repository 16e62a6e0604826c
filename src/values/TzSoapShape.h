// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
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
    /// The sum of steps times entries, missing entries counting as 0 and surplus ones not at all;
    /// nothing when it exceeds 32 bits.
    static std::optional<unsigned int> linear(const Index& index, const Index& steps) noexcept {
        const std::size_t axes = std::min(index.size(), steps.size());
        std::uint64_t sum = 0;
        for (std::size_t axis = 0; axis < axes; ++axis) {
            // Neither factor nor the sum so far exceeds 32 bits, so 64 bits hold the next sum.
            sum += std::uint64_t{steps[axis]} * index[axis];
            if (sum > Largest) {
                return std::nullopt;
            }
        }
        return static_cast<unsigned int>(sum);
    }
    /// The index at a position.
    static Index indexAt(unsigned int position, const Index& steps);
    /// Whether an index lies within a shape; on an open axis every entry does.
    static bool contains(const Index& index, const Index& start, const Index& bounds) noexcept;

    /// Throws `TzXmlBoundsError` INDEX_RANGE_VEC.
    [[noreturn]] static void throwOutOfRange(const Index& index, const Index& start,
                                             const Index& bounds);
    /// Throws `TzXmlBoundsError` BAD_INDEX_VECTOR naming the largest entry.
    [[noreturn]] static void throwTooLarge(const Index& vector);
};
