// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// The encoding styles that the open elements state, innermost last; elements that state none have
/// no entry. Entries that were dropped keep their memory for the next ones.
class TzSoapStyleStack {
public:
    /// Number of styles stated.
    std::size_t size() const noexcept { return used_; }
    /// The style that the first `count` entries put in force, "" when there are none.
    std::string_view inForce(std::size_t count) const noexcept {
        return count == 0 ? std::string_view() : styles_[count - 1];
    }
    /// States a style, which must not be empty.
    void push(std::string_view style) {
        if (used_ == styles_.size()) {
            styles_.emplace_back();
        }
        styles_[used_].assign(style);
        ++used_;
        ++changes_;
    }
    /// Forgets all but the first `count` styles.
    void shrink(std::size_t count) noexcept {
        if (used_ != count) {
            used_ = count;
            ++changes_;
        }
    }
    /// Number of changes so far: what was found out holds as long as it stays.
    std::uint64_t changes() const noexcept { return changes_; }

private:
    std::vector<TzCString> styles_;
    std::size_t used_ = 0;
    std::uint64_t changes_ = 0;
};
