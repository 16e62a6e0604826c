// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/Tzxmsg.h>

/// Text that could not be written to where it was to go.
class TZ_PLATFORM_API TzWriteError : public Tzxmsg {
public:
    /// An error that says `text`, with the `number` of the system's error, 0 for none.
    explicit TzWriteError(const TzCString& text, int number = 0);
    TzWriteError(const TzWriteError&) = default;
    TzWriteError& operator=(const TzWriteError&) = default;
    ~TzWriteError() override;

    /// The number of the system's error, such as `ENOSPC`; 0 where the system reported none.
    int getNumber() const noexcept { return number_; }

private:
    int number_;
};
