// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>

/// Takes back what is appended to a text while it lives, unless `keep` is called: so an error that
/// passes leaves the text as it was.
class TzTextMark {
public:
    /// Marks the end of `text`, which must outlive it.
    explicit TzTextMark(TzCString& text) noexcept : text_(&text), size_(text.size()) {}
    TzTextMark(const TzTextMark&) = delete;
    TzTextMark& operator=(const TzTextMark&) = delete;
    ~TzTextMark() {
        if (text_ != nullptr) {
            text_->resize(size_);
        }
    }

    /// Leaves in the text what was appended.
    void keep() noexcept { text_ = nullptr; }
    /// Size of the text when it was marked.
    std::size_t size() const noexcept { return size_; }

private:
    TzCString* text_;
    std::size_t size_;
};
