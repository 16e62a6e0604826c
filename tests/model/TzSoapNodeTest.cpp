// SPDX-License-Identifier: MIT
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapNode.h>
#include <soap/TzSoapSimpleType.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TzSoapType entryFor(const std::string& actor) {
    TzSoapType entry(TzXmlName("entry"));
    entry.setActor(actor);
    return entry;
}

/// What is not understood in a message with these header entries, prefix "e" for the envelope.
std::vector<TzXmlName> misunderstood(const TzSoapNode& node, TzSoapVersion::Version version,
                                     const std::string& entries) {
    return node.findMisunderstood(messageOf(envelope(version, "<a/>", entries)));
}

TzXmlName own(const char* name) { return {name, TzXmlNamespace("", "urn:own")}; }

} // namespace

TEST(TzSoapNode, ActsForTheNextNodeAndAsTheUltimateReceiver) {
    const TzSoapNode node;
    for (const char* actor : {"", "http://schemas.xmlsoap.org/soap/actor/next",
                              "http://schemas.xmlsoap.org/soap/envelope/actor/next",
                              "http://www.w3.org/2002/06/soap-envelope/role/next",
                              "http://www.w3.org/2002/06/soap-envelope/role/ultimateReceiver"}) {
        EXPECT_TRUE(node.isTargetOf(entryFor(actor))) << actor;
    }
    for (const char* actor : {"http://www.w3.org/2002/06/soap-envelope/role/none", "urn:other",
                              "http://schemas.xmlsoap.org/soap/actor/NEXT"}) {
        EXPECT_FALSE(node.isTargetOf(entryFor(actor))) << actor;
    }
}

TEST(TzSoapNode, ActsInRolesOfItsOwn) {
    TzSoapNode node;
    node.addRole("urn:mine");
    EXPECT_TRUE(node.isTargetOf(entryFor("urn:mine")));
    EXPECT_TRUE(node.isTargetOf(entryFor("")));
    EXPECT_FALSE(node.isTargetOf(entryFor("urn:other")));
}

TEST(TzSoapNode, UnderstandsNamesInTheirNamespace) {
    TzSoapNode node;
    EXPECT_FALSE(node.understands(own("a")));
    node.addUnderstood(own("a"));
    EXPECT_TRUE(node.understands(own("a")));
    EXPECT_FALSE(node.understands(own("b")));
    EXPECT_FALSE(node.understands(TzXmlName("a")));
}

TEST(TzSoapNode, IsMadeWithRolesAndNames) {
    const TzSoapNode node({"urn:mine", "urn:too"}, {own("a"), own("b")});
    EXPECT_TRUE(node.isTargetOf(entryFor("urn:mine")));
    EXPECT_TRUE(node.isTargetOf(entryFor("urn:too")));
    EXPECT_TRUE(node.isTargetOf(entryFor("")));
    EXPECT_TRUE(node.understands(own("a")));
    EXPECT_TRUE(node.understands(own("b")));
    EXPECT_FALSE(node.understands(own("c")));
}

TEST(TzSoapNode, FindsWhatIsMandatoryMeantForItAndNotUnderstood) {
    TzSoapNode node;
    node.addUnderstood(own("known"));
    const std::string space = " xmlns=\"urn:own\" ";
    EXPECT_EQ(misunderstood(node, TzSoapVersion::V1_1,
                            "<known" + space +
                                "e:mustUnderstand=\"1\">1</known>"
                                "<first" +
                                space +
                                "e:mustUnderstand=\"1\"/>"
                                "<optional" +
                                space +
                                "e:mustUnderstand=\"0\"/>"
                                "<silent" +
                                space +
                                "/>"
                                "<others" +
                                space +
                                "e:mustUnderstand=\"1\" e:actor=\"urn:other\"/>"
                                "<second" +
                                space +
                                "e:mustUnderstand=\"1\" "
                                "e:actor=\"http://schemas.xmlsoap.org/soap/actor/next\"/>"),
              (std::vector<TzXmlName>{own("first"), own("second")}));
}

TEST(TzSoapNode, HonoursTheRoleOfTheLaterVersion) {
    const std::string role =
        " e:mustUnderstand=\"true\" e:role=\"http://www.w3.org/2002/06/soap-envelope/role/";
    EXPECT_EQ(misunderstood({}, TzSoapVersion::V1_2,
                            "<a" + role + "next\"/><b" + role + "none\"/><c" + role +
                                "ultimateReceiver\"/><d e:mustUnderstand=\"true\"/>"),
              (std::vector<TzXmlName>{TzXmlName("a"), TzXmlName("c"), TzXmlName("d")}));
}

TEST(TzSoapNode, SeesWhatAnEnvelopeSpeltDifferentlySays) {
    const std::string entries =
        "<a e:mustUnderstand=\"1\"/><b e:mustUnderstand=\"0\"/><c e:mustUnderstand=\"true\"/>"
        "<d e:mustUnderstand=\"1\" e:actor=\"urn:other\"/>"
        "<f e:mustUnderstand=\"1\" e:actor=\"http://schemas.xmlsoap.org/soap/actor/next\"/>";
    const auto read = [&entries](const std::string& uri) {
        return messageOf("<e:Envelope xmlns:e=\"" + uri + "\"><e:Header>" + entries +
                         "</e:Header><e:Body/></e:Envelope>");
    };
    const std::string usual = "http://schemas.xmlsoap.org/soap/envelope/";
    for (const std::string& uri : {usual, usual.substr(0, usual.size() - 1)}) {
        const TzSoapMessage message = read(uri);
        EXPECT_EQ(TzSoapNode().findMisunderstood(message),
                  (std::vector<TzXmlName>{TzXmlName("a"), TzXmlName("c"), TzXmlName("f")}))
            << uri;
        const auto other = std::next(message.getSoapHeader().entriesBegin(), 3);
        EXPECT_FALSE(TzSoapNode().isTargetOf(*other)) << uri;
        EXPECT_TRUE(TzSoapNode({"urn:other"}, {}).isTargetOf(*other)) << uri;
    }
}

TEST(TzSoapNode, SeesTheRoleOfALaterEnvelopeSpeltDifferently) {
    const TzSoapMessage message =
        messageOf("<e:Envelope xmlns:e=\"http://www.w3.org/2002/06/soap-envelopX\"><e:Header>"
                  "<a e:mustUnderstand=\"true\" e:role=\"urn:other\"/>"
                  "<b e:mustUnderstand=\"true\" e:actor=\"urn:other\"/></e:Header></e:Envelope>");
    EXPECT_EQ(TzSoapNode().findMisunderstood(message), std::vector<TzXmlName>{TzXmlName("b")});
}

TEST(TzSoapNode, AttributesOfTheOtherVersionSayNothing) {
    const std::string later = " xmlns:o=\"http://www.w3.org/2002/06/soap-envelope\" ";
    EXPECT_TRUE(
        misunderstood({}, TzSoapVersion::V1_1, "<a" + later + "o:mustUnderstand=\"1\"/>").empty());
    EXPECT_EQ(misunderstood({}, TzSoapVersion::V1_1,
                            "<a" + later + "e:mustUnderstand=\"1\" o:role=\"urn:other\"/>"),
              std::vector<TzXmlName>{TzXmlName("a")});
}

TEST(TzSoapNode, AMessageWithoutHeaderHasNone) {
    EXPECT_TRUE(misunderstood({}, TzSoapVersion::V1_1, "").empty());
}
