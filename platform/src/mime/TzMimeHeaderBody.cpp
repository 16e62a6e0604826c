// SPDX-License-Identifier: MIT
#include "mime/TzMimeHeaderBody.h"

#include "mime/TzMimeText.h"

#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeContentLocationHeader.h>

#include <memory>
#include <utility>

namespace TzMimeHeaderValue {

std::string_view contentId(std::string_view value) noexcept {
    if (value.starts_with('(')) {
        value.remove_prefix(TzMimeText::skipBlanksAndComments(value, 0));
    }
    if (!value.starts_with('<')) {
        return value;
    }
    const std::size_t end = value.ends_with('>') ? value.size() - 1 : value.find('>');
    return end == std::string_view::npos ? value : value.substr(1, end - 1);
}

std::string_view contentLocation(std::string_view value) noexcept {
    if (value.starts_with('(')) {
        value.remove_prefix(TzMimeText::skipBlanksAndComments(value, 0));
    }
    const std::size_t blank = value.find_first_of(" \t");
    if (blank == std::string_view::npos) {
        return value;
    }
    // A URI has no blanks, so a comment can follow the first one; anything else is part of the URI.
    const bool comments = TzMimeText::skipBlanksAndComments(value, blank) == value.size();
    return comments ? value.substr(0, blank) : value;
}

std::string_view comparable(std::string_view label, std::string_view value) noexcept {
    if (tzEqualIgnoreCase(label, TzMimeContentIdHeader::Label)) {
        return contentId(value);
    }
    return tzEqualIgnoreCase(label, TzMimeContentLocationHeader::Label) ? contentLocation(value)
                                                                        : value;
}

TzCString unfold(std::string_view label, std::string_view raw) {
    // Long URIs are folded anywhere; blanks are not part of them (RFC 2557, 4.4).
    return TzMimeText::unfold(raw, tzEqualIgnoreCase(label, TzMimeContentLocationHeader::Label));
}

void append(TzCString& out, std::string_view label, std::string_view value) {
    const std::size_t start = out.size();
    for (const char character : label) {
        if (TzMimeText::isLabelCharacter(character)) {
            out.push_back(character);
        }
    }
    if (out.size() == start) {
        return;
    }
    out.push_back(':');
    if (!value.empty()) {
        out.push_back(' ');
        TzMimeText::appendWithoutLineEnds(out, value);
    }
    out.append(TzMimeText::LineEnd);
}

} // namespace TzMimeHeaderValue

TzMimeHeaderBody::TzMimeHeaderBody(TzCString label, TzCString value)
    : label_(std::move(label)), value_(std::move(value)) {}

TzMimeHeaderBody::TzMimeHeaderBody(TzCString label, const TzMimeContentType& type)
    : type_(new TzMimeContentType(type)), label_(std::move(label)) {}

TzMimeHeaderBody::~TzMimeHeaderBody() { delete type_.load(); }

TzMimeHeader TzMimeHeaderBody::make(TzCString label, TzCString value) {
    return TzMimeHeader(new TzMimeHeaderBody(std::move(label), std::move(value)));
}

TzCString TzMimeHeaderBody::value() const {
    const TzMimeContentType* const type = knownType();
    return type != nullptr ? type->asString() : value_;
}

TzCString TzMimeHeaderBody::comparable() const {
    const TzMimeContentType* const type = knownType();
    const TzCString written = type != nullptr ? type->asString() : TzCString();
    return TzCString(TzMimeHeaderValue::comparable(label_, type != nullptr ? written : value_));
}

TzMimeContentType TzMimeHeaderBody::contentType() {
    const TzMimeContentType* type = knownType();
    if (type == nullptr) {
        auto own = std::make_unique<const TzMimeContentType>(value_);
        // Where several threads get here, the first one sets the type.
        if (type_.compare_exchange_strong(type, own.get(), std::memory_order_acq_rel)) {
            type = own.release();
        }
    }
    return *type;
}

void TzMimeHeaderBody::appendTo(TzCString& out) const {
    const TzMimeContentType* const type = knownType();
    const TzCString written = type != nullptr ? type->asString() : TzCString();
    TzMimeHeaderValue::append(out, label_, type != nullptr ? written : value_);
}
