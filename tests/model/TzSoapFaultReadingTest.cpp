// SPDX-License-Identifier: MIT
#include "support/Named.h"
#include "support/Throws.h"

#include <soap/TzSoapBody.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <tz/xml/TzXmlParseError.h>

#include "model/TzSoapAccess.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using V = TzSoapVersion;

const std::string uri11 = "http://schemas.xmlsoap.org/soap/envelope/";
const std::string uri12 = "http://www.w3.org/2002/06/soap-envelope";

/// A SOAP 1.1 message whose Body holds `content`; the envelope prefix is "S".
std::string message11(const std::string& content) {
    return "<S:Envelope xmlns:S=\"" + uri11 + "\"><S:Body>" + content + "</S:Body></S:Envelope>";
}

/// A SOAP 1.2 message whose Body holds `content`; the envelope prefix is "e".
std::string message12(const std::string& content) {
    return "<e:Envelope xmlns:e=\"" + uri12 + "\"><e:Body>" + content + "</e:Body></e:Envelope>";
}

TzSoapMessage read(const std::string& text) {
    TzSoapMessage message;
    message.extract(text);
    return message;
}

TzSoapFault faultOf(TzSoapMessage message) { return message.getSoapBody().getSoapFault(); }

TzSoapFault fault11(const std::string& children) {
    return faultOf(read(message11("<S:Fault>" + children + "</S:Fault>")));
}

TzSoapFault fault12(const std::string& children) {
    return faultOf(read(message12("<e:Fault>" + children + "</e:Fault>")));
}

std::string detailOf(const TzSoapFault& fault) {
    const TzSoapCompositeType& details = fault.getDetails();
    return namesOf(details.childrenBegin(), details.childrenEnd());
}

TEST(TzSoapFaultReading, AllPartsOfAFaultOfSoap11) {
    TzSoapMessage message = read(message11("<S:Fault><faultcode>S:Client</faultcode>"
                                           "<faultstring>went wrong</faultstring>"
                                           "<faultactor>urn:actor</faultactor>"
                                           "<detail><a>1</a><b>2</b></detail></S:Fault>"));
    EXPECT_TRUE(message.getSoapBody().hasSoapFault());
    EXPECT_EQ(message.getSoapBody().entryCount(), 0u);
    const TzSoapFault& fault = message.getSoapBody().getSoapFault();
    EXPECT_EQ(fault.getName().getQualifiedName(), "S:Fault");
    EXPECT_EQ(fault.getCode(), TzXmlName("Client", TzXmlNamespace("S", uri11)));
    EXPECT_EQ(fault.getCode().getPrefix(), "S");
    EXPECT_EQ(fault.getReason(), "went wrong");
    EXPECT_EQ(fault.getNode(), "urn:actor");
    EXPECT_EQ(fault.getRole(), "");
    EXPECT_EQ(fault.getSubcodeCount(), 0u);
    EXPECT_EQ(fault.getDetails().getName(), TzXmlName("detail"));
    EXPECT_EQ(detailOf(fault), "a b");
}

TEST(TzSoapFaultReading, AllPartsOfAFaultOfSoap12) {
    const TzSoapFault fault = fault12("<e:Code><e:Value>e:Sender</e:Value></e:Code>"
                                      "<e:Reason>went wrong</e:Reason>"
                                      "<e:Node>urn:node</e:Node><e:Role>urn:role</e:Role>"
                                      "<e:Detail><a>1</a><b>2</b></e:Detail>");
    EXPECT_EQ(fault.getName().getQualifiedName(), "e:Fault");
    EXPECT_EQ(fault.getCode(), TzXmlName("Sender", TzXmlNamespace("e", uri12)));
    EXPECT_EQ(fault.getReason(), "went wrong");
    EXPECT_EQ(fault.getNode(), "urn:node");
    EXPECT_EQ(fault.getRole(), "urn:role");
    EXPECT_EQ(fault.getDetails().getName().getQualifiedName(), "e:Detail");
    EXPECT_EQ(detailOf(fault), "a b");
}

TEST(TzSoapFaultReading, NestedSubcodesKeepDocumentOrder) {
    const TzSoapFault fault =
        fault12("<e:Code xmlns:p=\"urn:p\"><e:Value>e:Sender</e:Value>"
                "<e:Subcode><e:Value>p:First</e:Value>"
                "<e:Subcode><e:Value xmlns:p=\"urn:q\">p:Second</e:Value></e:Subcode>"
                "</e:Subcode></e:Code><e:Reason>r</e:Reason>");
    EXPECT_EQ(fault.getCode(), TzXmlName("Sender", TzXmlNamespace("e", uri12)));
    ASSERT_EQ(fault.getSubcodeCount(), 2u);
    EXPECT_EQ(fault.getSubcode(0), TzXmlName("First", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(fault.getSubcode(1), TzXmlName("Second", TzXmlNamespace("p", "urn:q")));
    EXPECT_EQ(fault.getReason(), "r");
}

TEST(TzSoapFaultReading, WhiteSpaceBetweenTheElementsDoesNotMatter) {
    const TzSoapFault fault = fault12("\n <e:Code>\n  <e:Value>e:Sender</e:Value>\n  "
                                      "<e:Subcode>\n   <e:Value>e:Sub</e:Value>\n  "
                                      "</e:Subcode>\n </e:Code>\n "
                                      "<e:Reason>r</e:Reason>\n <e:Node>n</e:Node>\n "
                                      "<e:Role>o</e:Role>\n <e:Detail> <a/> </e:Detail>\n");
    EXPECT_EQ(fault.getCode().getLocalName(), "Sender");
    ASSERT_EQ(fault.getSubcodeCount(), 1u);
    EXPECT_EQ(fault.getSubcode(0).getLocalName(), "Sub");
    EXPECT_EQ(fault.getReason(), "r");
    EXPECT_EQ(fault.getNode(), "n");
    EXPECT_EQ(fault.getRole(), "o");
    EXPECT_EQ(detailOf(fault), "a");
}

TEST(TzSoapFaultReading, TheOrderOfTheChildrenDoesNotMatter) {
    const TzSoapFault fault = fault11("<detail><a/></detail><faultactor>n</faultactor>"
                                      "<faultstring>r</faultstring><faultcode>c</faultcode>");
    EXPECT_EQ(detailOf(fault), "a");
    EXPECT_EQ(fault.getNode(), "n");
    EXPECT_EQ(fault.getReason(), "r");
    EXPECT_EQ(fault.getCode(), TzXmlName("c"));
}

TEST(TzSoapFaultReading, ACodeWithoutAColonIsUnqualified) {
    const TzSoapFault fault =
        faultOf(read("<S:Envelope xmlns:S=\"" + uri11 +
                     "\" xmlns=\"urn:default\"><S:Body><S:Fault>"
                     "<faultcode xmlns=\"\">Client</faultcode></S:Fault></S:Body></S:Envelope>"));
    EXPECT_EQ(fault.getCode().getLocalName(), "Client");
    EXPECT_EQ(fault.getCode().getUri(), "");
    EXPECT_EQ(fault.getCode().getPrefix(), "");
}

TEST(TzSoapFaultReading, OnlyTheFirstColonSeparates) {
    const TzSoapFault fault = fault11("<faultcode>S:a:b</faultcode>");
    EXPECT_EQ(fault.getCode().getPrefix(), "S");
    EXPECT_EQ(fault.getCode().getLocalName(), "a:b");
    EXPECT_EQ(fault.getCode().getUri(), uri11);
}

TEST(TzSoapFaultReading, PrefixOfTheEnvelopeResolvesACode) {
    const TzSoapFault fault = faultOf(read("<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"" + uri11 +
                                           "\"><SOAP-ENV:Body><SOAP-ENV:Fault>"
                                           "<faultcode>SOAP-ENV:Client</faultcode>"
                                           "</SOAP-ENV:Fault></SOAP-ENV:Body>"
                                           "</SOAP-ENV:Envelope>"));
    EXPECT_EQ(fault.getCode(), TzXmlName("Client", TzXmlNamespace("SOAP-ENV", uri11)));
}

TEST(TzSoapFaultReading, PrefixOfTheBodyOrTheFaultResolvesACode) {
    const TzSoapFault onBody =
        faultOf(read("<S:Envelope xmlns:S=\"" + uri11 +
                     "\"><S:Body xmlns:p=\"urn:p\"><S:Fault>"
                     "<faultcode>p:c</faultcode></S:Fault></S:Body></S:Envelope>"));
    EXPECT_EQ(onBody.getCode().getUri(), "urn:p");
    const TzSoapFault onFault =
        faultOf(read(message11("<S:Fault xmlns:p=\"urn:f\"><faultcode>p:c</faultcode></S:Fault>")));
    EXPECT_EQ(onFault.getCode().getUri(), "urn:f");
}

TEST(TzSoapFaultReading, PrefixOfTheCodeItselfWins) {
    const TzSoapFault fault =
        fault11("<faultcode xmlns:S=\"urn:inner\" xmlns:p=\"urn:p\">S:c</faultcode>");
    EXPECT_EQ(fault.getCode().getUri(), "urn:inner");
    EXPECT_EQ(fault.getCode().getPrefix(), "S");
}

TEST(TzSoapFaultReading, InnerDeclarationsWinOverOuterOnes) {
    const TzSoapFault fault = fault12("<e:Code xmlns:p=\"urn:outer\">"
                                      "<e:Value xmlns:p=\"urn:inner\">p:c</e:Value>"
                                      "<e:Subcode><e:Value>p:s</e:Value></e:Subcode></e:Code>");
    EXPECT_EQ(fault.getCode().getUri(), "urn:inner");
    ASSERT_EQ(fault.getSubcodeCount(), 1u);
    EXPECT_EQ(fault.getSubcode(0).getUri(), "urn:outer");
}

TEST(TzSoapFaultReading, AnEmptyBindingLeavesThePrefixToTheElementsAround) {
    const TzSoapFault fault = faultOf(read(
        message11("<S:Fault xmlns:p=\"urn:p\"><faultcode xmlns:p=\"\">p:c</faultcode></S:Fault>")));
    EXPECT_EQ(fault.getCode().getUri(), "urn:p");
}

TEST(TzSoapFaultReading, AnUnboundPrefixGivesTheEmptyUri) {
    const TzSoapFault fault = fault11("<faultcode>nowhere:c</faultcode>");
    EXPECT_EQ(fault.getCode().getPrefix(), "nowhere");
    EXPECT_EQ(fault.getCode().getLocalName(), "c");
    EXPECT_EQ(fault.getCode().getUri(), "");
}

TEST(TzSoapFaultReading, DeclarationsOfAClosedSiblingAreForgotten) {
    const TzSoapFault fault = fault11("<faultstring xmlns:p=\"urn:p\">r</faultstring>"
                                      "<faultcode>p:c</faultcode>");
    EXPECT_EQ(fault.getCode().getUri(), "");
}

TEST(TzSoapFaultReading, DeclarationsOfTheDetailAreForgotten) {
    const TzSoapFault fault =
        fault11("<detail xmlns:p=\"urn:p\"><a/></detail><faultcode>p:c</faultcode>");
    EXPECT_EQ(fault.getCode().getUri(), "");
}

TEST(TzSoapFaultReading, DeclarationsOfTheFaultEndWithIt) {
    TzSoapMessage message = read(message11("<S:Fault xmlns:p=\"urn:p\"><faultcode>p:c</faultcode>"
                                           "</S:Fault><a xmlns:xsi=\"http://www.w3.org/2001/"
                                           "XMLSchema-instance\" xsi:type=\"p:t\">x</a>"));
    EXPECT_EQ(message.getSoapBody().getSoapFault().getCode().getUri(), "urn:p");
    EXPECT_EQ(message.getSoapBody().entriesBegin()->getType().getUri(), "");
}

TEST(TzSoapFaultReading, TextDirectlyInACodeOfSoap12IsIgnored) {
    const TzSoapFault fault = fault12("<e:Code>e:Sender</e:Code><e:Reason>r</e:Reason>");
    EXPECT_TRUE(fault.getCode().isEmpty());
    EXPECT_EQ(fault.getReason(), "r");
}

TEST(TzSoapFaultReading, EmptyPartsAreEmpty) {
    const TzSoapFault fault = fault11("<faultcode>c</faultcode><faultstring></faultstring>"
                                      "<faultactor/>");
    EXPECT_EQ(fault.getCode(), TzXmlName("c"));
    EXPECT_EQ(fault.getReason(), "");
    EXPECT_EQ(fault.getNode(), "");
}

TEST(TzSoapFaultReading, TextIsWholeAcrossEntitiesAndSections) {
    const TzSoapFault fault =
        fault11("<faultstring>a &amp; b<![CDATA[ < c]]><!-- x --> d</faultstring>");
    EXPECT_EQ(fault.getReason(), "a & b < c d");
}

TEST(TzSoapFaultReading, TheReasonMayStandInAnElementOfItsOwn) {
    const TzSoapFault fault =
        fault12("<e:Reason>\n <e:Text xml:lang=\"en\">why</e:Text>\n</e:Reason>");
    EXPECT_EQ(fault.getReason(), "why");
}

TEST(TzSoapFaultReading, TheLastTextOfAPartCounts) {
    const TzSoapFault fault = fault12("<e:Reason><e:Text>one</e:Text></e:Reason>"
                                      "<e:Reason>two</e:Reason>");
    EXPECT_EQ(fault.getReason(), "two");
}

TEST(TzSoapFaultReading, UnknownElementsAreIgnored) {
    const TzSoapFault fault = fault11("<other>lost</other><faultcode>c</faultcode>"
                                      "<x><y>deep</y></x><faultstring>r</faultstring>");
    EXPECT_EQ(fault.getCode(), TzXmlName("c"));
    EXPECT_EQ(fault.getReason(), "r");
    EXPECT_EQ(fault.getNode(), "");
}

TEST(TzSoapFaultReading, Soap11PartsAreUnqualified) {
    const TzSoapFault fault = fault11("<S:faultcode>c</S:faultcode><Value>v</Value>"
                                      "<Role>o</Role><Subcode>s</Subcode>");
    EXPECT_TRUE(fault.getCode().isEmpty());
    EXPECT_EQ(fault.getRole(), "");
    EXPECT_EQ(fault.getSubcodeCount(), 0u);
}

TEST(TzSoapFaultReading, Soap12PartsAreInTheEnvelopeNamespace) {
    const TzSoapFault fault = fault12("<Code><Value>e:Sender</Value></Code><Reason>r</Reason>"
                                      "<faultstring>f</faultstring>");
    EXPECT_TRUE(fault.getCode().isEmpty());
    EXPECT_EQ(fault.getReason(), "");
    EXPECT_EQ(fault.getSubcodeCount(), 0u);
}

TEST(TzSoapFaultReading, AValueOutsideOfACodeIsASubcode) {
    const TzSoapFault fault = fault12("<e:Value>e:lonely</e:Value>");
    EXPECT_TRUE(fault.getCode().isEmpty());
    ASSERT_EQ(fault.getSubcodeCount(), 1u);
    EXPECT_EQ(fault.getSubcode(0), TzXmlName("lonely", TzXmlNamespace("e", uri12)));
}

TEST(TzSoapFaultReading, OnlyTheFirstValueOfACodeIsTheCode) {
    const TzSoapFault fault =
        fault12("<e:Code><e:Value>e:One</e:Value><e:Value>e:Two</e:Value></e:Code>");
    EXPECT_EQ(fault.getCode().getLocalName(), "One");
    ASSERT_EQ(fault.getSubcodeCount(), 1u);
    EXPECT_EQ(fault.getSubcode(0).getLocalName(), "Two");
}

TEST(TzSoapFaultReading, TheEndOfAnyElementEndsTheCode) {
    const TzSoapFault fault = fault12("<e:Code><x>lost</x><e:Value>e:Late</e:Value></e:Code>");
    EXPECT_TRUE(fault.getCode().isEmpty());
    ASSERT_EQ(fault.getSubcodeCount(), 1u);
    EXPECT_EQ(fault.getSubcode(0).getLocalName(), "Late");
}

TEST(TzSoapFaultReading, AnUnknownElementEndsTheOneItStandsIn) {
    const TzSoapFault fault = fault11("<faultcode>S:lost<x>S:found</x>S:late</faultcode>");
    EXPECT_EQ(fault.getCode(), TzXmlName("found", TzXmlNamespace("S", uri11)));
}

TEST(TzSoapFaultReading, AnElementNamedLikeTheFaultDoesNotEndIt) {
    TzSoapMessage message = read(message11("<S:Fault><x><S:Fault><faultcode>c</faultcode>"
                                           "</S:Fault></x><faultstring>r</faultstring>"
                                           "</S:Fault><a/>"));
    const TzSoapFault& fault = message.getSoapBody().getSoapFault();
    EXPECT_EQ(fault.getCode(), TzXmlName("c"));
    EXPECT_EQ(fault.getReason(), "r");
    EXPECT_EQ(message.getSoapBody().entryCount(), 1u);
}

TEST(TzSoapFaultReading, PartsAfterTheDetailAreRead) {
    const TzSoapFault fault = fault11("<detail><a>1</a></detail>\n<x>lost</x>"
                                      "<faultcode>c</faultcode>");
    EXPECT_EQ(fault.getCode(), TzXmlName("c"));
    EXPECT_EQ(detailOf(fault), "a");
}

TEST(TzSoapFaultReading, TheDetailIsReadLikeAComposite) {
    const TzSoapFault fault =
        fault11("<detail x=\"1\" xmlns:d=\"urn:d\" S:encodingStyle=\"urn:style\">"
                "<d:a S:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\"><b>2</b></d:a>"
                "</detail>");
    const TzSoapCompositeType& details = fault.getDetails();
    EXPECT_TRUE(details.hasAttribute(TzXmlAttribute("x", "1")));
    EXPECT_EQ(details.getEncodingStyleAttribute(), "urn:style");
    ASSERT_EQ(details.childCount(), 1u);
    EXPECT_EQ(details.childrenBegin()->getName(), TzXmlName("a", TzXmlNamespace("d", "urn:d")));
    EXPECT_EQ(details.childrenBegin()->getSoapTypeId(), TzSoapContentBase::Composite);
}

TEST(TzSoapFaultReading, TheStyleOfAnEarlierEntryDoesNotReachTheDetail) {
    TzSoapMessage message =
        read("<S:Envelope xmlns:S=\"" + uri11 +
             "\"><S:Body S:encodingStyle=\"urn:other\">"
             "<a S:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\">x</a>"
             "<S:Fault><detail><d>1</d></detail></S:Fault></S:Body></S:Envelope>");
    EXPECT_EQ(message.getSoapBody().entriesBegin()->getSoapTypeId(), TzSoapContentBase::Simple);
    const TzSoapCompositeType& details = message.getSoapBody().getSoapFault().getDetails();
    ASSERT_EQ(details.childCount(), 1u);
    EXPECT_EQ(details.childrenBegin()->getSoapTypeId(), TzSoapContentBase::UserDefined);
}

TEST(TzSoapFaultReading, TheFaultsOwnAttributesAreNotKept) {
    const TzSoapFault fault =
        faultOf(read(message11("<S:Fault x=\"1\" id=\"i\"><faultcode>c</faultcode></S:Fault>")));
    EXPECT_EQ(fault.getDetails().attributeCount(), 0u);
    EXPECT_EQ(fault.getName().getQualifiedName(), "S:Fault");
}

TEST(TzSoapFaultReading, AFaultMayStandBesideEntries) {
    TzSoapMessage message =
        read(message12("<a>1</a><e:Fault><e:Code><e:Value>e:Sender</e:Value></e:Code></e:Fault>"
                       "<b>2</b>"));
    EXPECT_TRUE(message.getSoapBody().hasSoapFault());
    EXPECT_EQ(namesOf(message.getSoapBody().entriesBegin(), message.getSoapBody().entriesEnd()),
              "a b");
}

TEST(TzSoapFaultReading, OnlyTheEnvelopeNamespaceMakesAFault) {
    TzSoapMessage message = read(message11("<Fault><faultcode>c</faultcode></Fault>"
                                           "<o:Fault xmlns:o=\"" +
                                           uri12 + "\"/>"));
    EXPECT_FALSE(message.getSoapBody().hasSoapFault());
    EXPECT_EQ(namesOf(message.getSoapBody().entriesBegin(), message.getSoapBody().entriesEnd()),
              "Fault Fault");
}

TEST(TzSoapFaultReading, AnEnvelopeNamespaceWithoutItsLastSlashIsTheSame) {
    TzSoapMessage message =
        read("<S:Envelope xmlns:S=\"http://schemas.xmlsoap.org/soap/envelope\"><S:Body><S:Fault>"
             "<faultcode>S:Client</faultcode></S:Fault></S:Body></S:Envelope>");
    EXPECT_TRUE(message.getSoapBody().hasSoapFault());
    EXPECT_EQ(message.getSoapBody().entryCount(), 0u);
}

TEST(TzSoapFaultReading, ASecondFaultAddsToTheFirst) {
    const TzSoapFault fault = faultOf(read(message12(
        "<e:Fault><e:Code><e:Value>e:One</e:Value><e:Subcode><e:Value>e:s1</e:Value>"
        "</e:Subcode></e:Code><e:Reason>one</e:Reason><e:Node>n</e:Node>"
        "<e:Detail><a/></e:Detail></e:Fault>"
        "<e:Fault><e:Code><e:Value>e:Two</e:Value><e:Subcode><e:Value>e:s2</e:Value>"
        "</e:Subcode></e:Code><e:Reason>two</e:Reason><e:Detail><b/></e:Detail></e:Fault>")));
    EXPECT_EQ(fault.getCode().getLocalName(), "Two");
    EXPECT_EQ(fault.getReason(), "two");
    EXPECT_EQ(fault.getNode(), "n");
    ASSERT_EQ(fault.getSubcodeCount(), 2u);
    EXPECT_EQ(fault.getSubcode(0).getLocalName(), "s1");
    EXPECT_EQ(fault.getSubcode(1).getLocalName(), "s2");
    EXPECT_EQ(detailOf(fault), "a b");
}

TEST(TzSoapFaultReading, NothingOfAnEarlierMessageIsLeft) {
    TzSoapMessage message = read(message12(
        "<e:Fault><e:Code><e:Value>e:One</e:Value><e:Subcode><e:Value>e:s1</e:Value>"
        "</e:Subcode></e:Code><e:Reason>one</e:Reason><e:Node>n</e:Node><e:Role>r</e:Role>"
        "<e:Detail x=\"1\"><a/></e:Detail></e:Fault>"));
    message.extract(message11("<S:Fault><faultcode>c</faultcode></S:Fault>"));
    const TzSoapFault& fault = message.getSoapBody().getSoapFault();
    EXPECT_EQ(fault.getCode(), TzXmlName("c"));
    EXPECT_EQ(fault.getReason(), "");
    EXPECT_EQ(fault.getNode(), "");
    EXPECT_EQ(fault.getRole(), "");
    EXPECT_EQ(fault.getSubcodeCount(), 0u);
    EXPECT_EQ(fault.getDetails().childCount(), 0u);
    EXPECT_EQ(fault.getDetails().attributeCount(), 0u);
    EXPECT_EQ(fault.getDetails().getName(), TzXmlName("detail"));
}

TEST(TzSoapFaultReading, AMessageCutWithinAFaultCanBeReplaced) {
    const std::string whole = message12(
        "<e:Fault xmlns:p=\"urn:p\"><e:Code xmlns:p=\"urn:c\"><e:Value>p:One</e:Value><e:Subcode>"
        "<e:Value>e:s1</e:Value></e:Subcode></e:Code><e:Reason>one</e:Reason>"
        "<e:Detail><a><b/></a></e:Detail></e:Fault>");
    const std::string next = message12("<e:Fault><e:Code><e:Value>p:Two</e:Value></e:Code>"
                                       "</e:Fault><z/>");
    for (std::size_t length = 1; length < whole.size(); ++length) {
        TzSoapMessage message;
        EXPECT_EQ(lineThrown<TzXmlParseError>([&] { message.extract(whole.substr(0, length)); }),
                  1U)
            << length;
        message.extract(next);
        const TzSoapFault& fault = message.getSoapBody().getSoapFault();
        EXPECT_EQ(fault.getCode().getLocalName(), "Two") << length;
        EXPECT_EQ(fault.getCode().getUri(), "") << length;
        EXPECT_EQ(fault.getSubcodeCount(), 0u) << length;
        EXPECT_EQ(detailOf(fault), "") << length;
        EXPECT_EQ(message.getSoapBody().entryCount(), 1u) << length;
    }
}

TEST(TzSoapFaultReading, WhatIsWrittenIsReadAgain) {
    for (const V::Version version : {V::V1_1, V::V1_2}) {
        TzSoapMessage message(version);
        TzSoapFault& fault = message.getSoapBody().getSoapFault();
        fault.setCode(V::getSoapVersion(version).getFaultCode(V::Client));
        fault.setReason("a < b & c");
        fault.setNode("urn:node");
        fault.addDetailEntry("d",
                             TzSoapSimpleType("x", "text", TzSoapContentBase::xsdString, true));
        const TzSoapFault again = faultOf(read(message.asString()));
        EXPECT_EQ(again.getCode(), fault.getCode());
        EXPECT_EQ(again.getReason(), fault.getReason());
        EXPECT_EQ(again.getNode(), fault.getNode());
        EXPECT_EQ(detailOf(again), "d");
    }
}

TEST(TzSoapFaultReading, TheValueOfACodeHasNoWhiteSpaceAroundIt) {
    const TzSoapFault fault = fault11("<faultcode>\n S:Client\n\t</faultcode>");
    EXPECT_EQ(fault.getCode().getLocalName(), "Client\n\t");
    EXPECT_EQ(fault.getCodeValue(), TzXmlName("Client", TzXmlNamespace("S", uri11)));
    EXPECT_EQ(fault.getCodeValue().getPrefix(), "S");
}

TEST(TzSoapFaultReading, TheValueOfACodeIsResolvedWhereItStands) {
    EXPECT_EQ(fault11("<faultcode xmlns:c='urn:code'> c:Full </faultcode>").getCodeValue(),
              TzXmlName("Full", TzXmlNamespace("c", "urn:code")));
    EXPECT_EQ(
        fault12("<e:Code xmlns:c='urn:code'><e:Value> c:Full </e:Value></e:Code>").getCodeValue(),
        TzXmlName("Full", TzXmlNamespace("c", "urn:code")));
}

TEST(TzSoapFaultReading, TheValuesOfSubcodesHaveNoWhiteSpaceAroundThem) {
    const TzSoapFault fault =
        fault12("<e:Code xmlns:c='urn:code'><e:Value>e:Sender</e:Value>"
                "<e:Subcode><e:Value> c:One </e:Value><e:Subcode><e:Value>c:Two</e:Value>"
                "</e:Subcode></e:Subcode></e:Code>");
    const TzXmlNamespace code("c", "urn:code");
    EXPECT_EQ(fault.getSubcode(0).getLocalName(), "One ");
    EXPECT_EQ(fault.getSubcodeValue(0), TzXmlName("One", code));
    EXPECT_EQ(fault.getSubcodeValue(1), TzXmlName("Two", code));
    EXPECT_EQ(fault.getSubcodeValue(2), TzXmlName());
    EXPECT_EQ(fault.getCodeValue(), TzXmlName("Sender", TzXmlNamespace("e", uri12)));
}

TEST(TzSoapFaultReading, TheValueOfACodeThatWasSetIsTheCode) {
    TzSoapFault fault = fault11("<faultcode> S:Client </faultcode>");
    fault.setCode(TzXmlName(" own "));
    EXPECT_EQ(fault.getCodeValue(), TzXmlName(" own "));
    fault.addSubcode(TzXmlName("sub"));
    EXPECT_EQ(fault.getSubcodeValue(0), TzXmlName("sub"));
    fault.clear();
    EXPECT_EQ(fault.getCodeValue(), TzXmlName());
}

TEST(TzSoapFaultReading, TheValueOfASubcodeAddedAfterOthersWereRemovedIsTheSubcode) {
    TzSoapFault fault =
        fault12("<e:Code><e:Value>e:Sender</e:Value><e:Subcode><e:Value> a </e:Value></e:Subcode>"
                "</e:Code>");
    EXPECT_EQ(fault.getSubcodeValue(0), TzXmlName("a"));
    fault.clearSubcodes();
    fault.addSubcode(TzXmlName("b"));
    EXPECT_EQ(fault.getSubcodeValue(0), TzXmlName("b"));
}

TEST(TzSoapFaultReading, ACopyKeepsTheValueOfItsCode) {
    EXPECT_EQ(fault11("<faultcode> S:Client </faultcode>").copy().getCodeValue(),
              TzXmlName("Client", TzXmlNamespace("S", uri11)));
}

TEST(TzSoapFaultReading, TextDirectlyInsideOfTheDetailIsKept) {
    EXPECT_EQ(fault11("<detail>out of money</detail>").getDetailText(), "out of money");
    EXPECT_EQ(fault12("<e:Detail>out of <![CDATA[<money>]]></e:Detail>").getDetailText(),
              "out of <money>");
    EXPECT_EQ(fault11("<detail/>").getDetailText(), "");
}

TEST(TzSoapFaultReading, TextBesideTheEntriesOfTheDetailIsKeptInLines) {
    const TzSoapFault fault =
        fault11("<detail>\n one <a/>\n<b><c/>not this</b> two\n lines <d>nor this</d>\n</detail>");
    EXPECT_EQ(fault.getDetailText(), "one\ntwo\n lines");
    EXPECT_EQ(detailOf(fault), "a b d");
}

TEST(TzSoapFaultReading, TheTextOfTheDetailIsKeptUntilItIsCleared) {
    TzSoapFault fault = fault11("<detail>cause</detail>");
    EXPECT_EQ(fault.copy().getDetailText(), "cause");
    fault.clear();
    EXPECT_EQ(fault.getDetailText(), "");
}

TEST(TzSoapFaultReading, WhiteSpaceInTheDetailIsNoText) {
    EXPECT_EQ(fault11("<detail>\n <a/>\t</detail>").getDetailText(), "");
}

TEST(TzSoapFaultReading, TextInTheDetailIsNotReportedAsDropped) {
    EXPECT_FALSE(read(message11("<S:Fault><detail>a<b/>c</detail></S:Fault>")).hasDroppedText());
    EXPECT_TRUE(
        read(message11("<S:Fault><detail><b>a<c/></b></detail></S:Fault>")).hasDroppedText());
}

TEST(TzSoapFaultReading, WhatFollowsADetailWithTextIsRead) {
    TzSoapMessage message =
        read(message11("<S:Fault><detail>a<b><c/></b></detail><faultstring>r</faultstring>"
                       "</S:Fault><x><y/></x>"));
    EXPECT_EQ(message.getSoapBody().getSoapFault().getReason(), "r");
    EXPECT_EQ(message.getSoapBody().getChild("x/y").getName(), TzXmlName("y"));
}

TEST(TzSoapFaultReading, TheTextOfTheDetailIsForgottenByTheNextReading) {
    TzSoapMessage message = read(message11("<S:Fault><detail>a</detail></S:Fault>"));
    message.extract(message11("<S:Fault><detail/></S:Fault>"));
    EXPECT_EQ(message.getSoapBody().getSoapFault().getDetailText(), "");
}

TEST(TzSoapFaultReading, AReadingThatEndsWithinADetailLeavesTheMessageUsable) {
    TzSoapMessage message;
    EXPECT_EQ(
        textThrown<TzXmlParseError>([&] { message.extract(message11("\n<S:Fault><detail>a<b>")); }),
        "mismatched tag, line 2, column 24");
    message.extract(message11("<S:Fault><detail>c</detail></S:Fault>"));
    EXPECT_EQ(message.getSoapBody().getSoapFault().getDetailText(), "c");
}

} // namespace
