// SPDX-License-Identifier: MIT
#pragma once

#include "values/EnvelopeTesting.h"

#include <soap/TzSoapFields.h>
#include <soap/TzSoapView.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

// What a shop and its customers send each other.

enum class Color { Red, Green };

template <> struct TzSoapEnum<Color> {
    static constexpr TzSoapEnumText<Color> texts[] = {{Color::Red, "red"}, {Color::Green, "green"}};
};

struct Line {
    std::string article;
    int amount = 0;

    friend bool operator==(const Line&, const Line&) = default;
};

template <> struct TzSoapFields<Line> {
    static constexpr auto fields =
        tzFields(tzField("article", &Line::article), tzField("amount", &Line::amount));
};

struct Order {
    int id = 0;
    double total = 0;
    std::optional<std::string> note;
    std::vector<Line> lines;
    Color color = Color::Red;
    int priority = 5;

    friend bool operator==(const Order&, const Order&) = default;
};

template <> struct TzSoapFields<Order> {
    static constexpr auto fields =
        tzFields(tzAttribute("id", &Order::id), tzField("total", &Order::total),
                 tzField("note", &Order::note), tzField("line", &Order::lines),
                 tzField("color", &Order::color).optional(),
                 tzField("priority", &Order::priority).optional());
};

/// A literal message of SOAP 1.1 whose body has this text.
inline TzSoapMessage literalMessage(const std::string& body) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setStyle(TzSoapStyle::Literal);
    message.extract("<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\" "
                    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"><e:Body>" +
                    body + "</e:Body></e:Envelope>");
    return message;
}

/// A view of a literal message whose body has this text.
inline TzSoapView literal(const std::string& body) { return TzSoapView(literalMessage(body)); }

/// A view of an encoded message whose body has this text.
inline TzSoapView encoded(const std::string& body,
                          TzSoapVersion::Version version = TzSoapVersion::V1_1) {
    return TzSoapView(messageOf(envelope(version, body)));
}

/// The order whose elements are `members`.
inline Order orderOf(const std::string& members, const std::string& attributes = " id='7'") {
    return literal("<order" + attributes + ">" + members + "</order>")["order"].as<Order>();
}

/// The text of the value `value`, alone.
template <typename Value>
std::string markupOf(const Value& value, TzSoapStyle style = TzSoapStyle::Literal,
                     const TzXmlName& name = TzXmlName("value")) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setStyle(style);
    message.getSoapBody().appendEntry(tzSoapValue(value, name, style));
    const std::string text = message.asText(TzSoapLayout::Compact);
    const std::size_t begin = text.find("Body>") + 5;
    return text.substr(begin, text.rfind("</SOAP-ENV:Body>") - begin);
}
