// SPDX-License-Identifier: MIT
//
// What a serializer offers to classes derived from it.
#include <soap/TzSoapSerializer.h>

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <tz/xml/TzXmlAttribute.h>

#include "output/WireText.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace {

/// Opens what is protected, and runs a hook where a value named "hook" is to be written.
class OpenSerializer : public TzSoapSerializer {
public:
    using Hook = std::function<void(OpenSerializer&)>;

    explicit OpenSerializer(Hook hook = {}) : hook_(std::move(hook)) {}

    using TzSoapSerializer::adjustSoapAttributeVersion;
    using TzSoapSerializer::clearAttributeSet;
    using TzSoapSerializer::ensureSoapEncodingStyleIsPresent;
    using TzSoapSerializer::getLastSpecifiedEncodingStyle;
    using TzSoapSerializer::getLastSpecifiedEncodingStyleState;
    using TzSoapSerializer::getUniquePrefix;
    using TzSoapSerializer::getVerifiedAttribute;
    using TzSoapSerializer::isEncodingStylePresent;
    using TzSoapSerializer::popNamesAndEncodings;
    using TzSoapSerializer::populateAttributeSet;
    using TzSoapSerializer::pushNamesAndEncodings;
    using TzSoapSerializer::verifyQualifiedName;
    using TzSoapSerializer::writeNamespaceAttributes;
    using TzSoapSerializer::writeNonNamespaceAttributes;
    using TzSoapSerializer::writeQualifiedName;
    using TzSoapSerializer::writeSubCode;
    using TzSoapSerializer::writeTypeEmptyTag;
    using TzSoapSerializer::writeTypeEndTag;
    using TzSoapSerializer::writeTypeStartTag;

    using TzSoapSerializer::visit;
    void visit(const TzSoapSimpleType& value) override {
        if (value.getName().getLocalName() == "hook") {
            hook_(*this);
        } else {
            TzSoapSerializer::visit(value);
        }
    }

private:
    Hook hook_;
};

TEST(TzSoapSerializerDerived, NumbersPrefixesOnlyWhereTheyClash) {
    OpenSerializer serializer;
    EXPECT_EQ(serializer.getUniquePrefix("ns", "urn:u"), "ns");
    EXPECT_EQ(serializer.getUniquePrefix("", "urn:u"), "");
    TzSoapType value("v");
    value.addNamespaceAttribute("ns", "urn:0");
    value.addNamespaceAttribute("ns9", "urn:9");
    value.addNamespaceAttribute("a99", "urn:99");
    value.addNamespaceAttribute("b007", "urn:7");
    value.addNamespaceAttribute("c99999999999999999999", "urn:c");
    value.setDefaultNamespaceAttribute("urn:d");
    value.addNamespaceAttribute("prefix1", "urn:p1");
    serializer.pushNamesAndEncodings(value);
    EXPECT_EQ(serializer.getUniquePrefix("ns", "urn:u"), "ns1");
    EXPECT_EQ(serializer.getUniquePrefix("ns", "urn:0"), "ns");
    EXPECT_EQ(serializer.getUniquePrefix("ns9", "urn:u"), "ns10");
    EXPECT_EQ(serializer.getUniquePrefix("a99", "urn:u"), "a100");
    EXPECT_EQ(serializer.getUniquePrefix("b007", "urn:u"), "b8");
    EXPECT_EQ(serializer.getUniquePrefix("c99999999999999999999", "urn:u"),
              "c100000000000000000000");
    EXPECT_EQ(serializer.getUniquePrefix("", "urn:d"), "");
    EXPECT_EQ(serializer.getUniquePrefix("", "urn:u"), "prefix2");
    EXPECT_EQ(serializer.getUniquePrefix("", "urn:p1"), "prefix1");
    serializer.popNamesAndEncodings(value);
    EXPECT_EQ(serializer.getUniquePrefix("ns", "urn:u"), "ns");
}

TEST(TzSoapSerializerDerived, KnowsTheStylesAroundAnElement) {
    OpenSerializer serializer;
    EXPECT_EQ(serializer.getLastSpecifiedEncodingStyle(), "");
    EXPECT_TRUE(serializer.getLastSpecifiedEncodingStyleState());
    EXPECT_FALSE(serializer.isEncodingStylePresent(""));
    TzSoapMessage outer;
    outer.setEncodingStyle("urn:outer");
    TzSoapMessage silent;
    TzSoapCompositeType inner("i");
    inner.setEncodingStyle("urn:inner");
    serializer.pushNamesAndEncodings(outer);
    EXPECT_EQ(serializer.getLastSpecifiedEncodingStyle(), "");
    serializer.pushNamesAndEncodings(silent.getSoapBody());
    serializer.pushNamesAndEncodings(inner);
    EXPECT_EQ(serializer.getLastSpecifiedEncodingStyle(), "urn:outer");
    EXPECT_TRUE(serializer.isEncodingStylePresent("urn:outer"));
    EXPECT_FALSE(serializer.isEncodingStylePresent("urn:inner"));
    serializer.pushNamesAndEncodings(silent.getSoapHeader());
    EXPECT_EQ(serializer.getLastSpecifiedEncodingStyle(), "urn:inner");
    serializer.popNamesAndEncodings(silent.getSoapHeader());
    EXPECT_EQ(serializer.getLastSpecifiedEncodingStyle(), "urn:outer");
    serializer.popNamesAndEncodings(inner);
    serializer.popNamesAndEncodings(silent.getSoapBody());
    serializer.popNamesAndEncodings(outer);
    serializer.popNamesAndEncodings(outer);
    EXPECT_EQ(serializer.getLastSpecifiedEncodingStyle(), "");
}

TEST(TzSoapSerializerDerived, ServesDerivedSerializersPieceByPiece) {
    OpenSerializer serializer;
    TzSoapCompositeType value(nameIn("v", "p", "urn:p"));
    value.addAttribute(nameIn("a", "q", "urn:q"), "1");
    serializer.pushNamesAndEncodings(value);
    serializer.verifyQualifiedName(value.getName());
    serializer.populateAttributeSet(value);
    serializer.ensureSoapEncodingStyleIsPresent(value);
    serializer.writeTypeStartTag(value, true);
    serializer.writeTypeEndTag(value);
    serializer.popNamesAndEncodings(value);
    EXPECT_EQ(
        serializer.getSerializedString(),
        R"(<p:v xmlns:p="urn:p" xmlns:q="urn:q" xmlns:env="http://www.w3.org/2002/06/soap-envelope" q:a="1" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
</p:v>
)");
    OpenSerializer pieces;
    pieces.pushNamesAndEncodings(value);
    pieces.populateAttributeSet(value);
    pieces.writeNonNamespaceAttributes();
    pieces.clearAttributeSet();
    pieces.writeNonNamespaceAttributes();
    pieces.writeNamespaceAttributes();
    pieces.writeQualifiedName(TzXmlName());
    pieces.writeNamespaceAttributes();
    EXPECT_EQ(
        pieces.getSerializedString(),
        R"( q:a="1" xmlns:q="urn:q"tznone:unnamed xmlns:q="urn:q" xmlns:tznone="urn:tz-soap:unnamed")");
}

TEST(TzSoapSerializerDerived, PopulatesForArraysReferencesAndParts) {
    OpenSerializer serializer;
    const TzSoapCompactArrayType array(TzXmlName("a"), "xsd:int", 2, 0);
    serializer.pushNamesAndEncodings(array);
    serializer.populateAttributeSet(array);
    serializer.writeTypeEmptyTag(array);
    serializer.popNamesAndEncodings(array);
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setEncodingStyle("urn:s");
    message.getSoapBody().setRoot(false);
    message.getSoapHeader().addAttribute(TzXmlName("h"), "1");
    serializer.pushNamesAndEncodings(message);
    serializer.populateAttributeSet(message);
    serializer.populateAttributeSet(message.getSoapHeader());
    serializer.populateAttributeSet(message.getSoapBody());
    serializer.writeNonNamespaceAttributes();
    EXPECT_EQ(
        serializer.getSerializedString(),
        R"(<a xmlns:enc="http://www.w3.org/2002/06/soap-encoding" enc:itemType="xsd:int" enc:arraySize="2"/>
 env:encodingStyle="urn:s" h="1" enc:root="0")");
}

TEST(TzSoapSerializerDerived, VerifiesAttributes) {
    const auto inMessage = [](const OpenSerializer::Hook& hook) {
        TzSoapMessage message = encodedMessage(TzSoapVersion::V1_2, {intValue("hook", 1)});
        OpenSerializer serializer(hook);
        message.acceptVisitor(serializer);
    };
    const auto spelt = [](const TzXmlAttribute& attribute) {
        return attribute.getName().asString() + " " + attribute.getName().getUri();
    };
    const TzXmlAttribute actor(nameIn("actor", "SOAP-ENV", EnvUri11), "urn:a");
    inMessage([&](OpenSerializer& serializer) {
        EXPECT_EQ(spelt(serializer.getVerifiedAttribute(actor)),
                  std::string("env:role ") + EnvUri12);
        EXPECT_EQ(serializer.getVerifiedAttribute(actor).getValue(), "urn:a");
        EXPECT_EQ(spelt(serializer.getVerifiedAttribute({nameIn("x", "env", "urn:x"), ""})),
                  "env1:x urn:x");
        EXPECT_EQ(spelt(serializer.getVerifiedAttribute({TzXmlName("p:x"), ""})), "p:x ");
        const TzXmlName declaration("env", TzXmlNamespace::getXmlns());
        EXPECT_EQ(spelt(serializer.getVerifiedAttribute({declaration, "urn:else"})),
                  "xmlns:env " + declaration.getUri());
        EXPECT_TRUE(serializer.getVerifiedAttribute({nameIn("arrayType", "c", EncUri11), ""})
                        .getName()
                        .isEmpty());
    });
    OpenSerializer outside;
    EXPECT_EQ(spelt(outside.getVerifiedAttribute(actor)),
              std::string("SOAP-ENV:actor ") + EnvUri11);
    TzXmlAttribute adjusted = actor;
    EXPECT_TRUE(outside.adjustSoapAttributeVersion(adjusted));
    EXPECT_EQ(spelt(adjusted), std::string("env:role ") + EnvUri12);
    EXPECT_FALSE(outside.adjustSoapAttributeVersion(adjusted));
    TzXmlAttribute other(nameIn("other", "SOAP-ENV", EnvUri11), "");
    EXPECT_FALSE(outside.adjustSoapAttributeVersion(other));
    EXPECT_EQ(spelt(other), std::string("SOAP-ENV:other ") + EnvUri11);
}

TEST(TzSoapSerializerDerived, WritesSubcodesFromAPlaceOn) {
    OpenSerializer serializer;
    TzSoapFault fault;
    fault.addFaultCodeQualifier("a");
    fault.addFaultCodeQualifier("b");
    fault.addFaultCodeQualifier("c");
    serializer.writeSubCode(fault, 2, 1);
    EXPECT_EQ(serializer.getSerializedString(), R"(<env:Subcode>
  <env:Value>b</env:Value>
</env:Subcode>
)");
}

TEST(TzSoapSerializerDerived, ACopyGoesOnWhereTheOriginalStands) {
    TzSoapCompositeType outer(nameIn("o", "p", "urn:p"));
    outer.appendChild(intValue("a", 1));
    outer.appendChild(intValue("hook", 1));
    const TzSoapSimpleType value(nameIn("v", "p", "urn:p"), 2, TzSoapType::xsdInt, false);
    std::string copied;
    OpenSerializer serializer([&](OpenSerializer& half) {
        TzSoapSerializer copy(half);
        TzSoapSerializer assigned;
        assigned = half;
        value.acceptVisitor(copy);
        value.acceptVisitor(assigned);
        copied = copy.getSerializedString();
        EXPECT_EQ(assigned.getSerializedString(), copied);
    });
    outer.acceptVisitor(serializer);
    const std::string start =
        R"(<p:o xmlns:p="urn:p" xmlns:env="http://www.w3.org/2002/06/soap-envelope" env:encodingStyle="http://www.w3.org/2002/06/soap-encoding">
  <a>1</a>
)";
    EXPECT_EQ(copied, start + "  <p:v>2</p:v>\n");
    EXPECT_EQ(serializer.getSerializedString(), start + "</p:o>\n");
}

TEST(TzSoapSerializerDerived, ACopyPopsWhatItTookOver) {
    TzSoapCompositeType outer("o");
    outer.setEncodingStyle("urn:s");
    outer.addNamespaceAttribute("ns", "urn:0");
    const TzSoapCompositeType inner("i");
    OpenSerializer serializer;
    serializer.pushNamesAndEncodings(outer);
    serializer.pushNamesAndEncodings(inner);
    OpenSerializer copy(serializer);
    OpenSerializer assigned;
    assigned.pushNamesAndEncodings(inner);
    assigned = serializer;
    for (OpenSerializer* each : {&copy, &assigned}) {
        EXPECT_EQ(each->getUniquePrefix("ns", "urn:u"), "ns1");
        EXPECT_EQ(each->getLastSpecifiedEncodingStyle(), "urn:s");
        each->popNamesAndEncodings(inner);
        EXPECT_EQ(each->getUniquePrefix("ns", "urn:u"), "ns1");
        EXPECT_EQ(each->getLastSpecifiedEncodingStyle(), "");
        each->popNamesAndEncodings(outer);
        EXPECT_EQ(each->getUniquePrefix("ns", "urn:u"), "ns");
        each->popNamesAndEncodings(outer);
    }
    EXPECT_EQ(serializer.getUniquePrefix("ns", "urn:u"), "ns1");
}

TEST(TzSoapSerializerDerived, ACopyMadeWithinAnElementPopsThatElement) {
    TzSoapCompositeType outer(nameIn("o", "p", "urn:p"));
    outer.appendChild(intValue("hook", 1));
    OpenSerializer serializer([&](OpenSerializer& half) {
        OpenSerializer copy(half);
        EXPECT_EQ(copy.getUniquePrefix("p", "urn:u"), "p1");
        copy.popNamesAndEncodings(outer);
        EXPECT_EQ(copy.getUniquePrefix("p", "urn:u"), "p");
        // The original is still within the element, and stays there.
        half.popNamesAndEncodings(outer);
        EXPECT_EQ(half.getUniquePrefix("p", "urn:u"), "p1");
    });
    outer.acceptVisitor(serializer);
    EXPECT_EQ(serializer.getUniquePrefix("p", "urn:u"), "p");
}

} // namespace
