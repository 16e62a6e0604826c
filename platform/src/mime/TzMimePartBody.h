// SPDX-License-Identifier: MIT
#pragma once

#include "mime/TzMimeHeaderList.h"
#include "mime/TzMimeHeaderWatchers.h"
#include "mime/TzMimeTransferEncoding.h"

#include <tz/mime/TzMimePart.h>
#include <tz/pointer/TzBodyBase.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

class TzMimeParts;

/// What `TzMimePart` handles share.
class TzMimePartBody final : public TzBodyBase {
public:
    using Text = std::shared_ptr<const TzCString>;

    /// An empty part, or an empty package.
    explicit TzMimePartBody(bool package);
    ~TzMimePartBody() override;
    TzMimePartBody(const TzMimePartBody&) = delete;
    TzMimePartBody& operator=(const TzMimePartBody&) = delete;

    /// A handle to a new part or package.
    static TzMimePart make(bool package);
    /// A handle to the part that the `size` bytes at `begin` of `text` hold. `freeOf` is a boundary
    /// whose delimiter is known not to occur in them, null when none is.
    static TzMimePart read(const Text& text, std::size_t begin, std::size_t size,
                           const Text& freeOf);
    /// The body of a handle, null for an empty one.
    static TzMimePartBody* of(const TzMimePart& part) noexcept { return part.body(); }

    /// Reads the whole of `text`, headers and body.
    void readText(const Text& text);

    bool isPackage() const noexcept { return parts_ != nullptr; }
    /// The parts; call this for packages only.
    TzMimeParts& parts() const noexcept { return *parts_; }
    const TzMimeHeaderList& headers() const noexcept { return headers_; }
    void insertHeader(const TzMimeHeader& header);
    /// Takes over the headers of `other` as they are now.
    void assignHeaders(const TzMimePartBody& other);
    /// Has `changed` raised when the headers change next.
    void watchHeaders(const std::weak_ptr<std::atomic<bool>>& changed);

    /// Replaces the body, or the parts of a package.
    void setBytes(TzCString bytes);
    /// The body without its transfer encoding, kept once it had to be decoded.
    std::string_view bytes() const;
    /// The body without its transfer encoding.
    TzCString copyBytes() const;
    /// The body as it is kept, which is in the encoding `storedEncoding`.
    std::string_view stored() const noexcept { return stored_; }
    /// Whether it is known that the delimiter with the boundary does not occur in it.
    bool isFreeOf(std::string_view boundary) const noexcept {
        return freeOf_ != nullptr && *freeOf_ == boundary;
    }
    TzMimeTransferEncoding::Kind storedEncoding() const noexcept { return encoding_; }
    /// The encoding that the headers state. Stored, because writing needs it of every part.
    TzMimeTransferEncoding::Kind statedEncoding() const noexcept {
        return statedEncoding_.value_or(TzMimeTransferEncoding::Kind::Identity);
    }
    /// The parameter "boundary" of the Content-Type header.
    TzCString boundary() const;

private:
    void readSlice(const Text& text, std::string_view slice);
    void readParts(const Text& text);
    std::optional<TzMimeTransferEncoding::Kind> findEncoding() const;
    void store(Text text, std::string_view bytes, TzMimeTransferEncoding::Kind encoding) noexcept;

    // What writing reads comes first: the parts of a large package are spread over the memory.
    std::string_view stored_;
    std::unique_ptr<TzMimeParts> parts_;
    TzMimeTransferEncoding::Kind encoding_ = TzMimeTransferEncoding::Kind::Identity;
    std::optional<TzMimeTransferEncoding::Kind> statedEncoding_; // by the first such header
    TzMimeHeaderList headers_;
    Text text_;   // owns what stored_ refers to
    Text freeOf_; // a boundary that reading did not meet in it, null for none
    mutable std::atomic<const TzCString*> decoded_{nullptr};
    TzMimeHeaderWatchers watchers_;
};
