// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <optional>
#include <string_view>

class TzMimeContentType;

/// The charset that a media type states for an XML text which does not state one itself.
namespace TzSoapCharset {

/// Whether `name` has the form of a charset's name.
bool isName(std::string_view name) noexcept;
/// `text` with an XML declaration for the charset of `content`; nothing when `text` shows its
/// encoding itself, or `content` states nothing to add. O(text).
std::optional<TzCString> declare(const TzMimeContentType& content, std::string_view text);

} // namespace TzSoapCharset
