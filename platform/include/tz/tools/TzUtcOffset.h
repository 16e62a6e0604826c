// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <chrono>

/// How far a local time is ahead of UTC, as the zone designator of a date or time states it.
///
/// A plain value, not locked.
class TZ_PLATFORM_API TzUtcOffset {
public:
    /// The largest offset in either direction.
    static constexpr std::chrono::minutes Maximum = std::chrono::hours(14);

    /// UTC itself, written "Z".
    constexpr TzUtcOffset() noexcept = default;
    /// The offset `ahead` of UTC, written "+hh:mm" or "-hh:mm".
    constexpr explicit TzUtcOffset(std::chrono::minutes ahead) noexcept
        : ahead_(ahead), isZ_(false) {}

    /// How far local time is ahead of UTC; negative when it is behind.
    constexpr std::chrono::minutes getMinutes() const noexcept { return ahead_; }
    /// Whether the offset is within 14 hours of UTC.
    constexpr bool isValid() const noexcept { return ahead_ >= -Maximum && ahead_ <= Maximum; }
    /// The designator: "Z", "+hh:mm" or "-hh:mm". Meaningful for valid offsets only.
    TzCString asString() const;

    /// Equal designators: "Z" and "+00:00" differ.
    friend constexpr bool operator==(const TzUtcOffset&, const TzUtcOffset&) noexcept = default;

private:
    std::chrono::minutes ahead_{0};
    bool isZ_ = true;
};
