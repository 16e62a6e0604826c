// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlSAXParser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tz/thread/TzTHRIllegalUsage.h>
#include <tz/tools/TzBadValueError.h>

#include "platform/xml/EventRecorder.h"
#include "support/Throws.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

const std::string Xmlns = "{http://www.w3.org/2000/xmlns/}";

/// Calls a function before it records each event.
class HookedRecorder : public EventRecorder {
public:
    explicit HookedRecorder(std::function<void(const std::string&)> hook)
        : hook_(std::move(hook)) {}

    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override {
        hook_("start " + name.getLocalName());
        EventRecorder::startElement(name, attributes);
    }
    void endElement(const TzXmlName& name) override {
        hook_("end " + name.getLocalName());
        EventRecorder::endElement(name);
    }
    void characters(const TzCString& text) override {
        hook_("text");
        EventRecorder::characters(text);
    }
    void prolog(const TzXmlProlog& prolog) override {
        hook_("prolog");
        EventRecorder::prolog(prolog);
    }

private:
    std::function<void(const std::string&)> hook_;
};

} // namespace

TEST(TzXmlSAXParser, TellsEventsInOrder) {
    EXPECT_THAT(eventsOf("<a x=\"1\" y='2'>text<b>inner</b>more</a>"),
                ElementsAre("<a x=1 y=2>", "[text]", "<b>", "[inner]", "</b>", "[more]", "</a>"));
}

TEST(TzXmlSAXParser, TellsTheDeclaration) {
    EXPECT_THAT(eventsOf("<?xml version='1.0' encoding='utf-8' standalone='yes'?><a/>"),
                ElementsAre("<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>", "<a>",
                            "[]", "</a>"));
    EXPECT_THAT(eventsOf("<?xml version='1.0' standalone='no'?><a/>"),
                ElementsAre("<?xml version=\"1.0\" standalone=\"no\"?>", "<a>", "[]", "</a>"));
    EXPECT_THAT(eventsOf("<?xml version='1.0'?><a/>"),
                ElementsAre("<?xml version=\"1.0\"?>", "<a>", "[]", "</a>"));
    EXPECT_THAT(eventsOf("<a/>"), ElementsAre("<a>", "[]", "</a>"));
}

TEST(TzXmlSAXParser, IgnoresTheDeclarationUnlessTheHandlerWantsIt) {
    struct Handler : TzXmlContentHandler {
        void startElement(const TzXmlName&, const TzXmlAttributeSet&) override { ++starts; }
        void endElement(const TzXmlName&) override {}
        void characters(const TzCString&) override {}
        int starts = 0;
    } handler;
    TestedParser parser;
    parser.setContentHandler(&handler);
    parser.parse("<?xml version='1.0'?><a/>");
    EXPECT_EQ(handler.starts, 1);
}

TEST(TzXmlSAXParser, ResolvesPrefixes) {
    EXPECT_THAT(eventsOf("<p:a xmlns:p='u' xmlns='d'><b p:x='1' y='2'/></p:a>"),
                ElementsAre("<p:a{u} xmlns:p" + Xmlns + "=u xmlns" + Xmlns + "=d>",
                            "<b{d} p:x{u}=1 y=2>", "[]", "</b{d}>", "</p:a{u}>"));
}

TEST(TzXmlSAXParser, DeclarationsHoldForEarlierAttributesOfTheirElement) {
    EXPECT_THAT(eventsOf("<a p:x='1' xmlns:p='u'/>"),
                ElementsAre("<a p:x{u}=1 xmlns:p" + Xmlns + "=u>", "[]", "</a>"));
}

TEST(TzXmlSAXParser, InnerDeclarationsEndWithTheirElement) {
    EXPECT_THAT(eventsOf("<p:a xmlns:p='u'><p:b xmlns:p='v'><p:c/></p:b><p:b/></p:a>"),
                ElementsAre("<p:a{u} xmlns:p" + Xmlns + "=u>", "<p:b{v} xmlns:p" + Xmlns + "=v>",
                            "<p:c{v}>", "[]", "</p:c{v}>", "</p:b{v}>", "<p:b{u}>", "[]",
                            "</p:b{u}>", "</p:a{u}>"));
}

TEST(TzXmlSAXParser, DefaultNamespaceCanBeTakenBack) {
    EXPECT_THAT(eventsOf("<a xmlns='u'><b xmlns=''><c/></b></a>"),
                ElementsAre("<a{u} xmlns" + Xmlns + "=u>", "<b xmlns" + Xmlns + "=>", "<c>", "[]",
                            "</c>", "</b>", "</a{u}>"));
}

TEST(TzXmlSAXParser, PrefixCanBeBoundToNoUri) {
    EXPECT_THAT(eventsOf("<p:a xmlns:p='u'><p:b xmlns:p=''/><p:c/></p:a>"),
                ElementsAre("<p:a{u} xmlns:p" + Xmlns + "=u>", "<p:b xmlns:p" + Xmlns + "=>", "[]",
                            "</p:b>", "<p:c{u}>", "[]", "</p:c{u}>", "</p:a{u}>"));
}

TEST(TzXmlSAXParser, UnboundPrefixHasNoUri) {
    EXPECT_THAT(eventsOf("<p:a q:x='1' xmlns='u'/>"),
                ElementsAre("<p:a q:x=1 xmlns" + Xmlns + "=u>", "[]", "</p:a>"));
}

TEST(TzXmlSAXParser, PrefixIsUnboundAgainBehindItsElement) {
    EXPECT_THAT(eventsOf("<r><p:a xmlns:p='u'/><p:a/><p:a xmlns:p='u'/><p:a xmlns:p='v'/></r>"),
                ElementsAre("<r>", "<p:a{u} xmlns:p" + Xmlns + "=u>", "[]", "</p:a{u}>", "<p:a>",
                            "[]", "</p:a>", "<p:a{u} xmlns:p" + Xmlns + "=u>", "[]", "</p:a{u}>",
                            "<p:a{v} xmlns:p" + Xmlns + "=v>", "[]", "</p:a{v}>", "</r>"));
}

TEST(TzXmlSAXParser, XmlPrefixIsAlwaysBound) {
    const std::string xml = "http://www.w3.org/XML/1998/namespace";
    EXPECT_THAT(eventsOf("<a xml:lang='de'/>"),
                ElementsAre("<a xml:lang{" + xml + "}=de>", "[]", "</a>"));
    EXPECT_THAT(eventsOf("<a xml:lang='de' xmlns:xml='" + xml + "'/>"),
                ElementsAre("<a xml:lang{" + xml + "}=de xmlns:xml" + Xmlns + "=" + xml + ">", "[]",
                            "</a>"));
    EXPECT_THAT(
        eventsOf("<xmlns:a xmlns:xmlns='http://www.w3.org/2000/xmlns/'/>"),
        ElementsAre("<xmlns:a" + Xmlns + " xmlns:xmlns" + Xmlns + "=http://www.w3.org/2000/xmlns/>",
                    "[]", "</xmlns:a" + Xmlns + ">"));
}

TEST(TzXmlSAXParser, RefusesOtherBindingsOfReservedPrefixesAndNamespaces) {
    for (const char* declaration :
         {"xmlns:xml='other'", "xmlns:xml=''", "xmlns:xml='http://www.w3.org/2000/xmlns/'",
          "xmlns:xmlns='other'", "xmlns:xmlns='http://www.w3.org/XML/1998/namespace'",
          "xmlns:p='http://www.w3.org/XML/1998/namespace'", "xmlns='http://www.w3.org/2000/xmlns/'",
          "xmlns:p='http://www.w3.org/2000/xmlns/'"}) {
        EXPECT_EQ(refusal("<a>\n<b " + std::string(declaration) + "/></a>"),
                  "2:1 xml, xmlns and their namespaces are bound to each other only")
            << declaration;
    }
    EXPECT_THAT(eventsOf("<a xmlns:XML='other' xmlns:xmlx='other' p:xml='other'/>").size(), 3U);
}

TEST(TzXmlSAXParser, SplitsNamesAtTheFirstColon) {
    std::vector<TzXmlName> names;
    struct Handler : TzXmlContentHandler {
        explicit Handler(std::vector<TzXmlName>& list) : list_(list) {}
        void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override {
            list_.push_back(name);
            for (const TzXmlAttribute& attribute : attributes) {
                list_.push_back(attribute.getName());
            }
        }
        void endElement(const TzXmlName&) override {}
        void characters(const TzCString&) override {}
        std::vector<TzXmlName>& list_;
    } handler(names);
    TestedParser parser;
    parser.setContentHandler(&handler);
    parser.parse("<a:b:c xmlns:a='u' xmlns='d' :x='1'><:Body/></a:b:c>");
    ASSERT_EQ(names.size(), 5U);
    EXPECT_EQ(names[0].getPrefix(), "a");
    EXPECT_EQ(names[0].getLocalName(), "b:c");
    EXPECT_EQ(names[0].getUri(), "u");
    EXPECT_EQ(names[3].getPrefix(), "");
    EXPECT_EQ(names[3].getLocalName(), "x");
    EXPECT_EQ(names[3].getUri(), "");
    EXPECT_EQ(names[4].getPrefix(), "");
    EXPECT_EQ(names[4].getLocalName(), "Body");
    EXPECT_EQ(names[4].getUri(), "d");
}

TEST(TzXmlSAXParser, OneSpellingOfElementAndAttributeMeansTwoNames) {
    EXPECT_THAT(eventsOf("<a xmlns='u' a='1'><xmlns/></a>"),
                ElementsAre("<a{u} xmlns" + Xmlns + "=u a=1>", "<xmlns{u}>", "[]", "</xmlns{u}>",
                            "</a{u}>"));
}

TEST(TzXmlSAXParser, DeclarationsAreAttributesOfTheirOwnNamespace) {
    struct Handler : TzXmlContentHandler {
        void startElement(const TzXmlName&, const TzXmlAttributeSet& attributes) override {
            list = attributes;
        }
        void endElement(const TzXmlName&) override {}
        void characters(const TzCString&) override {}
        TzXmlAttributeSet list;
    } handler;
    TestedParser parser;
    parser.setContentHandler(&handler);
    parser.parse("<a xmlns:p='u' p='1' xmlns='d' xmlnsx='2'/>");
    const TzXmlAttributeSet& list = handler.list;
    ASSERT_EQ(list.size(), 4U);
    EXPECT_EQ(list.findDeclaration("p"), list.begin());
    EXPECT_EQ(list.begin()[0].getName().getNamespace(), TzXmlNamespace::getXmlns());
    EXPECT_EQ(list.begin()[0].declaredNamespace(), TzXmlNamespace("p", "u"));
    EXPECT_EQ(list.find(TzXmlName("p")), list.begin() + 1);
    EXPECT_FALSE(list.begin()[1].isNamespaceDeclaration());
    EXPECT_EQ(list.findDeclaration(""), list.begin() + 2);
    EXPECT_EQ(list.begin()[2].declaredNamespace(), TzXmlNamespace("", "d"));
    EXPECT_FALSE(list.begin()[3].isNamespaceDeclaration());
}

TEST(TzXmlSAXParser, NamesUnderOneDeclarationShareItsRecord) {
    struct Handler : TzXmlContentHandler {
        void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override {
            for (const TzXmlAttribute& attribute : attributes) {
                if (!attribute.isNamespaceDeclaration()) {
                    names.push_back(attribute.getName());
                }
            }
            names.push_back(name);
        }
        void endElement(const TzXmlName&) override {}
        void characters(const TzCString&) override {}
        std::vector<TzXmlName> names;
    } handler;
    TestedParser parser;
    parser.setContentHandler(&handler);
    parser.parse("<p:a xmlns:p='u'><p:b p:x='1'/><p:c xmlns:q='v'><p:d/></p:c></p:a>");
    ASSERT_EQ(handler.names.size(), 5U);
    for (const TzXmlName& name : handler.names) {
        EXPECT_EQ(&name.getUri(), &handler.names.front().getUri());
    }
}

TEST(TzXmlSAXParser, LastOfTwoAttributesWithOneNameCounts) {
    EXPECT_THAT(eventsOf("<a xmlns:p='u' xmlns:q='u' p:x='1' y='2' q:x='3'/>"),
                ElementsAre("<a xmlns:p" + Xmlns + "=u xmlns:q" + Xmlns + "=u q:x{u}=3 y=2>", "[]",
                            "</a>"));
}

TEST(TzXmlSAXParser, PrefixesThatAreBoundToNothingTellAttributesApart) {
    EXPECT_THAT(
        eventsOf("<r><a x='1' p:x='2'/><a q:x='3'/></r>"),
        ElementsAre("<r>", "<a x=1 p:x=2>", "[]", "</a>", "<a q:x=3>", "[]", "</a>", "</r>"));
}

TEST(TzXmlSAXParser, LastOfTwoAttributesWithOneNameCountsAmongMany) {
    std::string text = "<a xmlns:p='u' xmlns:q='u' p:x='1'";
    std::string event = "<a xmlns:p" + Xmlns + "=u xmlns:q" + Xmlns + "=u q:x{u}=2";
    for (int i = 0; i < 50; ++i) {
        text += " a" + std::to_string(i) + "='v'";
        event += " a" + std::to_string(i) + "=v";
    }
    EXPECT_THAT(eventsOf(text + " q:x='2'/>"), ElementsAre(event + ">", "[]", "</a>"));
}

TEST(TzXmlSAXParser, OneSpellingTwiceIsAnError) {
    EXPECT_EQ(refusal("<a x='1' y='2' x='3'/>"), "1:16 duplicate attribute");
}

TEST(TzXmlSAXParser, AttributesOfElementsBeforeAreForgotten) {
    EXPECT_THAT(eventsOf("<r x='1' y='2' z='3'><a x='4'/><b/><c u='5' z='6'/></r>"),
                ElementsAre("<r x=1 y=2 z=3>", "<a x=4>", "[]", "</a>", "<b>", "[]", "</b>",
                            "<c u=5 z=6>", "[]", "</c>", "</r>"));
}

TEST(TzXmlSAXParser, AttributeValuesAreNormalised) {
    EXPECT_THAT(eventsOf("<a x='1\n2\t3' y='&#10;&#9;&lt;&quot;&amp;'/>"),
                ElementsAre("<a x=1 2 3 y=\n\t<\"&>", "[]", "</a>"));
}

TEST(TzXmlSAXParser, TextBetweenTwoTagsIsOneEvent) {
    EXPECT_THAT(eventsOf("<a>1&amp;2<!-- c -->3<![CDATA[<4>]]>5<?pi x?>6&#x20AC;7\r\n8\r9</a>"),
                ElementsAre("<a>",
                            "[1&23<4>56\xE2\x82\xAC"
                            "7\n8\n9]",
                            "</a>"));
}

TEST(TzXmlSAXParser, TextIsOneEventAcrossPieces) {
    std::string content;
    while (content.size() < 3'000'000) {
        content += "line " + std::to_string(content.size()) + "\n";
    }
    EXPECT_THAT(eventsOf("<a>" + content + "</a>"),
                ElementsAre("<a>", "[" + content + "]", "</a>"));
}

TEST(TzXmlSAXParser, WhiteSpaceIsText) {
    EXPECT_THAT(eventsOf(" \n<a>\n <b> </b>\t</a>\n "),
                ElementsAre("<a>", "[\n ]", "<b>", "[ ]", "</b>", "[\t]", "</a>"));
}

TEST(TzXmlSAXParser, ElementWithoutContentHasOneEmptyText) {
    for (const char* text :
         {"<a/>", "<a></a>", "<a><!-- c --></a>", "<a><?pi?></a>", "<a><![CDATA[]]></a>"}) {
        EXPECT_THAT(eventsOf(text), ElementsAre("<a>", "[]", "</a>")) << text;
    }
    EXPECT_THAT(eventsOf("<a><b/></a>"), ElementsAre("<a>", "<b>", "[]", "</b>", "</a>"));
}

TEST(TzXmlSAXParser, HasNoHandlerAtFirst) {
    TestedParser parser;
    EXPECT_EQ(parser.getContentHandler(), nullptr);
    parser.parse("<?xml version='1.0'?><a x='1'>text</a>");
    EXPECT_EQ(refusal(parser, "<a>"), "1:4 no element found");
}

TEST(TzXmlSAXParser, HandlerChangedInsideAnEventGetsTheNextOne) {
    TestedParser parser;
    EventRecorder second;
    HookedRecorder first([&](const std::string& event) {
        if (event == "start b") {
            parser.setContentHandler(&second);
        }
    });
    parser.setContentHandler(&first);
    parser.parse("<a>1<b>2</b></a>");
    EXPECT_EQ(parser.getContentHandler(), &second);
    EXPECT_THAT(first.events, ElementsAre("<a>", "[1]", "<b>"));
    EXPECT_THAT(second.events, ElementsAre("[2]", "</b>", "</a>"));
}

TEST(TzXmlSAXParser, HandlerChangedInTextGetsTheTagBehindIt) {
    for (const char* text : {"<a>1<b/></a>", "<a><b/></a>"}) {
        TestedParser parser;
        EventRecorder second;
        HookedRecorder first([&](const std::string& event) {
            if (event == "text") {
                parser.setContentHandler(&second);
            }
        });
        parser.setContentHandler(&first);
        parser.parse(text);
        EXPECT_EQ(first.events.back().front(), '[') << text;
        EXPECT_EQ(second.events.back(), "</a>") << text;
        EXPECT_EQ(first.events.size() + second.events.size(), text[3] == '1' ? 6U : 5U) << text;
    }
}

TEST(TzXmlSAXParser, HandlerMayBeTakenAwayInsideAnEvent) {
    TestedParser parser;
    HookedRecorder recorder([&](const std::string& event) {
        if (event == "start b") {
            parser.setContentHandler(nullptr);
        }
    });
    parser.setContentHandler(&recorder);
    parser.parse("<a><b>2</b><c x='1'/></a>");
    EXPECT_THAT(recorder.events, ElementsAre("<a>", "<b>"));
}

TEST(TzXmlSAXParser, ErrorOfAHandlerGetsThePlaceOfTheEvent) {
    for (const auto& [event, place] :
         {std::pair("start b", ", line 2, column 2"), std::pair("text", ", line 2, column 2"),
          std::pair("end a", ", line 2, column 6")}) {
        HookedRecorder recorder([&wanted = event](const std::string& met) {
            if (met == wanted) {
                throw TzBadValueError("bad");
            }
        });
        TestedParser parser;
        parser.setContentHandler(&recorder);
        try {
            parser.parse("<a>\n <b/></a>");
            ADD_FAILURE() << event;
        } catch (const TzBadValueError& error) {
            EXPECT_EQ(error.describe(), std::string("bad") + place) << event;
            EXPECT_STREQ(error.what(), "bad");
        }
    }
}

TEST(TzXmlSAXParser, ErrorOfAHandlerKeepsAPlaceOfItsOwn) {
    HookedRecorder recorder(
        [](const std::string&) { throw TzXmlParseError(TzMessage("bad"), "", 7, 8); });
    TestedParser parser;
    parser.setContentHandler(&recorder);
    try {
        parser.parse("<a/>");
        ADD_FAILURE();
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.describe(), "bad, line 7, column 8");
    }
}

TEST(TzXmlSAXParser, WhatAHandlerThrowsArrives) {
    struct Own : std::runtime_error {
        using std::runtime_error::runtime_error;
    };
    for (const char* place : {"prolog", "start a", "text", "start b", "end b", "end a"}) {
        TestedParser parser;
        std::size_t later = 0;
        bool thrown = false;
        HookedRecorder recorder([&](const std::string& event) {
            later += thrown ? 1 : 0;
            if (event == place) {
                thrown = true;
                throw Own(event);
            }
        });
        parser.setContentHandler(&recorder);
        try {
            parser.parse("<?xml version='1.0'?><a>1<b/></a>");
            ADD_FAILURE() << place;
        } catch (const Own& error) {
            EXPECT_STREQ(error.what(), place);
        }
        EXPECT_EQ(later, 0U) << place;
        // The parser is as good as new.
        EventRecorder next;
        parser.setContentHandler(&next);
        parser.parse("<c>2</c>");
        EXPECT_THAT(next.events, ElementsAre("<c>", "[2]", "</c>")) << place;
    }
}

TEST(TzXmlSAXParser, PlaceOfAThrowingEventIsKept) {
    TestedParser parser;
    HookedRecorder recorder([](const std::string& event) {
        if (event == "start c") {
            throw std::runtime_error("no");
        }
    });
    parser.setContentHandler(&recorder);
    EXPECT_THROW(parser.parse("<a>\n<b/>\n  <c/></a>"), std::runtime_error);
    EXPECT_EQ(parser.getLine(), 3U);
    EXPECT_EQ(parser.getColumn(), 3U);
}

TEST(TzXmlSAXParser, ParsingWhileParsingIsRefused) {
    TestedParser parser;
    std::string refused;
    HookedRecorder recorder([&](const std::string& event) {
        if (event == "start b") {
            refused = textThrown<TzTHRIllegalUsage>([&] { parser.parse("<x/>"); });
        }
    });
    parser.setContentHandler(&recorder);
    parser.parse("<a><b/></a>");
    EXPECT_EQ(refused, "the parser is parsing already");
    EXPECT_THAT(recorder.events, ElementsAre("<a>", "<b>", "[]", "</b>", "</a>"));
}

TEST(TzXmlSAXParser, AnotherParserMayParseInsideAnEvent) {
    Events inner;
    TestedParser parser;
    HookedRecorder recorder([&](const std::string& event) {
        if (event == "text") {
            inner = eventsOf("<x/>");
        }
    });
    parser.setContentHandler(&recorder);
    parser.parse("<a>1</a>");
    EXPECT_THAT(inner, ElementsAre("<x>", "[]", "</x>"));
    EXPECT_THAT(recorder.events, ElementsAre("<a>", "[1]", "</a>"));
}

TEST(TzXmlSAXParser, KnowsThePlaceOfEachEvent) {
    TestedParser parser;
    std::vector<std::string> places;
    HookedRecorder recorder([&](const std::string& event) {
        places.push_back(event + " " + std::to_string(parser.getLine()) + ":" +
                         std::to_string(parser.getColumn()));
    });
    parser.setContentHandler(&recorder);
    EXPECT_EQ(parser.getLine(), 0U);
    EXPECT_EQ(parser.getColumn(), 0U);
    // Columns count characters: one for the two bytes before <b>. An empty-element tag ends
    // after itself.
    parser.parse("<?xml version='1.0'?>\n<a>\r\n \xC3\xA4<b/>\n</a>");
    EXPECT_THAT(places, ElementsAre("prolog 1:1", "start a 2:1", "text 3:3", "start b 3:3",
                                    "text 3:7", "end b 3:7", "text 4:1", "end a 4:1"));
    EXPECT_EQ(parser.getLine(), 0U);
    EXPECT_EQ(parser.getColumn(), 0U);
}

TEST(TzXmlSAXParser, PlacesAreRightBehindManyPieces) {
    const std::string line = std::string(9999, 'x') + "\n";
    std::string text = "<a>";
    for (int i = 0; i < 200; ++i) {
        text += line;
    }
    EXPECT_EQ(refusal(text + "  </b>"), "201:5 mismatched tag");
}

TEST(TzXmlSAXParser, RefusesDocumentTypes) {
    const std::string reason = " a document type declaration is not accepted";
    EXPECT_EQ(refusal("<!DOCTYPE a><a/>"), "1:12" + reason);
    EXPECT_EQ(refusal("<?xml version='1.0'?>\n<!DOCTYPE a SYSTEM 'file:///etc/passwd'>\n<a/>"),
              "2:40" + reason);
    EXPECT_EQ(refusal("<!DOCTYPE a [\n<!ENTITY e 'eeeeeeee'>\n<!ENTITY f '&e;&e;'>]><a>&f;</a>"),
              "1:13" + reason);
    EXPECT_EQ(refusal("<!DOCTYPE a [<!ENTITY e SYSTEM 'http://127.0.0.1/'>]><a>&e;</a>"),
              "1:13" + reason);
}

TEST(TzXmlSAXParser, RefusesWhatIsNotWellFormed) {
    EXPECT_EQ(refusal(""), "1:1 no element found");
    EXPECT_EQ(refusal("  \n "), "2:2 no element found");
    EXPECT_EQ(refusal("x<a/>"), "1:2 not well-formed (invalid token)");
    EXPECT_EQ(refusal("<a/>\nx"), "2:1 junk after document element");
    EXPECT_EQ(refusal("<a/><b/>"), "1:5 junk after document element");
    EXPECT_EQ(refusal("<a>\n <b></a>"), "2:7 mismatched tag");
    EXPECT_EQ(refusal("<a>&nothing;</a>"), "1:4 undefined entity");
    EXPECT_EQ(refusal("<a>&#0;</a>"), "1:4 reference to invalid character number");
    EXPECT_EQ(refusal("<a x=1/>"), "1:6 not well-formed (invalid token)");
    EXPECT_EQ(refusal("<a>]]></a>"), "1:6 not well-formed (invalid token)");
    EXPECT_EQ(refusal("<a><!-- -- --></a>"), "1:11 not well-formed (invalid token)");
    EXPECT_EQ(refusal(" <?xml version='1.0'?><a/>"),
              "1:2 XML or text declaration not at start of entity");
    EXPECT_EQ(refusal("text<?xml version='1.0'?><a/>"), "1:5 not well-formed (invalid token)");
    EXPECT_EQ(refusal("<?xml version='1.0' encoding?><a/>"),
              "1:29 XML declaration not well-formed");
}

TEST(TzXmlSAXParser, EventsBeforeTheErrorAreTold) {
    TestedParser parser;
    EventRecorder recorder;
    parser.setContentHandler(&recorder);
    EXPECT_EQ(refusal(parser, "<a>1<b/>2</c>"), "1:12 mismatched tag");
    EXPECT_THAT(recorder.events, ElementsAre("<a>", "[1]", "<b>", "[]", "</b>"));
}

TEST(TzXmlSAXParser, LimitsDepth) {
    const auto nested = [](std::size_t depth) {
        std::string text;
        for (std::size_t i = 0; i < depth; ++i) {
            text += "<a>";
        }
        for (std::size_t i = 0; i < depth; ++i) {
            text += "</a>";
        }
        return text;
    };
    TestedParser parser;
    EXPECT_EQ(parser.getDepthLimit(), 1000U);
    parser.parse(nested(1000));
    EXPECT_EQ(refusal(parser, nested(1001)), "1:3001 elements are nested too deeply");
    parser.setDepthLimit(2);
    EXPECT_EQ(parser.getDepthLimit(), 2U);
    parser.parse("<a><b/><b/><b/></a>");
    EXPECT_EQ(refusal(parser, "<a>\n<b>\n<c/></b></a>"), "3:1 elements are nested too deeply");
    parser.setDepthLimit(0);
    EXPECT_EQ(refusal(parser, "<a/>"), "1:1 elements are nested too deeply");
}

TEST(TzXmlSAXParser, LimitsAttributes) {
    TestedParser parser;
    EXPECT_EQ(parser.getAttributeLimit(), 200000U);
    parser.setAttributeLimit(2);
    EXPECT_EQ(parser.getAttributeLimit(), 2U);
    parser.parse("<a x='1' y='2'><b x='1' y='2'/></a>");
    EXPECT_EQ(refusal(parser, "<a x='1'>\n <b x='1' xmlns='u' xmlns:p='v'/></a>"),
              "2:2 an element has too many attributes");
    parser.setAttributeLimit(0);
    parser.parse("<a><b/></a>");
    EXPECT_EQ(refusal(parser, "<a x='1'/>"), "1:1 an element has too many attributes");
}
