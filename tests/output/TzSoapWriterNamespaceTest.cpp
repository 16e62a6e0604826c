// SPDX-License-Identifier: MIT
#include <soap/TzSoapWriter.h>

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapSimpleType.h>

#include "output/WireText.h"

#include <gtest/gtest.h>

namespace {

TzSoapSimpleType valueIn(const char* local, const char* prefix, const char* uri) {
    return {nameIn(local, prefix, uri), 1, TzSoapType::xsdInt, false};
}

/// The text of a generic value, which states no style.
TzSoapType plain(const char* name) { return TzSoapType(TzXmlName(name)); }

TEST(TzSoapWriterNamespace, DeclaresTheNamespaceOfAName) {
    TzSoapCompositeType outer(nameIn("o", "p", "urn:p"));
    outer.appendChild(valueIn("same", "p", "urn:p"));
    outer.appendChild(valueIn("other", "q", "urn:q"));
    outer.appendChild(valueIn("again", "q", "urn:q"));
    EXPECT_EQ(wire11({outer}), envelope11(R"(    <p:o xmlns:p="urn:p">
      <p:same>1</p:same>
      <q:other xmlns:q="urn:q">1</q:other>
      <q:again xmlns:q="urn:q">1</q:again>
    </p:o>
)"));
}

TEST(TzSoapWriterNamespace, NeverBindsAPrefixOfANameAgain) {
    TzSoapCompositeType outer(nameIn("o", "p", "urn:p"));
    outer.appendChild(valueIn("captured", "p", "urn:else"));
    EXPECT_EQ(wire11({outer}), envelope11(R"(    <p:o xmlns:p="urn:p">
      <p:captured>1</p:captured>
    </p:o>
)"));
}

TEST(TzSoapWriterNamespace, DeclaresDefaultNamespaces) {
    TzSoapCompositeType outer(nameIn("o", "", "urn:p"));
    outer.appendChild(valueIn("same", "", "urn:p"));
    outer.appendChild(valueIn("other", "", "urn:q"));
    outer.appendChild(intValue("captured", 2));
    EXPECT_EQ(wire11({outer}), envelope11(R"(    <o xmlns="urn:p">
      <same>1</same>
      <other xmlns="urn:q">1</other>
      <captured>2</captured>
    </o>
)"));
}

TEST(TzSoapWriterNamespace, WritesAPrefixWithoutNamespaceAsItStands) {
    EXPECT_EQ(wire(plain("p:a")), "<p:a>\n</p:a>\n");
}

TEST(TzSoapWriterNamespace, WritesOwnDeclarations) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.addNamespaceAttribute("p", "urn:p");
    message.setDefaultNamespaceAttribute("urn:d");
    message.addNamespaceAttribute("SOAP-ENV", EnvUri11);
    message.getSoapBody().addNamespaceAttribute("q", "urn:q");
    message.getSoapBody().addNamespaceAttribute("p", "urn:p");
    EXPECT_EQ(
        wire(message),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" xmlns:p="urn:p" xmlns="urn:d">
  <SOAP-ENV:Body xmlns:q="urn:q">
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterNamespace, NumbersThePrefixOfAnOwnDeclarationThatClashes) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setDefaultNamespaceAttribute("urn:d");
    message.addNamespaceAttribute("SOAP-ENV", "urn:mine");
    message.getSoapBody().setDefaultNamespaceAttribute("urn:e");
    message.getSoapBody().addNamespaceAttribute("SOAP-ENV", "urn:mine");
    EXPECT_EQ(
        wire(message),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" xmlns="urn:d" xmlns:SOAP-ENV1="urn:mine">
  <SOAP-ENV:Body xmlns:prefix1="urn:e" xmlns:SOAP-ENV1="urn:mine">
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterNamespace, CountsPrefixesUpToTheFirstThatFits) {
    TzSoapType generic = plain("g");
    generic.addNamespaceAttribute("ns", "urn:0");
    generic.addNamespaceAttribute("ns1", "urn:1");
    generic.addAttribute(nameIn("a", "ns", "urn:a"), "1");
    generic.addAttribute(nameIn("b", "ns", "urn:1"), "2");
    generic.addAttribute(nameIn("c", "ns", "urn:a"), "3");
    generic.addAttribute(nameIn("d", "ns", "urn:d"), "4");
    generic.addAttribute(nameIn("e", "ns", "urn:0"), "5");
    EXPECT_EQ(
        wire(generic),
        R"(<g xmlns:ns="urn:0" xmlns:ns1="urn:1" xmlns:ns2="urn:a" xmlns:ns3="urn:d" ns2:a="1" ns1:b="2" ns2:c="3" ns3:d="4" ns:e="5">
</g>
)");
}

TEST(TzSoapWriterNamespace, DeclaresForAttributes) {
    TzSoapType generic = plain("g");
    generic.addAttribute(nameIn("a", "p", "urn:p"), "1");
    generic.addAttribute(nameIn("b", "p", "urn:q"), "2");
    generic.addAttribute(nameIn("c", "", "urn:r"), "3");
    generic.addAttribute(nameIn("d", "", "urn:s"), "4");
    generic.addAttribute(TzXmlName("p:e"), "5");
    EXPECT_EQ(
        wire(generic),
        R"(<g xmlns:p="urn:p" xmlns:p1="urn:q" xmlns="urn:r" xmlns:prefix1="urn:s" p:a="1" p1:b="2" c="3" prefix1:d="4" p:e="5">
</g>
)");
}

TEST(TzSoapWriterNamespace, LeavesAPrefixWithoutUriUndeclared) {
    TzSoapType generic = plain("g");
    generic.addNamespaceAttribute("p", "");
    generic.addAttribute(TzXmlName("xmlns:q"), "urn:q");
    EXPECT_EQ(wire(generic), "<g xmlns:q=\"urn:q\">\n</g>\n");
}

TEST(TzSoapWriterNamespace, WritesNoDeclarationOfTheDeclaringNamespace) {
    TzSoapType generic = plain("g");
    generic.addNamespaceAttribute("p", TzXmlNamespace::getXmlns().getUri());
    generic.setDefaultNamespaceAttribute(TzXmlNamespace::getXmlns());
    EXPECT_EQ(wire(generic), "<g>\n</g>\n");
}

TEST(TzSoapWriterNamespace, DeclaresNothingForThePrefixOfDeclarations) {
    EXPECT_EQ(wire(TzSoapType(nameIn("a", "xmlns", "urn:a"))), "<xmlns:a>\n</xmlns:a>\n");
}

TEST(TzSoapWriterNamespace, ForgetsTheDeclarationsOfClosedElements) {
    TzSoapCompositeType outer("o");
    outer.appendChild(valueIn("a", "p", "urn:p"));
    outer.appendChild(valueIn("b", "p", "urn:q"));
    EXPECT_EQ(wire11({outer}), envelope11(R"(    <o>
      <p:a xmlns:p="urn:p">1</p:a>
      <p:b xmlns:p="urn:q">1</p:b>
    </o>
)"));
}

TEST(TzSoapWriterNamespace, MovesTheSchemaInstancePrefixAside) {
    TzSoapCompositeType outer(nameIn("o", "xsi", "urn:mine"));
    outer.appendChild(TzSoapSimpleType("a", 1, TzSoapType::xsdInt, true));
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setEncodingStyle(EncUri11);
    message.getSoapBody().appendEntry(outer);
    EXPECT_EQ(
        wire(message),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
  <SOAP-ENV:Body>
    <xsi:o xmlns:xsi="urn:mine">
      <a xmlns:xsi1="http://www.w3.org/2001/XMLSchema-instance" xsi1:type="xsd:int">1</a>
    </xsi:o>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

// Attributes of the other version

TEST(TzSoapWriterNamespace, RenamesAttributesOfSoap11InSoap12) {
    TzSoapMessage message;
    message.addAttribute(nameIn("encodingStyle", "SOAP-ENV", EnvUri11), EncUri12);
    TzSoapSimpleType entry = intValue("a", 1);
    entry.addAttribute(nameIn("actor", "SOAP-ENV", EnvUri11), "urn:a");
    entry.addAttribute(nameIn("mustUnderstand", "SOAP-ENV", EnvUri11), "1");
    entry.addAttribute(nameIn("root", "SOAP-ENC", EncUri11), "1");
    entry.addAttribute(nameIn("arrayType", "SOAP-ENC", EncUri11), "xsd:int[1]");
    entry.addAttribute(nameIn("else", "SOAP-ENC", EncUri11), "2");
    message.getSoapBody().appendEntry(entry);
    EXPECT_EQ(
        wire(message),
        R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
  <env:Body>
    <a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" env:role="urn:a" env:mustUnderstand="1" enc:root="1" SOAP-ENC:else="2">1</a>
  </env:Body>
</env:Envelope>
)");
}

TEST(TzSoapWriterNamespace, RenamesAttributesOfSoap12InSoap11) {
    TzSoapSimpleType entry = intValue("a", 1);
    entry.addAttribute(nameIn("encodingStyle", "env", EnvUri12), "urn:s");
    entry.addAttribute(nameIn("role", "env", EnvUri12), "urn:a");
    entry.addAttribute(nameIn("itemType", "enc", EncUri12), "xsd:int");
    entry.addAttribute(nameIn("arraySize", "enc", EncUri12), "1");
    entry.addAttribute(nameIn("offset", "enc", EncUri12), "2");
    EXPECT_EQ(
        wire11({entry}),
        envelope11(
            R"(    <a xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENV:encodingStyle="urn:s" SOAP-ENV:actor="urn:a" SOAP-ENC:offset="2">1</a>
)"));
}

TEST(TzSoapWriterNamespace, KeepsAttributesOfItsOwnVersion) {
    TzSoapSimpleType entry = intValue("a", 1);
    entry.addAttribute(nameIn("role", "v", EnvUri12), "urn:a");
    EXPECT_EQ(
        wire12({entry}),
        envelope12(
            "    <a xmlns:v=\"http://www.w3.org/2002/06/soap-envelope\" v:role=\"urn:a\">1</a>\n"));
}

TEST(TzSoapWriterNamespace, RenamesOnlyWithinAnEnvelopeOrInAPartOnItsOwn) {
    TzSoapType entry = plain("g");
    entry.addAttribute(nameIn("actor", "SOAP-ENV", EnvUri11), "urn:a");
    EXPECT_EQ(wire(entry), "<g xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
                           "SOAP-ENV:actor=\"urn:a\">\n</g>\n");
    TzSoapMessage message;
    message.getSoapBody().appendEntry(entry);
    EXPECT_EQ(wire(message.getSoapBody()),
              R"(<env:Body xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <g env:role="urn:a">
  </g>
</env:Body>
)");
}

// No name twice on a tag

TEST(TzSoapWriterNamespace, WritesNoAttributeTwice) {
    TzSoapSimpleType entry = intValue("a", 1);
    entry.addAttribute(nameIn("actor", "x", EnvUri11), "urn:raw");
    entry.addAttribute(nameIn("mustUnderstand", "x", EnvUri11), "0");
    entry.addAttribute(nameIn("type", "xsi", TzXmlNamespace::getXsi().getUri().c_str()), "raw");
    entry.addAttribute(TzXmlName("last"), "1");
    entry.setMustUnderstand(true);
    entry.setActor("urn:stated");
    entry.setTypeAttribute(TzXmlName("t:stated"));
    EXPECT_EQ(
        wire11({entry}),
        envelope11(
            R"(    <a xmlns:x="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:actor="urn:stated" SOAP-ENV:mustUnderstand="1" xsi:type="t:stated" last="1">1</a>
)"));
}

TEST(TzSoapWriterNamespace, WritesAnAttributeOfBothVersionsOnce) {
    TzSoapSimpleType entry = intValue("a", 1);
    entry.addAttribute(nameIn("actor", "SOAP-ENV", EnvUri11), "urn:11");
    entry.addAttribute(nameIn("role", "env", EnvUri12), "urn:12");
    EXPECT_EQ(wire12({entry}), envelope12("    <a env:role=\"urn:12\">1</a>\n"));
    EXPECT_EQ(wire11({entry}), envelope11("    <a SOAP-ENV:actor=\"urn:12\">1</a>\n"));
}

TEST(TzSoapWriterNamespace, WritesAnElementWithManyAttributes) {
    TzSoapType generic = plain("g");
    std::string expected = "<g";
    for (int i = 0; i < 2000; ++i) {
        const std::string name = "a" + std::to_string(i);
        generic.addNamespaceAttribute("p" + std::to_string(i), "urn:" + name);
        expected += " xmlns:p" + std::to_string(i) + "=\"urn:" + name + "\"";
    }
    for (int i = 0; i < 2000; ++i) {
        const std::string name = "a" + std::to_string(i);
        generic.addAttribute(TzXmlName(name), "v");
        expected += " " + name + "=\"v\"";
    }
    EXPECT_EQ(wire(generic), expected + ">\n</g>\n");
}

} // namespace
