// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlDomainError.h>

TzXmlDomainError::TzXmlDomainError(const TzMessage& message) : TzXmlError(message) {}

TzXmlDomainError::~TzXmlDomainError() = default;
