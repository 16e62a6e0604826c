// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlEventSink.h"

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

/// The attributes of one tag after the other, in memory that is used again.
class TzXmlTagAttributes {
public:
    TzXmlTagAttributes();

    /// Begins a tag.
    void clear() noexcept {
        all_.clear();
        values_.clear();
    }
    std::size_t size() const noexcept { return all_.size(); }
    /// Adds an attribute whose value the text holds.
    void add(std::string_view name, std::string_view value) { all_.push_back({name, value}); }
    /// Adds an attribute whose value is what was appended to `values` from `begin` on, not empty.
    void addWritten(std::string_view name, std::size_t begin) {
        all_.push_back({name, {nullptr, values_.size() - begin}});
    }
    /// Where values are written that the text does not hold as they are.
    TzCString& values() noexcept { return values_; }

    /// Whether two attributes have one name. O(size log(size)).
    bool namesRepeat();
    /// The attributes, valid until the next tag begins.
    std::span<const TzXmlSpelledAttribute> settled() noexcept;

private:
    bool fewNamesRepeat() const noexcept;

    std::vector<TzXmlSpelledAttribute> all_;
    TzCString values_;
    std::vector<std::string_view> names_; // to sort them
};
