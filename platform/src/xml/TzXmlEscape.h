// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <string_view>

/// Where escaped text stands.
enum class TzXmlEscapeContext {
    Content,        ///< Between tags.
    AttributeValue, ///< Between double quotes.
};

/// Whether `text` needs no escaping anywhere. Only quick: false says nothing.
bool tzIsPlain(std::string_view text) noexcept;

/// `text` with markup characters, and line ends that a reader would change, as references: `text`
/// itself where there are none, otherwise what `buffer` holds then. `TzXmlBadArgError` for bytes
/// that are not UTF-8 and for characters that XML 1.0 does not have.
std::string_view tzEscape(std::string_view text, TzXmlEscapeContext context, TzCString& buffer);
