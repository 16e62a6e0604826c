// SPDX-License-Identifier: MIT
#include <soap/TzSoapElementImp.h>

#include <tz/tools/Tzxmsg.h>

#include "support/Throws.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using Element = TzSoapElementImp;
using V = TzSoapVersion;

const TzXmlName Offset12("offset", TzXmlNamespace("", "http://www.w3.org/2002/06/soap-encoding"));

/// An element in which everything is set.
Element full() {
    Element element(TzXmlName("n", TzXmlNamespace("p", "urn:p")));
    element.addAttribute("a", "1");
    element.setActor("urn:actor");
    element.setEncodingStyle("urn:style");
    element.setIdAttribute("i");
    element.setOffsetAttribute("[3]");
    element.setMustUnderstand(true);
    element.setRoot(false);
    element.setTypeAttribute(TzXmlName("int", TzXmlNamespace::getXsd()));
    return element;
}

void expectFull(const Element& element) {
    EXPECT_EQ(element.getName(), TzXmlName("n", TzXmlNamespace("p", "urn:p")));
    EXPECT_TRUE(element.hasAttribute(TzXmlAttribute("a", "1")));
    EXPECT_EQ(element.getActorAttribute(), "urn:actor");
    EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:style");
    EXPECT_EQ(element.getIdAttribute(), "i");
    EXPECT_EQ(element.getOffsetAttribute(), "[3]");
    EXPECT_EQ(element.getMustUnderstandAttribute(), "true");
    EXPECT_EQ(element.getRootAttribute(), "0");
    EXPECT_EQ(element.getTypeAttribute(), "xsd:int");
    EXPECT_EQ(element.attributeCount(), 3U);
}

} // namespace

TEST(TzSoapElementImp, StartsWithNothingSet) {
    const Element element;
    EXPECT_TRUE(element.getName().isEmpty());
    EXPECT_EQ(element.attributeCount(), 0U);
    EXPECT_EQ(element.getActorAttribute(), "");
    EXPECT_EQ(element.getEncodingStyleAttribute(), "");
    EXPECT_FALSE(element.hasEncodingStyleAttribute());
    EXPECT_EQ(element.getIdAttribute(), "");
    EXPECT_EQ(element.getOffsetAttribute(), "");
    EXPECT_FALSE(element.getMustUnderstand());
    EXPECT_EQ(element.getMustUnderstandAttribute(), "");
    EXPECT_FALSE(element.getRoot());
    EXPECT_FALSE(element.isRootAttributeSet());
    EXPECT_EQ(element.getRootAttribute(), "");
    EXPECT_TRUE(element.getTypeValue().isEmpty());
    EXPECT_EQ(element.getTypeAttribute(), "");
    EXPECT_EQ(Element("n").getName(), TzXmlName("n"));
}

TEST(TzSoapElementImp, HasOneListOfAttributes) {
    Element element("n");
    element.addAttribute("a", "1");
    element.getAttributeSet().add(TzXmlName("b"), "2");
    element.getAttributes().add(TzXmlName("c"), "3");
    EXPECT_EQ(element.attributeCount(), 3U);
    EXPECT_EQ(&element.getAttributes(), &element.getAttributeSet());
    EXPECT_EQ(&std::as_const(element).getAttributes(), &std::as_const(element).getAttributeSet());
    element.setIdAttribute("i");
    EXPECT_TRUE(element.hasAttribute(TzXmlAttribute("id", "i")));
    element.clearAttributes();
    EXPECT_TRUE(element.getAttributeSet().empty());
    EXPECT_EQ(element.getIdAttribute(), "");
}

TEST(TzSoapElementImp, TextsOfMustUnderstandDependOnTheVersion) {
    Element element;
    element.setMustUnderstand(true);
    EXPECT_TRUE(element.getMustUnderstand());
    EXPECT_EQ(element.getMustUnderstandAttribute(), "true");
    EXPECT_EQ(element.getMustUnderstandAttribute(V::V1_1), "1");
    EXPECT_EQ(element.getMustUnderstandAttribute(V::V1_2), "true");
    element.setMustUnderstand(false);
    EXPECT_FALSE(element.getMustUnderstand());
    EXPECT_EQ(element.getMustUnderstandAttribute(), "false");
    EXPECT_EQ(element.getMustUnderstandAttribute(V::V1_1), "0");
    EXPECT_EQ(element.getMustUnderstandAttribute(V::V1_2), "false");
    element.setMustUnderstand(true);
    element.removeMustUnderstandAttribute();
    EXPECT_FALSE(element.getMustUnderstand());
    EXPECT_EQ(element.getMustUnderstandAttribute(), "");
    EXPECT_EQ(element.getMustUnderstandAttribute(V::V1_1), "");
    EXPECT_EQ(element.getMustUnderstandAttribute(V::V1_2), "");
    EXPECT_EQ(element.attributeCount(), 0U);
}

TEST(TzSoapElementImp, AnUnknownVersionIsRefusedOnlyWhereItMatters) {
    Element element;
    for (const int value : {-1, 0, 3}) {
        const auto version = static_cast<V::Version>(value);
        element.removeMustUnderstandAttribute();
        EXPECT_EQ(element.getMustUnderstandAttribute(version), "");
        element.setMustUnderstand(false);
        EXPECT_EQ(textThrown<Tzxmsg>([&] { element.getMustUnderstandAttribute(version); }),
                  "Unrecognized TzSoapVersion::Version");
    }
}

TEST(TzSoapElementImp, RootIsADigit) {
    Element element;
    element.setRoot(false);
    EXPECT_EQ(element.getRootAttribute(), "0");
    EXPECT_FALSE(element.getRoot());
    EXPECT_TRUE(element.isRootAttributeSet());
    element.setRoot(true);
    EXPECT_EQ(element.getRootAttribute(), "1");
    EXPECT_TRUE(element.getRoot());
    element.removeRootAttribute();
    EXPECT_EQ(element.getRootAttribute(), "");
    EXPECT_FALSE(element.getRoot());
    EXPECT_FALSE(element.isRootAttributeSet());
}

TEST(TzSoapElementImp, AnEmptyEncodingStyleIsNone) {
    Element element;
    element.setEncodingStyle("");
    EXPECT_FALSE(element.hasEncodingStyleAttribute());
    element.setEncodingStyle("urn:a");
    EXPECT_TRUE(element.hasEncodingStyleAttribute());
    element.setEncodingStyle("");
    EXPECT_FALSE(element.hasEncodingStyleAttribute());
    element.setEncodingStyle("urn:b");
    element.removeEncodingStyleAttribute();
    EXPECT_FALSE(element.hasEncodingStyleAttribute());
    EXPECT_EQ(element.getEncodingStyleAttribute(), "");
}

TEST(TzSoapElementImp, TheEncodingStyleIsTakenAsItIs) {
    Element element;
    element.setEncodingStyle("  urn:a\t urn:b ");
    EXPECT_EQ(element.getEncodingStyleAttribute(), "  urn:a\t urn:b ");
    EXPECT_EQ(element.attributeCount(), 0U);
}

TEST(TzSoapElementImp, ActorAndEncodingStyleAreIndependent) {
    Element element;
    element.setActor("urn:a");
    EXPECT_EQ(element.getActorAttribute(), "urn:a");
    EXPECT_FALSE(element.hasEncodingStyleAttribute());
    element.setEncodingStyle("urn:s");
    element.removeActorAttribute();
    EXPECT_EQ(element.getActorAttribute(), "");
    EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:s");
}

TEST(TzSoapElementImp, TheIdIsAnAttribute) {
    Element element;
    element.setIdAttribute("i1");
    element.setIdAttribute("i2");
    EXPECT_EQ(element.getIdAttribute(), "i2");
    EXPECT_EQ(element.attributeCount(), 1U);
    element.removeIdAttribute();
    EXPECT_EQ(element.getIdAttribute(), "");
    EXPECT_EQ(element.attributeCount(), 0U);
}

TEST(TzSoapElementImp, TheOffsetHasTheNameOfTheLatestVersion) {
    Element element;
    element.setOffsetAttribute("[2]");
    EXPECT_EQ(element.getOffsetAttribute(), "[2]");
    EXPECT_TRUE(element.hasAttribute(TzXmlAttribute(Offset12, "[2]")));
    const TzXmlName offset11("offset",
                             TzXmlNamespace("", "http://schemas.xmlsoap.org/soap/encoding/"));
    element.removeOffsetAttribute();
    EXPECT_EQ(element.attributeCount(), 0U);
    element.addAttribute(offset11, "[1]");
    EXPECT_EQ(element.getOffsetAttribute(), "");
    element.removeOffsetAttribute();
    EXPECT_EQ(element.attributeCount(), 1U);
}

TEST(TzSoapElementImp, TheTypeIsNoAttribute) {
    Element element;
    element.setTypeAttribute(TzXmlName("t", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(element.getTypeAttribute(), "p:t");
    EXPECT_EQ(element.getTypeValue().getUri(), "urn:p");
    EXPECT_EQ(element.attributeCount(), 0U);
    element.removeTypeAttribute();
    EXPECT_TRUE(element.getTypeValue().isEmpty());
    EXPECT_EQ(element.getTypeAttribute(), "");
}

TEST(TzSoapElementImp, CopiesAreCompleteAndIndependent) {
    Element element = full();
    Element copy(element);
    expectFull(copy);
    copy.addAttribute("b", "2");
    copy.setActor("urn:other");
    copy.setRoot(true);
    copy.setName("m");
    expectFull(element);
    copy = element;
    expectFull(copy);
    copy.removeActorAttribute();
    expectFull(element);
    element = Element();
    EXPECT_EQ(element.attributeCount(), 0U);
    EXPECT_EQ(element.getActorAttribute(), "");
    EXPECT_TRUE(element.getName().isEmpty());
    EXPECT_EQ(element.getMustUnderstandAttribute(), "");
}

TEST(TzSoapElementImp, AssigningToItselfChangesNothing) {
    Element element = full();
    const Element& same = element;
    element = same;
    expectFull(element);
}
