// SPDX-License-Identifier: MIT
#include <tz/tools/TzCTokenizer.h>

#include <algorithm>
#include <utility>

TzCTokenizer::TzCTokenizer(TzCString text) : text_(std::move(text)) {}

TzCString TzCTokenizer::next(std::string_view delimiters) {
    const std::size_t start =
        std::min(text_.find_first_not_of(delimiters, position_), text_.size());
    position_ = std::min(text_.find_first_of(delimiters, start), text_.size());
    return text_.substr(start, position_ - start);
}
