// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeHeader.h>

/// The header that gives a part its URI (RFC 2557). Threads as for `TzMimeHeader`.
class TZ_PLATFORM_API TzMimeContentLocationHeader : public TzMimeHeader {
public:
    /// The label of these headers.
    static constexpr char Label[] = "Content-Location";

    /// The header for `uri`.
    explicit TzMimeContentLocationHeader(const TzCString& uri);
    /// The header `other`, shared with it; a header of another label gives a new header with
    /// that value.
    explicit TzMimeContentLocationHeader(const TzMimeHeader& other);
    TzMimeContentLocationHeader(const TzMimeContentLocationHeader&) noexcept = default;
    TzMimeContentLocationHeader(TzMimeContentLocationHeader&&) noexcept = default;
    TzMimeContentLocationHeader& operator=(const TzMimeContentLocationHeader&) noexcept = default;
    TzMimeContentLocationHeader& operator=(TzMimeContentLocationHeader&&) noexcept = default;
    ~TzMimeContentLocationHeader() override;

    /// The URI.
    TzCString getURI() const;
    /// The URI that `reference` means when it stands below this header's URI, resolved as RFC 3986
    /// says. Where this URI has no scheme, a relative `reference` takes the place of all that
    /// follows the last slash of its path and no dots are resolved.
    TzCString resolve(const TzCString& reference) const;
};
