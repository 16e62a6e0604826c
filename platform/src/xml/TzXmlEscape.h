// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <string_view>

/// What XML text needs to be written.
namespace TzXmlEscape {

/// Where escaped text stands.
enum class Context {
    Content,        ///< Between tags.
    AttributeValue, ///< Between double quotes.
};

/// Whether `text` needs no escaping anywhere. Only quick: false says nothing.
bool isPlain(std::string_view text) noexcept;

/// `text` with markup characters, and line ends that a reader would change, as references: `text`
/// itself without any of these, otherwise the contents of `buffer`. `TzXmlBadArgError` for bytes
/// that are not UTF-8 and for characters that XML 1.0 does not have.
std::string_view escape(std::string_view text, Context context, TzCString& buffer);

} // namespace TzXmlEscape
