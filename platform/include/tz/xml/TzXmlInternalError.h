// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/xml/TzXmlError.h>

/// A state that must not occur.
class TZ_PLATFORM_API TzXmlInternalError : public TzXmlError {
public:
    /// An error that says `message`.
    explicit TzXmlInternalError(const TzMessage& message);
    TzXmlInternalError(const TzXmlInternalError&) = default;
    TzXmlInternalError& operator=(const TzXmlInternalError&) = default;
    ~TzXmlInternalError() override;
};
