// SPDX-License-Identifier: MIT
#include "mime/TzMimeParts.h"

#include "mime/TzMimeDelimiter.h"
#include "mime/TzMimeHeaderBody.h"
#include "mime/TzMimePartBody.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

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
    std::vector<TzMimePart> parts;
    const TzMimeDelimiter delimiter(boundary);
    const std::string_view all = *text;
    const auto own = std::make_shared<const TzCString>(delimiter.boundary());
    std::optional<TzMimeDelimiter::Hit> hit;
    if (!delimiter.isEmpty()) {
        hit = delimiter.find(all, from).hit;
    }
    while (hit && !hit->closing) {
        const std::size_t begin = hit->next;
        const TzMimeDelimiter::Search search = delimiter.find(all, begin);
        hit = search.hit;
        const std::size_t end = hit ? std::max(begin, hit->partEnd) : all.size();
        parts.push_back(
            TzMimePartBody::read(text, begin, end - begin, search.isFree ? own : nullptr));
    }
    changed();
    parts_ = std::move(parts);
    complete_ = hit.has_value();
}

void TzMimeParts::insert(std::size_t position, const TzMimePart& part) {
    const TzMimePartBody* const body = TzMimePartBody::of(part);
    TzMimePart inserted = part;
    if (body == nullptr) {
        inserted = TzMimePartBody::make(false);
    } else if (body->isPackage()) {
        // A package holds no packages: so it cannot contain itself, and writing needs no recursion.
        TzMimePart text;
        text.fromString(part.asString());
        inserted = std::move(text);
    }
    changed();
    parts_.insert(parts_.begin() + static_cast<std::ptrdiff_t>(position), std::move(inserted));
}

void TzMimeParts::removeRepeats(std::size_t from) {
    const auto first = parts_.begin() + static_cast<std::ptrdiff_t>(from);
    std::set<const TzMimePartBody*> known;
    std::transform(parts_.begin(), first, std::inserter(known, known.end()), TzMimePartBody::of);
    const auto end = std::remove_if(first, parts_.end(), [&](const TzMimePart& part) {
        return !known.insert(TzMimePartBody::of(part)).second;
    });
    changed();
    parts_.erase(end, parts_.end());
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
