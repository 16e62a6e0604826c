// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/Tzxmsg.h>

/// An object was used in a state that forbids it, such as a parser while it parses.
class TZ_PLATFORM_API TzTHRIllegalUsage : public Tzxmsg {
public:
    /// An exception that says `text`.
    explicit TzTHRIllegalUsage(const TzCString& text);
    TzTHRIllegalUsage(const TzTHRIllegalUsage&) = default;
    TzTHRIllegalUsage& operator=(const TzTHRIllegalUsage&) = default;
    ~TzTHRIllegalUsage() override;
};
