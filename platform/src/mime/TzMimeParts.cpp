// SPDX-License-Identifier: MIT
#include "mime/TzMimeParts.h"

#include "mime/TzMimeDelimiter.h"
#include "mime/TzMimeHeaderBody.h"
#include "mime/TzMimePartBody.h"

#include <algorithm>
#include <optional>

namespace {

/// Whether `part` has a header with the label and the value.
bool hasHeader(const TzMimePart& part, std::string_view label, std::string_view value) {
    const TzMimePartBody* const body = TzMimePartBody::of(part);
    if (body == nullptr) {
        return false;
    }
    TzCString kept;
    const TzMimeHeaderList& headers = body->headers();
    for (std::size_t at = headers.find(label, 0); at != TzMimePart::NotFound;
         at = headers.find(label, at + 1)) {
        if (headers.valueAt(at, kept) == value) {
            return true;
        }
    }
    return false;
}

} // namespace

void TzMimeParts::read(const std::shared_ptr<const TzCString>& text, std::size_t from,
                       std::string_view boundary) {
    changed();
    parts_.clear();
    const TzMimeDelimiter delimiter(boundary);
    if (delimiter.isEmpty()) {
        return;
    }
    const std::string_view all = *text;
    std::optional<TzMimeDelimiter::Hit> hit = delimiter.find(all, from);
    while (hit && !hit->closing) {
        const std::size_t begin = std::min(hit->lineEnd + 1, all.size());
        hit = delimiter.find(all, hit->lineEnd);
        const std::size_t end = hit ? std::max(begin, hit->partEnd) : all.size();
        parts_.push_back(TzMimePartBody::read(text, all.substr(begin, end - begin)));
    }
}

void TzMimeParts::insert(std::size_t position, const TzMimePart& part) {
    const TzMimePartBody* const body = TzMimePartBody::of(part);
    TzMimePart inserted = part;
    if (body == nullptr) {
        inserted = TzMimePartBody::make(false);
    } else if (body->isPackage()) {
        // Packages hold no packages: none can be part of itself, none is written by recursion.
        TzMimePart text;
        text.fromString(part.asString());
        inserted = std::move(text);
    }
    changed();
    parts_.insert(parts_.begin() + static_cast<std::ptrdiff_t>(position), std::move(inserted));
}

std::size_t TzMimeParts::find(const TzMimeHeader& header, std::size_t start) const {
    const TzMimeHeaderBody* const wanted = TzMimeHeaderBody::of(header);
    if (wanted == nullptr) {
        return TzMimePart::NotFound;
    }
    for (TzMimePartIndex* const index : {&ids_, &locations_}) {
        if (tzEqualIgnoreCase(wanted->label(), index->label())) {
            return index->find(parts_, wanted->comparable(), start);
        }
    }
    return search(header, start);
}

std::size_t TzMimeParts::search(const TzMimeHeader& header, std::size_t start) const {
    const TzCString value = header.getValue();
    for (std::size_t position = start; position < parts_.size(); ++position) {
        if (hasHeader(parts_[position], header.getLabel(), value)) {
            return position;
        }
    }
    return TzMimePart::NotFound;
}

void TzMimeParts::changed() noexcept {
    ids_.clear();
    locations_.clear();
}
