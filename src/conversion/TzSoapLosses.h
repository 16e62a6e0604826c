// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <string_view>
#include <utility>
#include <vector>

/// The losses of a rewriting, one text each.
class TzSoapLosses {
public:
    static constexpr std::string_view LeftOut = "left out";
    static constexpr std::string_view KeptAsItIs = "kept as it is";

    /// Adds a loss: what it is and what became of it.
    void add(TzCString what, std::string_view how) {
        what += ": ";
        what += how;
        texts_.push_back(std::move(what));
    }
    /// All of them, in the order of addition.
    std::vector<TzCString> take() noexcept { return std::move(texts_); }

    /// A text of the message as losses show it: cut where it is long. What a message says once may
    /// concern each of its values; its full text must not be repeated for each of them.
    static TzCString shown(std::string_view text);

private:
    std::vector<TzCString> texts_;
};
