// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlAttribute.h>

#include <gtest/gtest.h>

TEST(TzXmlAttribute, HasNameAndValue) {
    const TzXmlAttribute attribute(TzXmlName("p:a"), "value");
    EXPECT_EQ(attribute.getName().getQualifiedName(), "p:a");
    EXPECT_EQ(attribute.getValue(), "value");
}

TEST(TzXmlAttribute, IsEmptyByDefault) {
    const TzXmlAttribute attribute;
    EXPECT_TRUE(attribute.getName().isEmpty());
    EXPECT_EQ(attribute.getValue(), "");
}

TEST(TzXmlAttribute, TakesChanges) {
    TzXmlAttribute attribute(TzXmlName("a"), "1");
    attribute.setValue("2");
    EXPECT_EQ(attribute.getValue(), "2");
    attribute.setName(TzXmlName("b"));
    EXPECT_EQ(attribute.getName(), TzXmlName("b"));
    attribute.getName().setPrefix("p");
    EXPECT_EQ(attribute.getName().getQualifiedName(), "p:b");
}

TEST(TzXmlAttribute, EqualityLooksAtNameAndValue) {
    const TzXmlAttribute attribute(TzXmlName("a", TzXmlNamespace("p", "urn:a")), "1");
    EXPECT_EQ(attribute, TzXmlAttribute(TzXmlName("a", TzXmlNamespace("q", "urn:a")), "1"));
    EXPECT_FALSE(attribute == TzXmlAttribute(TzXmlName("a", TzXmlNamespace("p", "urn:a")), "2"));
    EXPECT_FALSE(attribute == TzXmlAttribute(TzXmlName("b", TzXmlNamespace("p", "urn:a")), "1"));
    EXPECT_FALSE(attribute == TzXmlAttribute(TzXmlName("a", TzXmlNamespace("p", "urn:b")), "1"));
}

TEST(TzXmlAttribute, KnowsDeclarations) {
    const TzXmlAttribute declaration(TzXmlName("p", TzXmlNamespace::getXmlns()), "urn:a");
    EXPECT_TRUE(declaration.isNamespaceDeclaration());
    EXPECT_EQ(declaration.declaredNamespace(), TzXmlNamespace("p", "urn:a"));
    const TzXmlAttribute byDefault(TzXmlName("", TzXmlNamespace::getXmlns()), "urn:b");
    EXPECT_TRUE(byDefault.isNamespaceDeclaration());
    EXPECT_EQ(byDefault.declaredNamespace(), TzXmlNamespace("", "urn:b"));
    EXPECT_FALSE(TzXmlAttribute(TzXmlName("p"), "urn:a").isNamespaceDeclaration());
}

TEST(TzXmlAttribute, SharesAValue) {
    const TzXmlAttribute::SharedValue value(TzCString(100, 'x'));
    TzXmlAttribute one(TzXmlName("a"), "1");
    one.shareValue(value);
    TzXmlAttribute other = one;
    EXPECT_EQ(one.getValue(), TzCString(100, 'x'));
    EXPECT_EQ(one.getValue().data(), value->data());
    EXPECT_EQ(other.getValue().data(), value->data());
    EXPECT_EQ(one, TzXmlAttribute(TzXmlName("a"), TzCString(100, 'x')));
    other.setValue("2");
    EXPECT_EQ(other.getValue(), "2");
    one.assignValue("3");
    EXPECT_EQ(one.getValue(), "3");
    EXPECT_EQ(*value, TzCString(100, 'x'));
}

TEST(TzXmlAttribute, SharesTheUriOfADeclaration) {
    TzXmlAttribute declaration(TzXmlName("p", TzXmlNamespace::getXmlns()), "urn:a");
    declaration.shareValue(TzXmlAttribute::SharedValue("urn:b"));
    EXPECT_EQ(declaration.declaredNamespace(), TzXmlNamespace("p", "urn:b"));
}
