// SPDX-License-Identifier: MIT
//
// What one reading leaves to the next on its thread must not be seen in any message.
#include <soap/TzSoapMessage.h>
#include <tz/thread/TzTSpares.h>
#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlName.h>

#include <gtest/gtest.h>

#include "support/AllocationFailure.h"

#include <algorithm>
#include <new>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

const std::string Soap11 = "http://schemas.xmlsoap.org/soap/envelope/";
const std::string Soap12 = "http://www.w3.org/2002/06/soap-envelope";
const std::string Xsi = "http://www.w3.org/2001/XMLSchema-instance";

/// An envelope with the attributes `more` and the content `body`.
std::string envelope(const std::string& uri, const std::string& more, const std::string& body) {
    return "<e:Envelope xmlns:e='" + uri + "' xmlns:xsi='" + Xsi + "' " + more + "><e:Body>" +
           body + "</e:Body></e:Envelope>";
}

/// A text and how it is read.
struct Text {
    std::string text;
    TzSoapStyle style = TzSoapStyle::Encoded;
    std::vector<TzXmlName> markup = {};
};

/// Texts that bind the same prefixes otherwise, state styles or none, fail at different places.
const std::vector<Text>& texts() {
    const std::string enc11 = "http://schemas.xmlsoap.org/soap/encoding/";
    static const std::vector<Text> all = {
        {envelope(Soap11, "xmlns:x='urn:1'", "<x:a xsi:type='x:t'>1</x:a>")},
        {envelope(Soap11, "xmlns:x='urn:2'", "<x:a xsi:type='x:t'>1</x:a>")},
        {envelope(Soap11, "", "<x:a xsi:type='x:t' xmlns:x='urn:1'>1</x:a>")},
        {envelope(Soap11, "xmlns='urn:1'", "<a xsi:type='t'>1</a>")},
        {envelope(Soap11, "", "<a xsi:type='t'>1</a><x:a xsi:type='x:t'>1</x:a>")},
        {envelope(Soap11, "xmlns:x='urn:1'",
                  "<a xmlns:x='urn:2'><b xsi:type='x:t'>1</b></a><b xsi:type='x:t'>2</b>")},
        {envelope(Soap11, "e:encodingStyle='" + enc11 + "' xmlns:c='" + enc11 + "'",
                  "<a c:arrayType='xsi:t[2]'><i>1</i><i>2</i></a>")},
        {envelope(Soap11, "e:encodingStyle='urn:other'", "<a><b>1</b></a>")},
        {envelope(Soap12, "e:encodingStyle='" + enc11 + "'", "<a><b>1</b></a>")},
        {envelope(Soap12, "xmlns:x='urn:1'", "<x:a xsi:type='x:t' id='i'>1</x:a><b ref='#i'/>")},
        {envelope(Soap11, "", "<e:Fault><faultcode>e:Client</faultcode></e:Fault>")},
        {envelope(Soap11, "", "<a>dropped<b/></a>")},
        {envelope(Soap11, "", "<a>literal<b/></a>"), TzSoapStyle::Literal},
        {envelope(Soap11, "", "<a> <b/></a>"), TzSoapStyle::Encoded, {TzXmlName("a")}},
        {envelope(Soap11, "", "<a>" + std::string(6000, 'x') + "</a>")},
        {envelope(Soap11, "xmlns:x='urn:3'", "<x:a xsi:type='x:t'><x:b xsi:type='x:u'>")},
        {envelope(Soap11, "xmlns:x='urn:4'", "<a href='#nothing'><b/></a>")},
        {envelope("urn:unknown", "xmlns:x='urn:5'", "<x:a xsi:type='x:t'/>")},
        {"<x:Envelope xmlns:x='" + Soap11 + "'><x:Mystery/></x:Envelope>"},
    };
    return all;
}

/// What `message` holds after reading `text`, or why it was refused.
std::string outcome(TzSoapMessage& message, const Text& text) {
    message.setStyle(text.style);
    message.setMarkupElements(text.markup);
    try {
        message.extract(text.text);
    } catch (const Tzxmsg& error) {
        return error.what();
    }
    return message.asString() + " dropped " + std::to_string(message.getDroppedText().count);
}

std::string outcome(const Text& text) {
    TzSoapMessage message;
    return outcome(message, text);
}

/// The same where nothing was read before.
std::string outcomeAlone(const Text& text) {
    TzSpares::dropOfThisThread();
    return outcome(text);
}

} // namespace

TEST(KeptReadingThread, EachMessageIsReadAsIfItWereTheFirst) {
    for (const Text& text : texts()) {
        const std::string expected = outcomeAlone(text);
        for (const Text& before : texts()) {
            outcome(before);
            EXPECT_EQ(outcome(text), expected) << "after " << before.text;
        }
    }
}

TEST(KeptReadingThread, AMessageMayReadAgain) {
    for (const Text& text : texts()) {
        const std::string expected = outcomeAlone(text);
        for (const Text& before : texts()) {
            TzSoapMessage message;
            outcome(message, before);
            EXPECT_EQ(outcome(message, text), expected) << "after " << before.text;
        }
    }
}

TEST(KeptReadingThread, ValuesOutliveTheReadingsAfterThem) {
    std::optional<TzSoapMessage> message(std::in_place);
    message->extract(texts().front().text);
    TzSoapType value = *message->getSoapBody().entriesBegin();
    message.reset();
    for (const Text& text : texts()) {
        outcome(text);
    }
    TzSpares::dropOfThisThread();
    EXPECT_EQ(value.getName().getUri(), "urn:1");
    EXPECT_EQ(value.getTypeAttribute(), "x:t");
}

TEST(KeptReadingThread, ThatOfALongTextIsNotKept) {
    TzSoapMessage message;
    const auto leaves = [](const std::string& text) {
        const std::ptrdiff_t before = liveAllocations();
        outcome({text});
        return liveAllocationsWithSpares() - before;
    };
    EXPECT_GT(leaves(envelope(Soap11, "", "<a/>")), 5);
    std::string deep = std::string("<a>");
    std::string end = "</a>";
    for (int i = 0; i < 900; ++i) {
        deep += "<a>";
        end += "</a>";
    }
    // Names are kept for themselves.
    EXPECT_LT(leaves(envelope(Soap11, "", deep + end)), leaves(envelope(Soap11, "", "<a/>")));
}

TEST(KeptReadingThread, EachLackOfMemoryLeavesTheNextTextAlone) {
    for (const bool isFirst : {true, false}) {
        for (const Text& text : texts()) {
            const std::string expected = outcomeAlone(text);
            bool failed = true;
            for (std::size_t nth = 1; failed; ++nth) {
                isFirst ? TzSpares::dropOfThisThread() : static_cast<void>(outcome(texts()[1]));
                TzSoapMessage message;
                message.setStyle(text.style);
                {
                    const AllocationFailure failure(nth);
                    try {
                        message.extract(text.text);
                    } catch (const std::bad_alloc&) {
                        EXPECT_TRUE(failure.happened());
                    } catch (const Tzxmsg&) { // some texts are not read to their end
                    }
                    failed = failure.happened();
                }
                EXPECT_EQ(outcome(message, text), expected) << text.text << nth;
                EXPECT_EQ(outcome(text), expected) << text.text << nth;
            }
        }
    }
}

TEST(KeptReadingThread, ThreadsReadSideBySide) {
    std::vector<std::string> expected(texts().size());
    std::transform(texts().begin(), texts().end(), expected.begin(),
                   [](const Text& text) { return outcomeAlone(text); });
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < 4; ++i) {
        threads.emplace_back([&expected, i] {
            for (std::size_t round = 0; round < 60; ++round) {
                const std::size_t at = (round * (i + 1) + i) % texts().size();
                EXPECT_EQ(outcome(texts()[at]), expected[at]);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}
