// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/xml/TzXmlError.h>

#include <cstddef>

/// Text that is not the XML that was expected, with the place of the mistake.
class TZ_PLATFORM_API TzXmlParseError : public TzXmlError {
public:
    /// An error that says `message` about `line` and `column` (from 1; 0 unknown) of `source`.
    TzXmlParseError(const TzMessage& message, TzCString source, std::size_t line,
                    std::size_t column);
    /// An error without catalogue entry whose text ends with its place: "mismatched tag, line 3,
    /// column 9". Without a place when `line` is 0. `getMessage()` is the text alone.
    static TzXmlParseError at(const TzCString& text, std::size_t line, std::size_t column);
    TzXmlParseError(const TzXmlParseError&) = default;
    TzXmlParseError& operator=(const TzXmlParseError&) = default;
    ~TzXmlParseError() override;

    /// The name of the text that was read, "" without one.
    const TzCString& getSource() const noexcept { return source_; }
    /// The text with place and detail, after the name of the text that was read if it has one:
    /// "file.xml: mismatched tag, line 3, column 9".
    TzCString describe() const override;

private:
    TzXmlParseError(const TzCString& text, std::size_t line, std::size_t column);

    TzCString source_;
};
