// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlSAXParser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/xml/EventRecorder.h"
#include "support/AllocationFailure.h"

#include <sys/resource.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using testing::ElementsAre;
using namespace std::string_literals;

/// Counts events and keeps nothing.
class Counter : public TzXmlContentHandler {
public:
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override {
        ++starts;
        depth = starts - ends;
        deepest = std::max(deepest, depth);
        attributeCount = std::max(attributeCount, attributes.size());
        unbound += name.getUri().empty() ? 1 : 0;
        live = std::max(live, liveAllocations());
    }
    void endElement(const TzXmlName&) override { ++ends; }
    void characters(const TzCString& text) override { textSize += text.size(); }

    std::size_t starts = 0;
    std::size_t ends = 0;
    std::size_t depth = 0;
    std::size_t deepest = 0;
    std::size_t attributeCount = 0;
    std::size_t unbound = 0;
    std::size_t textSize = 0;
    std::ptrdiff_t live = 0;
};

Counter counted(TzXmlSAXParser& parser, std::string_view text) {
    Counter counter;
    parser.setContentHandler(&counter);
    parser.parse(text);
    parser.setContentHandler(nullptr);
    return counter;
}

Counter counted(std::string_view text) {
    TestedParser parser;
    return counted(parser, text);
}

std::string repeated(std::string_view part, std::size_t count) {
    std::string text;
    text.reserve(part.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        text += part;
    }
    return text;
}

/// Everything a message can hold, in few bytes.
const std::string Sample =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
    "<!-- \xC3\xA4 --><?pi x?>\n"
    "<E:Envelope xmlns:E=\"urn:e\" xmlns=\"urn:d\">\n"
    " <E:Body E:style='a &lt; b &#xE4;'>\r\n"
    "  <p:v xmlns:p=\"urn:p\" p:t='1' q:t=\"2\">1 &amp; <![CDATA[<2>]]></p:v>\n"
    "  <n xmlns=''/><:x>\xE2\x82\xAC</:x>\n"
    " </E:Body>\n"
    "</E:Envelope>\n";

/// Parses damaged text: either all is well, with as many ends as starts, or the error has a place.
void parseDamaged(TzXmlSAXParser& parser, const std::string& text) {
    Counter counter;
    parser.setContentHandler(&counter);
    try {
        parser.parse(text);
        EXPECT_GT(counter.starts, 0U);
        EXPECT_EQ(counter.starts, counter.ends) << text;
    } catch (const TzXmlParseError& error) {
        const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) +
                           static_cast<std::size_t>(std::count(text.begin(), text.end(), '\r'));
        EXPECT_GE(error.getLine(), 1U) << text;
        EXPECT_LE(error.getLine(), lines + 1) << text;
        EXPECT_GE(error.getColumn(), 1U) << text;
        EXPECT_LE(error.getColumn(), text.size() + 1) << text;
        EXPECT_STRNE(error.what(), "") << text;
    }
}

} // namespace

TEST(TzXmlSAXParserHostile, TextCutAtEveryByteIsRefused) {
    TestedParser parser;
    const std::size_t end = Sample.rfind('>');
    for (std::size_t size = 0; size <= end; ++size) {
        EXPECT_NE(refusal(parser, Sample.substr(0, size)), "") << size;
    }
    EXPECT_EQ(counted(parser, Sample.substr(0, end + 1)).ends, 5U);
    EXPECT_EQ(counted(parser, Sample).ends, 5U);
}

TEST(TzXmlSAXParserHostile, WideTextCutAtEveryByteIsRefused) {
    std::string wide = "\xFF\xFE";
    for (const char byte : std::string("<?xml version='1.0'?><a x='1'>text<b/></a>")) {
        wide += byte;
        wide += '\0';
    }
    TestedParser parser;
    for (std::size_t size = 0; size < wide.size(); ++size) {
        EXPECT_NE(refusal(parser, wide.substr(0, size)), "") << size;
    }
    EXPECT_EQ(counted(parser, wide).ends, 2U);
}

TEST(TzXmlSAXParserHostile, EveryByteReplacedByEveryInterestingOne) {
    TestedParser parser;
    for (std::size_t place = 0; place < Sample.size(); ++place) {
        for (const char byte : "\0\x01\x7F\x80\xBF\xC0\xE2\xF0\xFE\xFF<>&'\"=/!?-[]: \nax;"s) {
            std::string text = Sample;
            text[place] = byte;
            parseDamaged(parser, text);
        }
    }
}

TEST(TzXmlSAXParserHostile, RandomDamageIsSurvived) {
    std::mt19937 random(20240506); // NOLINT(bugprone-random-generator-seed): the same texts always
    const auto below = [&random](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    TestedParser parser;
    for (int round = 0; round < 20'000; ++round) {
        std::string text = Sample;
        for (std::size_t change = below(4) + 1; change > 0; --change) {
            const std::size_t place = below(text.size());
            const std::size_t length = below(std::min<std::size_t>(20, text.size() - place)) + 1;
            switch (below(4)) {
            case 0:
                text[place] = static_cast<char>(below(256));
                break;
            case 1:
                text.erase(place, length);
                break;
            case 2:
                text.insert(below(text.size()), text.substr(place, length));
                break;
            default:
                text.insert(place, 1, static_cast<char>(below(256)));
            }
            text += text.empty() ? "x" : "";
        }
        parseDamaged(parser, text);
    }
}

TEST(TzXmlSAXParserHostile, DeepNestingIsRefusedUnlessAllowed) {
    constexpr std::size_t Depth = 100'000;
    const std::string text = repeated("<a>", Depth) + repeated("</a>", Depth);
    TestedParser parser;
    EXPECT_EQ(refusal(parser, text), "1:3001 elements are nested too deeply");
    EXPECT_EQ(refusal(parser, repeated("<a>\n", Depth)), "1001:1 elements are nested too deeply");
    parser.setDepthLimit(Depth);
    const Counter counter = counted(parser, text);
    EXPECT_EQ(counter.deepest, Depth);
    EXPECT_EQ(counter.ends, Depth);
    parser.setDepthLimit(Depth - 1);
    EXPECT_EQ(refusal(parser, text), "1:299998 elements are nested too deeply");
}

TEST(TzXmlSAXParserHostile, DeepNestingWithDeclarationsOnEachLevel) {
    constexpr std::size_t Depth = 20'000;
    std::string text;
    for (std::size_t i = 0; i < Depth; ++i) {
        text += "<p:a xmlns:p='u" + std::to_string(i) + "'>";
    }
    TestedParser parser;
    parser.setDepthLimit(Depth);
    const Counter counter = counted(parser, text + repeated("</p:a>", Depth));
    EXPECT_EQ(counter.deepest, Depth);
    EXPECT_EQ(counter.unbound, 0U);
}

TEST(TzXmlSAXParserHostile, ManyAttributes) {
    constexpr std::size_t Count = 100'000;
    std::string text = "<a";
    for (std::size_t i = 0; i < Count; ++i) {
        text += " a" + std::to_string(i) + "='1'";
    }
    TestedParser parser;
    EXPECT_EQ(counted(parser, text + "/>").attributeCount, Count);
    parser.setAttributeLimit(Count - 1);
    EXPECT_EQ(refusal(parser, text + "/>"), "1:1 an element has too many attributes");
    EXPECT_EQ(counted(parser, "<a x='1'/>").attributeCount, 1U);
}

TEST(TzXmlSAXParserHostile, ErrorsBeforeATagWithManyAttributesComeFirst) {
    const std::string crowded = "<b" + repeated(" x=''", 20) + "/>";
    TestedParser parser;
    parser.setAttributeLimit(10);
    EXPECT_EQ(refusal(parser, "<a>\n " + crowded + "</a>"),
              "2:2 an element has too many attributes");
    EXPECT_EQ(refusal(parser, "<a>\n]" + crowded), "2:2 an element has too many attributes");
    EXPECT_EQ(refusal(parser, "<a></c>" + crowded + "</a>"), "1:6 mismatched tag");
    EXPECT_EQ(refusal(parser, "<!DOCTYPE a>" + crowded),
              "1:12 a document type declaration is not accepted");
    EXPECT_EQ(refusal(parser, "<a b='<'>" + crowded + "</a>"),
              "1:7 not well-formed (invalid token)");
    EXPECT_NO_THROW(parser.parse("<a><!--" + crowded + "--><![CDATA[" + crowded + "]]></a>"));
}

TEST(TzXmlSAXParserHostile, EventsBeforeATagWithManyAttributesAreReported) {
    EventRecorder recorder;
    TestedParser parser;
    parser.setContentHandler(&recorder);
    parser.setAttributeLimit(1);
    refusal(parser, "<a>text<b x='1'/><c x='1' y='2'/>" + std::string(200, ' ') + "</a>");
    EXPECT_THAT(recorder.events, testing::ElementsAre("<a>", "[text]", "<b x=1>", "[]", "</b>"));
}

TEST(TzXmlSAXParserHostile, WideTextsHaveTheSameAttributeLimit) {
    for (const char32_t* text : {U"<a><b x='1' y='2' z='3'/></a>"}) {
        std::string wide = "\xFE\xFF";
        for (const char32_t* at = text; *at != 0; ++at) {
            wide += {'\0', static_cast<char>(*at)};
        }
        TestedParser parser;
        parser.setAttributeLimit(2);
        EXPECT_EQ(refusal(parser, wide), "1:4 an element has too many attributes");
        parser.setAttributeLimit(3);
        EXPECT_NO_THROW(parser.parse(wide));
    }
}

// The event source takes memory for all attributes of a tag before it reports them. Without the
// limit these take 324 MB; the bound of 16 MB has room for what a sanitizer takes, 4.5 MB.
TEST(TzXmlSAXParserHostileDeathTest, AttributesBeyondTheLimitTakeNoMemory) {
    std::string text = "<a>\n<b";
    for (std::size_t i = 0; i < 1'000'000; ++i) {
        text += " a" + std::to_string(i) + "=''";
    }
    text += "/></a>";
    const auto growth = [&text] {
        struct rusage usage {};
        getrusage(RUSAGE_SELF, &usage);
        const long before = usage.ru_maxrss;
        TestedParser parser;
        parser.setAttributeLimit(10);
        EXPECT_EQ(refusal(parser, text), "2:1 an element has too many attributes");
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss - before; // in KiB
    };
    EXPECT_EXIT(
        {
            const long grown = growth();
            std::fprintf(stderr, "grown by %ld KiB", grown);
            std::_Exit(grown < 16384 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "grown by");
}

TEST(TzXmlSAXParserHostile, ManyAttributesWithTwoSpellingsOfEachName) {
    constexpr std::size_t Count = 50'000;
    std::string text = "<a xmlns:p='u' xmlns:q='u'";
    for (std::size_t i = 0; i < Count; ++i) {
        text += " p:a" + std::to_string(i) + "='1' q:a" + std::to_string(i) + "='2'";
    }
    EXPECT_EQ(counted(text + "/>").attributeCount, Count + 2);
}

TEST(TzXmlSAXParserHostile, ManyDeclarationsThatAreAllUsed) {
    constexpr std::size_t Count = 100'000;
    std::string text = "<a";
    for (std::size_t i = 0; i < Count; ++i) {
        text += " xmlns:p" + std::to_string(i) + "='u'";
    }
    text += ">";
    for (std::size_t i = 0; i < Count; ++i) {
        text += "<p" + std::to_string(i) + ":a/>";
    }
    const Counter counter = counted(text + "</a>");
    EXPECT_EQ(counter.attributeCount, Count);
    EXPECT_EQ(counter.starts, Count + 1);
    EXPECT_EQ(counter.unbound, 1U); // the root has no prefix
}

TEST(TzXmlSAXParserHostile, ManyPrefixesThatNothingDeclares) {
    constexpr std::size_t Count = 100'000;
    std::string text = "<a>";
    for (std::size_t i = 0; i < Count; ++i) {
        text += "<p" + std::to_string(i) + ":a/>";
    }
    const Counter counter = counted(text + "</a>");
    EXPECT_EQ(counter.unbound, Count + 1);
    EXPECT_LT(counter.live, liveAllocations() + 5000);
}

// Declarations out of scope do not keep their memory for long.
TEST(TzXmlSAXParserHostile, EverNewNamesAndPrefixesTakeBoundedMemory) {
    std::string text = "<a>";
    for (std::size_t i = 0; i < 50'000; ++i) {
        const std::string name = "name-that-is-too-long-to-be-kept-in-place-" + std::to_string(i);
        text += "<" + name + ":" + name + " xmlns:" + name + "='u' " + name + "='1'/>";
    }
    TestedParser parser;
    counted(parser, "<w:a xmlns:w='w' w:b='c'/>"); // statics are made at their first use
    const std::ptrdiff_t before = liveAllocations();
    const Counter counter = counted(parser, text + "</a>");
    EXPECT_EQ(counter.starts, 50'001U);
    EXPECT_LT(counter.live, before + 10'000);
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TzXmlSAXParserHostile, ElementsTakeNoAllocationsOfTheirOwn) {
    const auto made = [](std::size_t count) {
        const std::string text = "<p:a xmlns:p='u' xmlns:x='v'>" +
                                 repeated("<p:b x:type='x:string'>text &amp; text</p:b>\n"
                                          "<c a='1' b='2'/><d/>",
                                          count) +
                                 "</p:a>";
        TestedParser parser;
        Counter counter;
        parser.setContentHandler(&counter);
        const std::size_t before = madeAllocations();
        parser.parse(text);
        return madeAllocations() - before;
    };
    // A few names are made anew until the table of names has its size.
    EXPECT_LT(made(10'000), made(10) + 30);
}

TEST(TzXmlSAXParserHostile, RepeatedDeclarationsTakeNoAllocationsOfTheirOwn) {
    const auto made = [](std::size_t count) {
        const std::string text =
            "<a>" + repeated("<p:b xmlns:p='a-uri-that-is-too-long-to-be-kept-in-place'/>", count) +
            "</a>";
        const std::size_t before = madeAllocations();
        TestedParser().parse(text);
        return madeAllocations() - before;
    };
    made(10); // leaves its names to the others
    EXPECT_LT(made(10'000), made(10) + 10);
}

TEST(TzXmlSAXParserHostile, HugeTokens) {
    constexpr std::size_t Size = 5'000'000;
    const std::string huge(Size, 'x');
    EXPECT_EQ(counted("<a>" + huge + "</a>").textSize, Size);
    EXPECT_EQ(counted("<a><![CDATA[" + huge + "]]></a>").textSize, Size);
    EXPECT_EQ(counted("<a b='" + huge + "'/>").attributeCount, 1U);
    EXPECT_EQ(counted("<" + huge + "/>").ends, 1U);
    EXPECT_EQ(counted("<a><!--" + huge + "--><?p " + huge + "?></a>").textSize, 0U);
    EXPECT_EQ(counted("<a" + std::string(Size, ' ') + "/>").ends, 1U);
    EXPECT_EQ(counted("<a>" + repeated("&amp;", Size / 10) + "</a>").textSize, Size / 10);
}

TEST(TzXmlSAXParserHostile, LongNamesAreTheSameNames) {
    const std::string name(1000, 'n');
    const std::string text =
        "<p:" + name + " xmlns:p='u' p:" + name + "='1'><p:" + name + "/></p:" + name + ">";
    EXPECT_THAT(eventsOf(text),
                ElementsAre("<p:" + name +
                                "{u} xmlns:p{http://www.w3.org/2000/xmlns/}=u p:" + name + "{u}=1>",
                            "<p:" + name + "{u}>", "[]", "</p:" + name + "{u}>",
                            "</p:" + name + "{u}>"));
}

TEST(TzXmlSAXParserHostile, EveryLengthOfNamesIsToldApart) {
    std::string text = "<r>";
    Events expected = {"<r>"};
    for (std::size_t length = 1; length < 70; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            std::string name(length, 'a');
            name[place] = 'b';
            text += "<" + name + "/>";
            expected.insert(expected.end(), {"<" + name + ">", "[]", "</" + name + ">"});
        }
    }
    expected.emplace_back("</r>");
    EXPECT_EQ(eventsOf(text + "</r>"), expected);
}

TEST(TzXmlSAXParserHostile, EachFailedAllocationArrivesAndNothingIsLost) {
    const std::string text = Sample.substr(0, Sample.size() - 1) + repeated(" ", 1000) + "\n";
    const auto parse = [&text] {
        TestedParser parser;
        Counter counter;
        parser.setContentHandler(&counter);
        parser.parse(text);
    };
    EXPECT_GT(failEachAllocation(parse), 10U);
}

TEST(TzXmlSAXParserHostile, ParserIsUsableAfterAFailedAllocation) {
    TestedParser parser;
    for (std::size_t nth = 1; nth < 30; ++nth) {
        {
            const AllocationFailure failure(nth);
            try {
                parser.parse(Sample);
            } catch (const std::bad_alloc&) {
                EXPECT_TRUE(failure.happened());
            }
        }
        EXPECT_EQ(counted(parser, Sample).ends, 5U);
    }
}

TEST(TzXmlSAXParserHostile, AMistakeBeforeACrowdedTagIsReportedItself) {
    TestedParser parser;
    parser.setAttributeLimit(1);
    EXPECT_EQ(refusal(parser, "<a xmlns:p='http://www.w3.org/XML/1998/namespace'><b x='' y=''/>"),
              "1:1 xml, xmlns and their namespaces are bound to each other only");
    EXPECT_EQ(refusal(parser, "<a><b x='' y=''/>"), "1:4 an element has too many attributes");
}
