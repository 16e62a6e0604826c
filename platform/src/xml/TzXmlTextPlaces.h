// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

/// Where the events of a text lie. Lines are counted when somebody asks for one, on from the last
/// event that was asked for, so that all questions together are linear in the text.
class TzXmlTextPlaces {
public:
    /// Begins with the first event of `text`, which stays as it is.
    void start(std::string_view text) noexcept;
    /// An event from `begin` to `end` in the text, not before the latest one.
    void set(const char* begin, const char* end) noexcept {
        eventBegin_ = begin;
        eventEnd_ = end;
    }

    /// Line of the event, from 1. CR, LF and both together end a line.
    std::size_t line() const noexcept;
    /// Column of it in characters, from 1.
    std::size_t column() const noexcept;
    /// Bytes of the text before it.
    std::size_t offset() const noexcept { return static_cast<std::size_t>(eventBegin_ - text_); }
    /// Bytes of the text that it takes up.
    std::size_t length() const noexcept {
        return static_cast<std::size_t>(eventEnd_ - eventBegin_);
    }

private:
    void countOn() const noexcept;

    const char* text_ = nullptr;
    const char* eventBegin_ = nullptr;
    const char* eventEnd_ = nullptr;
    // What is known: of the last event that was asked for.
    mutable const char* counted_ = nullptr;
    mutable std::size_t line_ = 1;
    mutable std::size_t column_ = 1;
};
