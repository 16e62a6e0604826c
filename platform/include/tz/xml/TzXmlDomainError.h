// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/xml/TzXmlError.h>

/// An operation that this kind of object does not support.
class TZ_PLATFORM_API TzXmlDomainError : public TzXmlError {
public:
    /// An error that says `message`.
    explicit TzXmlDomainError(const TzMessage& message);
    TzXmlDomainError(const TzXmlDomainError&) = default;
    TzXmlDomainError& operator=(const TzXmlDomainError&) = default;
    ~TzXmlDomainError() override;
};
