// SPDX-License-Identifier: MIT
#pragma once

#include <tz/mime/TzMimePart.h>
#include <tz/tools/TzCString.h>

#include <atomic>
#include <cstddef>
#include <forward_list>
#include <memory>
#include <mutex>
#include <string_view>
#include <vector>

/// Finds the parts of a package by the value of one header, Content-ID or Content-Location.
///
/// `find` builds it, again after a change. A sender chooses the keys: entries of one bucket are
/// ordered, so whatever the keys are, nothing costs more than O(log n) for each of them.
/// Usable from several threads at once.
class TzMimePartIndex {
public:
    /// An index of headers with the label `label`.
    explicit TzMimePartIndex(const char* label) noexcept : label_(label) {}
    TzMimePartIndex(const TzMimePartIndex&) = delete;
    TzMimePartIndex& operator=(const TzMimePartIndex&) = delete;

    /// Position of the first of `parts` at or after `start` with a header whose comparable value is
    /// `key`; `TzMimePart::NotFound` without one.
    std::size_t find(const std::vector<TzMimePart>& parts, std::string_view key, std::size_t start);
    /// Forgets everything, because the parts were replaced.
    void clear() noexcept;
    const char* label() const noexcept { return label_; }

private:
    struct Entry {
        std::size_t hash;
        std::string_view key;
        std::size_t part;
    };

    static bool precedes(const Entry& left, const Entry& right) noexcept;

    bool isFresh() const noexcept;
    void build(const std::vector<TzMimePart>& parts);
    std::vector<Entry> collect(const std::vector<TzMimePart>& parts);
    void fillBuckets(const std::vector<Entry>& collected);
    std::size_t bucketOf(std::size_t hash) const noexcept { return hash & (ends_.size() - 1); }

    const char* label_;
    std::mutex mutex_;
    std::vector<Entry> entries_;        // bucket by bucket
    std::vector<std::size_t> ends_;     // where each bucket ends; empty before the index is built
    std::forward_list<TzCString> kept_; // keys that are not slices of the parts' texts
    std::shared_ptr<std::atomic<bool>> changed_; // raised by a part whose headers change
};
