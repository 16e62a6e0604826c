// SPDX-License-Identifier: MIT
//
// Messages of SOAP 1.2 of 2003 in literal style: read, made and written.
#include "output/Wire12Rec.h"

#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapNode.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapUserDefinedType.h>

#include <gtest/gtest.h>

namespace {

const std::string Start = R"(<s:Envelope xmlns:s="http://www.w3.org/2003/05/soap-envelope")";

std::string envelope(const std::string& content) { return Start + ">" + content + "</s:Envelope>"; }

std::string withBody(const std::string& body) { return envelope("<s:Body>" + body + "</s:Body>"); }

std::string withHeader(const std::string& entries) {
    return envelope("<s:Header>" + entries + "</s:Header><s:Body></s:Body>");
}

TzSoapMessage readLiterally(const std::string& text) {
    TzSoapMessage message;
    message.setStyle(TzSoapStyle::Literal);
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(text);
    return message;
}

std::string again(const std::string& text) { return readLiterally(text).asString(); }

TzSoapMessage made() {
    TzSoapMessage message(TzSoapVersion::V1_2Rec);
    message.setStyle(TzSoapStyle::Literal);
    message.setSoapPrefix("s");
    return message;
}

TEST(LiteralRec, NamesOfTheEncodingArePlainAttributes) {
    const std::string text = withBody(
        R"(<a xmlns:n="http://www.w3.org/2003/05/soap-encoding" n:id="1" n:ref="1" n:nodeType="array">)"
        R"(<b n:itemType="x" n:arraySize="2 3">t</b></a>)"
        R"(<c s:encodingStyle="http://www.w3.org/2003/05/soap-encoding" id="1" ref="#1"></c>)");
    const TzSoapMessage message = readLiterally(text);
    EXPECT_EQ(message.getSoapBody().getChild("a").getSoapTypeId(), TzSoapType::Composite);
    EXPECT_EQ(message.getSoapBody().getChild("c").getSoapTypeId(), TzSoapType::Simple);
    EXPECT_EQ(message.asString(), text);
}

TEST(LiteralRec, WhatHeaderEntriesAreProcessedByIsUnderstoodAndKeepsItsSpelling) {
    const std::string text = withHeader(
        R"(<h s:mustUnderstand="1" s:relay="true" s:role="http://www.w3.org/2003/05/soap-envelope/role/next">v</h>)"
        R"(<i s:mustUnderstand="true" s:relay="0" s:role="http://www.w3.org/2003/05/soap-envelope/role/none"></i>)");
    const TzSoapMessage message = readLiterally(text);
    auto entry = message.getSoapHeader().entriesBegin();
    EXPECT_TRUE(entry->getMustUnderstand());
    EXPECT_TRUE(TzSoap12RecVersion::isRelayed(*entry));
    EXPECT_FALSE(TzSoap12RecVersion::isRelayed(*++entry));
    EXPECT_EQ(TzSoapNode().findMisunderstood(message), std::vector<TzXmlName>{TzXmlName("h")});
    EXPECT_EQ(message.asString(), text);
}

TEST(LiteralRec, AFaultStaysAsItIsSpelled) {
    const std::string text = withBody(
        R"(<s:Fault> <s:Code><s:Value>s:Sender</s:Value><s:Subcode><s:Value xmlns:r="http://www.w3.org/2003/05/soap-rpc">)"
        R"( r:BadArguments</s:Value></s:Subcode></s:Code><s:Reason><s:Text xml:lang="en-US">Bad</s:Text>)"
        R"(<s:Text xml:lang="cs">Zle</s:Text></s:Reason><s:Node>urn:n</s:Node><s:Role>urn:r</s:Role>)"
        R"(<s:Detail a="1"> mixed <e:x xmlns:e="urn:e" e:at="1">1</e:x> tail</s:Detail></s:Fault>)");
    const TzSoapMessage message = readLiterally(text);
    const TzSoapFault& fault = message.getSoapBody().getSoapFault();
    EXPECT_EQ(fault.getReason("cs"), "Zle");
    EXPECT_EQ(fault.getSubcodeValue(0),
              nameIn("BadArguments", "r", "http://www.w3.org/2003/05/soap-rpc"));
    EXPECT_EQ(fault.getDetails().childCount(), 1U);
    EXPECT_EQ(message.asString(), text);
}

TEST(LiteralRec, AReportStaysAsItIsSpelled) {
    const std::string text = withHeader(R"(<s:NotUnderstood xmlns:h="urn:h" qname="h:b"/>)");
    const TzSoapMessage message = readLiterally(text);
    ASSERT_EQ(message.getSoapHeader().entryCount(), 1U);
    const auto report = tzSoapAs<TzSoapMisunderstoodType>(*message.getSoapHeader().entriesBegin());
    EXPECT_EQ(report.getQualifiedName(), nameIn("b", "h", "urn:h"));
    EXPECT_EQ(message.asString(), text);
}

TEST(LiteralRec, AReportInTheDefaultNamespaceKeepsIt) {
    const std::string text =
        R"(<Envelope xmlns="http://www.w3.org/2003/05/soap-envelope"><Header>)"
        R"(<NotUnderstood xmlns:h="urn:h" qname="h:b"/></Header><Body></Body></Envelope>)";
    EXPECT_EQ(again(text), text);
}

TEST(LiteralRec, AReportWithTextIsAValueThatKeepsIt) {
    const std::string text = withHeader(R"(<s:NotUnderstood qname="b">why</s:NotUnderstood>)");
    EXPECT_EQ(again(text), text);
    EXPECT_FALSE(readLiterally(text).hasDroppedText());
}

TEST(LiteralRec, AnUpgradeStaysAsItIsSpelled) {
    const std::string text =
        withHeader(R"(<s:Upgrade><s:SupportedEnvelope qname="s:Envelope"></s:SupportedEnvelope>)"
                   R"(</s:Upgrade>)");
    const TzSoapMessage message = readLiterally(text);
    EXPECT_EQ(TzSoapFaultMessage::getSupportedEnvelopes(message),
              std::vector<TzXmlName>{nameIn("Envelope", "s", EnvUri12Rec)});
    EXPECT_EQ(message.asString(), text);
}

TEST(LiteralRec, AStyleOnABlockStays) {
    const std::string text = Start +
                             R"( s:encodingStyle="urn:x"><s:Body s:encodingStyle=""><a>1</a>)"
                             "</s:Body></s:Envelope>";
    EXPECT_EQ(again(text), text);
}

TEST(LiteralRec, AWrapperIsQualifiedAndItsPartsAreNot) {
    TzSoapMessage message = made();
    const TzXmlNamespace calls("", "urn:calls");
    TzSoapCompositeType call(TzXmlName("add", calls));
    call.appendChild(TzSoapSimpleType("a", 1, TzSoapType::xsdInt, false));
    message.getSoapBody().appendEntry(call);
    EXPECT_EQ(message.asString(), withBody(R"(<add xmlns="urn:calls"><a xmlns="">1</a></add>)"));
}

TEST(LiteralRec, WhatAProgramMakesHasNoMarksOfTheEncoding) {
    TzSoapMessage message = made();
    TzSoapSimpleType entry(nameIn("token", "t", "urn:t"), "x", TzSoapType::xsdString, false);
    message.getSoapHeader().appendHeaderEntry(
        entry, true, message.getSoapVersion().getSoapRole(TzSoapVersion::Next));
    TzSoapCompositeType order(nameIn("order", "m", "urn:m"));
    TzSoapSimpleType none(nameIn("none", "m", "urn:m"), "", TzSoapType::xsdString, false);
    none.setNull(true);
    order.appendChild(none);
    order.setIdAttribute("i");
    message.getSoapBody().appendEntry(order);
    EXPECT_EQ(
        message.asString(),
        Start +
            R"( xmlns:t="urn:t" xmlns:m="urn:m" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">)"
            R"(<s:Header><t:token s:mustUnderstand="true" s:role="http://www.w3.org/2003/05/soap-envelope/role/next">)"
            R"(x</t:token></s:Header><s:Body><m:order id="i"><m:none xsi:nil="true"></m:none></m:order>)"
            R"(</s:Body></s:Envelope>)");
}

TEST(LiteralRec, AFaultThatAProgramMakesHasThePrefixOfItsCode) {
    TzSoapMessage message = made();
    const TzSoapVersion& names = message.getSoapVersion();
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(names.getFaultCode(TzSoapVersion::Client));
    fault.addSubcode(names.getSubFaultCode(TzSoapVersion::BadArguments));
    fault.setReason("bad");
    fault.addReason("zle", "cs");
    fault.addDetailEntry("d", TzSoapSimpleType("d", 1, TzSoapType::xsdInt, false));
    EXPECT_EQ(
        message.asString(),
        Start +
            R"( xmlns:env="http://www.w3.org/2003/05/soap-envelope"><env:Body><env:Fault><env:Code>)"
            R"(<env:Value>env:Sender</env:Value><env:Subcode xmlns:rpc="http://www.w3.org/2003/05/soap-rpc">)"
            R"(<env:Value>rpc:BadArguments</env:Value></env:Subcode></env:Code><env:Reason>)"
            R"(<env:Text xml:lang="en">bad</env:Text><env:Text xml:lang="cs">zle</env:Text></env:Reason>)"
            R"(<env:Detail><d>1</d></env:Detail></env:Fault></env:Body></s:Envelope>)");
}

TEST(LiteralRec, ADetailNeedsNoDeclarationOfItsOwn) {
    TzSoapMessage message = made();
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(nameIn("Sender", "s", EnvUri12Rec));
    fault.addDetailEntry("d", TzSoapSimpleType("d", 1, TzSoapType::xsdInt, false));
    EXPECT_EQ(message.asString().find("xmlns:env"), std::string::npos) << message.asString();
}

TEST(LiteralRec, ReportsThatAProgramMakesAreNotUnderstood) {
    TzSoapMessage message = made();
    message.getSoapHeader().appendHeaderEntry(TzSoapMisunderstoodType(nameIn("b", "h", "urn:h")),
                                              false);
    EXPECT_EQ(message.asString(), withHeader(R"(<s:NotUnderstood xmlns:h="urn:h" qname="h:b"/>)"));
}

TEST(LiteralRec, MarkupStandsAsItIsSpelled) {
    TzSoapMessage message = made();
    message.getSoapBody().appendEntry(TzSoapUserDefinedType(
        nameIn("a", "p", "urn:p"), "<p:a b = '1'><c/></p:a>", {TzXmlNamespace("p", "urn:p")}));
    EXPECT_EQ(message.asString(), Start + R"( xmlns:p="urn:p"><s:Body><p:a b = '1'><c/></p:a>)" +
                                      "</s:Body></s:Envelope>");
}

TEST(LiteralRec, AReaderMayAskForMarkup) {
    const std::string token = "<t:a  xmlns:t = 'urn:t' s:mustUnderstand='1'><t:b/></t:a>";
    TzSoapMessage message;
    message.setStyle(TzSoapStyle::Literal);
    message.setReadLimits({.soap12Recommendation = true});
    message.setMarkupElements({nameIn("a", "t", "urn:t")});
    message.extract(withHeader(token));
    ASSERT_EQ(message.getSoapHeader().entryCount(), 1U);
    const auto entry = tzSoapAs<TzSoapUserDefinedType>(*message.getSoapHeader().entriesBegin());
    EXPECT_EQ(entry.getMarkup(), token);
    EXPECT_TRUE(entry.getMustUnderstand());
    EXPECT_EQ(message.asString(), withHeader(token));
}

} // namespace
