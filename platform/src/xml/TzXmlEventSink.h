// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlRecentTags.h"

#include <tz/tools/TzCString.h>

#include <cstddef>
#include <span>
#include <string_view>

/// An attribute as its tag spells it, its value normalised. Both texts last as long as the call
/// that gives them.
struct TzXmlSpelledAttribute {
    std::string_view name;
    std::string_view value;
};

/// Takes the events of an event source. What it throws ends the reading and reaches the caller of
/// `TzXmlEventSource::feed`.
class TzXmlEventSink {
public:
    TzXmlEventSink() = default;
    TzXmlEventSink(const TzXmlEventSink&) = delete;
    TzXmlEventSink& operator=(const TzXmlEventSink&) = delete;

    /// The XML declaration. Empty texts for what it does not state; `standalone` -1, 0 or 1.
    virtual void declaration(std::string_view version, std::string_view encoding,
                             int standalone) = 0;
    /// A document type declaration begins.
    virtual void documentType() = 0;
    /// A start tag; names as spelt in the text, those of the attributes all different.
    virtual void startTag(std::string_view name,
                          std::span<const TzXmlSpelledAttribute> attributes) = 0;
    /// A start tag with the same bytes as the one that has `mark`. False if the sink does not know
    /// what that one means here: then the source calls `startTag` for it.
    virtual bool startTagAgain(const TzXmlTagMark& mark) = 0;
    /// An end tag, also for an empty-element tag.
    virtual void endTag() = 0;
    /// A piece of text; pieces follow each other until the next tag. Not virtual: it is called
    /// several times between two tags.
    void text(std::string_view piece) {
        ++events_;
        // Line breaks and characters that were escaped come alone.
        if (piece.size() == 1) {
            text_.push_back(piece.front());
        } else {
            text_.append(piece);
        }
    }
    /// The source is about to repeat the text since the latest tag.
    void restartText() noexcept { text_.clear(); }
    /// An event that the source keeps back.
    void noteSkipped() noexcept { ++events_; }

    /// Number of events so far.
    std::size_t events() const noexcept { return events_; }

protected:
    ~TzXmlEventSink() = default;

    std::size_t events_ = 0;
    TzCString text_; // since the last tag
};
