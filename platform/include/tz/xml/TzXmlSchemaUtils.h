// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <concepts>

/// Lexical forms of XML Schema. Static operations without state, usable from any thread.
class TzXmlSchemaUtils {
public:
    TzXmlSchemaUtils() = delete;

    /// `number` in decimal, no leading zeros, "-" before a negative one.
    template <std::integral Number> static TzCString ConvertTypeToString(Number number) {
        return std::to_string(number);
    }
};
