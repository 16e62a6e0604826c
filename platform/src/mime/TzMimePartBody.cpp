// SPDX-License-Identifier: MIT
#include "mime/TzMimePartBody.h"

#include "mime/TzMimeParts.h"
#include "mime/TzMimeText.h"

#include <tz/mime/TzMimeContentTypeHeader.h>
#include <tz/mime/TzMimeMultipartRelatedType.h>

#include <utility>

namespace {

using TzMimeTransferEncoding::Kind;

/// Where the first header line of `text` begins, npos without one.
std::size_t findFirstHeader(std::string_view text) noexcept {
    for (std::size_t from = 0; from < text.size();) {
        const TzMimeText::Line line = TzMimeText::lineAt(text, from);
        if (TzMimeText::findColon(line.content) != std::string_view::npos) {
            return from;
        }
        from = line.next;
    }
    return std::string_view::npos;
}

/// Where the body of a text without header lines begins: after its first empty line if it has one.
std::size_t findBody(std::string_view text) noexcept {
    for (std::size_t from = 0; from < text.size();) {
        const TzMimeText::Line line = TzMimeText::lineAt(text, from);
        from = line.next;
        if (line.content.empty()) {
            return from;
        }
    }
    return 0;
}

} // namespace

TzMimePartBody::TzMimePartBody(bool package)
    : parts_(package ? std::make_unique<TzMimeParts>() : nullptr) {}

TzMimePartBody::~TzMimePartBody() { delete decoded_.load(); }

TzMimePart TzMimePartBody::make(bool package) { return TzMimePart(new TzMimePartBody(package)); }

TzMimePart TzMimePartBody::read(const Text& text, std::size_t begin, std::size_t size,
                                const Text& freeOf) {
    auto body = std::make_unique<TzMimePartBody>(false);
    body->readSlice(text, std::string_view(*text).substr(begin, size));
    body->freeOf_ = freeOf;
    return TzMimePart(body.release());
}

void TzMimePartBody::readText(const Text& text) {
    const std::string_view all = *text;
    const bool withoutHeaders = !isPackage() && TzMimeText::lineAt(all, 0).content.empty();
    const std::size_t begin = withoutHeaders ? 0 : findFirstHeader(all);
    if (begin == std::string_view::npos) {
        store(text, all.substr(findBody(all)), Kind::Identity);
    } else {
        readSlice(text, all.substr(begin));
    }
    if (isPackage()) {
        readParts(text);
    }
}

void TzMimePartBody::readParts(const Text& text) {
    const TzCString separator = boundary();
    parts_->read(text, static_cast<std::size_t>(stored_.data() - text->data()), separator);
    if (separator.empty()) {
        return;
    }
    if (parts_->all().empty() && encoding_ != Kind::Identity) {
        // Packages must not be encoded, but our writer encodes one that contains its delimiter.
        setBytes(copyBytes());
    } else {
        store(nullptr, {}, Kind::Identity);
    }
}

void TzMimePartBody::readSlice(const Text& text, std::string_view slice) {
    const std::size_t end = headers_.read(text, slice);
    statedEncoding_ = findEncoding();
    store(text, slice.substr(end), statedEncoding());
}

void TzMimePartBody::store(Text text, std::string_view bytes, Kind encoding) noexcept {
    text_ = std::move(text);
    freeOf_.reset();
    stored_ = bytes;
    encoding_ = encoding;
    delete decoded_.exchange(nullptr);
}

void TzMimePartBody::insertHeader(const TzMimeHeader& header) {
    headers_.insert(header);
    if (!statedEncoding_ && tzEqualIgnoreCase(header.getLabel(), TzMimeTransferEncoding::Label)) {
        statedEncoding_ = TzMimeTransferEncoding::kindOf(header.getValue());
    }
    watchers_.raise();
}

void TzMimePartBody::watchHeaders(const std::weak_ptr<std::atomic<bool>>& changed) {
    watchers_.add(changed);
}

void TzMimePartBody::setBytes(TzCString bytes) {
    const TzCString separator = isPackage() ? boundary() : TzCString();
    if (separator.empty()) {
        const auto text = std::make_shared<const TzCString>(std::move(bytes));
        store(text, *text, Kind::Identity);
        return;
    }
    parts_->read(std::make_shared<const TzCString>(std::move(bytes)), 0, separator);
    store(nullptr, {}, Kind::Identity);
}

std::string_view TzMimePartBody::bytes() const {
    if (encoding_ == Kind::Identity) {
        return stored_;
    }
    const TzCString* decoded = decoded_.load(std::memory_order_acquire);
    if (decoded == nullptr) {
        auto own =
            std::make_unique<const TzCString>(TzMimeTransferEncoding::decode(encoding_, stored_));
        // Where several threads get here, the first one sets the bytes.
        if (decoded_.compare_exchange_strong(decoded, own.get(), std::memory_order_acq_rel)) {
            decoded = own.release();
        }
    }
    return *decoded;
}

TzCString TzMimePartBody::copyBytes() const {
    if (const TzCString* const decoded = decoded_.load(std::memory_order_acquire)) {
        return *decoded;
    }
    return TzMimeTransferEncoding::decode(encoding_, stored_);
}

void TzMimePartBody::assignHeaders(const TzMimePartBody& other) {
    headers_.assign(other.headers_);
    statedEncoding_ = other.statedEncoding_;
}

std::optional<Kind> TzMimePartBody::findEncoding() const {
    const std::size_t position = headers_.find(TzMimeTransferEncoding::Label, 0);
    if (position == TzMimePart::NotFound) {
        return std::nullopt;
    }
    TzCString kept;
    return TzMimeTransferEncoding::kindOf(headers_.valueAt(position, kept));
}

TzCString TzMimePartBody::boundary() const {
    const std::size_t position = headers_.find(TzMimeContentTypeHeader::Label, 0);
    if (position == TzMimePart::NotFound) {
        return {};
    }
    const TzMimeContentTypeHeader header(headers_.at(position));
    return TzMimeMultipartRelatedType(header.getContentType()).getBoundary();
}
