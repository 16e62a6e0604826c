// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Reads a short text of a fixed form from left to right.
///
/// What does not fit makes the reader fail for good, so that callers check once, at the end. The
/// text must outlive the reader.
class TzTextReader {
public:
    explicit TzTextReader(std::string_view text) noexcept : rest_(text) {}

    /// Passes over `wanted` if it comes next.
    bool take(char wanted) noexcept;
    /// Passes over `wanted`, which has to come next.
    void expect(char wanted) noexcept;
    /// Passes over the next character, whatever it is; NUL and failure at the end.
    char takeAny() noexcept;
    /// The number of exactly `count` digits (at most 9) that has to come next.
    unsigned number(std::size_t count) noexcept;
    /// The number of any count of digits that has to come next; failure when 64 bits cannot hold
    /// it.
    std::uint64_t number() noexcept;
    /// The run of digits that comes next, possibly empty.
    std::string_view digits() noexcept;
    /// The digits of a fraction, at least one of which has to come next, in billionths; digits
    /// after the ninth are dropped.
    std::uint32_t billionths() noexcept;
    /// Whether a digit comes next.
    bool atDigit() const noexcept;

    /// Makes the reader fail.
    void fail() noexcept { failed_ = true; }
    /// Whether the whole text was read without failure.
    bool complete() const noexcept { return !failed_ && rest_.empty(); }

private:
    std::string_view rest_;
    bool failed_ = false;
};
