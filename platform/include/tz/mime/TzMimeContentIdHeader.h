// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeHeader.h>

#include <string_view>

/// The header that names a part (RFC 2392). Threads as for `TzMimeHeader`.
class TZ_PLATFORM_API TzMimeContentIdHeader : public TzMimeHeader {
public:
    /// The label of these headers.
    static constexpr char Label[] = "Content-ID";

    /// The header for `id`, which may stand in one pair of angle brackets or not.
    explicit TzMimeContentIdHeader(const TzCString& id);
    /// The header `other`, shared with it; a header of another label gives a new header with
    /// that value.
    explicit TzMimeContentIdHeader(const TzMimeHeader& other);
    TzMimeContentIdHeader(const TzMimeContentIdHeader&) noexcept = default;
    TzMimeContentIdHeader(TzMimeContentIdHeader&&) noexcept = default;
    TzMimeContentIdHeader& operator=(const TzMimeContentIdHeader&) noexcept = default;
    TzMimeContentIdHeader& operator=(TzMimeContentIdHeader&&) noexcept = default;
    ~TzMimeContentIdHeader() override;

    /// The id without its angle brackets.
    TzCString getId() const;

    /// The id that `url` stands for, what follows "cid:" in a URL: with each "%" and two
    /// hexadecimal digits replaced by the byte they state. Other percent signs stay. O(url).
    static TzCString decodeUrl(std::string_view url);
};
