// SPDX-License-Identifier: MIT
//
// Names that would become markup are refused when they are written.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapSerializer.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "output/WireText.h"
#include "support/ReadValues.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

template <typename Element> std::string serialized(const Element& element) {
    TzSoapSerializer serializer;
    element.acceptVisitor(serializer);
    return serializer.getSerializedString();
}

/// The text of the error that `write` ends with, "" without one.
std::string refusalOf(const std::function<void()>& write) {
    try {
        write();
    } catch (const TzXmlBadArgError& error) {
        return error.asString();
    }
    return "";
}

template <typename Element> void expectRefused(const Element& element, const std::string& text) {
    EXPECT_EQ(refusalOf([&] { wire(element); }), text);
    EXPECT_EQ(refusalOf([&] { serialized(element); }), text);
}

/// A value with an attribute.
TzSoapType withAttribute(const TzXmlName& name) {
    TzSoapType value("v");
    value.addAttribute(TzXmlAttribute(name, "1"));
    return value;
}

class WrittenNames : public testing::TestWithParam<const char*> {};

TEST_P(WrittenNames, LocalNamesOfElementsAreRefused) {
    const std::string bad = GetParam();
    const TzXmlName name(bad, TzXmlNamespace());
    const std::string refusal = '"' + bad + "\" is no name of XML";
    expectRefused(TzSoapType(name), refusal);
    expectRefused(TzSoapSimpleType(name, 1, TzSoapType::xsdInt, false), refusal);
    expectRefused(TzSoapCompositeType(name), refusal);
    TzSoapCompositeType outer("o");
    outer.appendChild(TzSoapCompositeType(name));
    expectRefused(encodedMessage(TzSoapVersion::V1_1, {outer}), refusal);
    expectRefused(
        encodedMessage(TzSoapVersion::V1_1, {TzSoapSimpleType(name, 1, TzSoapType::xsdInt, false)}),
        refusal);
}

TEST_P(WrittenNames, PrefixesOfElementsAreRefused) {
    const std::string bad = GetParam();
    expectRefused(TzSoapType(TzXmlName("a", TzXmlNamespace(bad, "urn:a"))),
                  '"' + bad + ":a\" is no name of XML");
}

TEST_P(WrittenNames, NamesOfAttributesAreRefused) {
    const std::string bad = GetParam();
    expectRefused(withAttribute(TzXmlName(bad, TzXmlNamespace())),
                  '"' + bad + "\" is no name of XML");
    expectRefused(withAttribute(TzXmlName("a", TzXmlNamespace(bad, ""))),
                  '"' + bad + ":a\" is no name of XML");
}

TEST_P(WrittenNames, PrefixesOfTheEnvelopeAreRefused) {
    const std::string bad = GetParam();
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setSoapPrefix(bad);
    expectRefused(message, '"' + bad + ":Envelope\" is no name of XML");
}

INSTANTIATE_TEST_SUITE_P(Markup, WrittenNames,
                         testing::Values("a b<c", "a>", "a/", "a=\"1\" b", "0", "-a", "a\n", "a&b",
                                         "a'", "\xC3", "a\xC3", "\xED\xA0\x80", "\xC0\x80",
                                         "\xEF\xBF\xBE", "\xF4\x90\x80\x80", "\xC3\x97"));

class DeclaredPrefixes : public testing::TestWithParam<const char*> {};

TEST_P(DeclaredPrefixes, AreRefused) {
    const std::string bad = GetParam();
    const std::string refusal = "the prefix \"" + bad + "\" cannot be declared for \"urn:a\"";
    TzSoapType value("v");
    value.addNamespaceAttribute(bad, "urn:a");
    expectRefused(value, refusal);
    TzSoapMessage message(TzSoapVersion::V1_2);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    fault.addSubcode(TzXmlName("q", TzXmlNamespace(bad, "urn:a")));
    expectRefused(message, refusal);
}

INSTANTIATE_TEST_SUITE_P(Markup, DeclaredPrefixes,
                         testing::Values("a b", "a=\"\" b", "a>", "xml", "xmlns"));

TEST(WrittenName, AnEmptyAttributeNameIsRefused) {
    expectRefused(withAttribute(TzXmlName()), "\"\" is no name of XML");
    expectRefused(withAttribute(TzXmlName("", TzXmlNamespace("p", "urn:p"))),
                  "\"p:\" is no name of XML");
}

// A reader takes xmlns for a declaration, whatever namespace the program gave the name.
TEST(WrittenName, AnAttributeNamedLikeADeclarationIsRefused) {
    expectRefused(withAttribute(TzXmlName("xmlns", TzXmlNamespace("", "urn:a"))),
                  "\"xmlns\" names a declaration, not an attribute");
}

TEST(WrittenName, TheNamespaceOfXmlMayBeDeclared) {
    TzSoapType value("v");
    value.addAttribute(TzXmlAttribute(TzXmlName("lang", TzXmlNamespace::getXml()), "de"));
    EXPECT_EQ(wire(value),
              "<v xmlns:xml=\"http://www.w3.org/XML/1998/namespace\" xml:lang=\"de\">\n</v>\n");
}

TEST(WrittenName, EveryLetterMayBeginAName) {
    for (const char* name :
         {"_", "\xC3\xA4", "\xE4\xB8\xAD", "\xF0\x90\x80\x80", "a\xC2\xB7", "a-1.", "a\xCC\x80"}) {
        EXPECT_EQ(wire(TzSoapType(TzXmlName(name))),
                  std::string("<") + name + ">\n</" + name + ">\n");
    }
}

TEST(WrittenName, ThePrefixOfABodyMayBeEmpty) {
    const TzSoapMessage message = readMessage(
        R"(<Envelope xmlns="http://schemas.xmlsoap.org/soap/envelope/"><Body/></Envelope>)");
    EXPECT_TRUE(wire(message.getSoapBody()).starts_with("<:Body "));
}

TEST(WrittenName, ColonsThatEndNoPrefixStayWhereTheyAre) {
    for (const std::string name : {":0", "::", ":", "a:", ":-", "a:b:c", "a:0"}) {
        const TzSoapMessage message = readMessage(
            R"(<S:Envelope xmlns:S="http://schemas.xmlsoap.org/soap/envelope/"><S:Body><)" + name +
            ' ' + name + "=\"1\"/></S:Body></S:Envelope>");
        const std::string text = wire(message);
        EXPECT_NE(text.find('<' + name + ' '), std::string::npos) << text;
        EXPECT_NE(text.find(' ' + name + "=\"1\""), std::string::npos) << text;
    }
}

} // namespace
