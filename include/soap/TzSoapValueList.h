// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <list>
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
    using iterator = std::list<TzSoapType>::iterator;
    /// Position of a value that is only looked at.
    using const_iterator = std::list<TzSoapType>::const_iterator;

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
    iterator begin() noexcept { return values_.begin(); }
    /// Position of the first value.
    const_iterator begin() const noexcept { return values_.begin(); }
    /// Position after the last value.
    iterator end() noexcept { return values_.end(); }
    /// Position after the last value.
    const_iterator end() const noexcept { return values_.end(); }
    /// Number of values.
    unsigned int size() const noexcept { return static_cast<unsigned int>(values_.size()); }

    /// Adds `value`, shared, before `position` and after the text that stands there; returns its
    /// position.
    iterator insert(const_iterator position, TzSoapType value) {
        const iterator added = values_.insert(position, std::move(value));
        if (texts_ != nullptr) {
            moveText(position, added);
        }
        return added;
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
        return values_.erase(position);
    }
    /// Removes the value at `position` and the text before it; returns the position of the next
    /// value. O(log size).
    iterator erase(const_iterator position) noexcept {
        if (texts_ != nullptr) {
            eraseText(position);
        }
        return values_.erase(position);
    }
    /// Removes the first value named `name`, if any. O(size).
    void remove(const TzXmlName& name);
    /// Removes every value named `name`, the others keep their order. O(size).
    void removeAll(const TzXmlName& name);
    /// Removes all values and all text.
    void clear() noexcept {
        values_.clear();
        if (texts_ != nullptr) {
            clearText();
        }
    }

    /// A list of copies of the values (`TzSoapType::copy`). O(content).
    TzSoapValueList copyValues() const;
    /// Whether both lists are equally long and share their bodies position by position. O(size).
    bool sharesValues(const TzSoapValueList& other) const noexcept;

private:
    /// Text by the place of the value after it, null for the end of the list.
    struct Texts;

    const TzSoapType* keyOf(const_iterator position) const noexcept {
        return position == values_.end() ? nullptr : &*position;
    }
    void moveText(const_iterator from, const_iterator to) noexcept;
    void joinText(const_iterator removed);
    void eraseText(const_iterator position) noexcept;
    void copyTextOf(const TzSoapValueList& other);

    std::list<TzSoapType> values_;
    Texts* texts_ = nullptr; // owned, of few lists; <memory> is too heavy for this header
};
