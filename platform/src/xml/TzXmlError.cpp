// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlError.h>

TzXmlError::TzXmlError(const TzMessage& message) : Tzxmsg(message.asString()), message_(message) {}

TzXmlError::TzXmlError(const TzCString& text) : TzXmlError(TzMessage(text)) {}

TzXmlError::~TzXmlError() = default;

TzXmlError::TzXmlError(const TzCString& text, std::size_t line, std::size_t column)
    : Tzxmsg(text, line, column), message_(text) {}
