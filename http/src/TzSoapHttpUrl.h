// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <optional>
#include <string_view>

/// A URL of http or https. A plain value.
struct TzSoapHttpUrl {
    TzCString text; ///< The URL without user, password and fragment.
    TzCString scheme;
    TzCString host;
    TzCString port; ///< As a number, even where the URL states none.
    TzCString user; ///< Decoded, "" without one.
    TzCString password;

    /// The URL that `text` spells, relative to `base` if there is one; nothing for one that is
    /// invalid, of another scheme or without a host.
    static std::optional<TzSoapHttpUrl> parse(const TzCString& text,
                                              const TzSoapHttpUrl* base = nullptr);
    /// What errors show of `text`, which need not be a URL: what may be user and password, all up
    /// to the last "@" but a scheme, is masked.
    static TzCString shown(std::string_view text);
    /// Whether both have the same scheme, host and port.
    bool sameOrigin(const TzSoapHttpUrl& other) const noexcept;
    /// Whether requests to it are encrypted.
    bool isSecure() const noexcept { return scheme == "https"; }
};
