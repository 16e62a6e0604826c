// SPDX-License-Identifier: MIT
#pragma once

#include "model/TzSoapAccess.h"

/// Has the processor fetch values a few steps before they are used, because ending a long message
/// otherwise spends a third of its time on waiting for memory.
///
/// `Position` steps from handle to handle. Handles before `end` stay while this object is used.
template <typename Position> class TzSoapPrefetch {
public:
    TzSoapPrefetch(Position first, Position end) : next_(first), end_(end) {
        constexpr int Steps = 6;
        for (int i = 0; i < Steps; ++i) {
            step();
        }
    }
    /// One value more; nothing at the end.
    void step() {
        if (next_ != end_) {
            TzSoapAccess::prefetch(*next_);
            ++next_;
        }
    }

private:
    Position next_;
    Position end_;
};
