// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>
#include <tz/tools/TzSink.h>

#include <cstddef>
#include <string_view>

/// Where MIME text goes: a text that it is appended to, or a sink, for which short pieces are
/// gathered.
class TzMimeOutput {
public:
    /// Bytes that are gathered for a sink at most, beside one short piece; what is longer goes
    /// there from where it lies.
    static constexpr std::size_t Held = std::size_t{16} << 10;

    /// Appends to `text`.
    explicit TzMimeOutput(TzCString& text) noexcept : text_(&text) {}
    /// Writes to `sink`; to be finished.
    explicit TzMimeOutput(const TzSink& sink) noexcept : text_(&gathered_), sink_(&sink) {}
    TzMimeOutput(const TzMimeOutput&) = delete;
    TzMimeOutput& operator=(const TzMimeOutput&) = delete;

    /// The text to append short pieces to.
    TzCString& text() noexcept { return *text_; }
    /// To be called after short pieces: hands them over when they are many.
    void settle() {
        if (sink_ != nullptr && text_->size() >= Held) {
            finish();
        }
    }
    /// Whether it writes to a sink.
    bool hasSink() const noexcept { return sink_ != nullptr; }
    /// Makes room for `size` bytes more in a text.
    void reserve(std::size_t size) {
        if (sink_ == nullptr) {
            text_->reserve(text_->size() + size);
        }
    }
    /// Appends `bytes`, or hands them over.
    void write(std::string_view bytes) {
        if (sink_ != nullptr && bytes.size() >= Held) {
            finish();
            sink_->take(bytes);
        } else {
            text_->append(bytes);
            settle();
        }
    }
    /// Hands over what was gathered.
    void finish() {
        if (sink_ != nullptr) {
            sink_->take(*text_);
            text_->clear();
        }
    }

private:
    TzCString gathered_;
    TzCString* text_;
    const TzSink* sink_ = nullptr;
};
