// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapElementImp.h>

#include <deque>

/// An element and its changed copy, once something changes.
class TzSoapDraft {
public:
    /// Where drafts that changed something keep it.
    struct Change {
        TzSoapElementImp* element;
        TzSoapElementImp state;
    };
    using Changes = std::deque<Change>;

    /// A draft of `element` without changes.
    TzSoapDraft(TzSoapElementImp& element, Changes& changes) noexcept
        : element_(element), changes_(changes) {}

    /// The element before any change.
    const TzSoapElementImp& original() const noexcept { return element_; }
    /// The element after the changes so far.
    const TzSoapElementImp& state() const noexcept {
        return state_ != nullptr ? *state_ : element_;
    }
    /// The element for changes; the first call makes the copy.
    TzSoapElementImp& edit() {
        if (state_ == nullptr) {
            state_ = &changes_.emplace_back(Change{&element_, element_}).state;
        }
        return *state_;
    }

private:
    TzSoapElementImp& element_;
    Changes& changes_;
    TzSoapElementImp* state_ = nullptr;
};
