// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlContentHandler.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "xml/TzXmlSourceChoice.h"

#include <cstddef>
#include <string>
#include <string_view>

/// How a text is read.
struct ScanTerms {
    static constexpr std::size_t Never = static_cast<std::size_t>(-1);

    std::size_t depthLimit = TzXmlSAXParser::DefaultDepthLimit;
    std::size_t attributeLimit = TzXmlSAXParser::DefaultAttributeLimit;
    std::size_t throwAt = Never; ///< The handler throws at this event.
    std::size_t lowerAt = Never; ///< The handler lowers limits to 1 at this event.
    bool askAlways = true;       ///< Places are asked for at each event, or only for every fourth.

    /// Terms that `number` stands for, mostly the usual ones.
    static ScanTerms of(std::size_t number) noexcept;
};

/// Reads texts by one of the sources and writes down all that can be seen of it: events, names,
/// values, places, numbers of scopes, the error.
class ScanReading : private TzXmlContentHandler {
public:
    explicit ScanReading(TzXmlSourceChoice choice);

    /// What was seen, valid until the next call.
    const std::string& read(std::string_view text, const ScanTerms& terms);
    /// Whether the latest text was read without an error.
    bool accepted() const noexcept { return accepted_; }

private:
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    void endElement(const TzXmlName& name) override;
    void characters(const TzCString& text) override;
    void prolog(const TzXmlProlog& prolog) override;

    void note(std::string_view text);
    void note(std::size_t number);
    void noteName(const TzXmlName& name);
    void finishEvent();

    TzXmlSAXParser parser_;
    ScanTerms terms_;
    std::size_t events_ = 0;
    std::string log_;
    bool accepted_ = false;
};

/// Reads texts by the scanner in both its forms and by Expat alone.
class ScanComparison {
public:
    ScanComparison();

    /// Which forms of the scanner read a text.
    enum class Forms { Both, Fastest, Words };

    /// "" if nothing tells the sources apart, what does otherwise.
    std::string differences(std::string_view text, const ScanTerms& terms,
                            Forms forms = Forms::Both);
    /// Whether the latest text is well-formed and keeps the limits.
    bool accepted() const noexcept { return expat_.accepted(); }

private:
    ScanReading expat_;
    ScanReading scanner_;
    ScanReading words_;
};
