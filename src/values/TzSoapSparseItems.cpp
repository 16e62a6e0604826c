// SPDX-License-Identifier: MIT
#include <soap/TzSoapSparseItems.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <set>
#include <tuple>

/// Finds items by index, the first of several. Ordered rather than hashed, so that no choice of
/// indices makes it slow. It remembers the indices that it knows, because those of the items may
/// change under it: items that were given out are compared with what it remembers.
class TzSoapSparseItems::Lookup {
public:
    /// Learns the nodes at the first search; those of a list that has just become long may
    /// all have been given out before.
    explicit Lookup(Nodes& nodes) : nodes_(nodes) {
        given_.reserve(4 * Watched);
        if (nodes.size() <= LongList) {
            for (Node& node : nodes) {
                given_.push_back(&node);
            }
        }
    }

    /// The first node of that index, null if absent.
    Node* find(const Index& index) {
        settle();
        const Wanted wanted{Key::leadingOf(index), &index};
        // Indices mostly come in order, each after all those that are known.
        if (entries_.empty() || Less()(*entries_.rbegin(), wanted)) {
            return nullptr;
        }
        const auto found = entries_.lower_bound(wanted);
        return found != entries_.end() && found->key.equals(index) ? found->node : nullptr;
    }

    /// Adds the node that is appended.
    void add(Node& node) {
        if (!known_) {
            return; // the first search will learn it
        }
        if (places_.size() == places_.capacity()) {
            places_.reserve(2 * places_.size()); // so that entering is all or nothing
        }
        enter(node);
    }

    /// Notes that the node's index may be changed from now on.
    void give(Node& node) noexcept {
        if (!given_.empty() && given_.back() == &node) {
            return;
        }
        if (given_.size() >= std::max(4 * Watched, nodes_.size())) {
            trim(true);
        }
        try {
            given_.push_back(&node);
        } catch (const std::bad_alloc&) {
            trim(true); // leaves room
            given_.push_back(&node);
        }
    }

    /// Forgets a node that is about to be removed; the index has been dropped.
    void forget(Node& node) noexcept { std::erase(given_, &node); }

    /// Frees what the first search made.
    void drop() noexcept {
        entries_.clear();
        std::vector<Place>().swap(places_);
        trim(false);
        known_ = false;
    }

private:
    /// What an index was: its first two entries, how many there are, and all if they are more.
    struct Key {
        explicit Key(const Index& index)
            : leading(leadingOf(index)), axes(index.size()), all(axes > 2 ? index : Index()) {}

        static std::uint64_t leadingOf(const Index& index) noexcept {
            const std::uint64_t first = index.empty() ? 0 : index[0];
            return first << 32 | (index.size() < 2 ? 0 : index[1]);
        }
        bool equals(const Index& index) const noexcept {
            return axes == index.size() && leading == leadingOf(index) &&
                   (axes <= 2 || all == index);
        }

        std::uint64_t leading;
        std::size_t axes;
        Index all;
    };
    struct Entry {
        Key key;
        std::size_t number;
        Node* node;
    };
    struct Wanted {
        std::uint64_t leading;
        const Index* index;
    };
    struct Less {
        using is_transparent = void;

        bool operator()(const Entry& left, const Entry& right) const noexcept {
            return std::tie(left.key.leading, left.key.axes, left.key.all, left.number) <
                   std::tie(right.key.leading, right.key.axes, right.key.all, right.number);
        }
        bool operator()(const Entry& left, const Wanted& right) const noexcept {
            const std::size_t axes = right.index->size();
            if (left.key.leading != right.leading || left.key.axes != axes) {
                return std::tie(left.key.leading, left.key.axes) < std::tie(right.leading, axes);
            }
            return axes > 2 && left.key.all < *right.index;
        }
    };
    using Entries = std::set<Entry, Less>;
    using Place = Entries::iterator;

    /// Makes the entries say what the nodes say now.
    void settle() {
        if (!known_) {
            learn();
            return;
        }
        if (allGiven_) {
            for (Node& node : nodes_) {
                check(node);
            }
        }
        for (Node* node : given_) {
            check(*node);
        }
        trim(false);
    }

    void learn() {
        drop();
        places_.reserve(nodes_.size() + 1);
        for (Node& node : nodes_) {
            enter(node);
        }
        known_ = true;
    }

    void enter(Node& node) {
        node.number = places_.size();
        places_.push_back(
            entries_.insert(entries_.end(), {Key(node.item.first), node.number, &node}));
    }

    void check(Node& node) {
        Place& place = places_[node.number];
        if (place->key.equals(node.item.first)) {
            return;
        }
        Key changed(node.item.first);
        auto entry = entries_.extract(place);
        entry.value().key = std::move(changed);
        place = entries_.insert(std::move(entry)).position;
    }

    /// Keeps the nodes given out last; `pending` when the others were not looked at.
    void trim(bool pending) noexcept {
        allGiven_ = pending;
        if (given_.size() > Watched) {
            given_.erase(given_.begin(), given_.end() - Watched);
        }
    }

    Nodes& nodes_;
    Entries entries_;
    std::vector<Place> places_; // by number
    std::vector<Node*> given_;  // to be looked at before the next answer, the latest last
    bool allGiven_ = false;     // all others may have changed, too
    bool known_ = false;
};

TzSoapSparseItems::TzSoapSparseItems() noexcept = default;

TzSoapSparseItems::TzSoapSparseItems(const TzSoapSparseItems& other)
    : TzTMonitor(other), nodes_(other.nodes_) {}

TzSoapSparseItems::~TzSoapSparseItems() = default;

TzSoapSparseItems::Lookup& TzSoapSparseItems::lookup() const {
    if (lookup_ == nullptr) {
        lookup_ = std::make_unique<Lookup>(nodes_);
    }
    return *lookup_;
}

TzSoapSparseItems::iterator TzSoapSparseItems::begin() {
    if (size() >= LongList) {
        lookup();
    }
    return {*this, nodes_.begin()};
}

TzSoapSparseItems::iterator TzSoapSparseItems::end() {
    if (size() >= LongList) {
        lookup();
    }
    return {*this, nodes_.end()};
}

void TzSoapSparseItems::noteGiven(Node& node) const noexcept { lookup_->give(node); }

TzSoapSparseItems::Node* TzSoapSparseItems::search(const Index& index) const {
    if (size() >= LongList) {
        const Guard guard(lock());
        return lookup().find(index);
    }
    const auto found = std::find_if(nodes_.begin(), nodes_.end(), [&index](const Node& node) {
        return node.item.first == index;
    });
    return found == nodes_.end() ? nullptr : &*found;
}

TzSoapType* TzSoapSparseItems::find(const Index& index) {
    Node* node = search(index);
    return node == nullptr ? nullptr : &node->item.second;
}

const TzSoapType* TzSoapSparseItems::find(const Index& index) const {
    const Node* node = search(index);
    return node == nullptr ? nullptr : &node->item.second;
}

TzSoapType& TzSoapSparseItems::append(Index index, TzSoapType value) {
    Nodes added;
    added.push_back({{std::move(index), std::move(value)}, 0});
    if (lookup_ != nullptr) {
        lookup_->add(added.front());
    }
    nodes_.splice(nodes_.end(), added);
    return nodes_.back().item.second;
}

TzSoapSparseItems::Nodes::iterator TzSoapSparseItems::remove(Nodes::iterator node) noexcept {
    if (lookup_ != nullptr) {
        lookup_->forget(*node);
    }
    return nodes_.erase(node);
}

void TzSoapSparseItems::dropIndex() noexcept {
    if (lookup_ != nullptr) {
        lookup_->drop();
    }
}
