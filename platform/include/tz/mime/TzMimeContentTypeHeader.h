// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeContentType.h>
#include <tz/mime/TzMimeHeader.h>

/// The header that states the media type of a part. Threads as for `TzMimeHeader`.
class TZ_PLATFORM_API TzMimeContentTypeHeader : public TzMimeHeader {
public:
    /// The label of these headers.
    static constexpr char Label[] = "Content-Type";

    /// A header that holds `type`, shared with it.
    explicit TzMimeContentTypeHeader(const TzMimeContentType& type);
    /// The header `other`, shared with it; a header of another label gives a new header with
    /// that value.
    explicit TzMimeContentTypeHeader(const TzMimeHeader& other);
    TzMimeContentTypeHeader(const TzMimeContentTypeHeader&) noexcept = default;
    TzMimeContentTypeHeader(TzMimeContentTypeHeader&&) noexcept = default;
    TzMimeContentTypeHeader& operator=(const TzMimeContentTypeHeader&) noexcept = default;
    TzMimeContentTypeHeader& operator=(TzMimeContentTypeHeader&&) noexcept = default;
    ~TzMimeContentTypeHeader() override;

    /// The media type, shared with the header: changing it changes the header. Read from the value
    /// at the first call.
    TzMimeContentType getContentType() const;
};
