// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlWriter.h>

#include "TzXmlEscape.h"

TzXmlWriter::~TzXmlWriter() = default;

void TzXmlWriter::write(std::string_view text, bool escape) {
    write(escape ? tzEscape(text, TzXmlEscapeContext::Content, escaped_) : text);
}

void TzXmlWriter::writeAttribute(std::string_view name, std::string_view value, bool escape) {
    const std::string_view written =
        escape ? tzEscape(value, TzXmlEscapeContext::AttributeValue, escaped_) : value;
    writeMarkup(" ", name, EqualToAndQuotes, written, Quotes);
}

void TzXmlWriter::writeQualifiedAttribute(std::string_view prefix, std::string_view localName,
                                          std::string_view value) {
    const std::string_view written = tzEscape(value, TzXmlEscapeContext::AttributeValue, escaped_);
    const std::string_view colon = prefix.empty() ? std::string_view() : Colon;
    writeMarkup(" ", prefix, colon, localName, EqualToAndQuotes, written, Quotes);
}

void TzXmlWriter::flush() const {
    output_->append(chunk_.data(), used_);
    used_ = 0;
}

void TzXmlWriter::putLong(std::string_view text) {
    flush();
    if (text.size() <= chunk_.size()) {
        put(text);
    } else {
        output_->append(text);
    }
}

void TzXmlWriter::indent() {
    static constexpr std::string_view Blanks = "                                ";
    indentDue_ = false;
    std::size_t left = indentation_;
    for (; left > Blanks.size(); left -= Blanks.size()) {
        put(Blanks);
    }
    put(Blanks.substr(0, left));
}
