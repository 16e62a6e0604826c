// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <exception>

/// Root of all exceptions of the libraries: one catch handles every failure.
class TZ_PLATFORM_API Tzxmsg : public std::exception {
public:
    /// An exception that says `text`.
    explicit Tzxmsg(const char* text);
    /// An exception that says `text`.
    explicit Tzxmsg(TzCString text);
    Tzxmsg(const Tzxmsg&) = default;
    Tzxmsg& operator=(const Tzxmsg&) = default;
    ~Tzxmsg() override;

    /// The text, terminated by NUL; valid as long as the exception lives.
    const char* what() const noexcept override;
    /// The text.
    const TzCString& asString() const noexcept { return text_; }

private:
    TzCString text_;
};
