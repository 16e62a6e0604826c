// SPDX-License-Identifier: MIT
#pragma once

#include <tz/thread/TzUseCount.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <new>
#include <utility>

/// A pointer to an immutable `Value` that copies share; an empty one stands for `Value()`.
///
/// Copying costs one counter, the empty one nothing. One object belongs to one thread at a time;
/// objects that share a value may live on different threads.
template <typename Value> class TzSharedRecord {
public:
    class Maker;

    /// Stands for `Value()`; takes no memory.
    TzSharedRecord() noexcept = default;
    /// Shares `value`.
    explicit TzSharedRecord(Value value) : record_(new Record(nullptr, std::move(value))) {}
    TzSharedRecord(const TzSharedRecord& other) noexcept : record_(other.record_) { retain(); }
    TzSharedRecord(TzSharedRecord&& other) noexcept
        : record_(std::exchange(other.record_, nullptr)) {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): compares what is shared
    TzSharedRecord& operator=(const TzSharedRecord& other) noexcept {
        if (record_ != other.record_) {
            TzSharedRecord(other).swap(*this);
        }
        return *this;
    }
    TzSharedRecord& operator=(TzSharedRecord&& other) noexcept {
        // What is overwritten goes at once, and so does not stay in an object that was moved from.
        TzSharedRecord(std::move(other)).swap(*this);
        return *this;
    }
    ~TzSharedRecord() { release(); }

    /// The value; valid until this object changes.
    const Value& operator*() const noexcept { return record_ != nullptr ? record_->value : none(); }
    /// The value; valid until this object changes.
    const Value* operator->() const noexcept { return &**this; }
    /// Whether the pointer refers to a value, which others may share.
    bool isSet() const noexcept { return record_ != nullptr; }
    /// Whether both share one value; true for two empty ones.
    bool isSame(const TzSharedRecord& other) const noexcept { return record_ == other.record_; }

private:
    struct Block;
    struct Record {
        Record(Block* room, Value content) : block(room), value(std::move(content)) {}

        TzUseCount references;
        Block* block; // null for a record outside of blocks
        Value value;
    };
    /// Memory of several records, which goes with the last of them.
    struct Block {
        static constexpr std::size_t Size = 16;

        TzUseCount users; // the records made and the maker
        std::size_t made = 0;
        alignas(Record) std::array<std::byte, Size * sizeof(Record)> room;
    };

    explicit TzSharedRecord(Record* record) noexcept : record_(record) {}

    static const Value& none() noexcept {
        const Value* const known = none_.load(std::memory_order_acquire);
        return known != nullptr ? *known : makeNone();
    }
    // Not in the places that ask for it, which are many.
    [[gnu::noinline, gnu::cold]] static const Value& makeNone() noexcept {
        // Never destroyed: an empty value holds nothing, and its last user may come late.
        alignas(Value) static std::array<std::byte, sizeof(Value)> room;
        static const Value* const value = ::new (static_cast<void*>(room.data())) Value();
        none_.store(value, std::memory_order_release);
        return *value;
    }
    void retain() const noexcept {
        if (record_ != nullptr) {
            record_->references.add();
        }
    }
    void release() const noexcept {
        if (record_ != nullptr && record_->references.leave()) {
            destroy(record_);
        }
    }
    static void destroy(Record* record) noexcept {
        Block* const block = record->block;
        if (block == nullptr) {
            delete record;
        } else {
            record->~Record();
            leave(block);
        }
    }
    static void leave(Block* block) noexcept {
        if (block != nullptr && block->users.leave()) {
            delete block;
        }
    }
    void swap(TzSharedRecord& other) noexcept { std::swap(record_, other.record_); }

    static inline constinit std::atomic<const Value*> none_{nullptr};

    Record* record_ = nullptr;
};

/// Makes shared values many at a time: a few of them share a block of memory, which the last of
/// them frees. One maker belongs to one thread; what it made goes where it likes and may
/// outlive it.
template <typename Value> class TzSharedRecord<Value>::Maker {
public:
    Maker() noexcept = default;
    Maker(const Maker&) = delete;
    Maker& operator=(const Maker&) = delete;
    ~Maker() { leave(block_); }

    /// Shares `value`.
    TzSharedRecord make(Value value) {
        if (block_ == nullptr || block_->made == Block::Size) {
            Block* const fresh = new Block;
            leave(std::exchange(block_, fresh));
            bytes_ += sizeof(Block);
        }
        void* const place = block_->room.data() + block_->made * sizeof(Record);
        Record* const record = new (place) Record(block_, std::move(value));
        ++block_->made;
        block_->users.add();
        return TzSharedRecord(record);
    }
    /// Bytes of all blocks that it made so far; what it holds and shares takes no more.
    std::size_t bytes() const noexcept { return bytes_; }

private:
    Block* block_ = nullptr;
    std::size_t bytes_ = 0;
};
