// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapValuePosition.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <utility>

/// The values that an element holds, in document order: entries of a header or body, children; and
/// the text that a literal message has between them.
///
/// A list of handles: copying the list shares the values. Text is not a value: neither positions
/// nor `size` see it. Names may repeat. Positions stay valid until their value is removed. A search
/// that meets a value without a body throws `TzTHRInvalidPointer`. Not locked: one list is used by
/// one thread at a time.
class TZSOAP_API TzSoapValueList {
public:
    /// Position of a value.
    using iterator = TzSoapValuePosition<TzSoapType>;
    /// Position of a value that is only looked at.
    using const_iterator = TzSoapValuePosition<const TzSoapType>;

    /// No values.
    TzSoapValueList() noexcept;
    /// Shares the values and copies the text.
    TzSoapValueList(const TzSoapValueList& other);
    TzSoapValueList(TzSoapValueList&& other) noexcept;
    /// Shares the values and copies the text.
    TzSoapValueList& operator=(const TzSoapValueList& other);
    TzSoapValueList& operator=(TzSoapValueList&& other) noexcept;
    ~TzSoapValueList();

    /// Position of the first value.
    iterator begin() noexcept { return iterator(ends_.next); }
    /// Position of the first value.
    const_iterator begin() const noexcept { return const_iterator(ends_.next); }
    /// Position after the last value.
    iterator end() noexcept { return iterator(&ends_); }
    /// Position after the last value.
    const_iterator end() const noexcept { return const_iterator(ends_.previous->next); }
    /// Number of values.
    unsigned int size() const noexcept { return static_cast<unsigned int>(size_); }

    /// Adds `value`, shared, before `position` and after the text that stands there; returns its
    /// position.
    iterator insert(const_iterator position, TzSoapType value) {
        return add(position, new TzSoapValueNode(std::move(value), nullptr));
    }
    /// Adds `value`, shared, as the last one.
    void append(TzSoapType value) { insert(end(), std::move(value)); }
    /// Adds `value`, shared, as the first one.
    void prepend(TzSoapType value) { insert(begin(), std::move(value)); }

    /// Whether there is text beside the values, white space included.
    bool hasText() const noexcept;
    /// The text right before the value at `position`, after the last value if that is `end()`; ""
    /// without. Valid until it changes. O(log size).
    const TzCString& textBefore(const_iterator position) const noexcept;
    /// Replaces that text; "" removes it. O(log size).
    void setTextBefore(const_iterator position, TzCString text);
    /// Removes all text.
    void clearText() noexcept;

    /// The first value named `name`, `end()` if absent. O(size).
    iterator find(const TzXmlName& name);
    /// The first value named `name`, `end()` if absent. O(size).
    const_iterator find(const TzXmlName& name) const;
    /// Removes the value at `position`; returns the position of the next one. The text before it
    /// stays unless it is white space: it comes before the text that follows. Without memory for
    /// that nothing changes. O(length of the text that follows).
    iterator remove(const_iterator position) {
        if (texts_ != nullptr) {
            joinText(position);
        }
        return drop(position);
    }
    /// Removes the value at `position` and the text before it; returns the position of the next
    /// value. O(log size).
    iterator erase(const_iterator position) noexcept {
        if (texts_ != nullptr) {
            eraseText(position);
        }
        return drop(position);
    }
    /// Removes the first value named `name`, if any. O(size).
    void remove(const TzXmlName& name);
    /// Removes every value named `name`, the others keep their order. O(size).
    void removeAll(const TzXmlName& name);
    /// Removes all values and all text.
    void clear() noexcept;

    /// A list of copies of the values (`TzSoapType::copy`). O(content).
    TzSoapValueList copyValues() const;
    /// Whether both lists are equally long and share their bodies position by position. O(size).
    bool sharesValues(const TzSoapValueList& other) const noexcept;

private:
    friend struct TzSoapAccess;

    /// Text by the place of the value after it, null for the end of the list.
    struct Texts;

    const TzSoapType* keyOf(const_iterator position) const noexcept {
        return position == end() ? nullptr : &*position;
    }
    iterator add(const_iterator position, TzSoapValueNode* node) noexcept;
    TzSoapValueNode* unlink(const_iterator position) noexcept;
    iterator drop(const_iterator position) noexcept;
    void takeValues(TzSoapValueList& other) noexcept;
    static void release(TzSoapValueNode* node) noexcept;
    void append(TzSoapType&& value, TzBlocks& blocks);
    void moveText(const_iterator from, const_iterator to) noexcept;
    void joinText(const_iterator removed);
    void eraseText(const_iterator position) noexcept;
    void copyTextOf(const TzSoapValueList& other);

    TzSoapValueLink ends_{&ends_, &ends_}; // the last and the first value
    std::size_t size_ = 0;
    Texts* texts_ = nullptr; // owned, of few lists; <memory> is too heavy for this header
};
