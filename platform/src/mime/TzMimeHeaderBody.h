// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimeContentType.h>
#include <tz/mime/TzMimeHeader.h>
#include <tz/pointer/TzBodyBase.h>
#include <tz/tools/TzCString.h>

#include <atomic>
#include <string_view>

/// What `TzMimeHeader` handles share.
class TzMimeHeaderBody final : public TzBodyBase {
public:
    TzMimeHeaderBody(TzCString label, TzCString value);
    TzMimeHeaderBody(TzCString label, const TzMimeContentType& type);
    ~TzMimeHeaderBody() override;
    TzMimeHeaderBody(const TzMimeHeaderBody&) = delete;
    TzMimeHeaderBody& operator=(const TzMimeHeaderBody&) = delete;

    /// A handle to a new header.
    static TzMimeHeader make(TzCString label, TzCString value);

    const TzCString& label() const noexcept { return label_; }
    /// The body of a handle, null for an empty one.
    static TzMimeHeaderBody* of(const TzMimeHeader& header) noexcept { return header.body(); }

    /// The value; after `contentType` that of the content type.
    TzCString value() const;
    /// What comparisons use of the value: an id or URI without brackets and comments.
    TzCString comparable() const;
    /// The content type that the value states; the first call makes it a part of the header.
    TzMimeContentType contentType();
    /// Adds the header line with its line end to `out`; nothing without a valid label.
    void appendTo(TzCString& out) const;

private:
    const TzMimeContentType* knownType() const noexcept {
        return type_.load(std::memory_order_acquire);
    }

    std::atomic<const TzMimeContentType*> type_{nullptr}; // made once, kept as long as the header
    TzCString label_;
    TzCString value_;
};

/// How the values of headers are understood.
namespace TzMimeHeaderValue {

/// The id that the value of a Content-ID header states: without angle brackets and comments.
std::string_view contentId(std::string_view value) noexcept;
/// The URI that the value of a Content-Location header states: without comments.
std::string_view contentLocation(std::string_view value) noexcept;
/// What values of headers with the label `label` are compared by.
std::string_view comparable(std::string_view label, std::string_view value) noexcept;
/// The value that `raw`, text of a header with the label `label`, spreads over lines.
TzCString unfold(std::string_view label, std::string_view raw);
/// Adds a header line with its line end to `out`.
void append(TzCString& out, std::string_view label, std::string_view value);

} // namespace TzMimeHeaderValue
