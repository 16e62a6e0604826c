// SPDX-License-Identifier: MIT
#pragma once

#include "xml/TzXmlEventCount.h"
#include "xml/TzXmlEventSource.h"
#include "xml/TzXmlRecentTags.h"
#include "xml/TzXmlScanCursor.h"
#include "xml/TzXmlTagAttributes.h"
#include "xml/TzXmlTextPlaces.h"

#include <cstddef>
#include <string_view>
#include <vector>

class TzXmlEventSink;

/// How far a scanner came.
enum class TzXmlScanVerdict {
    Finished, ///< The text is well-formed and all its events are delivered.
    HandOver, ///< Another source has to read the text from its beginning.
};

/// Splits a whole text in UTF-8 into events, several times as fast as Expat, which reads what the
/// scanner does not know and judges what it would refuse.
///
/// The scanner knows XML 1.0 without document type declarations and with names in ASCII. It
/// delivers a tag once all of it is checked, so that another source can go on after the latest one,
/// and refuses nothing itself. Names, values and texts are views into the text, or into memory that
/// is used again for the next tag. `Blocks` finds the ends of runs of plain characters.
template <typename Blocks> class TzXmlScanner {
public:
    /// Hands over at a tag with more than `attributeLimit` attributes. `text`, `sink` and `places`
    /// outlive the scanner.
    TzXmlScanner(std::string_view text, TzXmlKnownEncoding encoding, std::size_t attributeLimit,
                 TzXmlEventSink& sink, TzXmlTextPlaces& places);

    /// Reads the text. Linear in its length, times the logarithm of the number of attributes of a
    /// tag. What the sink throws passes through. To be called once.
    TzXmlScanVerdict read();
    /// What was delivered.
    const TzXmlEventCount& delivered() const noexcept { return delivered_; }

private:
    // Each of these reads on, and returns false to hand over.
    bool readDeclaration();
    bool readMisc();
    bool readRoot();
    bool readText();
    bool readTextReference();
    bool readMarkup();
    bool readStartTag();
    bool readKnownTag(const TzXmlRecentTags::Tag& known);
    bool readNewTag();
    bool readAttributes();
    bool readAttribute();
    bool readValue(std::string_view name);
    bool writeValue(std::string_view name, TzXmlScanStops stops, const char* run);
    bool writeCharacter();
    bool readEndTag();
    bool readComment();
    bool readInstruction();
    bool readSection();
    bool passTo(std::string_view mark);

    void deliverText(const char* begin);
    void deliverStart(const char* tag, std::string_view name, bool isEmpty);
    void deliverEnd(const char* tag);

    TzXmlScanCursor cursor_;
    const std::size_t length_;
    const TzXmlKnownEncoding encoding_;
    const std::size_t attributeLimit_;
    TzXmlEventSink& sink_;
    TzXmlTextPlaces& places_;
    std::vector<std::string_view> open_; // names of the open elements
    TzXmlTagAttributes attributes_;
    TzXmlRecentTags tags_;
    TzXmlEventCount delivered_;
};
