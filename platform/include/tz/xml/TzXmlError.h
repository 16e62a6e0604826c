// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzMessage.h>
#include <tz/tools/Tzxmsg.h>

#include <cstddef>

/// Root of the errors of XML work. Carries the message's catalogue domain and number.
class TZ_PLATFORM_API TzXmlError : public Tzxmsg {
public:
    /// An error that says `message`.
    explicit TzXmlError(const TzMessage& message);
    /// An error without catalogue entry that says `text`.
    explicit TzXmlError(const TzCString& text);
    TzXmlError(const TzXmlError&) = default;
    TzXmlError& operator=(const TzXmlError&) = default;
    ~TzXmlError() override;

    /// The message: domain, number and text.
    const TzMessage& getMessage() const noexcept { return message_; }

protected:
    /// An error without catalogue entry whose text is `text` and its place.
    TzXmlError(const TzCString& text, std::size_t line, std::size_t column);

private:
    TzMessage message_;
};
