// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeHeader.h>

/// The header that states the version of MIME. Threads as for `TzMimeHeader`.
class TZ_PLATFORM_API TzMimeVersionHeader : public TzMimeHeader {
public:
    /// The label of these headers.
    static constexpr char Label[] = "MIME-Version";

    /// The header for version "1.0".
    TzMimeVersionHeader();
    /// The header for `version`.
    explicit TzMimeVersionHeader(const TzCString& version);
    /// The header `other`, shared with it; a header of another label gives a new header with
    /// that value.
    explicit TzMimeVersionHeader(const TzMimeHeader& other);
    TzMimeVersionHeader(const TzMimeVersionHeader&) noexcept = default;
    TzMimeVersionHeader(TzMimeVersionHeader&&) noexcept = default;
    TzMimeVersionHeader& operator=(const TzMimeVersionHeader&) noexcept = default;
    TzMimeVersionHeader& operator=(TzMimeVersionHeader&&) noexcept = default;
    ~TzMimeVersionHeader() override;
};
