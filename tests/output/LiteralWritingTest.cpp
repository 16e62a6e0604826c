// SPDX-License-Identifier: MIT
//
// Messages in literal style, as a program builds them.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapSerializer.h>

#include "output/WireText.h"

#include <gtest/gtest.h>

namespace {

constexpr char Uri[] = "urn:orders";

TzXmlName inOrders(const char* local) { return nameIn(local, "o", Uri); }

TzSoapSimpleType text(const TzXmlName& name, const char* value) {
    return {name, value, TzSoapType::xsdString, false};
}

TzSoapMessage literalMessage(const std::vector<TzSoapType>& entries,
                             TzSoapVersion::Version version = TzSoapVersion::V1_1) {
    TzSoapMessage message(version);
    message.setStyle(TzSoapStyle::Literal);
    for (const TzSoapType& entry : entries) {
        message.getSoapBody().appendEntry(entry);
    }
    return message;
}

/// What stands in the body of a SOAP 1.1 message that declares `declarations` on its envelope.
std::string envelope(const std::string& declarations, const std::string& body) {
    return R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/")" +
           declarations + "><SOAP-ENV:Body>" + body + "</SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

TEST(LiteralWriting, ADocumentHasNeitherStyleNorTypesNorWhiteSpace) {
    TzSoapCompositeType order(inOrders("order"));
    order.appendChild(TzSoapSimpleType(inOrders("id"), 7, TzSoapType::xsdInt, false));
    TzSoapCompositeType line(inOrders("line"));
    line.appendChild(text(inOrders("item"), " a<b "));
    order.appendChild(line);
    order.appendChild(text(inOrders("note"), ""));
    order.appendChild(TzSoapCompositeType(inOrders("rest")));
    const std::string expected =
        envelope(R"( xmlns:o="urn:orders")",
                 "<o:order><o:id>7</o:id><o:line><o:item> a&lt;b </o:item></o:line>"
                 "<o:note></o:note><o:rest></o:rest></o:order>");
    const TzSoapMessage message = literalMessage({order});
    EXPECT_EQ(message.asString(), expected);
    EXPECT_EQ(message.asText(TzSoapLayout::Compact), expected);
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    EXPECT_EQ(serializer.getSerializedString(), expected);
}

TEST(LiteralWriting, AnEncodedMessageAfterALiteralOneIsWrittenAsEver) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(intValue("a", 1));
    const std::string encoded = message.asString();
    EXPECT_EQ(message.getStyle(), TzSoapStyle::Encoded);
    TzXmlStringWriter out;
    TzSoapWriter writer(&out, nullptr);
    literalMessage({}).acceptVisitor(writer);
    const std::size_t before = out.getString().size();
    message.acceptVisitor(writer);
    EXPECT_EQ(out.getString().substr(before), encoded);
}

TEST(LiteralWriting, PartsOfAQualifiedWrapperStayUnqualified) {
    TzSoapCompositeType wrapper(TzXmlName("add", TzXmlNamespace("", Uri)));
    wrapper.appendChild(intValue("a", 1));
    TzSoapCompositeType part("b");
    part.appendChild(intValue("c", 2));
    wrapper.appendChild(part);
    EXPECT_EQ(literalMessage({wrapper}).asString(),
              envelope("", R"(<add xmlns="urn:orders"><a xmlns="">1</a>)"
                           R"(<b xmlns=""><c>2</c></b></add>)"));
    wrapper.setName(inOrders("add"));
    EXPECT_EQ(literalMessage({wrapper}).asString(),
              envelope(R"( xmlns:o="urn:orders")", "<o:add><a>1</a><b><c>2</c></b></o:add>"));
}

TEST(LiteralWriting, UnqualifiedEntriesAreNotCapturedByADefaultNamespaceOfTheEnvelope) {
    TzSoapMessage message = literalMessage({intValue("a", 1)});
    message.setDefaultNamespaceAttribute(TzCString(Uri));
    EXPECT_EQ(message.asString(),
              R"(<SOAP-ENV:Envelope xmlns="urn:orders" )"
              R"(xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/"><SOAP-ENV:Body>)"
              R"(<a xmlns="">1</a></SOAP-ENV:Body></SOAP-ENV:Envelope>)");
}

TEST(LiteralWriting, TypesAreWrittenWhenAskedForAndTheirPrefixesAreDeclared) {
    TzSoapCompositeType shape(inOrders("shape"));
    shape.setTypeAttribute(TzXmlName("Circle", TzXmlNamespace("g", "urn:geometry")));
    shape.appendChild(TzSoapSimpleType("r", 3, TzSoapType::xsdInt, true));
    EXPECT_EQ(literalMessage({shape}).asString(),
              envelope(R"( xmlns:o="urn:orders")"
                       R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
                       R"( xmlns:g="urn:geometry" xmlns:xsd="http://www.w3.org/2001/XMLSchema")",
                       R"(<o:shape xsi:type="g:Circle"><r xsi:type="xsd:int">3</r></o:shape>)"));
}

TEST(LiteralWriting, APrefixOfTwoNamespacesIsDeclaredForTheFirstAboveAndForTheSecondWhereItIs) {
    TzSoapCompositeType order(inOrders("order"));
    order.appendChild(text(nameIn("other", "o", "urn:other"), "x"));
    TzSoapSimpleType typed = text(nameIn("typed", "o", "urn:other"), "y");
    typed.setTypeAttribute(inOrders("T"));
    order.appendChild(typed);
    EXPECT_EQ(
        literalMessage({order}).asString(),
        envelope(R"( xmlns:o="urn:orders" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")",
                 R"(<o:order><o:other xmlns:o="urn:other">x</o:other>)"
                 R"(<o:typed xmlns:o="urn:other" xmlns:o1="urn:orders" xsi:type="o1:T">y</o:typed>)"
                 "</o:order>"));
}

TEST(LiteralWriting, NilIsSpelledAsSchemasDo) {
    TzSoapSimpleType absent = text(inOrders("a"), "left out");
    absent.setNull(true);
    TzSoapSimpleType present = text(inOrders("b"), "x");
    present.setNull(false);
    EXPECT_EQ(
        literalMessage({absent, present}).asString(),
        envelope(R"( xmlns:o="urn:orders" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")",
                 R"(<o:a xsi:nil="true"></o:a><o:b xsi:nil="false">x</o:b>)"));
}

TEST(LiteralWriting, HeaderEntriesHaveWhatTheyAreProcessedByAndNothingElse) {
    TzSoapMessage message = literalMessage({text(inOrders("x"), "1")}, TzSoapVersion::V1_2);
    message.getSoapHeader().appendHeaderEntry(text(nameIn("ticket", "t", "urn:t"), "42"), true,
                                              TzCString("urn:role"));
    EXPECT_EQ(
        message.asString(),
        R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope" )"
        R"(xmlns:t="urn:t" xmlns:o="urn:orders"><env:Header>)"
        R"(<t:ticket env:mustUnderstand="true" env:role="urn:role">42</t:ticket></env:Header>)"
        "<env:Body><o:x>1</o:x></env:Body></env:Envelope>");
}

TEST(LiteralWriting, StylesAndRootThatAValueStatesAreLeftOut) {
    TzSoapSimpleType value = text(inOrders("x"), "1");
    value.setEncodingStyle(TzCString("urn:style"));
    value.setRoot(true);
    TzSoapMessage message = literalMessage({value});
    message.setEncodingStyle(TzCString("urn:style"));
    EXPECT_EQ(message.asString(), envelope(R"( xmlns:o="urn:orders")", "<o:x>1</o:x>"));
}

TEST(LiteralWriting, AttributesKeepTheirNamespaces) {
    TzSoapSimpleType value = text(TzXmlName("x", TzXmlNamespace("", Uri)), "1");
    value.addAttribute(TzXmlName("plain"), "p");
    value.addAttribute(inOrders("a"), "q");
    value.addAttribute(TzXmlName("b", TzXmlNamespace("", Uri)), "r");
    value.addAttribute(TzXmlName("href"), "#no-reference");
    EXPECT_EQ(literalMessage({value}).asString(),
              envelope(R"( xmlns:o="urn:orders")",
                       R"(<x xmlns="urn:orders" xmlns:prefix="urn:orders" plain="p" o:a="q" )"
                       R"(prefix:b="r" href="#no-reference">1</x>)"));
}

TEST(LiteralWriting, ArraysAreTheirItems) {
    TzSoapCompactArrayType array(inOrders("list"), "xsd:string", 2, 0);
    array(0) = text(inOrders("item"), "a");
    array(1) = text(inOrders("item"), "b");
    EXPECT_EQ(literalMessage({array}).asString(),
              envelope(R"( xmlns:o="urn:orders")",
                       "<o:list><o:item>a</o:item><o:item>b</o:item></o:list>"));
}

TEST(LiteralWriting, TextStandsBetweenTheChildren) {
    TzSoapCompositeType mixed(inOrders("p"));
    mixed.appendChild(text(inOrders("b"), "bold"));
    mixed.appendChild(text(inOrders("i"), "italic"));
    mixed.setTextBefore(mixed.childrenBegin(), "A & ");
    mixed.setTextBefore(mixed.childrenEnd(), " text.");
    EXPECT_TRUE(mixed.hasText());
    EXPECT_EQ(mixed.childCount(), 2U);
    const std::string expected = envelope(
        R"( xmlns:o="urn:orders")", "<o:p>A &amp; <o:b>bold</o:b><o:i>italic</o:i> text.</o:p>");
    EXPECT_EQ(literalMessage({mixed}).asString(), expected);
    EXPECT_EQ(literalMessage({mixed.copy()}).asString(), expected);
}

TEST(LiteralWriting, ChildrenOfAFaultAreNotCapturedByADefaultNamespace) {
    TzSoapMessage message = literalMessage({});
    message.setDefaultNamespaceAttribute(TzCString(Uri));
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    fault.setReason("why");
    TzSoapCompositeType details = fault.getDetails();
    details.appendChild(text(nameIn("why", "w", "urn:w"), "so"));
    EXPECT_EQ(message.asString(),
              R"(<SOAP-ENV:Envelope xmlns="urn:orders" )"
              R"(xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" xmlns:w="urn:w">)"
              R"(<SOAP-ENV:Body><SOAP-ENV:Fault xmlns=""><faultcode>SOAP-ENV:Client</faultcode>)"
              "<faultstring>why</faultstring><detail><w:why>so</w:why></detail></SOAP-ENV:Fault>"
              "</SOAP-ENV:Body></SOAP-ENV:Envelope>");
}

TEST(LiteralWriting, TheStyleSurvivesCopiesAndAnotherVersion) {
    TzSoapMessage message = literalMessage({intValue("a", 1)});
    EXPECT_EQ(message.copy().getStyle(), TzSoapStyle::Literal);
    message.setVersion(TzSoapVersion::V1_2);
    EXPECT_EQ(message.getStyle(), TzSoapStyle::Literal);
    EXPECT_EQ(message.asString(),
              R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope"><env:Body>)"
              "<a>1</a></env:Body></env:Envelope>");
    TzSoapMessage answer;
    answer.setStyle(message.getStyle());
    EXPECT_EQ(answer.getStyle(), TzSoapStyle::Literal);
}

} // namespace
