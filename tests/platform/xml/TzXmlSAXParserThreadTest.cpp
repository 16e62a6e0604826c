// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlSAXParser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/xml/EventRecorder.h"

#include <string>
#include <thread>
#include <vector>

namespace {

using testing::ElementsAre;

/// Texts of every kind: what one of them leaves behind must not be seen in the next.
const std::vector<std::string>& texts() {
    static const std::vector<std::string> all = {
        "<a/>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>",
        "<?xml version='1.0' encoding='windows-1252'?><a b='\x80'>\x80</a>",
        "<?xml version='1.0' encoding='UTF-8'?>\n<p:a xmlns:p='urn:p'>\xC3\xA4<p:b/>\n</p:a>",
        "\xEF\xBB\xBF<a>\xC3\xA4</a>",
        std::string("<\0a\0/\0>\0", 8),
        "<a>\xE4</a>",
        "<a>\n<b></a>",
        "<!DOCTYPE a [<!ENTITY e 'x'>]>\n<a>&e;</a>",
        "<a>&e;</a>",
        "<a>",
        "",
        "<?xml version='1.0' encoding='no-such-encoding'?><a/>",
        "<a b='1' c='2'>" + std::string(20000, 'x') + "</a>",
    };
    return all;
}

/// What reading `text` gives: its events, or why it is refused.
Events outcomeOf(const std::string& text) {
    try {
        return eventsOf(text);
    } catch (const TzXmlParseError&) {
        return {refusal(text)};
    }
}

/// What reading `text` gives in a thread that has read nothing before.
Events outcomeAlone(const std::string& text) {
    Events outcome;
    std::thread([&] { outcome = outcomeOf(text); }).join();
    return outcome;
}

/// Reads a text when its thread ends.
struct LateReader {
    Events* events = nullptr;
    ~LateReader() { *events = eventsOf("<late/>"); }
};

} // namespace

TEST(TzXmlSAXParserThread, EachTextIsReadAsIfItWereTheFirst) {
    for (const std::string& text : texts()) {
        const Events expected = outcomeAlone(text);
        for (const std::string& before : texts()) {
            outcomeOf(before);
            EXPECT_EQ(outcomeOf(text), expected) << "after " << before.substr(0, 60);
        }
    }
}

TEST(TzXmlSAXParserThread, ObjectsOfAThreadMayReadWhileItEnds) {
    Events early;
    Events late;
    std::thread([&] {
        thread_local LateReader reader;
        reader.events = &late;
        early = eventsOf("<early/>");
    }).join();
    EXPECT_THAT(early, ElementsAre("<early>", "[]", "</early>"));
    EXPECT_THAT(late, ElementsAre("<late>", "[]", "</late>"));
}
