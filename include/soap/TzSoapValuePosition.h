// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>
#include <tz/pointer/TzBlocks.h>

#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>

class TzSoapValueList;

/// What the nodes and the end of a `TzSoapValueList` are linked by.
struct TzSoapValueLink {
    TzSoapValueLink* previous; ///< The one before.
    TzSoapValueLink* next;     ///< The one after.
};

/// A value in a `TzSoapValueList`.
struct TzSoapValueNode : TzSoapValueLink {
    /// A node of `value` that is not linked yet, in `memory`.
    TzSoapValueNode(TzSoapType&& content, TzBlocks::Block* memory) noexcept
        : TzSoapValueLink{nullptr, nullptr}, value(std::move(content)), block(memory) {}

    TzSoapType value;
    TzBlocks::Block* block; ///< The block it lies in, null for a node of its own.
};

/// Position of a value in a `TzSoapValueList`, a bidirectional iterator; `Value` is `TzSoapType` or
/// `const TzSoapType`. It stays valid until its value is removed or its list ends.
template <typename Value> class TzSoapValuePosition {
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = TzSoapType;
    using difference_type = std::ptrdiff_t;
    using pointer = Value*;
    using reference = Value&;

    /// A position in no list, to be assigned to.
    TzSoapValuePosition() noexcept = default;
    /// The same position, of a value that is only looked at.
    template <typename Other>
    requires(std::is_const_v<Value> && !std::is_const_v<Other>)
        TzSoapValuePosition(const TzSoapValuePosition<Other>& other)
    noexcept : link_(other.link_) {}

    /// The value, which must exist: not at `end()`.
    Value& operator*() const noexcept { return static_cast<TzSoapValueNode*>(link_)->value; }
    /// The value, which must exist: not at `end()`.
    Value* operator->() const noexcept { return &**this; }
    /// Goes to the next value or to `end()`.
    TzSoapValuePosition& operator++() noexcept {
        link_ = link_->next;
        return *this;
    }
    /// Goes to the next value or to `end()`; the position before.
    TzSoapValuePosition operator++(int) noexcept {
        const TzSoapValuePosition before = *this;
        ++*this;
        return before;
    }
    /// Goes to the value before.
    TzSoapValuePosition& operator--() noexcept {
        link_ = link_->previous;
        return *this;
    }
    /// Goes to the value before; the position before that.
    TzSoapValuePosition operator--(int) noexcept {
        const TzSoapValuePosition before = *this;
        --*this;
        return before;
    }
    /// Whether both are the same position of one list.
    friend bool operator==(const TzSoapValuePosition& left,
                           const TzSoapValuePosition& right) noexcept {
        return left.link_ == right.link_;
    }

private:
    friend class TzSoapValueList;
    template <typename Other> friend class TzSoapValuePosition;

    explicit TzSoapValuePosition(TzSoapValueLink* link) noexcept : link_(link) {}

    TzSoapValueLink* link_ = nullptr;
};
