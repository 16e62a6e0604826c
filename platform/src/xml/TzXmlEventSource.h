// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlEventCount.h"

#include <cstddef>
#include <memory>
#include <string_view>

class TzXmlEventSink;

/// Splits XML text into events and checks that it is well-formed; knows nothing of namespaces.
///
/// The text comes in pieces, the events go to the sink it was made with, all text of them in UTF-8.
/// Comments and processing instructions give no event.
class TzXmlEventSource {
public:
    TzXmlEventSource() = default;
    TzXmlEventSource(const TzXmlEventSource&) = delete;
    TzXmlEventSource& operator=(const TzXmlEventSource&) = delete;
    virtual ~TzXmlEventSource() = default;

    /// Reads on. `TzXmlParseError` when the text is not well-formed; what the sink throws passes
    /// through. Not to be called again after either.
    virtual void feed(std::string_view piece, bool last) = 0;
    /// Line of the event under way or of the error, from 1. Computed by the call.
    virtual std::size_t line() const noexcept = 0;
    /// Column of it in characters, from 1. Computed by the call.
    virtual std::size_t column() const noexcept = 0;
    /// Bytes of the text before it.
    virtual std::size_t offset() const noexcept = 0;
    /// Bytes of the text that it takes up; 0 for the end of an empty-element tag.
    virtual std::size_t length() const noexcept = 0;
};

/// What is known of the encoding before the XML declaration is read.
enum class TzXmlKnownEncoding {
    None, ///< The declaration decides; UTF-8 without one.
    Utf8, ///< UTF-8, whatever the declaration says.
};

/// An event source on Expat that keeps back the declaration and the tags that were `delivered`, and
/// the texts before them. `std::bad_alloc` without memory.
std::unique_ptr<TzXmlEventSource> tzMakeExpatSource(TzXmlEventSink& sink,
                                                    TzXmlKnownEncoding encoding,
                                                    const TzXmlEventCount& delivered = {});
