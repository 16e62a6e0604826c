// SPDX-License-Identifier: MIT
//
// Messages in literal style, as others send them.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapNode.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "support/Throws.h"

#include <gtest/gtest.h>

namespace {

const std::string Start = R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/">)";

std::string envelope(const std::string& content) { return Start + content + "</e:Envelope>"; }

std::string withBody(const std::string& body) { return envelope("<e:Body>" + body + "</e:Body>"); }

TzSoapMessage read(const std::string& text) {
    TzSoapMessage message;
    message.setStyle(TzSoapStyle::Literal);
    message.extract(text);
    return message;
}

/// What a message that was read from `text` is written as.
std::string again(const std::string& text) { return read(text).asString(); }

TEST(LiteralReading, TheStyleStaysAndTheVersionIsThatOfTheText) {
    const TzSoapMessage message = read(withBody("<a>1</a>"));
    EXPECT_EQ(message.getStyle(), TzSoapStyle::Literal);
    EXPECT_EQ(message.getVersion(), TzSoapVersion::V1_1);
}

TEST(LiteralReading, NamesOfTheEncodingArePlainAttributes) {
    const std::string text = withBody(
        R"(<a href="#1" ref="r" id="1" arrayType="x[2]" root="0" type="t"><b href="cid:x" id="1">t</b></a>)"
        R"(<c xmlns:n="http://schemas.xmlsoap.org/soap/encoding/" n:arrayType="x" n:root="0" n:position="[9]" n:offset="no"><d></d></c>)");
    const TzSoapMessage message = read(text);
    const TzSoapType a = message.getSoapBody().getChild("a");
    EXPECT_EQ(a.getSoapTypeId(), TzSoapType::Composite);
    EXPECT_EQ(a.findAttribute(TzXmlName("href"))->getValue(), "#1");
    EXPECT_FALSE(a.isRootAttributeSet());
    EXPECT_EQ(tzSoapAs<TzSoapSimpleType>(a.getChild("b")).getString(), "t");
    EXPECT_EQ(message.getSoapBody().getChild("c").getSoapTypeId(), TzSoapType::Composite);
    EXPECT_EQ(message.asString(), text);
}

TEST(LiteralReading, AnElementKeepsAttributesAndText) {
    const std::string text = withBody(R"(<price currency="EUR" ref="x"> 9.50 </price>)");
    const TzSoapMessage message = read(text);
    const TzSoapSimpleType price =
        tzSoapAs<TzSoapSimpleType>(message.getSoapBody().getChild("price"));
    EXPECT_EQ(price.getString(), " 9.50 ");
    EXPECT_EQ(price.findAttribute(TzXmlName("currency"))->getValue(), "EUR");
    EXPECT_EQ(message.asString(), text);
}

TEST(LiteralReading, TextBetweenChildrenIsKeptAndIsNoChild) {
    const std::string text = withBody("<p>one <b>two</b> three<c></c><d>x</d>\n</p>");
    const TzSoapMessage message = read(text);
    const TzSoapCompositeType p =
        tzSoapAs<TzSoapCompositeType>(message.getSoapBody().getChild("p"));
    EXPECT_FALSE(message.hasDroppedText());
    ASSERT_EQ(p.childCount(), 3U);
    auto position = p.childrenBegin();
    EXPECT_EQ(p.getTextBefore(position), "one ");
    EXPECT_EQ(p.getTextBefore(++position), " three");
    EXPECT_EQ(p.getTextBefore(++position), "");
    EXPECT_EQ(p.getTextBefore(++position), "\n");
    EXPECT_EQ(message.asString(), text);
    EXPECT_EQ(message.copy().asString(), text);
}

TEST(LiteralReading, WhiteSpaceThatWasReadStaysEverywhere) {
    const std::string text = Start +
                             "\n <e:Header>\n  <h> </h>\n </e:Header>\n <e:Body>\n  <a>\n   "
                             "<b>1</b>\n  </a>\n </e:Body>\n</e:Envelope>";
    EXPECT_EQ(again(text), text);
    EXPECT_EQ(read(text).copy().asString(), text);
}

TEST(LiteralReading, AHeaderWithoutEntriesIsWrittenAgain) {
    const std::string text = envelope("<e:Header></e:Header><e:Body></e:Body>");
    EXPECT_EQ(again(text), text);
    EXPECT_EQ(again(envelope("<e:Body></e:Body>")), envelope("<e:Body></e:Body>"));
}

TEST(LiteralReading, DeclarationsStayWhereTheyStood) {
    const std::string text = withBody(
        R"(<a xmlns="urn:1"><b xmlns="" xmlns:p="urn:p"><p:c xmlns:p="urn:q" p:x="1"></p:c>)"
        R"(<d xmlns="urn:1" p:y="2"></d></b></a>)");
    EXPECT_EQ(again(text), text);
}

TEST(LiteralReading, AnEnvelopeInTheDefaultNamespaceKeepsIt) {
    const std::string text =
        R"(<Envelope xmlns="http://schemas.xmlsoap.org/soap/envelope/"><Header>)"
        R"(</Header><Body><a xmlns="">1</a></Body></Envelope>)";
    EXPECT_EQ(again(text), text);
}

TEST(LiteralReading, BlocksKeepPrefixesOfTheirOwn) {
    const std::string text = R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" )"
                             R"(xmlns:f="http://schemas.xmlsoap.org/soap/envelope/"><e:Header>)"
                             R"(</e:Header><f:Body></f:Body></e:Envelope>)";
    EXPECT_EQ(again(text), text);
}

TEST(LiteralReading, TypesStayAsTheyAreSpelled) {
    const std::string text = withBody(
        R"(<a xmlns:i="http://www.w3.org/2001/XMLSchema-instance" xmlns:t="urn:t" i:type="t:T">1</a>)"
        R"(<b xmlns:i="http://www.w3.org/2001/XMLSchema-instance" i:nil="1"></b>)");
    const TzSoapMessage message = read(text);
    const TzSoapType a = message.getSoapBody().getChild("a");
    EXPECT_EQ(a.getTypeAttribute(), "t:T");
    EXPECT_EQ(message.asString(), text);
}

TEST(LiteralReading, ATypeThatIsRemovedOrReplacedIsNotWrittenAsRead) {
    TzSoapMessage message = read(withBody(
        R"(<a xmlns:i="http://www.w3.org/2001/XMLSchema-instance" xmlns:t="urn:t" i:type="t:T">1</a>)"));
    TzSoapType a = message.getSoapBody().getChild("a");
    a.setTypeAttribute(TzXmlName("U", TzXmlNamespace("t", "urn:t")));
    EXPECT_EQ(
        message.asString(),
        withBody(
            R"(<a xmlns:i="http://www.w3.org/2001/XMLSchema-instance" xmlns:t="urn:t" i:type="t:U">1</a>)"));
    a.removeTypeAttribute();
    EXPECT_EQ(
        message.asString(),
        withBody(
            R"(<a xmlns:i="http://www.w3.org/2001/XMLSchema-instance" xmlns:t="urn:t">1</a>)"));
}

TEST(LiteralReading, WhatHeaderEntriesAreProcessedByIsUnderstoodAndKeepsItsSpelling) {
    const std::string text =
        R"(<s:Envelope xmlns:s="http://www.w3.org/2002/06/soap-envelope"><s:Header>)"
        R"(<h s:mustUnderstand="1" s:role="urn:r"></h><i s:mustUnderstand="0"></i></s:Header>)"
        "<s:Body></s:Body></s:Envelope>";
    TzSoapMessage message = read(text);
    TzSoapType h = message.getSoapHeader().getChild("h");
    EXPECT_TRUE(h.getMustUnderstand());
    EXPECT_EQ(h.getActorAttribute(), "urn:r");
    EXPECT_EQ(message.asString(), text);
    h.removeMustUnderstandAttribute();
    h.setActor(TzCString("urn:other"));
    EXPECT_EQ(message.asString(),
              R"(<s:Envelope xmlns:s="http://www.w3.org/2002/06/soap-envelope"><s:Header>)"
              R"(<h s:role="urn:other"></h><i s:mustUnderstand="0"></i></s:Header>)"
              "<s:Body></s:Body></s:Envelope>");
}

TEST(LiteralReading, AnEncodingStyleIsAnAttributeLikeAnyOther) {
    const std::string text =
        R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" e:encodingStyle="urn:x">)"
        R"(<e:Body e:encodingStyle=""><a e:encodingStyle="urn:y"><b>1</b></a></e:Body></e:Envelope>)";
    const TzSoapMessage message = read(text);
    EXPECT_EQ(message.getSoapBody().getChild("a").getSoapTypeId(), TzSoapType::Composite);
    EXPECT_EQ(message.asString(), text);
}

TEST(LiteralReading, AnElementWithoutContentIsEmptyTextAndAnEmptyComposite) {
    const TzSoapMessage message = read(withBody(R"(<a x="1"/>)"));
    const TzSoapType a = message.getSoapBody().getChild("a");
    EXPECT_EQ(tzSoapAs<TzSoapSimpleType>(a).getString(), "");
    const TzSoapCompositeType composite = tzSoapAs<TzSoapCompositeType>(a);
    EXPECT_EQ(composite.childCount(), 0U);
    EXPECT_EQ(composite.getName().getLocalName(), "a");
    EXPECT_EQ(composite.findAttribute(TzXmlName("x"))->getValue(), "1");
    EXPECT_EQ(message.asString(), withBody(R"(<a x="1"></a>)"));
}

TEST(LiteralReading, AnElementWithTextIsNoComposite) {
    const TzSoapMessage message = read(withBody("<a>x</a>"));
    EXPECT_THROW(tzSoapAs<TzSoapCompositeType>(message.getSoapBody().getChild("a")),
                 TzXmlBadArgError);
    TzSoapMessage encoded;
    encoded.extract(withBody("<a/>"));
    EXPECT_THROW(tzSoapAs<TzSoapCompositeType>(encoded.getSoapBody().getChild("a")),
                 TzXmlBadArgError);
}

TEST(LiteralReading, TheWantedTypeDecidesHowAValueIsRead) {
    const TzSoapMessage message =
        read(withBody("<o><n>12</n><t>true</t><d>2.5</d><l><i>1</i><i>2</i></l></o>"));
    const TzSoapType o = message.getSoapBody().getChild("o");
    EXPECT_EQ(TzSoapValueReader(o.getChild("n")).getInt(), 12);
    EXPECT_TRUE(TzSoapValueReader(o.getChild("t")).getBool());
    EXPECT_EQ(TzSoapValueReader(o.getChild("d")).getDouble(), 2.5);
    EXPECT_EQ(TzSoapValueReader(o.getChild("l/i[2]")).getInt(), 2);
}

/// A message with a fault as a peer may spell it; its detail holds `detail`.
std::string withFault(const std::string& reason, const std::string& detail) {
    return withBody(
        "\n <e:Fault xmlns:c=\"urn:c\" a='1'><!-- why -->\n  <faultcode xml:lang=\"en\">"
        "c:Busy</faultcode>\n  <faultstring xml:lang=\"de\">" +
        reason + "</faultstring>\n <detail c:x=\"1\">" + detail + "</detail>\n </e:Fault>\n");
}

TEST(LiteralReading, AFaultStaysAsItIsSpelled) {
    const std::string text = withFault("zu viel", "\n <c:e> 1 </c:e> text <f href=\"#x\"></f>\n");
    const TzSoapMessage message = read(text);
    const TzSoapFault& fault = message.getSoapBody().getSoapFault();
    EXPECT_EQ(fault.getCode(), TzXmlName("Busy", TzXmlNamespace("c", "urn:c")));
    EXPECT_EQ(fault.getReason(), "zu viel");
    EXPECT_EQ(fault.getDetailText(), "text");
    EXPECT_EQ(fault.getDetails().childCount(), 2U);
    EXPECT_EQ(message.asString(), text);
    EXPECT_EQ(again(withBody("<e:Fault><faultcode>e:Server</faultcode></e:Fault>")),
              withBody("<e:Fault><faultcode>e:Server</faultcode></e:Fault>"));
}

TEST(LiteralReading, WhatChangesInTheDetailOfAFaultIsWritten) {
    TzSoapMessage message = read(withFault("r", "<c:e>1</c:e>"));
    TzSoapCompositeType details = message.getSoapBody().getSoapFault().getDetails();
    details.appendChild(TzSoapSimpleType("more", "2", TzSoapType::xsdString, false));
    EXPECT_EQ(message.asString(), withFault("r", "<c:e>1</c:e><more>2</more>"));
}

TEST(LiteralReading, AFaultThatIsChangedIsWrittenAnew) {
    TzSoapMessage message = read(withFault("r", "<c:e>1</c:e>"));
    message.getSoapBody().getSoapFault().setReason("s");
    EXPECT_EQ(message.asString(),
              R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" xmlns:c="urn:c">)"
              "<e:Body>\n <e:Fault><faultcode>c:Busy</faultcode><faultstring>s</faultstring>"
              "<detail c:x=\"1\"><c:e>1</c:e></detail></e:Fault>\n</e:Body></e:Envelope>");
}

TEST(LiteralReading, AValueThatIsMadeNilLosesItsContent) {
    TzSoapMessage message = read(withBody("<a><b>1</b></a>"));
    TzSoapType a = message.getSoapBody().getChild("a");
    a.setNull(true);
    EXPECT_EQ(message.asString(),
              R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" )"
              R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"><e:Body>)"
              R"(<a xsi:nil="true"></a></e:Body></e:Envelope>)");
}

TEST(LiteralReading, AMessageReadsInTheStyleItHasThen) {
    TzSoapMessage message = read(withBody(R"(<a><b>1</b> text</a>)"));
    message.setStyle(TzSoapStyle::Encoded);
    message.extract(withBody(R"(<a href="#1"/><b id="1">1</b>)"));
    EXPECT_EQ(message.getSoapBody().getChild("a").getSoapTypeId(), TzSoapType::Reference);
}

TEST(LiteralReading, ValuesOfAnotherMessageTakeTheirNamespacesAlong) {
    const TzSoapMessage source =
        read(R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" xmlns:p="urn:p" )"
             R"(xmlns:i="http://www.w3.org/2001/XMLSchema-instance"><e:Body>)"
             R"(<p:a i:type="p:T" p:x="1"><b>1</b></p:a></e:Body></e:Envelope>)");
    TzSoapMessage target(TzSoapVersion::V1_1);
    target.setStyle(TzSoapStyle::Literal);
    target.getSoapBody().appendEntry(source.getSoapBody().getChild("a"));
    EXPECT_EQ(
        target.asString(),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" )"
        R"(xmlns:p="urn:p" xmlns:i="http://www.w3.org/2001/XMLSchema-instance"><SOAP-ENV:Body>)"
        R"(<p:a i:type="p:T" p:x="1"><b>1</b></p:a></SOAP-ENV:Body></SOAP-ENV:Envelope>)");
}

TEST(LiteralReading, ARemovedChildTakesWhiteSpaceBeforeItAlong) {
    TzSoapMessage message = read(withBody("<a>\n <b>1</b>\n <c>2</c> tail <d>3</d>\n</a>"));
    TzSoapCompositeType a = tzSoapAs<TzSoapCompositeType>(message.getSoapBody().getChild("a"));
    a.removeChild(TzXmlName("c"));
    EXPECT_EQ(message.asString(), withBody("<a>\n <b>1</b> tail <d>3</d>\n</a>"));
    a.removeChild(TzXmlName("d"));
    EXPECT_EQ(message.asString(), withBody("<a>\n <b>1</b> tail \n</a>"));
    a.clearChildren();
    EXPECT_EQ(message.asString(), withBody("<a></a>"));
}

} // namespace
