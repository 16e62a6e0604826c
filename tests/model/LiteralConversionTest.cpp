// SPDX-License-Identifier: MIT
//
// Literal messages, and entries about versions themselves, rewritten for another version.
#include "output/Wire12Rec.h"

#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapVersionConverter.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using V = TzSoapVersion;

constexpr char EnvUri11[] = "http://schemas.xmlsoap.org/soap/envelope/";

std::string envelope(const std::string& uri, const std::string& attributes,
                     const std::string& content) {
    return R"(<e:Envelope xmlns:e=")" + uri + "\"" + attributes + ">" + content + "</e:Envelope>";
}

struct Converted {
    std::string text;
    std::vector<TzCString> losses;
};

Converted convert(const std::string& text, V::Version version,
                  TzSoapStyle style = TzSoapStyle::Literal) {
    TzSoapMessage message;
    message.setStyle(style);
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(text);
    Converted converted;
    converted.losses = TzSoapVersionConverter(version).convert(message);
    converted.text = message.asText(TzSoapLayout::Compact);
    return converted;
}

const std::string Body = "<e:Body></e:Body>";

TEST(LiteralConversion, MustUnderstandIsADigitWhereWordsMayNotBe) {
    const auto entry = [](const std::string& uri, const std::string& value) {
        return envelope(uri, "",
                        "<e:Header><h e:mustUnderstand=\"" + value + "\"></h></e:Header>" + Body);
    };
    EXPECT_EQ(convert(entry(EnvUri12Rec, "true"), V::V1_1).text, entry(EnvUri11, "1"));
    EXPECT_EQ(convert(entry(EnvUri12Rec, "false"), V::V1_1).text, entry(EnvUri11, "0"));
    EXPECT_EQ(convert(entry(EnvUri11, "1"), V::V1_2Rec).text, entry(EnvUri12Rec, "1"));
}

TEST(LiteralConversion, BlocksStateNoStyleWhereTheyMayNot) {
    const std::string style = R"( e:encodingStyle="urn:x")";
    const std::string fault = "<e:Fault><faultcode>e:Client</faultcode><faultstring>f</faultstring>"
                              "<detail" +
                              style + "><d" + style + ">1</d></detail></e:Fault>";
    const Converted converted = convert(
        envelope(EnvUri11, style, "<e:Body" + style + ">" + fault + "</e:Body>"), V::V1_2Rec);
    EXPECT_EQ(converted.text,
              envelope(EnvUri12Rec, "",
                       R"(<e:Body><e:Fault><e:Code><e:Value>e:Sender</e:Value></e:Code><e:Reason>)"
                       R"(<e:Text xml:lang="en">f</e:Text></e:Reason><e:Detail><d)" +
                           style + ">1</d></e:Detail></e:Fault></e:Body>"));
    EXPECT_THAT(converted.losses, ElementsAre("attribute e:encodingStyle of e:Envelope: left out",
                                              "attribute e:encodingStyle of e:Body: left out",
                                              "attribute e:encodingStyle of env:Detail: left out"));
}

TEST(LiteralConversion, BlocksKeepTheirStyleWhereTheyMay) {
    const std::string style = R"( e:encodingStyle="urn:x")";
    const auto text = [&](const std::string& uri) {
        return envelope(uri, style, "<e:Body" + style + "><a>1</a></e:Body>");
    };
    EXPECT_EQ(convert(text(EnvUri11), V::V1_2).text,
              text("http://www.w3.org/2002/06/soap-envelope"));
    EXPECT_EQ(convert(text("http://www.w3.org/2002/06/soap-envelope"), V::V1_1).text,
              text(EnvUri11));
}

TEST(LiteralConversion, BlocksKeepTheirPrefix) {
    const std::string body = "<e:Body><e:Fault><e:Code><e:Value>e:Sender</e:Value></e:Code>"
                             R"(<e:Reason><e:Text xml:lang="en">f</e:Text></e:Reason>)"
                             "<e:Detail><d>1</d></e:Detail></e:Fault></e:Body>";
    const std::string header = "<e:Header><h></h></e:Header>";
    const std::string text = envelope(EnvUri12Rec, "", header + body);
    const std::string there = convert(text, V::V1_2).text;
    EXPECT_EQ(there.find("env"), there.find("envelope")) << there;
    EXPECT_EQ(convert(there, V::V1_2Rec).text, text);
}

TEST(LiteralConversion, AnEnvelopeInTheDefaultNamespaceStaysInIt) {
    const auto text = [](const std::string& uri) {
        return "<Envelope xmlns=\"" + uri + "\"><Header><h xmlns=\"\"></h></Header>" +
               "<Body><a xmlns=\"\">1</a></Body></Envelope>";
    };
    EXPECT_EQ(convert(text(EnvUri12Rec), V::V1_1).text, text(EnvUri11));
    EXPECT_EQ(convert(text(EnvUri11), V::V1_2Rec).text, text(EnvUri12Rec));
}

TEST(LiteralConversion, AReportChangesItsSpelling) {
    const std::string header =
        R"(<e:Header><e:NotUnderstood xmlns:h="urn:h" qname="h:b"/></e:Header>)";
    const Converted there = convert(envelope(EnvUri12Rec, "", header + Body), V::V1_2);
    EXPECT_EQ(
        there.text,
        R"(<e:Envelope xmlns:e="http://www.w3.org/2002/06/soap-envelope")"
        R"( xmlns:f="http://www.w3.org/2002/06/soap-faults"><e:Header>)"
        R"(<f:Misunderstood xmlns:h="urn:h" qname="h:b"/></e:Header><e:Body></e:Body></e:Envelope>)");
    EXPECT_THAT(there.losses, IsEmpty());
    EXPECT_NE(convert(there.text, V::V1_2Rec).text.find(header), std::string::npos);
}

TEST(LiteralConversion, TheLanguageOfAReasonIsKept) {
    const std::string text =
        envelope(EnvUri11, "",
                 "<e:Body><e:Fault><faultcode>e:Client</faultcode>"
                 "<faultstring xml:lang=\"fr\">non</faultstring></e:Fault></e:Body>");
    for (const TzSoapStyle style : {TzSoapStyle::Literal, TzSoapStyle::Encoded}) {
        const std::string written = convert(text, V::V1_2Rec, style).text;
        EXPECT_NE(written.find(R"(<e:Text xml:lang="fr">non</e:Text>)"), std::string::npos)
            << written;
    }
}

/// The envelopes that the message of `text` says are supported.
std::vector<TzXmlName> supportedIn(const std::string& text) {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(text);
    return TzSoapFaultMessage::getSupportedEnvelopes(message);
}

class UpgradeConversion : public testing::TestWithParam<std::tuple<TzSoapStyle, V::Version>> {};

// It lists envelopes, which are the same whatever version the list is sent in.
TEST_P(UpgradeConversion, WhatIsSupportedStaysTheSame) {
    const std::string listed =
        R"(<e:Upgrade><e:SupportedEnvelope qname="e:Envelope"/>)"
        R"(<e:SupportedEnvelope qname="p:Envelope" xmlns:p="http://www.w3.org/2003/05/soap-envelope"/>)"
        R"(<e:SupportedEnvelope qname="q:Envelope" xmlns:q="http://schemas.xmlsoap.org/soap/envelope/"/>)"
        R"(<e:SupportedEnvelope qname="e:Envelope" xmlns:e="http://www.w3.org/2003/05/soap-envelope"/>)"
        R"(</e:Upgrade>)";
    const auto [style, version] = GetParam();
    const Converted converted = convert(
        envelope(EnvUri12Rec, "", "<e:Header>" + listed + "</e:Header>" + Body), version, style);
    const auto supported = supportedIn(converted.text);
    ASSERT_EQ(supported.size(), 4U) << converted.text;
    for (const std::size_t number : {0U, 1U, 3U}) {
        EXPECT_EQ(supported[number].getUri(), EnvUri12Rec) << converted.text;
    }
    EXPECT_EQ(supported[2].getUri(), EnvUri11) << converted.text;
    EXPECT_THAT(converted.losses,
                ElementsAre("element e:Upgrade of http://www.w3.org/2003/05/soap-envelope: "
                            "kept as it is"));
}

INSTANTIATE_TEST_SUITE_P(Each, UpgradeConversion,
                         testing::Combine(testing::Values(TzSoapStyle::Literal,
                                                          TzSoapStyle::Encoded),
                                          testing::Values(V::V1_1, V::V1_2)));

} // namespace
