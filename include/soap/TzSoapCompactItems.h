// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapMadeOnce.h>
#include <tz/thread/TzMutexLock.h>
#include <tz/thread/TzTMonitor.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <vector>

/// The items of a compact array, counted from its first position.
///
/// Up to `BlockLimit` positions share one block of memory; items come to life in it when they are
/// reached and never move within it. More positions are kept in pieces that are made when they are
/// reached and do not move either, until `block` joins them. Growing moves items. An operation that
/// throws changes nothing. Constant operations may run on several threads at once, except for
/// `block` where it joins pieces.
class TZSOAP_API TzSoapCompactItems : private TzTMonitor<TzMutexLock> {
public:
    /// The item of a position.
    using Item = TzSoapDefaultType;
    /// What stands for an item that was not assigned; called only where one is needed.
    using Placeholder = TzSoapMadeOnce<Item>;
    class Range;

    /// Most positions that are in one block from the start.
    static constexpr std::uint64_t BlockLimit = 1048576;

    /// No positions.
    TzSoapCompactItems() noexcept = default;
    /// `size` positions without items; takes no memory.
    explicit TzSoapCompactItems(std::uint64_t size) noexcept : size_(size) {}
    /// Shares the values. O(items alive).
    TzSoapCompactItems(const TzSoapCompactItems& other);
    TzSoapCompactItems& operator=(const TzSoapCompactItems&) = delete;
    ~TzSoapCompactItems();

    /// Number of positions, with an item or without.
    std::uint64_t size() const noexcept { return size_; }
    /// Number of positions that the memory taken so far has room for, at least the size.
    std::uint64_t capacity() const noexcept { return capacity_ > size_ ? capacity_ : size_; }
    /// Takes the memory of a block for `count` positions at least; nothing beyond the limit.
    void reserve(std::uint64_t count);
    /// Adds positions up to a greater number of them. Reaching the one at `at` takes no memory
    /// afterwards; `size` for none of them. Moves items, O(items alive) at most.
    void grow(std::uint64_t size, std::uint64_t at, const Placeholder& placeholder);

    /// The item at a position, null where none came to life. O(1).
    Item* find(std::uint64_t at) noexcept { return stored(at); }
    /// The item at a position, null where none came to life. O(1).
    const Item* find(std::uint64_t at) const noexcept { return stored(at); }
    /// The item at a position below the size, a copy of `placeholder` where none was. O(positions
    /// that come to life, too).
    Item& reach(std::uint64_t at, const Placeholder& placeholder);
    /// Puts an item at a position below the size. O(positions that come to life).
    void put(std::uint64_t at, Item&& item, const Placeholder& placeholder);
    /// Whether `at` follows the last item that is alive, with room for another one and below the
    /// size: what `putNext` needs.
    bool isNext(std::uint64_t at) const noexcept {
        return at == to_.load(std::memory_order_relaxed) && at < capacity_ && at < size_;
    }
    /// Puts an item at the position for which `isNext` is true. O(1).
    void putNext(Item&& item) noexcept {
        const std::uint64_t at = to_.load(std::memory_order_relaxed);
        std::construct_at(block_ + at, std::move(item));
        to_.store(at + 1, std::memory_order_release);
    }
    /// The first of all items as one block: those that were not alive are copies of `placeholder`
    /// now. Null without positions. O(positions) at the first call, then O(1).
    Item* block(const Placeholder& placeholder) const;

    /// The first position from `at` on whose item is alive, the size without one.
    std::uint64_t nextStored(std::uint64_t at) const noexcept;
    /// One more than the last position before `end` whose item is alive, 0 without one.
    std::uint64_t storedBefore(std::uint64_t end) const noexcept;
    /// The items that are alive, in order.
    Range stored() const noexcept;

    /// Exchanges everything with `other`.
    void swap(TzSoapCompactItems& other) noexcept;

private:
    using Piece = std::vector<Item>;
    using Group = std::vector<Piece>;
    /// Memory of a block; its user constructs and destroys the items in it.
    struct Release {
        std::uint64_t capacity = 0;
        void operator()(Item* memory) const noexcept;
    };
    using Memory = std::unique_ptr<Item, Release>;

    static constexpr unsigned int PieceBits = 10;
    static constexpr unsigned int GroupBits = 21;
    static constexpr std::uint64_t PieceSize = std::uint64_t{1} << PieceBits;
    static constexpr std::uint64_t PieceMask = PieceSize - 1;
    static constexpr std::uint64_t GroupMask = (std::uint64_t{1} << (GroupBits - PieceBits)) - 1;

    static Memory allocate(std::uint64_t count);
    bool inPieces() const noexcept { return block_ == nullptr && size_ > BlockLimit; }
    Item* stored(std::uint64_t at) const noexcept {
        // The bounds of the run only move apart while others read, so any two of them will do.
        const std::uint64_t from = from_.load(std::memory_order_acquire);
        if (at < to_.load(std::memory_order_acquire) && at >= from) {
            return block_ + at;
        }
        return at < size_ && !groups_.empty() ? storedInPiece(at) : nullptr;
    }
    Item* storedInPiece(std::uint64_t at) const noexcept;
    Piece& piece(std::uint64_t at, const Placeholder& placeholder);
    void fill(std::uint64_t from, std::uint64_t to, const Placeholder& placeholder) const;
    void takeBlock(Memory memory) const noexcept;
    void moveIntoBlock(std::uint64_t capacity);
    void moveIntoPieces(std::uint64_t reached, const Placeholder& placeholder);
    void joinPieces(const Placeholder& placeholder) const;
    void complete(const Placeholder& placeholder) const;

    // Joining and completing a block change the form of the array, not its items.
    mutable Item* block_ = nullptr;
    mutable std::uint64_t capacity_ = 0;
    mutable std::atomic<std::uint64_t> from_{0}; // the run of items alive in the block
    mutable std::atomic<std::uint64_t> to_{0};
    mutable std::vector<Group> groups_; // of pieces; an empty one was not reached
    std::uint64_t size_ = 0;
};

/// Items of a part of an array, in order of position; valid as long as the array lives.
class TzSoapCompactItems::Range {
public:
    /// Steps from item to item; finds each of them anew, so items may move meanwhile.
    class iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = TzSoapDefaultType;
        using difference_type = std::ptrdiff_t;
        using pointer = const TzSoapDefaultType*;
        using reference = const TzSoapDefaultType&;

        iterator() noexcept = default;
        iterator(const Range& range, std::uint64_t at) noexcept
            : items_(range.items_), placeholder_(range.placeholder_), at_(at) {}

        reference operator*() const {
            const Item* item = items_->find(at_);
            return item != nullptr ? *item : missing();
        }
        pointer operator->() const { return &**this; }
        iterator& operator++() noexcept {
            ++at_;
            if (placeholder_ == nullptr) {
                at_ = items_->nextStored(at_);
            }
            return *this;
        }
        iterator operator++(int) noexcept {
            iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const iterator& left, const iterator& right) noexcept {
            return left.at_ == right.at_;
        }

    private:
        TZSOAP_API reference missing() const;

        const TzSoapCompactItems* items_ = nullptr;
        const Placeholder* placeholder_ = nullptr;
        std::uint64_t at_ = 0;
    };

    /// The items from one position to the one before another; `placeholder` stands for those that
    /// are not alive, without one they are left out.
    Range(const TzSoapCompactItems& items, std::uint64_t from, std::uint64_t to,
          const Placeholder* placeholder) noexcept
        : items_(&items), placeholder_(placeholder), from_(from), to_(to) {}

    /// The first item.
    iterator begin() const noexcept { return {*this, from_}; }
    /// One past the last item.
    iterator end() const noexcept { return {*this, to_}; }
    /// Whether there are no items.
    bool empty() const noexcept { return from_ == to_; }

private:
    const TzSoapCompactItems* items_;
    const Placeholder* placeholder_;
    std::uint64_t from_;
    std::uint64_t to_;
};

inline TzSoapCompactItems::Range TzSoapCompactItems::stored() const noexcept {
    return {*this, nextStored(0), size_, nullptr};
}
