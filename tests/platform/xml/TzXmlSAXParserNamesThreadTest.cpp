// SPDX-License-Identifier: MIT
//
// Names pass from one text to the next on a thread, and must not be seen to.
#include <tz/xml/TzXmlSAXParser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/xml/EventRecorder.h"
#include "support/AllocationFailure.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

using testing::ElementsAre;

/// Keeps the names of the elements.
class NameKeeper final : public TzXmlContentHandler {
public:
    void startElement(const TzXmlName& name, const TzXmlAttributeSet&) override {
        names.push_back(name);
    }
    void endElement(const TzXmlName&) override {}
    void characters(const TzCString&) override {}

    std::vector<TzXmlName> names;
};

std::vector<TzXmlName> namesOf(std::string_view text) {
    NameKeeper keeper;
    TestedParser parser;
    parser.setContentHandler(&keeper);
    parser.parse(text);
    return keeper.names;
}

/// Calls a function at each start tag, and writes down the events.
class Interrupted final : public EventRecorder {
public:
    explicit Interrupted(std::function<void()> action) : action_(std::move(action)) {}
    void startElement(const TzXmlName& name, const TzXmlAttributeSet& attributes) override {
        action_();
        EventRecorder::startElement(name, attributes);
    }

private:
    std::function<void()> action_;
};

/// Looks at the memory of attribute values that is not in use.
class Peeper final : public TzXmlContentHandler {
public:
    void startElement(const TzXmlName&, const TzXmlAttributeSet& attributes) override {
        for (const TzXmlAttribute& attribute : attributes) {
            const TzCString& value = attribute.getValue();
            rest.append(value.data() + value.size(), value.capacity() - value.size());
        }
    }
    void endElement(const TzXmlName&) override {}
    void characters(const TzCString&) override {}

    std::string rest;
};

/// Reads without a handler.
void read(std::string_view text) { TestedParser().parse(text); }

const std::string Small = "<p:a xmlns:p='urn:p' xmlns='urn:d'><b p:c='1'/><p:a/></p:a>";
const Events EventsOfSmall = {"<p:a{urn:p} xmlns:p{http://www.w3.org/2000/xmlns/}=urn:p "
                              "xmlns{http://www.w3.org/2000/xmlns/}=urn:d>",
                              "<b{urn:d} p:c{urn:p}=1>",
                              "[]",
                              "</b{urn:d}>",
                              "<p:a{urn:p}>",
                              "[]",
                              "</p:a{urn:p}>",
                              "</p:a{urn:p}>"};

/// Blocks of memory that the first of two readings of `text` left, once the second one is over.
std::ptrdiff_t blocksLeftBy(const std::string& text) {
    std::ptrdiff_t left = 0;
    std::thread([&] {
        const std::ptrdiff_t before = liveAllocationsWithSpares();
        read(text);
        left = liveAllocationsWithSpares() - before;
    }).join();
    return left;
}

} // namespace

TEST(TzXmlSAXParserNamesThread, ATextSharesTheNamesOfTheOneBefore) {
    const std::vector<TzXmlName> first = namesOf(Small);
    const std::vector<TzXmlName> second = namesOf(Small);
    ASSERT_EQ(first.size(), 3U);
    ASSERT_EQ(second.size(), 3U);
    EXPECT_TRUE(second[0].isSame(first[0]));
    EXPECT_TRUE(second[1].isSame(first[1]));
}

TEST(TzXmlSAXParserNamesThread, APrefixMeansWhatTheTextSays) {
    for (const std::string uri : {"urn:1", "urn:2", "urn:1", ""}) {
        const std::string text =
            uri.empty() ? "<p:a><b/></p:a>" : "<p:a xmlns:p='" + uri + "'><b/></p:a>";
        const std::vector<TzXmlName> names = namesOf(text);
        ASSERT_EQ(names.size(), 2U);
        EXPECT_EQ(names[0].getUri(), uri);
        EXPECT_EQ(names[1].getUri(), "");
    }
}

TEST(TzXmlSAXParserNamesThread, ATextThatFailsLeavesNoDeclaration) {
    EXPECT_NE(refusal("<p:a xmlns:p='urn:p' xmlns='urn:d'><b><p:c"), "");
    EXPECT_THAT(eventsOf("<b><p:c/></b>"), ElementsAre("<b>", "<p:c>", "[]", "</p:c>", "</b>"));
    EXPECT_EQ(eventsOf(Small), EventsOfSmall);
}

TEST(TzXmlSAXParserNamesThread, AHandlerThatThrowsLeavesNoDeclaration) {
    int tags = 0;
    Interrupted handler([&tags] {
        if (++tags == 2) {
            throw std::string("stop");
        }
    });
    TestedParser parser;
    parser.setContentHandler(&handler);
    EXPECT_THROW(parser.parse(Small), std::string);
    EXPECT_THAT(eventsOf("<b/>"), ElementsAre("<b>", "[]", "</b>"));
}

TEST(TzXmlSAXParserNamesThread, ATextWithinATextSharesNothingWithIt) {
    Events inner;
    std::vector<TzXmlName> innerNames;
    Interrupted handler([&] {
        inner = eventsOf("<p:a xmlns:p='urn:inner'><b/></p:a>");
        innerNames = namesOf(Small);
    });
    const std::vector<TzXmlName> before = namesOf(Small);
    TestedParser parser;
    parser.setContentHandler(&handler);
    parser.parse(Small);
    EXPECT_EQ(handler.events, EventsOfSmall);
    EXPECT_EQ(inner.size(), 5U);
    EXPECT_EQ(inner.front(), "<p:a{urn:inner} xmlns:p{http://www.w3.org/2000/xmlns/}=urn:inner>");
    ASSERT_EQ(innerNames.size(), 3U);
    EXPECT_EQ(innerNames[0], before[0]);
    EXPECT_FALSE(innerNames[0].isSame(before[0]));
}

TEST(TzXmlSAXParserNamesThread, ADocumentInChunksSharesNothingWithTextsBetweenThem) {
    EventRecorder recorder;
    TestedParser parser;
    parser.setContentHandler(&recorder);
    for (const char byte : Small) {
        parser.feed(std::string_view(&byte, 1));
        EXPECT_EQ(namesOf("<p:a xmlns:p='urn:other'/>").front().getUri(), "urn:other");
    }
    parser.finish();
    EXPECT_EQ(recorder.events, EventsOfSmall);
}

TEST(TzXmlSAXParserNamesThread, NoValueIsLeftInMemory) {
    read("<a b='a secret of more than fifteen letters' c='secret'/>");
    Peeper peeper;
    TestedParser parser;
    parser.setContentHandler(&peeper);
    parser.parse("<a b='' c=''/>");
    EXPECT_GT(peeper.rest.size(), 50U); // the memory is the same
    EXPECT_EQ(peeper.rest.find_first_not_of('\0'), std::string::npos) << peeper.rest;
}

TEST(TzXmlSAXParserNamesThread, LittleIsLeft) {
    std::string manyNames = "<r>";
    std::string manyPrefixes = "<r";
    for (int i = 0; i < 20000; ++i) {
        manyNames += "<n" + std::to_string(i) + "/>";
        manyPrefixes += " xmlns:p" + std::to_string(i) + "='u'";
    }
    std::string longUris = "<r";
    for (int i = 0; i < 64; ++i) {
        longUris += " xmlns:p" + std::to_string(i) + "='" + std::string(2000, 'u') + "'";
    }
    std::string deep;
    for (int i = 0; i < 1000; ++i) {
        deep += "<d>";
    }
    std::string deepEnd;
    for (int i = 0; i < 1000; ++i) {
        deepEnd += "</d>";
    }
    EXPECT_GT(blocksLeftBy(Small), 0);
    EXPECT_EQ(blocksLeftBy(manyNames + "</r>"), 0);
    EXPECT_EQ(blocksLeftBy(manyPrefixes + "/>"), 0);
    EXPECT_EQ(blocksLeftBy(longUris + "/>"), 0);
    EXPECT_LT(blocksLeftBy(deep + deepEnd), 20);
}

TEST(TzXmlSAXParserNamesThread, NamesThatLiveOnHoldNoMoreThanTheirOwn) {
    // No two texts have a name in common, and yet the memory that waits does not grow.
    std::thread([] {
        const std::ptrdiff_t before = liveAllocationsWithSpares();
        std::ptrdiff_t most = 0;
        for (int i = 0; i < 5000; ++i) {
            const std::string number = std::to_string(i);
            read("<p:a" + number + " xmlns:p='urn:a-long-uri-for-text-number-" + number + "'/>");
            most = std::max(most, liveAllocationsWithSpares() - before);
        }
        EXPECT_GT(most, 10);
        EXPECT_LT(most, 1000);
    }).join();
}

TEST(TzXmlSAXParserNamesThread, EachLackOfMemoryLeavesTheNextTextAlone) {
    // A number in names and URI, so that there is something to make each time.
    int number = 0;
    std::size_t failures = 0;
    for (std::size_t nth = 1;; ++nth) {
        ++number;
        const std::string part = std::to_string(number) + "-and-what-makes-it-longer";
        const std::string text = "<p:a" + part + " xmlns:p='urn:" + part + "' xmlns='urn:d" + part +
                                 "'><b" + part + "/></p:a" + part + ">";
        bool failed = false;
        {
            const AllocationFailure failure(nth);
            try {
                read(text);
            } catch (const std::bad_alloc&) {
                ++failures;
            }
            failed = failure.happened();
        }
        const std::vector<TzXmlName> names = namesOf(text);
        ASSERT_EQ(names.size(), 2U);
        EXPECT_EQ(spelled(names[0]), "p:a" + part + "{urn:" + part + "}") << nth;
        EXPECT_EQ(spelled(names[1]), "b" + part + "{urn:d" + part + "}") << nth;
        EXPECT_EQ(eventsOf(Small), EventsOfSmall) << nth;
        if (!failed) {
            break;
        }
    }
    EXPECT_GE(failures, 5U);
}

TEST(TzXmlSAXParserNamesThread, ThreadsReadSideBySide) {
    constexpr int Threads = 4;
    constexpr int Rounds = 300;
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < Threads; ++i) {
        threads.emplace_back([&wrong, i] {
            const std::string uri = "urn:" + std::to_string(i);
            std::vector<TzXmlName> kept; // that outlive their text, and what it left
            for (int round = 0; round < Rounds; ++round) {
                for (TzXmlName& name : namesOf("<p:a xmlns:p='" + uri + "'><p:b/></p:a>")) {
                    wrong += name.getUri() == uri ? 0 : 1;
                    kept.push_back(std::move(name));
                }
                kept.resize(round % 50 == 0 ? 0 : kept.size());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
}

TEST(TzXmlSAXParserNamesThread, ThreadsThatComeAndGoTakeOverWhatOthersLeft) {
    // More threads than there are places, so that what one has left is used by another.
    std::vector<TzXmlName> kept;
    for (int i = 0; i < 200; ++i) {
        std::thread([&kept, i] {
            const std::string uri = "urn:" + std::to_string(i % 3);
            for (const TzXmlName& name : namesOf("<p:a xmlns:p='" + uri + "'><p:b/></p:a>")) {
                EXPECT_EQ(name.getUri(), uri);
                kept.push_back(name);
            }
        }).join();
    }
    EXPECT_EQ(kept.size(), 400U);
    EXPECT_EQ(kept.back().getUri(), "urn:1");
}
