// SPDX-License-Identifier: MIT
#pragma once

#include "mime/TzMimePrefetch.h"

#include <tz/mime/TzMimeHeader.h>
#include <tz/thread/TzMutexLock.h>
#include <tz/thread/TzTMonitor.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

/// The headers of a part.
///
/// Headers that were read stay slices of the text until `at` makes one; where they are many,
/// look-ups use an index of their labels. Constant members may be called on several threads at
/// once: the lock guards the headers that they make.
class TzMimeHeaderList : private TzTMonitor<TzMutexLock> {
public:
    TzMimeHeaderList() noexcept = default;
    TzMimeHeaderList(const TzMimeHeaderList&) = delete;
    TzMimeHeaderList& operator=(const TzMimeHeaderList&) = delete;

    /// Reads the header lines at the begin of `slice`, a piece of `text`, and returns where the
    /// body begins: after the empty line, or at the end. `TzXmlParseError`, with the place in
    /// `text`, for a value with a carriage return without a line feed: readers differ on what
    /// it means.
    std::size_t read(std::shared_ptr<const TzCString> text, std::string_view slice);
    /// Takes over the headers of `other` as they are now.
    void assign(const TzMimeHeaderList& other);
    void insert(const TzMimeHeader& header);

    std::size_t count() const noexcept { return slots_.size(); }
    /// Position of the first header `label` at or after `start`, npos without one. O(log n) for the
    /// headers that were read, O(n) for those inserted since.
    std::size_t find(std::string_view label, std::size_t start) const noexcept;
    /// The header at `position`, which must be there.
    TzMimeHeader at(std::size_t position) const;
    /// The label of the header at `position`.
    std::string_view labelAt(std::size_t position) const noexcept;
    /// The value of the header at `position`: as a slice where it is one, else put into `kept`.
    std::string_view valueAt(std::size_t position, TzCString& kept) const;
    /// What the value of the first header `label` is compared by; empty without one.
    std::optional<TzCString> comparable(std::string_view label) const;
    /// Whether what the value of the first header `label` is compared by is longer than `length`
    /// bytes.
    bool isLonger(std::string_view label, std::size_t length) const;
    /// Adds the header line at `position` to `out`.
    void append(std::size_t position, TzCString& out) const;
    /// Roughly how many bytes the header lines will take. Does not look at them.
    std::size_t writtenSize() const noexcept { return writtenSize_; }
    /// Asks for the memory of the list.
    void prefetch() const noexcept {
        TzMimePrefetch::prefetch(slots_.data(), slots_.size() * sizeof(Slot));
    }
    /// Asks for the memory of the headers in the list.
    void prefetchHeaders() const noexcept;

private:
    struct Slot {
        std::string_view line; // empty for a header that was not read
        std::size_t colon = 0;
        TzMimeHeader header;
    };

    /// From this number of headers on labels are looked up by the index.
    static constexpr std::size_t IndexedFrom = 16;

    std::size_t readLines(std::string_view slice);
    void refuseBareReturns(std::string_view slice) const;
    void makeIndex();
    std::size_t findByIndex(std::string_view label, std::size_t start) const noexcept;
    std::size_t findInTurn(std::string_view label, std::size_t start) const noexcept;
    std::string_view rawValue(const Slot& slot) const noexcept;
    /// The header of a slot; empty while nothing has made it.
    TzMimeHeader existing(const Slot& slot) const noexcept;

    mutable std::vector<Slot> slots_;
    std::vector<std::size_t> index_; // of the first slots, by label and position; empty for few
    std::size_t writtenSize_ = 0;
    std::shared_ptr<const TzCString> text_;
};
