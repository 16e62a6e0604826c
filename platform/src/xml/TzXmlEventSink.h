// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <string_view>

/// Takes the events of an event source. What it throws ends the reading and reaches the caller of
/// `TzXmlEventSource::feed`.
class TzXmlEventSink {
public:
    TzXmlEventSink() = default;
    TzXmlEventSink(const TzXmlEventSink&) = delete;
    TzXmlEventSink& operator=(const TzXmlEventSink&) = delete;

    /// The XML declaration. Null pointers for what it does not state; `standalone` -1, 0 or 1.
    virtual void declaration(const char* version, const char* encoding, int standalone) = 0;
    /// A document type declaration begins.
    virtual void documentType() = 0;
    /// A start tag. `attributes` are name, value, name, value ... null; names as spelt in the text.
    /// One address of an attribute name stands for one spelling as long as the source lives.
    virtual void startTag(const char* name, const char* const* attributes) = 0;
    /// An end tag, also for an empty-element tag.
    virtual void endTag() = 0;
    /// A piece of text; pieces follow each other until the next tag. Not virtual: it is called
    /// several times between two tags.
    void text(const char* begin, std::size_t length) {
        ++events_;
        // Line breaks and characters that were escaped come alone.
        if (length == 1) {
            text_.push_back(*begin);
        } else {
            text_.append(begin, length);
        }
    }

    /// Number of events so far.
    std::size_t events() const noexcept { return events_; }

protected:
    ~TzXmlEventSink() = default;

    std::size_t events_ = 0;
    TzCString text_; // since the last tag
};
