// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <optional>
#include <string_view>

/// Base64 (RFC 4648) of bytes within a text, as XML Schema's base64Binary is.
///
/// Static, without state, usable from any thread.
class TZ_PLATFORM_API TzMimeBase64 {
public:
    TzMimeBase64() = delete;

    /// The text for `bytes`, padded and without line breaks. O(bytes).
    static TzCString encode(std::string_view bytes);
    /// The bytes that `text` stands for; white space of XML between its letters is skipped. Nothing
    /// when it holds anything else or ends within a group. O(text).
    static std::optional<TzCString> decode(std::string_view text);
};
