// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/xml/TzXmlError.h>

/// An index or a shape outside its bounds.
class TZ_PLATFORM_API TzXmlBoundsError : public TzXmlError {
public:
    /// An error that says `message`.
    explicit TzXmlBoundsError(const TzMessage& message);
    TzXmlBoundsError(const TzXmlBoundsError&) = default;
    TzXmlBoundsError& operator=(const TzXmlBoundsError&) = default;
    ~TzXmlBoundsError() override;
};
