// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlParseError.h>

#include <utility>

TzXmlParseError::TzXmlParseError(const TzMessage& message, TzCString source, std::size_t line,
                                 std::size_t column)
    : TzXmlError(message), source_(std::move(source)), line_(line), column_(column) {}

TzXmlParseError::~TzXmlParseError() = default;
