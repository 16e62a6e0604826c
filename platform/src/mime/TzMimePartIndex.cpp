// SPDX-License-Identifier: MIT
#include "mime/TzMimePartIndex.h"

#include "mime/TzMimeHeaderBody.h"
#include "mime/TzMimePartBody.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <tuple>
#include <utility>

bool TzMimePartIndex::precedes(const Entry& left, const Entry& right) noexcept {
    return std::tie(left.hash, left.key, left.part) < std::tie(right.hash, right.key, right.part);
}

std::size_t TzMimePartIndex::find(const std::vector<TzMimePart>& parts, std::string_view key,
                                  std::size_t start) {
    const std::scoped_lock guard(mutex_);
    if (!isFresh()) {
        build(parts);
    }
    const Entry wanted{std::hash<std::string_view>()(key), key, start};
    const std::size_t bucket = bucketOf(wanted.hash);
    const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(ends_[bucket]);
    const auto first =
        entries_.begin() + static_cast<std::ptrdiff_t>(bucket == 0 ? 0 : ends_[bucket - 1]);
    const auto found = std::lower_bound(first, end, wanted, precedes);
    const bool equal = found != end && found->hash == wanted.hash && found->key == key;
    return equal ? found->part : TzMimePart::NotFound;
}

void TzMimePartIndex::clear() noexcept {
    ends_.clear();
    entries_.clear();
    kept_.clear();
    changed_.reset();
}

bool TzMimePartIndex::isFresh() const noexcept {
    return changed_ && !changed_->load(std::memory_order_acquire);
}

void TzMimePartIndex::build(const std::vector<TzMimePart>& parts) {
    clear();
    auto changed = std::make_shared<std::atomic<bool>>(false);
    for (const TzMimePart& part : parts) {
        if (TzMimePartBody* const body = TzMimePartBody::of(part)) {
            body->watchHeaders(changed);
        }
    }
    fillBuckets(collect(parts));
    changed_ = std::move(changed);
}

std::vector<TzMimePartIndex::Entry> TzMimePartIndex::collect(const std::vector<TzMimePart>& parts) {
    std::vector<Entry> collected;
    collected.reserve(parts.size());
    TzCString value;
    for (std::size_t position = 0; position < parts.size(); ++position) {
        const TzMimePartBody* const body = TzMimePartBody::of(parts[position]);
        if (body == nullptr) {
            continue;
        }
        const TzMimeHeaderList& headers = body->headers();
        for (std::size_t at = headers.find(label_, 0); at != TzMimePart::NotFound;
             at = headers.find(label_, at + 1)) {
            std::string_view key = headers.valueAt(at, value);
            if (key.data() == value.data()) {
                key = kept_.emplace_front(std::move(value));
            }
            key = TzMimeHeaderValue::comparable(label_, key);
            collected.push_back({std::hash<std::string_view>()(key), key, position});
        }
    }
    return collected;
}

void TzMimePartIndex::fillBuckets(const std::vector<Entry>& collected) {
    ends_.assign(std::bit_ceil(collected.size() + 1), 0);
    for (const Entry& entry : collected) {
        ++ends_[bucketOf(entry.hash)];
    }
    std::size_t sum = 0;
    for (std::size_t& end : ends_) {
        sum += end;
        end = sum - end; // where the bucket begins, moved to its end by filling it
    }
    entries_.resize(collected.size());
    for (const Entry& entry : collected) {
        entries_[ends_[bucketOf(entry.hash)]++] = entry;
    }
    std::size_t begin = 0;
    for (const std::size_t end : ends_) {
        std::sort(entries_.begin() + static_cast<std::ptrdiff_t>(begin),
                  entries_.begin() + static_cast<std::ptrdiff_t>(end), precedes);
        begin = end;
    }
}
