// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlElementImp.h>

#include <gtest/gtest.h>

#include "support/AllocationFailure.h"

#include <utility>

namespace {

/// An attribute list that can do more.
class CountingList : public TzXmlAttributeSet {
public:
    bool isCrowded() const noexcept { return size() > 1; }
};

/// An element whose attribute list is of another class.
class Derived : public TzXmlElementImp {
public:
    explicit Derived(TzXmlName name)
        : TzXmlElementImp(std::move(name), std::in_place_type<CountingList>) {}
    Derived(const Derived& other)
        : TzXmlElementImp(other.getName(), other.listAs<CountingList>()) {}
    Derived& operator=(const Derived&) = default;

    CountingList& list() noexcept { return listAs<CountingList>(); }
};

TzXmlElementImp sample() {
    TzXmlElementImp element(TzXmlName("p:e"));
    element.addNamespaceAttribute(TzXmlNamespace("p", "urn:p"));
    element.addAttribute(TzXmlName("a"), "1");
    element.addAttribute(TzXmlAttribute(TzXmlName("b"), "2"));
    return element;
}

} // namespace

TEST(TzXmlElementImp, StandsAlone) {
    const TzXmlElementImp element;
    EXPECT_TRUE(element.getName().isEmpty());
    EXPECT_EQ(element.attributeCount(), 0U);
    EXPECT_EQ(element.attributesBegin(), element.attributesEnd());
    EXPECT_TRUE(element.getAttributes().empty());
}

TEST(TzXmlElementImp, HasAName) {
    TzXmlElementImp element(TzXmlName("p:e"));
    EXPECT_EQ(element.getName().asString(), "p:e");
    element.setName(TzXmlName("q:f"));
    EXPECT_EQ(std::as_const(element).getName().asString(), "q:f");
    element.getName().setPrefix("r");
    EXPECT_EQ(element.getName().asString(), "r:f");
}

TEST(TzXmlElementImp, HoldsAttributesInOrder) {
    TzXmlElementImp element = sample();
    EXPECT_EQ(element.attributeCount(), 3U);
    EXPECT_EQ(element.attributesEnd() - element.attributesBegin(), 3);
    EXPECT_EQ(element.attributesBegin()[0].getName().asString(), "xmlns:p");
    EXPECT_EQ(std::as_const(element).attributesBegin()[2].getValue(), "2");
    EXPECT_EQ(element.getAttributes().size(), 3U);
    EXPECT_EQ(&element.getAttributes(), &std::as_const(element).getAttributes());
}

TEST(TzXmlElementImp, FindsAttributesByName) {
    TzXmlElementImp element = sample();
    const TzXmlElementImp& constant = element;
    EXPECT_EQ(element.findAttribute(TzXmlName("b")), element.attributesBegin() + 2);
    EXPECT_EQ(constant.findAttribute(TzXmlName("b")), constant.attributesBegin() + 2);
    EXPECT_EQ(element.findAttribute(TzXmlName("c")), element.attributesEnd());
    EXPECT_EQ(constant.findAttribute(TzXmlName("c")), constant.attributesEnd());
    EXPECT_TRUE(element.hasAttribute(TzXmlName("a")));
    EXPECT_FALSE(element.hasAttribute(TzXmlName("c")));
    EXPECT_FALSE(element.hasAttribute(TzXmlName("p"))); // a declaration is something else
}

TEST(TzXmlElementImp, FindsAttributesByNameAndValue) {
    TzXmlElementImp element = sample();
    const TzXmlElementImp& constant = element;
    const TzXmlAttribute there(TzXmlName("b"), "2");
    const TzXmlAttribute other(TzXmlName("b"), "3");
    EXPECT_EQ(element.findAttribute(there), element.attributesBegin() + 2);
    EXPECT_EQ(constant.findAttribute(there), constant.attributesBegin() + 2);
    EXPECT_EQ(element.findAttribute(other), element.attributesEnd());
    EXPECT_EQ(constant.findAttribute(other), constant.attributesEnd());
    EXPECT_TRUE(element.hasAttribute(there));
    EXPECT_FALSE(element.hasAttribute(other));
}

TEST(TzXmlElementImp, AddingReplaces) {
    TzXmlElementImp element = sample();
    element.addAttribute(TzXmlName("a"), "changed");
    EXPECT_EQ(element.attributeCount(), 3U);
    EXPECT_EQ(element.attributesBegin()[1].getValue(), "changed");
}

TEST(TzXmlElementImp, RemovesAttributes) {
    TzXmlElementImp element = sample();
    element.removeAttribute(TzXmlAttribute(TzXmlName("a"), "other value"));
    EXPECT_TRUE(element.hasAttribute(TzXmlName("a")));
    element.removeAttribute(TzXmlAttribute(TzXmlName("a"), "1"));
    EXPECT_FALSE(element.hasAttribute(TzXmlName("a")));
    element.removeAttribute(TzXmlName("missing"));
    element.removeAttribute(TzXmlName("b"));
    EXPECT_EQ(element.attributeCount(), 1U);
    element.removeAttribute(element.attributesBegin());
    EXPECT_EQ(element.attributeCount(), 0U);
}

TEST(TzXmlElementImp, ClearsAttributesAndDeclarations) {
    TzXmlElementImp element = sample();
    element.clearAttributes();
    EXPECT_EQ(element.attributeCount(), 0U);
    EXPECT_EQ(element.getName().asString(), "p:e");
}

TEST(TzXmlElementImp, FindsDeclarations) {
    TzXmlElementImp element = sample();
    const TzXmlElementImp& constant = element;
    EXPECT_EQ(element.findNamespaceAttribute("p")->getValue(), "urn:p");
    EXPECT_EQ(constant.findNamespaceAttribute("p")->getValue(), "urn:p");
    EXPECT_EQ(element.findNamespaceAttribute("q"), element.attributesEnd());
    EXPECT_EQ(constant.findNamespaceAttribute("q"), constant.attributesEnd());
    EXPECT_EQ(element.findNamespaceAttribute("a"), element.attributesEnd()); // an attribute
    const TzXmlNamespace there("p", "urn:p");
    const TzXmlNamespace otherUri("p", "urn:q");
    const TzXmlNamespace otherPrefix("q", "urn:p");
    EXPECT_EQ(element.findNamespaceAttribute(there), element.attributesBegin());
    EXPECT_EQ(constant.findNamespaceAttribute(there), constant.attributesBegin());
    EXPECT_EQ(element.findNamespaceAttribute(otherUri), element.attributesEnd());
    EXPECT_EQ(constant.findNamespaceAttribute(otherUri), constant.attributesEnd());
    EXPECT_EQ(element.findNamespaceAttribute(otherPrefix), element.attributesEnd());
}

TEST(TzXmlElementImp, DeclaringAgainReplaces) {
    TzXmlElementImp element = sample();
    element.addNamespaceAttribute(TzXmlNamespace("p", "urn:new"));
    EXPECT_EQ(element.attributeCount(), 3U);
    EXPECT_EQ(element.findNamespaceAttribute("p")->getValue(), "urn:new");
}

TEST(TzXmlElementImp, RemovesDeclarations) {
    TzXmlElementImp element = sample();
    element.removeNamespaceAttribute(TzXmlNamespace("p", "urn:other"));
    EXPECT_NE(element.findNamespaceAttribute("p"), element.attributesEnd());
    element.removeNamespaceAttribute(TzXmlNamespace("p", "urn:p"));
    EXPECT_EQ(element.findNamespaceAttribute("p"), element.attributesEnd());
    element.addNamespaceAttribute(TzXmlNamespace("p", "urn:p"));
    element.removeNamespaceAttribute("missing");
    element.removeNamespaceAttribute("p");
    EXPECT_EQ(element.findNamespaceAttribute("p"), element.attributesEnd());
    EXPECT_EQ(element.attributeCount(), 2U);
}

TEST(TzXmlElementImp, DeclaresTheDefaultNamespace) {
    TzXmlElementImp element = sample();
    EXPECT_EQ(element.getDefaultNamespaceAttribute(), "");
    element.setDefaultNamespaceAttribute(TzCString("urn:d"));
    EXPECT_EQ(element.getDefaultNamespaceAttribute(), "urn:d");
    EXPECT_EQ(element.attributesBegin()[3].getName().asString(), "xmlns");
    element.setDefaultNamespaceAttribute(TzXmlNamespace("ignored", "urn:e"));
    EXPECT_EQ(element.getDefaultNamespaceAttribute(), "urn:e");
    EXPECT_EQ(element.attributeCount(), 4U);
    EXPECT_EQ(element.findNamespaceAttribute("ignored"), element.attributesEnd());
    element.unsetDefaultNamespaceAttribute();
    EXPECT_EQ(element.getDefaultNamespaceAttribute(), "");
    EXPECT_EQ(element.attributeCount(), 3U);
    element.unsetDefaultNamespaceAttribute();
    EXPECT_EQ(element.attributeCount(), 3U);
}

TEST(TzXmlElementImp, CopiesAreIndependent) {
    const TzXmlElementImp first = sample();
    TzXmlElementImp second(first);
    second.addAttribute(TzXmlName("a"), "changed");
    second.setName(TzXmlName("other"));
    EXPECT_EQ(first.findAttribute(TzXmlName("a"))->getValue(), "1");
    EXPECT_EQ(first.getName().asString(), "p:e");
    second = first;
    EXPECT_EQ(second.getName().asString(), "p:e");
    EXPECT_EQ(second.findAttribute(TzXmlName("a"))->getValue(), "1");
    second.clearAttributes();
    EXPECT_EQ(first.attributeCount(), 3U);
    const TzXmlElementImp& same = second;
    second = same;
    EXPECT_EQ(second.getName().asString(), "p:e");
}

TEST(TzXmlElementImp, WorksOnTheListOfADerivedClass) {
    Derived element(TzXmlName("e"));
    element.addAttribute(TzXmlName("a"), "1");
    element.addNamespaceAttribute(TzXmlNamespace("p", "urn:p"));
    EXPECT_EQ(&element.getAttributes(), &element.list());
    EXPECT_EQ(element.list().size(), 2U);
    element.list().clear();
    EXPECT_EQ(element.attributeCount(), 0U);
}

TEST(TzXmlElementImp, CopiesOfDerivedClassesKeepListsApart) {
    Derived first(TzXmlName("e"));
    first.addAttribute(TzXmlName("a"), "1");
    Derived second(first);
    EXPECT_EQ(&second.getAttributes(), &second.list());
    second.addAttribute(TzXmlName("b"), "2");
    EXPECT_EQ(first.attributeCount(), 1U);
    EXPECT_EQ(second.attributeCount(), 2U);
    first = second;
    EXPECT_EQ(&first.getAttributes(), &first.list());
    EXPECT_EQ(first.attributeCount(), 2U);
}

TEST(TzXmlElementImp, ACopyOfTheBaseOwnsItsList) {
    TzXmlElementImp copy;
    {
        Derived derived(TzXmlName("e"));
        derived.addAttribute(TzXmlName("a"), "1");
        const TzXmlElementImp sliced(derived);
        EXPECT_NE(&sliced.getAttributes(), &derived.list());
        copy = sliced;
    }
    EXPECT_EQ(copy.getName().asString(), "e");
    EXPECT_EQ(copy.findAttribute(TzXmlName("a"))->getValue(), "1");
}

TEST(TzXmlElementImp, FailedAllocationsLeaveNothingBehind) {
    const TzXmlElementImp original = sample();
    EXPECT_GT(failEachAllocation([&] {
                  TzXmlElementImp element(original);
                  element.setDefaultNamespaceAttribute(TzCString("urn:of:more:than:fifteen"));
                  element = original;
              }),
              4U);
    EXPECT_EQ(original.attributeCount(), 3U);
}
