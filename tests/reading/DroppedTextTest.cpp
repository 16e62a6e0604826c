// SPDX-License-Identifier: MIT
#include <soap/TzSoapDroppedText.h>

#include <gtest/gtest.h>

#include <soap/TzSoapBody.h>
#include <soap/TzSoapMessage.h>
#include <tz/xml/TzXmlParseError.h>

#include "support/Throws.h"

#include <string>

// Text that the model has no place for is left out, and reported.

namespace {

const std::string Start = "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/' "
                          "xmlns:e='http://schemas.xmlsoap.org/soap/encoding/'>";
const std::string End = "</s:Envelope>";

std::string body(const std::string& content) {
    return Start + "<s:Body>" + content + "</s:Body>" + End;
}

std::string fault(const std::string& content) { return body("<s:Fault>" + content + "</s:Fault>"); }

std::string fault12(const std::string& content) {
    return "<s:Envelope xmlns:s='http://www.w3.org/2002/06/soap-envelope'><s:Body><s:Fault>" +
           content + "</s:Fault></s:Body></s:Envelope>";
}

/// "count@line:column" of the text that reading `text` leaves out, "none" without any.
std::string droppedFrom(const std::string& text) {
    TzSoapMessage message;
    message.extract(text);
    const TzSoapDroppedText dropped = message.getDroppedText();
    EXPECT_EQ(message.hasDroppedText(), dropped.count > 0) << text;
    EXPECT_EQ(dropped.line > 0, dropped.count > 0) << text;
    EXPECT_EQ(dropped.column > 0, dropped.count > 0) << text;
    return dropped.count == 0 ? "none"
                              : std::to_string(dropped.count) + "@" + std::to_string(dropped.line) +
                                    ":" + std::to_string(dropped.column);
}

std::size_t countFrom(const std::string& text) {
    TzSoapMessage message;
    message.extract(text);
    return message.getDroppedText().count;
}

} // namespace

TEST(DroppedText, ANewMessageHasNone) {
    EXPECT_FALSE(TzSoapMessage().hasDroppedText());
    EXPECT_EQ(TzSoapMessage().getDroppedText().count, 0U);
}

TEST(DroppedText, SimpleValuesKeepTheirText) {
    EXPECT_EQ(droppedFrom(body("<a>x</a><b>&lt;<![CDATA[y]]>z</b>")), "none");
}

TEST(DroppedText, WhiteSpaceIsNone) {
    EXPECT_EQ(droppedFrom(Start +
                          "\n<s:Header> </s:Header>\n<s:Body>\r\n\t<a> <b/>&#13; </a></s:Body>"
                          "\n" +
                          End),
              "none");
}

TEST(DroppedText, IsCountedBesideTheChildrenOfAComposite) {
    EXPECT_EQ(droppedFrom(body("\n<a>one<b/>\ntwo<c>kept</c></a>")), "2@2:7");
    EXPECT_EQ(countFrom(body("<a><b/>after</a>")), 1U);
    EXPECT_EQ(countFrom(body("<a><b><c/>inside</b></a>")), 1U);
}

TEST(DroppedText, IsCountedBesideTheItemsOfAnArray) {
    EXPECT_EQ(countFrom(body("<a e:arrayType='x[2]'>1<i/>2<i/>3</a>")), 3U);
    EXPECT_EQ(countFrom(body("<a e:arrayType='x[2]'>1<i e:position='[0]'/>2</a>")), 2U);
    EXPECT_EQ(countFrom(body("<a e:arrayType='x[2]'>1</a>")), 1U);
}

TEST(DroppedText, IsCountedBesideTheChildrenOfTheEnvelope) {
    EXPECT_EQ(countFrom(Start + "1<s:Header>2<h/>3</s:Header>4<s:Body>5<b/>6</s:Body>7" + End), 7U);
}

TEST(DroppedText, IsCountedInReferences) {
    EXPECT_EQ(countFrom(body("<a href='#b'>x</a><b id='b'/>")), 1U);
}

TEST(DroppedText, IsCountedInMisunderstoodEntries) {
    const std::string text = "<s:Envelope xmlns:s='http://www.w3.org/2002/06/soap-envelope' "
                             "xmlns:f='http://www.w3.org/2002/06/soap-faults'><s:Header>"
                             "<f:Misunderstood qname='a'>x</f:Misunderstood></s:Header>"
                             "<s:Body/></s:Envelope>";
    EXPECT_EQ(countFrom(text), 1U);
}

TEST(DroppedText, UserDefinedValuesKeepTheirs) {
    EXPECT_EQ(countFrom(body("<a s:encodingStyle='urn:x'>1<b/>2</a>")), 0U);
}

TEST(DroppedText, IsCountedInAFault) {
    EXPECT_EQ(countFrom(fault("1<faultcode>s:Client</faultcode>2<faultstring>r</faultstring>3")),
              3U);
    EXPECT_EQ(countFrom(fault("<faultcode>a</faultcode> <faultactor>b</faultactor>\n")), 0U);
    EXPECT_EQ(countFrom(fault("<other>x</other>")), 1U);
    EXPECT_EQ(countFrom(fault("<faultstring>1<b/>2</faultstring>")), 2U);
}

TEST(DroppedText, IsCountedInTheChildrenOfAFaultThatHoldElements) {
    EXPECT_EQ(countFrom(fault12("<s:Code><s:Value>s:Sender</s:Value></s:Code>")), 0U);
    EXPECT_EQ(countFrom(fault12("<s:Code>1<s:Value>s:Sender</s:Value>2<s:Subcode>3"
                                "<s:Value>a</s:Value></s:Subcode></s:Code><s:Reason>r</s:Reason>")),
              3U);
}

TEST(DroppedText, IsForgottenByTheNextReading) {
    TzSoapMessage message;
    message.extract(body("<a>1<b/></a>"));
    EXPECT_TRUE(message.hasDroppedText());
    message.extract(body("<a/>"));
    EXPECT_FALSE(message.hasDroppedText());
}

TEST(DroppedText, OfAReadingThatFailedIsKnown) {
    TzSoapMessage message;
    EXPECT_EQ(textThrown<TzXmlParseError>([&] { message.extract(body("\n<a>1<b/></c>")); }),
              "mismatched tag, line 2, column 11");
    EXPECT_EQ(message.getDroppedText().count, 1U);
}

TEST(DroppedText, IsCopiedWithTheMessage) {
    TzSoapMessage message;
    message.extract(body("<a>1<b/></a>"));
    EXPECT_EQ(message.copy().getDroppedText().count, 1U);
}

TEST(FaultElement, IsKnownWithoutACode) {
    TzSoapMessage message;
    message.extract(fault("<faultstring>out of money</faultstring>"));
    EXPECT_FALSE(message.getSoapBody().hasSoapFault());
    EXPECT_TRUE(message.getSoapBody().hasFaultElement());
    EXPECT_TRUE(message.copy().getSoapBody().hasFaultElement());
}

TEST(FaultElement, IsKnownWithACode) {
    TzSoapMessage message;
    message.extract(fault("<faultcode>s:Client</faultcode>"));
    EXPECT_TRUE(message.getSoapBody().hasSoapFault());
    EXPECT_TRUE(message.getSoapBody().hasFaultElement());
}

TEST(FaultElement, IsAbsentFromOtherBodies) {
    TzSoapMessage message;
    EXPECT_FALSE(message.getSoapBody().hasFaultElement());
    message.extract(body("<Fault/>"));
    EXPECT_FALSE(message.getSoapBody().hasFaultElement());
}

TEST(FaultElement, IsForgottenByTheNextReading) {
    TzSoapMessage message;
    message.extract(fault(""));
    message.extract(body("<a/>"));
    EXPECT_FALSE(message.getSoapBody().hasFaultElement());
}
