// SPDX-License-Identifier: MIT
#include "mime/TzMimeHeaderList.h"

#include "mime/TzMimeHeaderBody.h"
#include "mime/TzMimeText.h"

#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlParseError.h>
#include <tz/xml/TzXmlUtils.h>

#include <algorithm>
#include <numeric>
#include <utility>

std::size_t TzMimeHeaderList::read(std::shared_ptr<const TzCString> text, std::string_view slice) {
    text_ = std::move(text);
    writtenSize_ = readLines(slice);
    refuseBareReturns(slice);
    makeIndex();
    return writtenSize_;
}

std::size_t TzMimeHeaderList::readLines(std::string_view slice) {
    constexpr std::size_t UsualHeaders = 4;
    bool open = false; // whether a further line belongs to the last header
    std::size_t from = 0;
    while (from < slice.size()) {
        const TzMimeText::Line line = TzMimeText::lineAt(slice, from);
        from = line.next;
        if (line.content.empty()) {
            break;
        }
        if (TzMimeText::isBlank(line.content.front())) {
            if (open) {
                Slot& slot = slots_.back();
                const char* const end = line.content.data() + line.content.size();
                slot.line = {slot.line.data(), static_cast<std::size_t>(end - slot.line.data())};
            }
            continue;
        }
        const std::size_t colon = TzMimeText::findColon(line.content);
        open = colon != std::string_view::npos;
        if (open) {
            if (slots_.empty()) {
                slots_.reserve(UsualHeaders);
            }
            slots_.push_back({line.content, colon, TzMimeHeader()});
        }
    }
    return from;
}

void TzMimeHeaderList::refuseBareReturns(std::string_view slice) const {
    for (const Slot& slot : slots_) {
        const char* const bare = TzMimeText::findBareReturn(slot.line.substr(slot.colon));
        // A text may end within its last line end: with CR.
        if (bare != nullptr && bare + 1 != slice.data() + slice.size()) {
            const TzMimeText::Place place = TzMimeText::placeOf(*text_, bare);
            TzThrow(TzXmlParseError::at("a MIME header has a carriage return within a line",
                                        place.line, place.column));
        }
    }
}

void TzMimeHeaderList::assign(const TzMimeHeaderList& other) {
    std::vector<Slot> slots;
    slots.reserve(other.count());
    for (std::size_t position = 0; position < other.count(); ++position) {
        slots.push_back({{}, 0, other.at(position)});
    }
    slots_ = std::move(slots);
    index_ = other.index_;
    writtenSize_ = other.writtenSize_;
    text_.reset();
}

void TzMimeHeaderList::insert(const TzMimeHeader& header) {
    constexpr std::size_t TypicalLength = 80;
    slots_.push_back({{}, 0, header});
    writtenSize_ += TypicalLength;
}

void TzMimeHeaderList::makeIndex() {
    if (slots_.size() < IndexedFrom) {
        return;
    }
    index_.resize(slots_.size());
    std::iota(index_.begin(), index_.end(), std::size_t{0});
    // Stable: headers with equal labels stay in the order of the text.
    std::stable_sort(index_.begin(), index_.end(), [this](std::size_t left, std::size_t right) {
        return TzMimeText::compareLabels(labelAt(left), labelAt(right)) < 0;
    });
}

std::size_t TzMimeHeaderList::find(std::string_view label, std::size_t start) const noexcept {
    const std::size_t found = findByIndex(label, start);
    return found != std::string_view::npos ? found
                                           : findInTurn(label, std::max(start, index_.size()));
}

std::size_t TzMimeHeaderList::findByIndex(std::string_view label,
                                          std::size_t start) const noexcept {
    const auto found = std::partition_point(index_.begin(), index_.end(), [&](std::size_t at) {
        const int order = TzMimeText::compareLabels(labelAt(at), label);
        return order < 0 || (order == 0 && at < start);
    });
    return found != index_.end() && tzEqualIgnoreCase(labelAt(*found), label)
               ? *found
               : std::string_view::npos;
}

std::size_t TzMimeHeaderList::findInTurn(std::string_view label, std::size_t start) const noexcept {
    for (std::size_t position = start; position < slots_.size(); ++position) {
        const std::string_view own = labelAt(position);
        if (own.size() == label.size() && tzEqualIgnoreCase(own, label)) {
            return position;
        }
    }
    return std::string_view::npos;
}

std::string_view TzMimeHeaderList::labelAt(std::size_t position) const noexcept {
    const Slot& slot = slots_[position];
    if (slot.line.empty()) {
        return slot.header.getLabel();
    }
    return TzMimeText::trimEnd(slot.line.substr(0, slot.colon));
}

std::string_view TzMimeHeaderList::rawValue(const Slot& slot) const noexcept {
    return TzXmlUtils::trim(slot.line.substr(slot.colon + 1));
}

TzMimeHeader TzMimeHeaderList::existing(const Slot& slot) const noexcept {
    const Guard guard(lock());
    return slot.header;
}

TzMimeHeader TzMimeHeaderList::at(std::size_t position) const {
    Slot& slot = slots_[position];
    TzMimeHeader header = existing(slot);
    if (slot.line.empty() || !header.getLabel().empty()) {
        return header;
    }
    const std::string_view label = labelAt(position);
    header =
        TzMimeHeaderBody::make(TzCString(label), TzMimeHeaderValue::unfold(label, rawValue(slot)));
    const Guard guard(lock());
    if (slot.header.getLabel().empty()) {
        slot.header = header;
    }
    return slot.header;
}

std::string_view TzMimeHeaderList::valueAt(std::size_t position, TzCString& kept) const {
    const Slot& slot = slots_[position];
    const TzMimeHeader header = existing(slot);
    if (slot.line.empty() || !header.getLabel().empty()) {
        kept = header.getValue();
        return kept;
    }
    const std::string_view raw = rawValue(slot);
    if (!TzMimeText::isFolded(raw)) {
        return raw;
    }
    kept = TzMimeHeaderValue::unfold(labelAt(position), raw);
    return kept;
}

std::optional<TzCString> TzMimeHeaderList::comparable(std::string_view label) const {
    const std::size_t position = find(label, 0);
    if (position == std::string_view::npos) {
        return std::nullopt;
    }
    TzCString kept;
    return TzCString(TzMimeHeaderValue::comparable(label, valueAt(position, kept)));
}

bool TzMimeHeaderList::isLonger(std::string_view label, std::size_t length) const {
    const std::size_t position = find(label, 0);
    TzCString kept;
    return position != std::string_view::npos &&
           TzMimeHeaderValue::comparable(label, valueAt(position, kept)).size() > length;
}

void TzMimeHeaderList::append(std::size_t position, TzCString& out) const {
    const Slot& slot = slots_[position];
    if (slot.line.empty()) {
        if (const TzMimeHeaderBody* const body = TzMimeHeaderBody::of(slot.header)) {
            body->appendTo(out);
        }
        return;
    }
    TzCString kept;
    TzMimeHeaderValue::append(out, labelAt(position), valueAt(position, kept));
}

void TzMimeHeaderList::prefetchHeaders() const noexcept {
    for (const Slot& slot : slots_) {
        // Skip lines that were read: another thread may be making their headers.
        if (!slot.line.empty()) {
            continue;
        }
        if (const TzMimeHeaderBody* const body = TzMimeHeaderBody::of(slot.header)) {
            TzMimePrefetch::prefetch(body, sizeof(TzMimeHeaderBody));
        }
    }
}
