// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/xml/TzXmlError.h>

/// An argument or a text that an operation cannot accept.
class TZ_PLATFORM_API TzXmlBadArgError : public TzXmlError {
public:
    /// An error that says `message`.
    explicit TzXmlBadArgError(const TzMessage& message);
    TzXmlBadArgError(const TzXmlBadArgError&) = default;
    TzXmlBadArgError& operator=(const TzXmlBadArgError&) = default;
    ~TzXmlBadArgError() override;
};
