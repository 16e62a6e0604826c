// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/xml/TzXmlError.h>

#include <cstddef>

/// Text that is not the XML that was asked for, with the place where it went wrong.
class TZ_PLATFORM_API TzXmlParseError : public TzXmlError {
public:
    /// An error that says `message` about `line` and `column` (from 1; 0 unknown) of `source`.
    TzXmlParseError(const TzMessage& message, TzCString source, std::size_t line,
                    std::size_t column);
    TzXmlParseError(const TzXmlParseError&) = default;
    TzXmlParseError& operator=(const TzXmlParseError&) = default;
    ~TzXmlParseError() override;

    /// The name of the text that was read, "" when it has none.
    const TzCString& getSource() const noexcept { return source_; }
    /// The line, from 1; 0 when unknown.
    std::size_t getLine() const noexcept { return line_; }
    /// The column, from 1; 0 when unknown.
    std::size_t getColumn() const noexcept { return column_; }

private:
    TzCString source_;
    std::size_t line_;
    std::size_t column_;
};
