// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlInternalError.h>

TzXmlInternalError::TzXmlInternalError(const TzMessage& message) : TzXmlError(message) {}

TzXmlInternalError::~TzXmlInternalError() = default;
