// SPDX-License-Identifier: MIT
#include <soap/TzSoapHttpTransportContext.h>

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <utility>

namespace {

/// Header text, whether an action is found in it, and which.
struct Case {
    const char* text;
    const char* action;
};

const char* const Nothing = nullptr;

const Case cases[] = {
    // The value is everything after the colon.
    {"Host: a\nSOAPAction: \"urn:do\"\n\n", " \"urn:do\""},
    {"SOAPAction:urn:do\n", "urn:do"},
    {"SOAPAction:urn:do", "urn:do"},
    {"SOAPAction:\n", ""},
    {"SOAPAction:", ""},
    {"SOAPAction: urn:do  \t", " urn:do  \t"},
    {"SOAPAction: urn:do\r\nHost: a\r\n\r\n", " urn:do\r"},
    {"\n\n\nSOAPAction: urn:do", " urn:do"},
    // Any line that contains the label matches.
    {"X-SOAPAction-Id: 5\n", " 5"},
    {"Note: see SOAPAction\n", " see SOAPAction"},
    {"  SOAPAction: a", " a"},
    {"Host: a\n\nbody with SOAPAction: b", " b"},
    {"Host: a\r\n\r\nbody with SOAPAction: b", " b"},
    {"Note: a: SOAPAction: b\n", " a: SOAPAction: b"},
    // The first hit ends the search; a line without a colon does not match.
    {"SOAPAction: a\nSOAPAction: b\n", " a"},
    {"SOAPAction\nSOAPAction: b\n", " b"},
    {"SOAPAction\n: b\n", Nothing},
    // Continuation lines.
    {"SOAPAction: a\n b\n\tc\nHost: d", " a\n b\n\tc"},
    {"SOAPAction: a\n b", " a\n b"},
    {"SOAPAction: a\n\n b\nHost: c", " a\n b"},
    {"SOAPAction:\n a\n", "\n a"},
    {"SOAPAction: a\nb\n c", " a"},
    {"SOAPAction: a\r\n b\r\n\r\n c", " a\r\n b\r"},
    {"SOAPAction\n c: d\nSOAPAction: e", " e"},
    // No action.
    {"", Nothing},
    {"\n\n", Nothing},
    {"Host: a\nContent-Type: text/xml\n", Nothing},
    {"soapaction: a\nSoapAction: b\nSOAPACTION: c\n", Nothing},
};

} // namespace

TEST(TzSoapHttpTransportContext, TheSoapActionIsAProperty) {
    EXPECT_EQ(TzSoapHttpTransportContext::getSoapActionLabel(), "SOAPAction");
    TzSoapHttpTransportContext context;
    EXPECT_EQ(context.getSoapAction(), "");
    context.setSoapAction("urn:do");
    EXPECT_EQ(context.getSoapAction(), "urn:do");
    EXPECT_EQ(context.find("SOAPAction")->second, "urn:do");
    context.setSoapAction("urn:other");
    EXPECT_EQ(std::distance(context.begin(), context.end()), 1);
    EXPECT_EQ(context.getSoapAction(), "urn:other");
    context.remove("SOAPAction");
    EXPECT_EQ(context.getSoapAction(), "");
    context.add("SOAPAction", "urn:third");
    EXPECT_EQ(context.getSoapAction(), "urn:third");
    context.clear();
    context.add("soapaction", "urn:do");
    EXPECT_EQ(context.getSoapAction(), "");
}

TEST(TzSoapHttpTransportContext, PropertiesAreWrittenInNameOrder) {
    TzSoapHttpTransportContext context;
    EXPECT_EQ(context.asString(), "");
    context.setSoapAction("\"urn:do\"");
    EXPECT_EQ(context.asString(), "SOAPAction:\"urn:do\"\n");
    context.add("Content-Type", "text/xml; charset=utf-8");
    context.add("accept", "");
    EXPECT_EQ(context.asString(),
              "Content-Type:text/xml; charset=utf-8\nSOAPAction:\"urn:do\"\naccept:\n");
}

TEST(TzSoapHttpTransportContext, ValuesAreWrittenAsTheyStand) {
    TzSoapHttpTransportContext context;
    context.add("A", "1\r\nB: 2");
    EXPECT_EQ(context.asString(), "A:1\r\nB: 2\n");
}

TEST(TzSoapHttpTransportContext, TheActionIsTakenOutOfHeaderText) {
    for (const Case& entry : cases) {
        TzSoapHttpTransportContext context;
        context.extract(entry.text);
        EXPECT_EQ(context.begin() != context.end(), entry.action != Nothing) << entry.text;
        if (entry.action != Nothing) {
            EXPECT_EQ(context.getSoapAction(), entry.action) << entry.text;
            EXPECT_EQ(std::distance(context.begin(), context.end()), 1) << entry.text;
        }
    }
}

TEST(TzSoapHttpTransportContext, ExtractingKeepsTheOtherProperties) {
    TzSoapHttpTransportContext context;
    context.add("Host", "a");
    context.setSoapAction("old");
    context.extract("Host: b\nAccept: c\n");
    EXPECT_EQ(context.asString(), "Host:a\nSOAPAction:old\n");
    context.extract("Host: b\nSOAPAction:new\n");
    EXPECT_EQ(context.asString(), "Host:a\nSOAPAction:new\n");
}

TEST(TzSoapHttpTransportContext, WhatIsWrittenIsReadAgain) {
    TzSoapHttpTransportContext context;
    context.setSoapAction("\"urn:do#it\"");
    context.add("Content-Type", "text/xml");
    TzSoapHttpTransportContext read;
    read.extract(context.asString());
    EXPECT_EQ(read.getSoapAction(), "\"urn:do#it\"");
}

TEST(TzSoapHttpTransportContext, CopiesCopyTheProperties) {
    TzSoapHttpTransportContext context;
    context.setSoapAction("a");
    TzSoapHttpTransportContext copy(context);
    copy.setSoapAction("b");
    EXPECT_EQ(context.getSoapAction(), "a");
    context = copy;
    EXPECT_EQ(context.getSoapAction(), "b");
    const TzSoapHttpTransportContext moved(std::move(copy));
    EXPECT_EQ(moved.getSoapAction(), "b");
}
