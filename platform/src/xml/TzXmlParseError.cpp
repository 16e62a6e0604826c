// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlParseError.h>

#include <utility>

TzXmlParseError::TzXmlParseError(const TzMessage& message, TzCString source, std::size_t line,
                                 std::size_t column)
    : TzXmlError(message), source_(std::move(source)) {
    addPlace(line, column);
}

TzXmlParseError::TzXmlParseError(const TzCString& text, std::size_t line, std::size_t column)
    : TzXmlError(text, line, column) {}

TzXmlParseError TzXmlParseError::at(const TzCString& text, std::size_t line, std::size_t column) {
    return {text, line, column};
}

TzXmlParseError::~TzXmlParseError() = default;

TzCString TzXmlParseError::describe() const {
    return source_.empty() ? TzXmlError::describe() : source_ + ": " + TzXmlError::describe();
}
