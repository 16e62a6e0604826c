// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// Work that was done and memory that was taken, counted and therefore the same in every run.
///
/// Work is a sum: each block of code that ran is one, each 16 bytes that memcpy and its kind went
/// through are one, each 64 bytes taken from the heap are one. Not seen is what runs in libexpat
/// and in libc beside that. Counts for a program with one thread.
struct WorkCount {
    std::uint64_t blocks = 0;    ///< Blocks of code that ran, without branches inside.
    std::uint64_t handled = 0;   ///< Bytes copied, compared, searched, set or hashed by one call.
    std::uint64_t allocated = 0; ///< Bytes taken from the heap, given back or not.
    std::size_t peak = 0;        ///< Most bytes of the heap at one moment, beyond those before.

    /// The sum, see above.
    std::uint64_t work() const noexcept { return blocks + handled / 16 + allocated / 64; }
};

/// Starts to count again from nothing.
void startCounting() noexcept;
/// What was counted since then.
WorkCount counted() noexcept;
