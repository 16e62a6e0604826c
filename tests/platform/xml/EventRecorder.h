// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <tz/xml/TzXmlContentHandler.h>
#include <tz/xml/TzXmlParseError.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "platform/xml/TestedParser.h"

#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

/// Events, one text each.
using Events = std::vector<std::string>;

/// "p:a", followed by "{uri}" where there is one.
inline std::string spelled(const TzXmlName& name) {
    return name.getQualifiedName() + (name.getUri().empty() ? "" : "{" + name.getUri() + "}");
}

/// Writes down the events: "<p:a{uri} x=1>", "[text]", "</p:a{uri}>" and the XML declaration.
class EventRecorder : public TzXmlContentHandler {
public:
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override {
        std::string event = "<" + spelled(name);
        for (const TzXmlAttribute& attribute : attributes) {
            event += " " + spelled(attribute.getName()) + "=" + attribute.getValue();
        }
        events.push_back(event + ">");
    }
    void endElement(const TzXmlName& name) override {
        events.push_back("</" + spelled(name) + ">");
    }
    void characters(const TzCString& text) override { events.push_back("[" + text + "]"); }
    void prolog(const TzXmlProlog& prolog) override { events.push_back(prolog.asString()); }

    Events events;
};

/// The events of `text`.
inline Events eventsOf(std::string_view text) {
    EventRecorder recorder;
    TestedParser parser;
    parser.setContentHandler(&recorder);
    parser.parse(text);
    return recorder.events;
}

/// Reads `text` and returns "line:column message" of the TzXmlParseError; fails the test when
/// nothing else or something else is thrown, or when the parser reports another place.
inline std::string refusal(TzXmlSAXParser& parser, std::string_view text) {
    try {
        parser.parse(text);
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(typeid(error), typeid(TzXmlParseError));
        EXPECT_EQ(error.getSource(), "");
        EXPECT_EQ(error.getLine(), parser.getLine());
        EXPECT_EQ(error.getColumn(), parser.getColumn());
        const std::string& reason = error.getMessage().asString();
        EXPECT_EQ(error.what(), reason + ", line " + std::to_string(error.getLine()) + ", column " +
                                    std::to_string(error.getColumn()));
        return std::to_string(error.getLine()) + ":" + std::to_string(error.getColumn()) + " " +
               reason;
    }
    ADD_FAILURE() << "accepted: " << text.substr(0, 200);
    return {};
}

/// Reads `text` with a new parser and returns "line:column message" of the error.
inline std::string refusal(std::string_view text) {
    TestedParser parser;
    return refusal(parser, text);
}
