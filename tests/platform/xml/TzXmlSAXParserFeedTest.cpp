// SPDX-License-Identifier: MIT
#include <tz/thread/TzTHRIllegalUsage.h>
#include <tz/xml/TzXmlSAXParser.h>

#include <gtest/gtest.h>

#include "platform/xml/EventRecorder.h"
#include "support/Throws.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace {

using namespace std::string_literals;

const std::string Plain =
    "<?xml version='1.0'?>\n<p:a xmlns:p='urn:p' x='1&amp;2'><!-- c --><b>\xC3\xA9 &lt;</b>"
    "<![CDATA[<>]]><c/> t\n</p:a>\n";

/// `text`, of ASCII characters, in units of `unit` bytes, with a byte-order mark.
std::string wide(const std::string& text, std::size_t unit, bool bigEndian) {
    const auto put = [&](std::string& bytes, std::string low) {
        low.resize(unit);
        bytes += bigEndian ? std::string(low.rbegin(), low.rend()) : low;
    };
    std::string bytes;
    put(bytes, "\xFF\xFE");
    for (const char character : text) {
        put(bytes, {character});
    }
    return bytes;
}

std::string latin1() { return "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>"; }

/// What came of a text: its events, and the error's text after them if there was one.
Events outcome(const auto& read) {
    EventRecorder recorder;
    TestedParser parser;
    parser.setContentHandler(&recorder);
    try {
        read(parser);
    } catch (const TzXmlParseError& error) {
        recorder.events.push_back(error.what());
    }
    return recorder.events;
}

Events parsed(std::string_view text) {
    return outcome([&](TzXmlSAXParser& parser) { parser.parse(text); });
}

Events inChunks(std::string_view text, std::size_t size) {
    return outcome([&](TzXmlSAXParser& parser) {
        for (std::size_t i = 0; i < text.size(); i += size) {
            parser.feed(text.substr(i, size));
        }
        parser.finish();
    });
}

Events cutAt(std::string_view text, std::size_t at) {
    return outcome([&](TzXmlSAXParser& parser) {
        parser.feed(text.substr(0, at));
        parser.feed(text.substr(at));
        parser.finish();
    });
}

void expectSame(const std::string& text) {
    const Events whole = parsed(text);
    for (const std::size_t size : {1U, 2U, 3U, 5U, 7U, 64U}) {
        EXPECT_EQ(inChunks(text, size), whole) << size;
    }
    for (std::size_t at = 0; at <= text.size(); ++at) {
        EXPECT_EQ(cutAt(text, at), whole) << at;
    }
}

} // namespace

TEST(TzXmlSAXParserFeed, AnyCutsGiveTheSameEvents) { expectSame(Plain); }

TEST(TzXmlSAXParserFeed, EveryEncodingMayBeCut) {
    expectSame("\xEF\xBB\xBF" + Plain);
    expectSame(latin1());
    for (const std::size_t unit : {2U, 4U}) {
        expectSame(wide("<a x='1'>t<b/></a>", unit, false));
        expectSame(wide("<a x='1'>t<b/></a>", unit, true));
    }
    expectSame("<\0a\0/\0>\0"s);
    expectSame("<\0a\0>\0=\xD8\0\xDE<\0/\0a\0>\0"s);
}

TEST(TzXmlSAXParserFeed, ErrorsAreThoseOfTheWholeText) {
    for (const char* text : {"", "<a>", "<a></b>", "<a>\n<b x='1' x='2'/></a>", "x", "<a/>x",
                             "<!DOCTYPE a><a/>", "<a>&x;</a>", "<a"}) {
        expectSame(text);
    }
    expectSame("\xFF\xFE\xFF\xFE<\0a\0/\0>\0"s);
    expectSame(wide("<a/>", 2, false) + "\n");
}

TEST(TzXmlSAXParserFeed, EventsComeBeforeTheEnd) {
    EventRecorder recorder;
    TestedParser parser;
    parser.setContentHandler(&recorder);
    parser.feed("<orders><order/>");
    EXPECT_EQ(recorder.events, (Events{"<orders>", "<order>", "[]", "</order>"}));
}

TEST(TzXmlSAXParserFeed, EventsHaveTheirPlaceInTheWholeDocument) {
    struct : EventRecorder {
        void endElement(const TzXmlName&) override {
            events.push_back(std::to_string(parser->getLine()) + ":" +
                             std::to_string(parser->getColumn()) + " " +
                             std::to_string(parser->getEventBegin()));
        }
        TzXmlSAXParser* parser = nullptr;
    } recorder;
    TestedParser parser;
    recorder.parser = &parser;
    parser.setContentHandler(&recorder);
    for (const char* chunk : {"<a>\n\n <b", ">x", "</b", ">\n</a>"}) {
        parser.feed(chunk);
    }
    parser.finish();
    EXPECT_EQ(recorder.events,
              (Events{"<a>", "[\n\n ]", "<b>", "[x]", "3:6 10", "[\n]", "4:1 15"}));
    EXPECT_EQ(parser.getLine(), 0U);
}

TEST(TzXmlSAXParserFeed, LimitsHold) {
    const auto refused = [](auto setLimit, const char* text) {
        return outcome([&](TzXmlSAXParser& parser) {
                   setLimit(parser);
                   parser.feed(text);
                   parser.finish();
               })
            .back();
    };
    EXPECT_EQ(refused([](TzXmlSAXParser& parser) { parser.setDepthLimit(1); }, "<a><b/></a>"),
              "elements are nested too deeply, line 1, column 4");
    EXPECT_EQ(refused([](TzXmlSAXParser& parser) { parser.setAttributeLimit(1); },
                      "<a x='' y=''/>      "),
              "an element has too many attributes, line 1, column 1");
}

TEST(TzXmlSAXParserFeed, AfterAnErrorAnotherDocumentBegins) {
    EventRecorder recorder;
    TestedParser parser;
    parser.setContentHandler(&recorder);
    EXPECT_THROW(parser.feed("<a></b>        "), TzXmlParseError);
    EXPECT_EQ(parser.getColumn(), 6U);
    recorder.events.clear();
    parser.feed("<c/>");
    parser.finish();
    EXPECT_EQ(recorder.events, (Events{"<c>", "[]", "</c>"}));
}

TEST(TzXmlSAXParserFeed, ADocumentMayBeGivenUp) {
    EventRecorder recorder;
    TestedParser parser;
    parser.setContentHandler(&recorder);
    parser.feed("<a>            ");
    parser.abandon();
    parser.feed("<b>            ");
    parser.parse("<c/>");
    parser.feed("<d/>");
    parser.finish();
    EXPECT_EQ(recorder.events, (Events{"<a>", "<b>", "<c>", "[]", "</c>", "<d>", "[]", "</d>"}));
}

TEST(TzXmlSAXParserFeed, IsRefusedWithinAnEvent) {
    struct : EventRecorder {
        void startElement(const TzXmlName&, const TzXmlAttributeSet&) override {
            for (const auto& use : {&TzXmlSAXParser::finish}) {
                events.push_back(textThrown<TzTHRIllegalUsage>([&] { (parser->*use)(); }));
            }
            events.push_back(textThrown<TzTHRIllegalUsage>([&] { parser->feed("x"); }));
            events.push_back(textThrown<TzTHRIllegalUsage>([&] { parser->parse("x"); }));
        }
        TzXmlSAXParser* parser = nullptr;
    } recorder;
    TestedParser parser;
    recorder.parser = &parser;
    parser.setContentHandler(&recorder);
    parser.feed("<a/>        ");
    parser.finish();
    const std::string refused = "the parser is parsing already";
    EXPECT_EQ(recorder.events, (Events{refused, refused, refused, "[]", "</a>"}));
}

// Looked at from its beginning with every byte, the tag would take hours.
TEST(TzXmlSAXParserFeed, ALongTagInSmallChunks) {
    EventRecorder recorder;
    TestedParser parser;
    parser.setContentHandler(&recorder);
    const std::string value(std::size_t{4} << 20, 'x');
    for (const char byte : "<a v='" + value + "'/>") {
        parser.feed({&byte, 1});
    }
    parser.finish();
    ASSERT_EQ(recorder.events.size(), 3U);
    EXPECT_EQ(recorder.events[0].size(), value.size() + 6);
}
