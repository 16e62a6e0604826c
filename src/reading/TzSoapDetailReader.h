// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapContentHandler.h>
#include <tz/tools/TzCString.h>

class TzSoapCompositeTypeImp;
class TzSoapFaultSpellingReader;
class TzSoapParseContext;
class TzXmlAttributeSet;

/// Receives the events of the detail of a fault: passes its elements on and keeps the text directly
/// inside of it, because a composite has no place for it.
class TzSoapDetailReader final : public TzSoapContentHandler {
public:
    /// A reader that adds to `text` what is not white space, a line for each text between two tags;
    /// both arguments outlive the reading.
    /// In a literal message the composite gets all text as well, and `spelling` hears of the
    /// detail.
    TzSoapDetailReader(TzSoapCompositeTypeImp& detail, TzCString& text,
                       TzSoapFaultSpellingReader* spelling) noexcept
        : detail_(detail), text_(text), spelling_(spelling) {}

    /// The detail element starts.
    void populate(const TzXmlName& name, const TzXmlAttributeSet& attributes,
                  TzSoapParseContext* context);
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override;
    void endElement(const TzXmlName& name) override;
    void characters(const TzCString& text) override;

private:
    TzSoapCompositeTypeImp& detail_;
    TzCString& text_;
    TzSoapFaultSpellingReader* spelling_; // null unless the message is literal
};
