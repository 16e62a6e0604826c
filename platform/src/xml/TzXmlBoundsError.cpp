// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlBoundsError.h>

TzXmlBoundsError::TzXmlBoundsError(const TzMessage& message) : TzXmlError(message) {}

TzXmlBoundsError::~TzXmlBoundsError() = default;
