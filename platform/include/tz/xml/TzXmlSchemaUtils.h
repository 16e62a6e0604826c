// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <concepts>

/// Lexical forms of XML Schema. Static operations without state, usable from any thread; they
/// ignore the locale.
class TZ_PLATFORM_API TzXmlSchemaUtils {
public:
    TzXmlSchemaUtils() = delete;

    /// `number` in decimal, no leading zeros, "-" before a negative one.
    template <std::integral Number> static TzCString ConvertTypeToString(Number number) {
        return std::to_string(number);
    }
    /// The shortest text that reads back as exactly `number`; "INF", "-INF" and "NaN".
    static TzCString ConvertTypeToString(float number);
    /// The shortest text that reads back as exactly `number`; "INF", "-INF" and "NaN".
    static TzCString ConvertTypeToString(double number);
    /// The shortest text that reads back as exactly `number`; "INF", "-INF" and "NaN".
    static TzCString ConvertTypeToString(long double number);
};
