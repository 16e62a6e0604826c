// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <tz/thread/TzMutexLock.h>
#include <tz/thread/TzTMonitor.h>

#include <cstddef>
#include <iterator>
#include <list>
#include <memory>
#include <utility>
#include <vector>

/// The items of a sparse array, in order of insertion: pairs of index and value.
///
/// Look-ups walk a short list and use an index beside a long one, O(log items). An iterator that
/// may change indices notes which items it gave out, and the next look-up looks at those again, so
/// what it costs follows what was given out. References to more than `Watched` indices must not be
/// kept over a look-up and changed after it; iterators may. An operation that throws changes
/// nothing. Constant operations may run on several threads at once.
class TZSOAP_API TzSoapSparseItems : private TzTMonitor<TzMutexLock> {
public:
    /// One entry for each axis.
    using Index = std::vector<unsigned int>;
    /// Index and value.
    using Item = std::pair<Index, TzSoapType>;
    class iterator;
    class const_iterator;

    /// How many of the items given out last are looked at by every look-up.
    static constexpr std::size_t Watched = 16;

    /// No items.
    TzSoapSparseItems() noexcept;
    /// Copies the pairs; the values are shared. O(items).
    TzSoapSparseItems(const TzSoapSparseItems& other);
    TzSoapSparseItems& operator=(const TzSoapSparseItems&) = delete;
    ~TzSoapSparseItems();

    /// The first item.
    iterator begin();
    /// One past the last item.
    iterator end();
    /// The first item.
    const_iterator begin() const noexcept;
    /// One past the last item.
    const_iterator end() const noexcept;
    /// Number of items.
    std::size_t size() const noexcept { return nodes_.size(); }

    /// The value of the first item with that index, null without one.
    TzSoapType* find(const Index& index);
    /// The value of the first item with that index, null without one.
    const TzSoapType* find(const Index& index) const;
    /// Adds an item at the end.
    TzSoapType& append(Index index, TzSoapType value);
    /// Removes the items for whose index `isUnwanted` is true, the others keep their order. Throws
    /// nothing but what `isUnwanted` does. O(items).
    template <typename Predicate> void removeIf(const Predicate& isUnwanted) {
        dropIndex();
        for (auto node = nodes_.begin(); node != nodes_.end();) {
            node = isUnwanted(std::as_const(node->item.first)) ? remove(node) : std::next(node);
        }
    }
    /// Gives back the memory of the index; the next look-up in a long list makes it again.
    void dropIndex() noexcept;

private:
    /// Shorter lists are walked.
    static constexpr std::size_t LongList = Watched;

    class Lookup;
    struct Node {
        Item item;
        std::size_t number; // in the index
    };
    using Nodes = std::list<Node>;

    Node* search(const Index& index) const;
    Lookup& lookup() const;
    void noteGiven(Node& node) const noexcept;
    Nodes::iterator remove(Nodes::iterator node) noexcept;

    mutable Nodes nodes_;
    mutable std::unique_ptr<Lookup> lookup_; // only beside long lists
};

/// Position of an item whose index and value may be changed; valid until that item is removed.
class TzSoapSparseItems::iterator {
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = Item;
    using difference_type = std::ptrdiff_t;
    using pointer = Item*;
    using reference = Item&;

    iterator() noexcept = default;

    reference operator*() const noexcept {
        if (items_->lookup_ != nullptr) {
            items_->noteGiven(*at_);
        }
        return at_->item;
    }
    pointer operator->() const noexcept { return &**this; }
    iterator& operator++() noexcept {
        ++at_;
        return *this;
    }
    iterator operator++(int) noexcept { return {*items_, at_++}; }
    iterator& operator--() noexcept {
        --at_;
        return *this;
    }
    iterator operator--(int) noexcept { return {*items_, at_--}; }
    friend bool operator==(const iterator& left, const iterator& right) noexcept {
        return left.at_ == right.at_;
    }

private:
    friend class TzSoapSparseItems;

    iterator(const TzSoapSparseItems& items, Nodes::iterator at) noexcept
        : items_(&items), at_(at) {}

    const TzSoapSparseItems* items_ = nullptr;
    Nodes::iterator at_;
};

/// Position of an item that is only looked at; valid until that item is removed.
class TzSoapSparseItems::const_iterator {
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = Item;
    using difference_type = std::ptrdiff_t;
    using pointer = const Item*;
    using reference = const Item&;

    const_iterator() noexcept = default;
    /// The position of `other`.
    const_iterator(const iterator& other) noexcept : at_(other.at_) {}

    reference operator*() const noexcept { return at_->item; }
    pointer operator->() const noexcept { return &at_->item; }
    const_iterator& operator++() noexcept {
        ++at_;
        return *this;
    }
    const_iterator operator++(int) noexcept { return const_iterator(at_++); }
    const_iterator& operator--() noexcept {
        --at_;
        return *this;
    }
    const_iterator operator--(int) noexcept { return const_iterator(at_--); }
    friend bool operator==(const const_iterator& left, const const_iterator& right) noexcept {
        return left.at_ == right.at_;
    }

private:
    friend class TzSoapSparseItems;

    explicit const_iterator(Nodes::const_iterator at) noexcept : at_(at) {}

    Nodes::const_iterator at_;
};

inline TzSoapSparseItems::const_iterator TzSoapSparseItems::begin() const noexcept {
    return const_iterator(nodes_.cbegin());
}

inline TzSoapSparseItems::const_iterator TzSoapSparseItems::end() const noexcept {
    return const_iterator(nodes_.cend());
}
