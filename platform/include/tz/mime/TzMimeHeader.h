// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/pointer/TzHandleBase.h>
#include <tz/tools/TzCString.h>

class TzMimeHeaderBody;

/// A header line of a MIME part: a label and a value.
///
/// A handle: copies share one header. Label and value never change, except that the content type of
/// a `TzMimeContentTypeHeader` may. Constant members may be called on several threads at once.
class TZ_PLATFORM_API TzMimeHeader : public TzHandleBase {
public:
    /// A header without label and value, which is left out of every text; allocates nothing.
    TzMimeHeader() noexcept;
    /// The header `label` with `value`. Both are kept as they are; line breaks in them are left out
    /// of every text, as are characters that a label must not contain.
    TzMimeHeader(const TzCString& label, const TzCString& value);
    TzMimeHeader(const TzMimeHeader&) noexcept = default;
    TzMimeHeader(TzMimeHeader&&) noexcept = default;
    TzMimeHeader& operator=(const TzMimeHeader&) noexcept = default;
    TzMimeHeader& operator=(TzMimeHeader&&) noexcept = default;
    ~TzMimeHeader() override;

    /// The label, such as "Content-Type"; valid as long as a handle to the header lives.
    const TzCString& getLabel() const noexcept;
    /// The value as it was given; one that was read is without folding and surrounding blanks.
    TzCString getValue() const;
    /// The header line "label: value" without folding and line end.
    TzCString asString() const;

    /// Whether the labels are equal, ASCII letters compared without case, and the values are.
    /// Values of Content-ID are compared by id, those of Content-Location by URI, all others byte
    /// by byte.
    TZ_PLATFORM_API friend bool operator==(const TzMimeHeader& left, const TzMimeHeader& right);

protected:
    /// A handle to `body`, which may be null.
    explicit TzMimeHeader(TzMimeHeaderBody* body) noexcept;
    /// The header `other` as one with the label `label`: `other` itself when it has that label, a
    /// new header with the same value otherwise.
    TzMimeHeader(const TzMimeHeader& other, const char* label);

    /// The body, null for an empty handle.
    TzMimeHeaderBody* body() const noexcept;

private:
    friend class TzMimeHeaderBody;
};
