// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

/// A vector whose first `Few` values lie in the object itself: only more of them take memory.
///
/// Values move when it grows, and memory once taken is kept to the end. Serves what is usually
/// small and lives no longer than one writing.
template <typename Value, std::size_t Few> class TzSoapInlineVector {
    static_assert(std::is_nothrow_move_constructible_v<Value>);
    static_assert(alignof(Value) <= alignof(std::max_align_t));

public:
    TzSoapInlineVector() noexcept : values_(reinterpret_cast<Value*>(room_)) {}
    TzSoapInlineVector(const TzSoapInlineVector& other) : TzSoapInlineVector() {
        reserve(other.size_);
        std::uninitialized_copy(other.begin(), other.end(), values_);
        size_ = other.size_;
    }
    TzSoapInlineVector& operator=(const TzSoapInlineVector&) = delete;
    ~TzSoapInlineVector() { std::destroy_n(values_, size_); }

    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    Value* begin() noexcept { return values_; }
    Value* end() noexcept { return values_ + size_; }
    const Value* begin() const noexcept { return values_; }
    const Value* end() const noexcept { return values_ + size_; }
    Value& operator[](std::size_t position) noexcept { return values_[position]; }
    const Value& operator[](std::size_t position) const noexcept { return values_[position]; }
    /// The last value; there must be one.
    Value& back() noexcept { return values_[size_ - 1]; }
    const Value& back() const noexcept { return values_[size_ - 1]; }

    /// Adds `value` at the end.
    void push_back(Value value) {
        if (size_ == capacity_) {
            reserve(size_ + 1);
        }
        ::new (static_cast<void*>(values_ + size_)) Value(std::move(value));
        ++size_;
    }
    /// Adds `count` values, which get their contents afterwards; returns the first of them.
    Value* extend(std::size_t count) requires std::is_trivial_v<Value> {
        reserve(size_ + count);
        size_ += count;
        return end() - count;
    }
    /// Becomes a copy of `other`.
    void assign(const TzSoapInlineVector& other) requires std::is_trivial_v<Value> {
        clear();
        std::copy_n(other.begin(), other.size(), extend(other.size()));
    }
    /// Removes the last value; there must be one.
    void pop_back() noexcept { shrink(size_ - 1); }
    /// Removes the value at `position`, the others keep their order.
    void erase(Value* position) noexcept {
        std::move(position + 1, end(), position);
        pop_back();
    }
    /// Removes all values but the first `size`.
    void shrink(std::size_t size) noexcept {
        std::destroy(values_ + size, values_ + size_);
        size_ = size;
    }
    void clear() noexcept { shrink(0); }
    /// Makes room for `size` values in all.
    void reserve(std::size_t size) {
        if (size > capacity_) {
            grow(std::max(size, 2 * capacity_));
        }
    }

private:
    /// Room for values that are not there yet.
    struct alignas(Value) Room {
        std::byte bytes[sizeof(Value)];
    };

    void grow(std::size_t capacity) {
        std::unique_ptr<Room[]> larger(new Room[capacity]);
        auto* const values = reinterpret_cast<Value*>(larger.get());
        std::uninitialized_move_n(values_, size_, values);
        std::destroy_n(values_, size_);
        values_ = values;
        capacity_ = capacity;
        more_ = std::move(larger);
    }

    alignas(Value) std::byte room_[Few * sizeof(Value)];
    Value* values_; // in room_ or in more_
    std::size_t size_ = 0;
    std::size_t capacity_ = Few;
    std::unique_ptr<Room[]> more_;
};
