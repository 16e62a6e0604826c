// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/Tzxmsg.h>

/// A handle was used that has no body.
class TZ_PLATFORM_API TzTHRInvalidPointer : public Tzxmsg {
public:
    /// An exception that says `text`.
    explicit TzTHRInvalidPointer(const TzCString& text);
    TzTHRInvalidPointer(const TzTHRInvalidPointer&) = default;
    TzTHRInvalidPointer& operator=(const TzTHRInvalidPointer&) = default;
    ~TzTHRInvalidPointer() override;
};
