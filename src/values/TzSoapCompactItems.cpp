// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactItems.h>

#include <algorithm>
#include <utility>

void TzSoapCompactItems::Release::operator()(Item* memory) const noexcept {
    std::allocator<Item>().deallocate(memory, capacity);
}

TzSoapCompactItems::Memory TzSoapCompactItems::allocate(std::uint64_t count) {
    return Memory(std::allocator<Item>().allocate(count), Release{count});
}

TzSoapCompactItems::TzSoapCompactItems(const TzSoapCompactItems& other)
    : TzTMonitor(other), groups_(other.groups_), size_(other.size_) {
    const bool hasBlock = [&other] {
        const Guard guard(other.lock()); // another thread may be completing it
        return other.block_ != nullptr;
    }();
    if (hasBlock) {
        takeBlock(allocate(std::max(size_, std::uint64_t{1})));
        const std::uint64_t from = other.from_.load(std::memory_order_acquire);
        const std::uint64_t to = other.to_.load(std::memory_order_acquire);
        std::uninitialized_copy(other.block_ + from, other.block_ + to, block_ + from);
        from_ = from;
        to_ = to;
    }
}

TzSoapCompactItems::~TzSoapCompactItems() { takeBlock(nullptr); }

void TzSoapCompactItems::swap(TzSoapCompactItems& other) noexcept {
    std::swap(block_, other.block_);
    std::swap(capacity_, other.capacity_);
    from_ = other.from_.exchange(from_);
    to_ = other.to_.exchange(to_);
    groups_.swap(other.groups_);
    std::swap(size_, other.size_);
}

// Destroys the items of the old block, including those that were moved from.
void TzSoapCompactItems::takeBlock(Memory memory) const noexcept {
    std::destroy(block_ + from_, block_ + to_);
    const Memory old(block_, Release{capacity_});
    from_ = 0;
    to_ = 0;
    capacity_ = memory.get_deleter().capacity;
    block_ = memory.release();
}

void TzSoapCompactItems::reserve(std::uint64_t count) {
    if (count > capacity_ && count <= BlockLimit && !inPieces()) {
        moveIntoBlock(count);
    }
}

// What `reach` needs at that position is there before the size changes.
void TzSoapCompactItems::grow(std::uint64_t size, std::uint64_t at,
                              const Placeholder& placeholder) {
    const bool reached = at < size;
    if (reached) {
        placeholder.get();
    }
    if (size <= BlockLimit) {
        if (size > capacity_ && (reached || block_ != nullptr)) {
            moveIntoBlock(std::min(std::max(size, 2 * capacity_), BlockLimit));
        }
    } else if (!inPieces() && (reached || block_ != nullptr)) {
        moveIntoPieces(reached ? at : from_.load(), placeholder);
    } else if (reached) {
        piece(at, placeholder);
    }
    size_ = size;
}

void TzSoapCompactItems::moveIntoBlock(std::uint64_t capacity) {
    Memory memory = allocate(capacity);
    const std::uint64_t from = from_;
    const std::uint64_t to = to_;
    std::uninitialized_move(block_ + from, block_ + to, memory.get() + from);
    takeBlock(std::move(memory));
    from_ = from;
    to_ = to;
}

void TzSoapCompactItems::moveIntoPieces(std::uint64_t reached, const Placeholder& placeholder) {
    TzSoapCompactItems pieces(size_); // destroys what was made if memory runs out
    pieces.piece(reached, placeholder);
    for (std::uint64_t at = from_ & ~PieceMask; at < to_; at += PieceSize) {
        pieces.piece(at, placeholder);
    }
    for (std::uint64_t at = from_; at < to_; ++at) {
        *pieces.storedInPiece(at) = std::move(block_[at]);
    }
    takeBlock(nullptr);
    groups_.swap(pieces.groups_);
}

TzSoapCompactItems::Item* TzSoapCompactItems::storedInPiece(std::uint64_t at) const noexcept {
    const std::uint64_t group = at >> GroupBits;
    const std::uint64_t inGroup = at >> PieceBits & GroupMask;
    if (group >= groups_.size() || inGroup >= groups_[group].size() ||
        groups_[group][inGroup].empty()) {
        return nullptr;
    }
    return &groups_[group][inGroup][at & PieceMask];
}

TzSoapCompactItems::Piece& TzSoapCompactItems::piece(std::uint64_t at,
                                                     const Placeholder& placeholder) {
    const std::uint64_t group = at >> GroupBits;
    const std::uint64_t inGroup = at >> PieceBits & GroupMask;
    if (group >= groups_.size()) {
        groups_.resize(group + 1);
    }
    Group& pieces = groups_[group];
    if (inGroup >= pieces.size()) {
        pieces.resize(inGroup + 1);
    }
    if (pieces[inGroup].empty()) {
        pieces[inGroup] = Piece(PieceSize, placeholder.get());
    }
    return pieces[inGroup];
}

TzSoapCompactItems::Item& TzSoapCompactItems::reach(std::uint64_t at,
                                                    const Placeholder& placeholder) {
    if (Item* item = find(at)) {
        return *item;
    }
    if (inPieces()) {
        return piece(at, placeholder)[at & PieceMask];
    }
    reserve(size_);
    fill(from_ == to_ ? at : std::min<std::uint64_t>(from_, at),
         std::max<std::uint64_t>(to_, at + 1), placeholder);
    return block_[at];
}

void TzSoapCompactItems::put(std::uint64_t at, Item&& item, const Placeholder& placeholder) {
    if (isNext(at)) {
        putNext(std::move(item));
    } else {
        reach(at, placeholder) = std::move(item);
    }
}

// Other threads may read meanwhile: publish complete blocks only.
void TzSoapCompactItems::fill(std::uint64_t from, std::uint64_t to,
                              const Placeholder& placeholder) const {
    const Item& fresh = placeholder.get();
    if (from_ == to_) {
        std::uninitialized_fill(block_ + from, block_ + to, fresh);
        from_ = from;
        to_ = to;
        return;
    }
    std::uninitialized_fill(block_ + to_, block_ + to, fresh);
    to_ = to;
    std::uninitialized_fill(block_ + from, block_ + from_, fresh);
    from_ = from;
}

TzSoapCompactItems::Item* TzSoapCompactItems::block(const Placeholder& placeholder) const {
    if (from_.load(std::memory_order_acquire) != 0 ||
        to_.load(std::memory_order_acquire) != size_) {
        const Guard guard(lock());
        complete(placeholder);
    }
    return block_;
}

void TzSoapCompactItems::complete(const Placeholder& placeholder) const {
    if (inPieces()) {
        joinPieces(placeholder);
    } else if (to_ != size_ || from_ != 0) {
        if (block_ == nullptr) {
            takeBlock(allocate(size_));
        }
        fill(0, size_, placeholder);
    }
}

void TzSoapCompactItems::joinPieces(const Placeholder& placeholder) const {
    const Item& fresh = placeholder.get();
    Memory memory = allocate(size_);
    for (std::uint64_t at = 0; at < size_; ++at) {
        if (Item* item = storedInPiece(at)) {
            std::construct_at(memory.get() + at, std::move(*item));
        } else {
            std::construct_at(memory.get() + at, fresh);
        }
    }
    takeBlock(std::move(memory));
    to_ = size_;
    std::vector<Group>().swap(groups_);
}

std::uint64_t TzSoapCompactItems::nextStored(std::uint64_t at) const noexcept {
    if (groups_.empty()) {
        const std::uint64_t from = std::max<std::uint64_t>(from_, at);
        return from < to_ ? from : size_;
    }
    while (at < size_ && storedInPiece(at) == nullptr) {
        // Go on to the next piece, of the next group at the end of this one.
        const std::uint64_t group = at >> GroupBits;
        const bool groupEnds =
            group >= groups_.size() || (at >> PieceBits & GroupMask) >= groups_[group].size();
        at = groupEnds ? (group + 1) << GroupBits : (at | PieceMask) + 1;
    }
    return std::min(at, size_);
}

std::uint64_t TzSoapCompactItems::storedBefore(std::uint64_t end) const noexcept {
    if (groups_.empty()) {
        const std::uint64_t to = std::min<std::uint64_t>(to_, end);
        return from_ < to ? to : 0;
    }
    while (end > 0 && storedInPiece(end - 1) == nullptr) {
        const std::uint64_t group = (end - 1) >> GroupBits;
        const bool groupEmpty = group >= groups_.size() || groups_[group].empty();
        end = groupEmpty ? group << GroupBits : (end - 1) & ~PieceMask;
    }
    return end;
}

const TzSoapDefaultType& TzSoapCompactItems::Range::iterator::missing() const {
    return placeholder_->get();
}
