// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeContentType.h>

/// The media type of a text. Threads as for `TzMimeContentType`.
class TZ_PLATFORM_API TzMimeTextType : public TzMimeContentType {
public:
    /// The type text/`subtype` with the parameter charset `charset`; no parameter when that is "".
    TzMimeTextType(const TzCString& subtype, const TzCString& charset);
    /// The type `other`, shared with it, whatever its media type is.
    explicit TzMimeTextType(const TzMimeContentType& other) noexcept;
    TzMimeTextType(const TzMimeTextType&) noexcept = default;
    TzMimeTextType(TzMimeTextType&&) noexcept = default;
    TzMimeTextType& operator=(const TzMimeTextType&) noexcept = default;
    TzMimeTextType& operator=(TzMimeTextType&&) noexcept = default;
    ~TzMimeTextType() override;

    /// The character set, "" when the type names none.
    TzCString getCharset() const;
};
