// SPDX-License-Identifier: MIT
#include <soap/TzSoapWriter.h>

#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/xml/TzXmlProlog.h>

#include "output/WireText.h"

#include <gtest/gtest.h>

namespace {

TEST(TzSoapWriterMessage, WritesSoap11) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setProlog(TzXmlProlog());
    message.addNamespaceAttribute(TzXmlNamespace::getXsd());
    message.getSoapBody().appendEntry(
        TzSoapSimpleType(TzXmlName("a"), 5, TzSoapType::xsdInt, true));
    EXPECT_EQ(wire(message), R"(<?xml version="1.0" encoding="UTF-8"?>
<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" xmlns:xsd="http://www.w3.org/2001/XMLSchema">
  <SOAP-ENV:Body>
    <a xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/" xsi:type="xsd:int">5</a>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterMessage, DeclaresWhatTypesNeedOnce) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.declareTypeNamespaces();
    message.declareTypeNamespaces();
    for (const char* name : {"a", "b"}) {
        message.getSoapBody().appendEntry(
            TzSoapSimpleType(TzXmlName(name), 5, TzSoapType::xsdInt, true));
    }
    const std::string text = wire(message);
    EXPECT_TRUE(text.starts_with(
        "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
        "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
        "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n"))
        << text;
    EXPECT_EQ(text.find("xmlns:xs", text.find('\n')), std::string::npos) << text;
}

TEST(TzSoapWriterMessage, KeepsWhatPrefixesOfTypesMeanAlready) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.addNamespaceAttribute("xsd", "http://www.w3.org/1999/XMLSchema");
    message.declareTypeNamespaces();
    EXPECT_EQ(
        wire(message),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" xmlns:xsd="http://www.w3.org/1999/XMLSchema" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">
  <SOAP-ENV:Body>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterMessage, WritesSoap12) {
    TzSoapMessage message;
    message.addNamespaceAttribute(TzXmlNamespace::getXsd());
    message.getSoapBody().appendEntry(
        TzSoapSimpleType(TzXmlName("a"), 5, TzSoapType::xsdInt, true));
    EXPECT_EQ(
        wire(message),
        R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope" xmlns:xsd="http://www.w3.org/2001/XMLSchema">
  <env:Body>
    <a xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding" xsi:type="xsd:int">5</a>
  </env:Body>
</env:Envelope>
)");
}

TEST(TzSoapWriterMessage, WritesAnEmptyMessageWithoutHeader) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapHeader().addAttribute(TzXmlName("lost"), "with it");
    EXPECT_EQ(wire(message),
              R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <SOAP-ENV:Body>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterMessage, WritesTheFlagsOfHeaderEntriesInSoap11) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    const TzXmlNamespace application("t", "urn:t");
    message.getSoapHeader().appendHeaderEntry(
        TzSoapSimpleType(TzXmlName("id", application), "7", TzSoapType::xsdString, false), true,
        "urn:router");
    message.getSoapHeader().appendHeaderEntry(
        TzSoapSimpleType(TzXmlName("q", application), "8", TzSoapType::xsdString, false), false);
    EXPECT_EQ(wire(message),
              R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <SOAP-ENV:Header>
    <t:id xmlns:t="urn:t" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENV:mustUnderstand="1" SOAP-ENV:actor="urn:router">7</t:id>
    <t:q xmlns:t="urn:t" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">8</t:q>
  </SOAP-ENV:Header>
  <SOAP-ENV:Body>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterMessage, WritesTheFlagsOfHeaderEntriesInSoap12) {
    TzSoapMessage message;
    TzSoapSimpleType entry(TzXmlName("h"), "7", TzSoapType::xsdString, true);
    entry.setRoot(false);
    entry.setIdAttribute("x");
    message.getSoapHeader().appendHeaderEntry(entry, true, "urn:router");
    EXPECT_EQ(wire(message), R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Header>
    <h xmlns:enc="http://www.w3.org/2002/06/soap-encoding" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding" id="x" enc:root="0" env:mustUnderstand="true" xsi:type="xsd:string" env:role="urn:router">7</h>
  </env:Header>
  <env:Body>
  </env:Body>
</env:Envelope>
)");
}

TEST(TzSoapWriterMessage, UsesThePrefixesOfTheMessage) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setSoapPrefix("E");
    message.setSoapEncodingPrefix("C");
    TzSoapSimpleType entry = intValue("a", 5);
    entry.setRoot(true);
    message.getSoapHeader().appendHeaderEntry(entry, true);
    message.getSoapBody().appendEntry(intValue("b", 6));
    EXPECT_EQ(wire(message), R"(<E:Envelope xmlns:E="http://schemas.xmlsoap.org/soap/envelope/">
  <E:Header>
    <a xmlns:C="http://schemas.xmlsoap.org/soap/encoding/" E:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/" C:root="1" E:mustUnderstand="1">5</a>
  </E:Header>
  <E:Body>
    <b E:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">6</b>
  </E:Body>
</E:Envelope>
)");
}

TEST(TzSoapWriterMessage, DeclaresTheDefaultPrefixForAnEnvelopeWithoutOne) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setSoapPrefix("");
    EXPECT_EQ(
        wire(message),
        R"(<SOAP-ENV:Envelope xmlns="http://schemas.xmlsoap.org/soap/envelope/" xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <SOAP-ENV:Body>
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterMessage, KeepsTheEncodingPrefixOfAnotherVersion) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setVersion(TzSoapVersion::V1_2);
    TzSoapSimpleType entry = intValue("a", 5);
    entry.setRoot(true);
    message.getSoapBody().appendEntry(entry);
    EXPECT_EQ(wire(message), R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Body>
    <a xmlns:SOAP-ENC="http://www.w3.org/2002/06/soap-encoding" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding" SOAP-ENC:root="1">5</a>
  </env:Body>
</env:Envelope>
)");
}

TEST(TzSoapWriterMessage, WritesAttributesAndStylesOfEnvelopeHeaderAndBody) {
    TzSoapMessage message;
    const TzXmlNamespace application("t", "urn:t");
    message.addAttribute(TzXmlName("lang"), "en \"UK\"");
    message.setEncodingStyle("urn:envelope");
    message.getSoapHeader().addAttribute(TzXmlName("h", application), "1");
    message.getSoapHeader().setEncodingStyle("urn:header");
    message.getSoapHeader().appendHeaderEntry(intValue("a", 1), false);
    message.getSoapBody().addAttribute(TzXmlName("b"), "2");
    message.getSoapBody().setEncodingStyle("http://www.w3.org/2002/06/soap-encoding");
    message.getSoapBody().setRoot(true);
    message.getSoapBody().appendEntry(intValue("c", 3));
    EXPECT_EQ(
        wire(message),
        R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="urn:envelope" lang="en &quot;UK&quot;">
  <env:Header xmlns:t="urn:t" env:encodingStyle="urn:header" t:h="1">
    <a env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">1</a>
  </env:Header>
  <env:Body env:encodingStyle="http://www.w3.org/2002/06/soap-encoding" b="2">
    <c>3</c>
  </env:Body>
</env:Envelope>
)");
}

TEST(TzSoapWriterMessage, TakesTheStyleFromAnAttributeUnlessItIsStated) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    const TzXmlName style =
        TzSoapVersion::getSoapAttributeName(TzSoapVersion::EncodingStyle, TzSoapVersion::V1_1);
    message.addAttribute(style, EncUri11);
    message.getSoapBody().addAttribute(style, "urn:lost");
    message.getSoapBody().setEncodingStyle("urn:kept");
    EXPECT_EQ(
        wire(message),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
  <SOAP-ENV:Body SOAP-ENV:encodingStyle="urn:kept">
  </SOAP-ENV:Body>
</SOAP-ENV:Envelope>
)");
}

TEST(TzSoapWriterMessage, WritesAHeaderOnItsOwn) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapHeader().appendHeaderEntry(intValue("a", 1), true);
    EXPECT_EQ(wire(message.getSoapHeader()),
              R"(<SOAP-ENV:Header xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/">
  <a SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENV:mustUnderstand="1">1</a>
</SOAP-ENV:Header>
)");
}

TEST(TzSoapWriterMessage, WritesAnEmptyHeaderOnItsOwn) {
    TzSoapMessage message;
    EXPECT_EQ(wire(message.getSoapHeader()),
              R"(<env:Header xmlns:env="http://www.w3.org/2002/06/soap-envelope">
</env:Header>
)");
}

TEST(TzSoapWriterMessage, WritesABodyOnItsOwn) {
    TzSoapMessage message;
    message.getSoapBody().setEncodingStyle("urn:own");
    message.getSoapBody().appendEntry(intValue("a", 1));
    EXPECT_EQ(
        wire(message.getSoapBody()),
        R"(<env:Body xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="urn:own">
  <a env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">1</a>
</env:Body>
)");
}

TEST(TzSoapWriterMessage, WritesTheColonOfABodyWithoutPrefix) {
    TzSoapMessage message;
    message.extract(
        R"(<Envelope xmlns="http://schemas.xmlsoap.org/soap/envelope/"><Body/></Envelope>)");
    EXPECT_EQ(wire(message.getSoapBody()),
              R"(<:Body xmlns="http://schemas.xmlsoap.org/soap/envelope/">
</:Body>
)");
}

TEST(TzSoapWriterMessage, DeclaresThePrefixOfAStyleWhereNothingElseDoes) {
    for (
        const auto& [version, text] :
        {std::pair(
             TzSoapVersion::V1_1,
             R"(<x:Body xmlns:x="http://schemas.xmlsoap.org/soap/envelope/" xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" SOAP-ENV:encodingStyle="urn:s">
</x:Body>
)"),
         std::pair(
             TzSoapVersion::V1_2,
             R"(<x:Body xmlns:x="http://www.w3.org/2002/06/soap-envelope" xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="urn:s">
</x:Body>
)")}) {
        const TzCString uri = TzSoapVersion::getSoapVersion(version).getSoapEnv().getUri();
        TzSoapMessage message;
        message.extract("<x:Envelope xmlns:x=\"" + uri +
                        "\"><x:Body x:encodingStyle=\"urn:s\"/></x:Envelope>");
        EXPECT_EQ(wire(message.getSoapBody()), text);
    }
}

TEST(TzSoapWriterMessage, WritesTheProlog) {
    TzSoapMessage message;
    message.setProlog(TzXmlProlog("1.0", "UTF-8", true));
    EXPECT_EQ(wire(message), R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Body>
  </env:Body>
</env:Envelope>
)");
    message.removeProlog();
    EXPECT_EQ(wire(message).find("<?xml"), std::string::npos);
}

TEST(TzSoapWriterMessage, WritesInAFixedVersion) {
    TzSoapMessage message;
    TzSoapSimpleType entry = intValue("a", 1);
    message.getSoapHeader().appendHeaderEntry(entry, true, "urn:x");
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    writer.setVersion(TzSoapVersion::V1_1);
    message.acceptVisitor(writer);
    // Elements keep their own names; what the writer adds is that of the version.
    EXPECT_EQ(text.getString(),
              R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope">
  <env:Header>
    <a xmlns:env1="http://schemas.xmlsoap.org/soap/envelope/" env:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/" env1:mustUnderstand="1" env1:actor="urn:x">1</a>
  </env:Header>
  <env:Body>
  </env:Body>
</env:Envelope>
)");
}

} // namespace
