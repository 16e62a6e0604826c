// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <cstdint>

/// Digits of dates, times and durations.
namespace TzDigits {

/// Digits of a fraction in billionths.
inline constexpr std::size_t BillionthsDigits = 9;

/// Appends `number` to `text`, zeros before it up to `width` digits.
void appendPadded(TzCString& text, unsigned number, std::size_t width);

/// Appends '.' and the digits of `billionths` without trailing zeros; nothing for 0.
void appendBillionths(TzCString& text, std::uint32_t billionths);

} // namespace TzDigits
