// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/Tzxmsg.h>

/// A text that a value cannot be made from.
class TZ_PLATFORM_API TzBadValueError : public Tzxmsg {
public:
    /// An error that says `text`.
    explicit TzBadValueError(const TzCString& text);
    TzBadValueError(const TzBadValueError&) = default;
    TzBadValueError& operator=(const TzBadValueError&) = default;
    ~TzBadValueError() override;
};
