// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapType.h>
#include <tz/xml/TzXmlName.h>

#include <cstddef>
#include <list>
#include <utility>

/// The values that an element holds, in document order: entries of a header or body, children.
///
/// A list of handles: copying the list shares the values. Names may repeat. Positions stay valid
/// until their value is removed. A search that meets a value without a body throws
/// `TzTHRInvalidPointer`. Not locked: one list is used by one thread at a time.
class TZSOAP_API TzSoapValueList {
public:
    /// Position of a value.
    using iterator = std::list<TzSoapType>::iterator;
    /// Position of a value that is only looked at.
    using const_iterator = std::list<TzSoapType>::const_iterator;

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

    /// Adds `value`, shared, before `position`; returns where it stands.
    iterator insert(const_iterator position, TzSoapType value) {
        return values_.insert(position, std::move(value));
    }
    /// Adds `value`, shared, as the last one.
    void append(TzSoapType value) { values_.push_back(std::move(value)); }
    /// Adds `value`, shared, as the first one.
    void prepend(TzSoapType value) { values_.push_front(std::move(value)); }

    /// The first value named `name`, `end()` if absent. O(size).
    iterator find(const TzXmlName& name);
    /// The first value named `name`, `end()` if absent. O(size).
    const_iterator find(const TzXmlName& name) const;
    /// Removes the value at `position`; returns the position of the next one.
    iterator remove(const_iterator position) { return values_.erase(position); }
    /// Removes the first value named `name`, if any. O(size).
    void remove(const TzXmlName& name);
    /// Removes every value named `name`, the others keep their order. O(size).
    void removeAll(const TzXmlName& name);
    /// Removes all values.
    void clear() noexcept { values_.clear(); }

    /// A list of copies of the values (`TzSoapType::copy`). O(content).
    TzSoapValueList copyValues() const;
    /// Whether both lists are equally long and share their bodies position by position. O(size).
    bool sharesValues(const TzSoapValueList& other) const noexcept;

private:
    std::list<TzSoapType> values_;
};
