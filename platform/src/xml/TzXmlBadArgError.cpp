// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlBadArgError.h>

TzXmlBadArgError::TzXmlBadArgError(const TzMessage& message) : TzXmlError(message) {}

TzXmlBadArgError::~TzXmlBadArgError() = default;
