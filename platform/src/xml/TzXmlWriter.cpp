// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlWriter.h>

#include "xml/TzXmlEscape.h"

#include <algorithm>

namespace {

/// Makes room for `more` bytes. Moving a text into new memory costs more than writing it, so it
/// moves seldom; memory that is not used is never touched. The first size decides all others: after
/// 16 MiB come 64 MiB, because blocks of 32 MiB are the smallest whose pages are new each time.
void grow(TzCString& text, std::size_t more) {
    constexpr std::size_t First = std::size_t{4} << 10;
    constexpr std::size_t Large = std::size_t{64} << 20;
    const std::size_t capacity = text.capacity();
    if (more > capacity - text.size()) {
        const std::size_t next = capacity * (capacity < Large ? 4 : 2);
        text.reserve(std::max({First, next, text.size() + more}));
    }
}

} // namespace

TzXmlWriter::~TzXmlWriter() = default;

void TzXmlWriter::write(std::string_view text, bool escape) {
    write(escape ? escaped(text) : text);
}

std::string_view TzXmlWriter::escaped(std::string_view content) {
    return TzXmlEscape::escape(content, TzXmlEscape::Context::Content, escaped_);
}

bool TzXmlWriter::isPlain(std::string_view text) noexcept { return TzXmlEscape::isPlain(text); }

void TzXmlWriter::writeAttribute(std::string_view name, std::string_view value, bool escape) {
    const std::string_view written =
        escape ? TzXmlEscape::escape(value, TzXmlEscape::Context::AttributeValue, escaped_) : value;
    writeMarkup(" ", name, EqualToAndQuotes, written, Quotes);
}

void TzXmlWriter::writeQualifiedAttribute(std::string_view prefix, std::string_view localName,
                                          std::string_view value) {
    const std::string_view written =
        TzXmlEscape::escape(value, TzXmlEscape::Context::AttributeValue, escaped_);
    const std::string_view colon = prefix.empty() ? std::string_view() : Colon;
    writeMarkup(" ", prefix, colon, localName, EqualToAndQuotes, written, Quotes);
}

void TzXmlWriter::flush() const {
    output_->append(chunk_.data(), used_);
    used_ = 0;
}

void TzXmlWriter::putLong(std::string_view text) {
    grow(*output_, used_ + (text.size() <= chunk_.size() ? 0 : text.size()));
    flush();
    if (text.size() <= chunk_.size()) {
        put(text);
    } else {
        output_->append(text);
    }
}

void TzXmlWriter::indent() {
    static constexpr std::string_view Blanks = "                                ";
    if (indentation_ <= Blanks.size() && Blanks.size() <= chunk_.size() - used_) {
        std::memcpy(chunk_.data() + used_, Blanks.data(), Blanks.size());
        used_ += indentation_;
        return;
    }
    std::size_t left = std::min(indentation_, MostSteps * std::max(step_, DefaultStep));
    for (; left > Blanks.size(); left -= Blanks.size()) {
        put(Blanks);
    }
    put(Blanks.substr(0, left));
}
