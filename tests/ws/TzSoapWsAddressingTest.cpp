// SPDX-License-Identifier: MIT
#include "ws/WsMessages.h"

#include <soap/TzSoapFaultError.h>
#include <soap/TzSoapNode.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapWsAddressing.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "support/Throws.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

using Wsa = TzSoapWsAddressing;

constexpr char Request[] = R"(
    <wsa:To>http://service/orders</wsa:To>
    <wsa:Action> urn:orders:get </wsa:Action>
    <wsa:MessageID>urn:uuid:1</wsa:MessageID>
    <wsa:RelatesTo RelationshipType="urn:cancels">urn:uuid:0</wsa:RelatesTo>
    <wsa:From><wsa:Address>http://client</wsa:Address></wsa:From>
    <wsa:ReplyTo><wsa:Address>http://client/replies</wsa:Address>
      <wsa:ReferenceParameters><c:Session xmlns:c="urn:client">7</c:Session></wsa:ReferenceParameters>
    </wsa:ReplyTo>
    <wsa:FaultTo><wsa:Address>http://www.w3.org/2005/08/addressing/none</wsa:Address></wsa:FaultTo>
    <k:Key xmlns:k="urn:key" wsa:IsReferenceParameter="true">k1</k:Key>)";

class TzSoapWsAddressingIn : public testing::TestWithParam<TzSoapVersion::Version> {};

INSTANTIATE_TEST_SUITE_P(AllVersions, TzSoapWsAddressingIn,
                         testing::Values(TzSoapVersion::V1_1, TzSoapVersion::V1_2,
                                         TzSoapVersion::V1_2Rec));

} // namespace

TEST_P(TzSoapWsAddressingIn, EveryPropertyIsRead) {
    const Wsa read = Wsa::read(messageWithHeader(GetParam(), Request));
    EXPECT_EQ(read.to, "http://service/orders");
    EXPECT_EQ(read.action, "urn:orders:get");
    EXPECT_EQ(read.messageId, "urn:uuid:1");
    ASSERT_EQ(read.relatesTo.size(), 1U);
    EXPECT_EQ(read.relatesTo[0].messageId, "urn:uuid:0");
    EXPECT_EQ(read.relatesTo[0].type, "urn:cancels");
    ASSERT_TRUE(read.from && read.replyTo && read.faultTo);
    EXPECT_EQ(read.from->address, "http://client");
    EXPECT_EQ(read.replyTo->address, "http://client/replies");
    ASSERT_EQ(read.replyTo->referenceParameters.size(), 1U);
    EXPECT_EQ(read.replyTo->referenceParameters[0].getName(),
              TzXmlName("Session", TzXmlNamespace("c", "urn:client")));
    EXPECT_TRUE(read.faultTo->isNone());
    ASSERT_EQ(read.referenceParameters.size(), 1U);
    EXPECT_EQ(read.referenceParameters[0].getName().getLocalName(), "Key");
}

TEST_P(TzSoapWsAddressingIn, WhatIsWrittenReadsBack) {
    Wsa written;
    written.to = "http://service/orders";
    written.action = "urn:orders:get";
    written.messageId = "urn:uuid:1";
    written.relatesTo = {{"urn:uuid:0"}, {"urn:uuid:2", "urn:cancels"}};
    written.replyTo.emplace();
    written.faultTo.emplace();
    written.faultTo->address = TzSoapWsEndpoint::None;
    TzSoapMessage message(GetParam());
    written.write(message);
    const Wsa read = Wsa::read(again(message));
    EXPECT_EQ(read.to, written.to);
    EXPECT_EQ(read.action, written.action);
    EXPECT_EQ(read.messageId, written.messageId);
    ASSERT_EQ(read.relatesTo.size(), 2U);
    EXPECT_EQ(read.relatesTo[0].type, Wsa::Relation::Reply);
    EXPECT_EQ(read.relatesTo[1].type, "urn:cancels");
    EXPECT_FALSE(read.from);
    ASSERT_TRUE(read.replyTo && read.faultTo);
    EXPECT_TRUE(read.replyTo->isAnonymous());
    EXPECT_TRUE(read.faultTo->isNone());
}

TEST_P(TzSoapWsAddressingIn, TheAnswerCarriesWhatTheRequestAskedFor) {
    const Wsa request = Wsa::read(messageWithHeader(GetParam(), Request));
    TzSoapMessage message(GetParam());
    request.answer("urn:orders:answer").write(message);
    const Wsa answer = Wsa::read(again(message));
    EXPECT_EQ(answer.to, "http://client/replies");
    EXPECT_EQ(answer.action, "urn:orders:answer");
    ASSERT_EQ(answer.relatesTo.size(), 1U);
    EXPECT_EQ(answer.relatesTo[0].messageId, "urn:uuid:1");
    EXPECT_EQ(answer.relatesTo[0].type, Wsa::Relation::Reply);
    ASSERT_EQ(answer.referenceParameters.size(), 1U);
    EXPECT_EQ(answer.referenceParameters[0].getName(),
              TzXmlName("Session", TzXmlNamespace("c", "urn:client")));
}

TEST_P(TzSoapWsAddressingIn, AnEntryThatStandsTwiceIsRefused) {
    for (const std::string entry :
         {"<wsa:To>a</wsa:To>", "<wsa:Action>a</wsa:Action>", "<wsa:MessageID>a</wsa:MessageID>",
          "<wsa:From><wsa:Address>a</wsa:Address></wsa:From>",
          "<wsa:ReplyTo><wsa:Address>a</wsa:Address></wsa:ReplyTo>",
          "<wsa:FaultTo><wsa:Address>a</wsa:Address></wsa:FaultTo>"}) {
        const TzSoapMessage message = messageWithHeader(GetParam(), entry + entry);
        EXPECT_EQ(
            faultThrown([&] { Wsa::read(message); }),
            faultOf(GetParam(), {"InvalidAddressingHeader", "InvalidCardinality"}, Wsa::Namespace))
            << entry;
    }
}

TEST_P(TzSoapWsAddressingIn, AnEndpointNeedsAnAddress) {
    const TzSoapMessage message =
        messageWithHeader(GetParam(), "<wsa:ReplyTo><wsa:Metadata/></wsa:ReplyTo>");
    EXPECT_EQ(
        faultThrown([&] { Wsa::read(message); }),
        faultOf(GetParam(), {"InvalidAddressingHeader", "MissingAddressInEPR"}, Wsa::Namespace));
}

TEST_P(TzSoapWsAddressingIn, AMessageNeedsAnAction) {
    for (const char* header : {"", "<wsa:To>a</wsa:To>", "<wsa:Action/>",
                               "<wsa:Action> </wsa:Action>", "<wsa:Action><a/></wsa:Action>"}) {
        const TzSoapMessage message = messageWithHeader(GetParam(), header);
        EXPECT_EQ(faultThrown([&] { Wsa::read(message); }),
                  faultOf(GetParam(), {"MessageAddressingHeaderRequired"}, Wsa::Namespace));
    }
}

TEST(TzSoapWsAddressing, EntriesAreNoReferences) {
    // References to one long text would multiply it.
    const TzSoapMessage message = messageWithHeader(
        TzSoapVersion::V1_1, "<wsa:Action id='1'>urn:a</wsa:Action><wsa:RelatesTo href='#1'/>");
    const Wsa read = Wsa::read(message);
    ASSERT_EQ(read.relatesTo.size(), 1U);
    EXPECT_EQ(read.relatesTo[0].messageId, "");
}

TEST_P(TzSoapWsAddressingIn, TheHttpActionMustBeTheSame) {
    Wsa request;
    request.action = "urn:a";
    for (const char* fitting : {"", "\"\"", "urn:a", "\"urn:a\"", " urn:a "}) {
        EXPECT_NO_THROW(request.checkAction(GetParam(), fitting)) << fitting;
    }
    for (const char* other : {"urn:b", "\"urn:b\"", "\"urn:a", "a"}) {
        EXPECT_EQ(faultThrown([&] { request.checkAction(GetParam(), other); }),
                  faultOf(GetParam(), {"ActionMismatch"}, Wsa::Namespace))
            << other;
    }
}

TEST(TzSoapWsAddressing, WritesTheseEntries) {
    Wsa properties;
    properties.action = "urn:a";
    properties.messageId = "urn:uuid:1";
    properties.replyTo.emplace();
    properties.referenceParameters.push_back(
        TzSoapSimpleType("key", "k", TzSoapType::xsdUnknown, false));
    TzSoapMessage message(TzSoapVersion::V1_2Rec);
    message.setStyle(TzSoapStyle::Literal);
    properties.write(message, true);
    EXPECT_EQ(
        message.asString(),
        R"(<env:Envelope xmlns:env="http://www.w3.org/2003/05/soap-envelope" xmlns:wsa="http://www.w3.org/2005/08/addressing"><env:Header>)"
        R"(<wsa:To env:mustUnderstand="true">http://www.w3.org/2005/08/addressing/anonymous</wsa:To>)"
        R"(<wsa:Action env:mustUnderstand="true">urn:a</wsa:Action>)"
        R"(<wsa:MessageID env:mustUnderstand="true">urn:uuid:1</wsa:MessageID>)"
        R"(<wsa:ReplyTo env:mustUnderstand="true"><wsa:Address>http://www.w3.org/2005/08/addressing/anonymous</wsa:Address></wsa:ReplyTo>)"
        R"(<key wsa:IsReferenceParameter="true">k</key></env:Header><env:Body></env:Body></env:Envelope>)");
}

TEST(TzSoapWsAddressing, WritingReplacesTheEntriesOfBefore) {
    TzSoapMessage message = messageWithHeader(TzSoapVersion::V1_1, Request);
    message.getSoapHeader().appendHeaderEntry(
        TzSoapSimpleType("own", "1", TzSoapType::xsdInt, false), false);
    Wsa properties;
    properties.action = "urn:b";
    properties.write(message);
    EXPECT_EQ(message.getSoapHeader().entryCount(), 3U);
    const Wsa read = Wsa::read(again(message));
    EXPECT_EQ(read.action, "urn:b");
    EXPECT_EQ(read.messageId, "");
    EXPECT_TRUE(read.referenceParameters.empty());
}

TEST(TzSoapWsAddressing, AReferenceParameterOfTheProgramStaysAsItIs) {
    const TzSoapSimpleType key("key", "k", TzSoapType::xsdUnknown, false);
    Wsa properties;
    properties.action = "urn:a";
    properties.referenceParameters.push_back(key);
    TzSoapMessage message(TzSoapVersion::V1_1);
    properties.write(message);
    EXPECT_EQ(key.attributesBegin(), key.attributesEnd());
}

TEST(TzSoapWsAddressing, NothingIsWrittenWithoutAnAction) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { Wsa().write(message); }),
              "a message with WS-Addressing needs an action");
    EXPECT_EQ(message.getSoapHeader().entryCount(), 0U);
}

TEST(TzSoapWsAddressing, EntriesForOthersDoNotMatter) {
    const TzSoapMessage message = messageWithHeader(
        TzSoapVersion::V1_1, "<wsa:Action env:actor='urn:other'>a</wsa:Action>"
                             "<wsa:Action>b</wsa:Action>"
                             "<k wsa:IsReferenceParameter='1' env:actor='urn:other'>c</k>");
    EXPECT_EQ(Wsa::read(message).action, "b");
    EXPECT_TRUE(Wsa::read(message).referenceParameters.empty());
    EXPECT_TRUE(Wsa::isUsed(message, TzSoapNode()));
    EXPECT_FALSE(Wsa::isUsed(
        messageWithHeader(TzSoapVersion::V1_1, "<wsa:To env:actor='urn:other'>a</wsa:To><To/>"),
        TzSoapNode()));
}

TEST(TzSoapWsAddressing, FaultsGoToFaultToOrWhereAnswersGo) {
    Wsa request;
    EXPECT_EQ(request.faultAnswer().to, TzSoapWsEndpoint::Anonymous);
    request.replyTo.emplace();
    request.replyTo->address = "urn:replies";
    EXPECT_EQ(request.faultAnswer().to, "urn:replies");
    request.faultTo.emplace();
    request.faultTo->address = "urn:faults";
    EXPECT_EQ(request.faultAnswer().to, "urn:faults");
    EXPECT_EQ(request.faultAnswer().action, Wsa::SoapFaultAction);
    EXPECT_EQ(request.faultAnswer(Wsa::FaultAction).action, Wsa::FaultAction);
    EXPECT_TRUE(request.faultAnswer().relatesTo.empty()) << "a request without identifier";
    EXPECT_EQ(request.answer("urn:b").to, "urn:replies");
}

TEST(TzSoapWsAddressing, IdentifiersAreRandomUuids) {
    std::set<std::string> made;
    for (int i = 0; i < 100; ++i) {
        const std::string id = Wsa::makeMessageId();
        ASSERT_EQ(id.size(), 45U) << id;
        EXPECT_EQ(id.substr(0, 9), "urn:uuid:");
        EXPECT_EQ(id.find_first_not_of("0123456789abcdef-", 9), std::string::npos) << id;
        EXPECT_EQ(id[23], '4') << "the version: " << id;
        EXPECT_NE(std::string("89ab").find(id[28]), std::string::npos) << "the variant: " << id;
        made.insert(id);
    }
    EXPECT_EQ(made.size(), 100U);
}
