// SPDX-License-Identifier: MIT
#pragma once

#include <sys/single_threaded.h>

#include <atomic>
#include <cstddef>
#include <utility>

/// A pointer to an immutable `Value` that copies share, or to none, which stands for `Value()`.
///
/// Copying costs one counter, the empty one nothing. One object belongs to one thread at a time;
/// objects that share a value may live on different threads.
template <typename Value> class TzSharedRecord {
public:
    /// Stands for `Value()`; takes no memory.
    TzSharedRecord() noexcept = default;
    /// Shares `value`.
    explicit TzSharedRecord(Value value) : record_(new Record{{1}, std::move(value)}) {}
    TzSharedRecord(const TzSharedRecord& other) noexcept : record_(other.record_) { retain(); }
    TzSharedRecord(TzSharedRecord&& other) noexcept
        : record_(std::exchange(other.record_, nullptr)) {}
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
    /// Whether both share one value; both empty counts as that.
    bool isSame(const TzSharedRecord& other) const noexcept { return record_ == other.record_; }

private:
    struct Record {
        std::atomic<std::ptrdiff_t> references{1};
        Value value;
    };

    static const Value& none() noexcept {
        static const Value value;
        return value;
    }
    void retain() const noexcept {
        if (record_ != nullptr) {
            count(1);
        }
    }
    void release() const noexcept {
        if (record_ != nullptr && count(-1) == 1) {
            delete record_;
        }
    }
    // Changes the count and returns what it was. Without a second thread it needs no locked
    // instruction.
    std::ptrdiff_t count(std::ptrdiff_t change) const noexcept {
        std::atomic<std::ptrdiff_t>& references = record_->references;
        if (__libc_single_threaded != 0) {
            const std::ptrdiff_t before = references.load(std::memory_order_relaxed);
            references.store(before + change, std::memory_order_relaxed);
            return before;
        }
        return references.fetch_add(change, std::memory_order_acq_rel);
    }
    void swap(TzSharedRecord& other) noexcept { std::swap(record_, other.record_); }

    Record* record_ = nullptr;
};
