// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/tools/TzCString.h>

#include <cstddef>
#include <string_view>

/// Splits a text into tokens.
///
/// Keeps its own copy of the text, so temporaries may be passed. Not locked: one tokenizer is used
/// by one thread at a time.
class TZ_PLATFORM_API TzCTokenizer {
public:
    /// A tokenizer at the beginning of `text`.
    explicit TzCTokenizer(TzCString text);

    /// The next run of characters that are not in `delimiters`, each character of which separates;
    /// delimiters before it are skipped. "" when the text is used up. O(length of what is passed).
    TzCString next(std::string_view delimiters);

private:
    TzCString text_;
    std::size_t position_ = 0;
};
