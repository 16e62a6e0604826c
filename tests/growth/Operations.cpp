// SPDX-License-Identifier: MIT
#include "growth/Operations.h"

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapVersionConverter.h>
#include <soap/TzSoapWriter.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlDomainError.h>
#include <tz/xml/TzXmlStringWriter.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace growth {

namespace {

/// A message that reads every version.
TzSoapMessage reader() {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    return message;
}

TzSoapMessage messageOf(const std::string& text) {
    TzSoapMessage message = reader();
    message.extract(std::string_view(text));
    return message;
}

using V = TzSoapVersion;

/// The version that a message is converted to first; the next one of that leads to the third.
V::Version nextOf(V::Version version) {
    static const std::map<V::Version, V::Version> next = {
        {V::V1_1, V::V1_2}, {V::V1_2, V::V1_2Rec}, {V::V1_2Rec, V::V1_1}};
    return next.at(version);
}

V::Version lastOf(V::Version version) { return nextOf(nextOf(version)); }

std::size_t write(const TzSoapMessage& message) {
    // Each part once: inserting it for each reference is asMimeMultipart's rule.
    return message.hasAttachments() ? message.asPackage().asString().size()
                                    : message.asString().size();
}

std::string compactOf(const TzSoapMessage& message) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    writer.setVersion(message.getVersion());
    writer.setCompact(true);
    message.acceptVisitor(writer);
    return text.getString();
}

Measured reading(const std::string& text) {
    Measured measured{.text = text.size()};
    startCounting();
    messageOf(text);
    measured.count = counted();
    return measured;
}

Measured writing(const std::string& text) {
    Measured measured{.text = text.size()};
    const TzSoapMessage message = messageOf(text);
    startCounting();
    measured.written = write(message);
    measured.count = counted();
    return measured;
}

Measured writingCompact(const std::string& text) {
    Measured measured{.text = text.size()};
    const TzSoapMessage message = messageOf(text);
    startCounting();
    measured.written = compactOf(message).size();
    measured.count = counted();
    return measured;
}

Measured serializing(const std::string& text) {
    Measured measured{.text = text.size()};
    const TzSoapMessage message = messageOf(text);
    startCounting();
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    measured.written = std::move(serializer).getSerializedString().size();
    measured.count = counted();
    return measured;
}

template <V::Version (*Target)(V::Version)> Measured converting(const std::string& text) {
    Measured measured{.text = text.size()};
    TzSoapMessage message = messageOf(text);
    const TzSoapVersionConverter converter(Target(message.getVersion()));
    startCounting();
    converter.convert(message);
    measured.count = counted();
    return measured;
}

template <V::Version (*Target)(V::Version)> Measured writingConverted(const std::string& text) {
    Measured measured{.text = text.size()};
    TzSoapMessage message = messageOf(text);
    TzSoapVersionConverter(Target(message.getVersion())).convert(message);
    startCounting();
    try {
        measured.written = compactOf(message).size();
    } catch (const TzXmlDomainError&) {
        // Gaps of arrays that the version cannot leave, references too deep to be written in place.
        measured.written = 0;
    }
    measured.count = counted();
    return measured;
}

TzSoapMessage literalMessageOf(const std::string& text) {
    TzSoapMessage message = reader();
    message.setStyle(TzSoapStyle::Literal);
    message.extract(std::string_view(text));
    return message;
}

Measured readingLiterally(const std::string& text) {
    Measured measured{.text = text.size()};
    startCounting();
    literalMessageOf(text);
    measured.count = counted();
    return measured;
}

Measured writingLiterally(const std::string& text) {
    Measured measured{.text = text.size()};
    const TzSoapMessage message = literalMessageOf(text);
    startCounting();
    measured.written = write(message);
    measured.count = counted();
    return measured;
}

Measured convertingLiterally(const std::string& text) {
    Measured measured{.text = text.size()};
    TzSoapMessage message = literalMessageOf(text);
    const TzSoapVersionConverter converter(lastOf(message.getVersion()));
    startCounting();
    converter.convert(message);
    measured.written = write(message);
    measured.count = counted();
    return measured;
}

// Every body entry that a family names "a" becomes markup with all that it holds.
Measured keepingMarkup(const std::string& text) {
    Measured measured{.text = text.size()};
    startCounting();
    TzSoapMessage message = reader();
    message.setStyle(TzSoapStyle::Literal);
    message.setMarkupElements({TzXmlName("a")});
    message.extract(std::string_view(text));
    measured.written = write(message);
    measured.count = counted();
    return measured;
}

Measured refusing(const std::string& text) {
    Measured measured{.text = text.size()};
    startCounting();
    try {
        messageOf(text);
    } catch (const Tzxmsg&) {
        measured.count = counted();
        return measured;
    }
    throw std::logic_error("the text was accepted");
}

/// The longest text between `before` and `end` that stands in `text`.
std::size_t longest(std::string_view text, std::string_view before, std::string_view ends) {
    std::size_t most = 0;
    for (std::size_t at = text.find(before); at != text.npos; at = text.find(before, at)) {
        at += before.size();
        const std::size_t end = std::min(text.find_first_of(ends, at), text.size());
        most = std::max(most, end - at);
    }
    return most;
}

/// Elements that start in `text`: a value each, at most.
std::size_t startTags(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        const char next = text[i + 1];
        count += text[i] == '<' && next != '/' && next != '!' && next != '?';
    }
    return count;
}

} // namespace

double Measured::workPerByte() const noexcept { return double(count.work()) / double(text); }

double Measured::workPerLargerByte() const noexcept {
    return double(count.work()) / double(std::max(text, written));
}

double Measured::peakPerLargerByte() const noexcept {
    return double(count.peak) / double(std::max(text, written));
}

// Twice the largest that was counted.
std::vector<Operation> operations() {
    return {
        {"Read", reading, 2500, 90},
        {"Write", writing, 1200, 90},
        {"WriteCompact", writingCompact, 1200, 90},
        {"Serialize", serializing, 700, 90},
        {"Convert", converting<nextOf>, 1700, 60},
        {"WriteConverted", writingConverted<nextOf>, 1200, 90},
        {"ConvertToLast", converting<lastOf>, 1700, 60},
        {"WriteConvertedToLast", writingConverted<lastOf>, 1200, 90},
        {"ReadLiterally", readingLiterally, 2500, 90},
        {"WriteLiterally", writingLiterally, 1200, 90},
        {"ConvertLiterally", convertingLiterally, 2900, 90},
        {"KeepMarkup", keepingMarkup, 2500, 90},
    };
}

Operation refusal() { return {"Refuse", refusing, 2500, 90}; }

std::string compact(const std::string& text) { return compactOf(messageOf(text)); }

std::size_t mostCompact(const std::string& text) {
    const std::size_t prefix = longest(text, "xmlns:", "=");
    const std::size_t style = longest(text, "encodingStyle='", "'");
    const std::size_t id =
        std::max(longest(text, "id='", "'"), longest(text, "Content-ID: <", ">"));
    return 8 * text.size() + (256 + prefix + style + id) * startTags(text);
}

} // namespace growth
