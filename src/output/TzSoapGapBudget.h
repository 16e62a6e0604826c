// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// The nil items that a message gets in the gaps of its arrays, in a version without positions and
/// offsets.
///
/// A few bytes state a gap of any size. So the nil items of a message are limited by the items of
/// its arrays with gaps.
class TzSoapGapBudget {
public:
    /// An array of `items` items is to be written with `gaps` nil items; `TzXmlDomainError` when
    /// the message has too many of these then.
    void add(std::uint64_t gaps, std::uint64_t items);

private:
    static constexpr std::uint64_t Always = 1024;
    static constexpr std::uint64_t ForEachItem = 3;

    std::uint64_t gaps_ = 0;
    std::uint64_t items_ = 0;
};
