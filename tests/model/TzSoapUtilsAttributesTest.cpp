// SPDX-License-Identifier: MIT
#include <soap/TzSoapUtils.h>

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapTypeImp.h>

#include "model/TzSoapAccess.h"
#include "support/AllocationFailure.h"
#include "support/SoapAttributes.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using Utils = TzSoapUtils;
using V = TzSoapVersion;

/// A list of attributes to fill in one expression.
class Attributes {
public:
    Attributes& add(const TzXmlName& name, const TzCString& value) {
        set_.add(name, value);
        return *this;
    }
    Attributes& add(const char* localName, const TzXmlNamespace& nameSpace, const char* value) {
        return add(TzXmlName(localName, nameSpace), value);
    }
    Attributes& declare(const char* prefix, const char* uri) {
        set_.addDeclaration(TzXmlNamespace(prefix, uri));
        return *this;
    }
    Attributes& type(const char* value) { return add("type", TzXmlNamespace::getXsi(), value); }

    TzXmlAttributeSet& set() { return set_; }

private:
    TzXmlAttributeSet set_;
};

/// A reading of a message of one version in which the prefix "ctx" is bound.
class Reading {
public:
    explicit Reading(V::Version version) : message_(version) {
        outer_.addNamespaceAttribute(TzXmlNamespace("ctx", "urn:ctx"));
        context_.setSoapMessageImp(&TzSoapAccess::body(message_));
        context_.getNamespaces().push_back(&outer_);
    }

    TzSoapParseContext* context() { return &context_; }
    TzXmlElementImp& outer() { return outer_; }

    /// An element that was given the attributes, itself among the open elements.
    TzSoapTypeImp read(Attributes& attributes) {
        TzSoapTypeImp element("n");
        context_.getNamespaces().push_back(&element);
        Utils::copyAttributes(std::as_const(attributes.set()), element, &context_);
        context_.getNamespaces().pop_back();
        return element;
    }

private:
    TzSoapMessage message_;
    TzXmlElementImp outer_;
    TzSoapParseContext context_;
};

std::string spelt(const TzXmlName& name) {
    return name.getPrefix() + "|" + name.getLocalName() + "|" + name.getUri();
}

} // namespace

TEST(TzSoapUtilsAttributes, AttributesOfSoapBecomeProperties) {
    for (const auto version : {V::V1_1, V::V1_2}) {
        const TzXmlNamespace& env = version == V::V1_1 ? Env11 : Env12;
        const TzXmlNamespace& enc = version == V::V1_1 ? Enc11 : Enc12;
        Attributes attributes;
        attributes.add("mustUnderstand", env, "1")
            .add("encodingStyle", env, "urn:s")
            .add(version == V::V1_1 ? "actor" : "role", env, "urn:a")
            .add("root", enc, "1");
        const TzSoapTypeImp element = Reading(version).read(attributes);
        EXPECT_EQ(attributeList(element.getAttributeSet()), "");
        EXPECT_EQ(element.getMustUnderstandAttribute(), "true");
        EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:s");
        EXPECT_EQ(element.getActorAttribute(), "urn:a");
        EXPECT_EQ(element.getRootAttribute(), "1");
    }
}

TEST(TzSoapUtilsAttributes, AttributesOfTheOtherVersionStay) {
    Attributes attributes;
    attributes.add("mustUnderstand", Env12, "1")
        .add("encodingStyle", Env12, "urn:s")
        .add("role", Env12, "urn:r")
        .add("role", Env11, "urn:r")
        .add("root", Enc12, "1")
        .add("root", Env11, "1")
        .add("mustUnderstand", "1");
    const TzSoapTypeImp element = Reading(V::V1_1).read(attributes);
    EXPECT_EQ(attributeList(element.getAttributeSet()), attributeList(attributes.set()));
    EXPECT_EQ(element.getMustUnderstandAttribute(), "");
    EXPECT_EQ(element.getRootAttribute(), "");
    EXPECT_EQ(element.getActorAttribute(), "");
    EXPECT_FALSE(element.hasEncodingStyleAttribute());
}

TEST(TzSoapUtilsAttributes, BooleansOfSoapAreReadInBothForms) {
    const std::pair<const char*, const char*> cases[] = {
        {"1", "true"}, {"true", "true"},  {"0", "false"},  {"false", "false"},
        {"", "false"}, {"TRUE", "false"}, {" 1", "false"}, {"yes", "false"}};
    for (const auto& [value, expected] : cases) {
        Attributes attributes;
        attributes.add("mustUnderstand", Env12, value).add("root", Enc12, value);
        const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
        EXPECT_EQ(element.getMustUnderstandAttribute(), expected) << value;
        EXPECT_EQ(element.getRoot(), expected == std::string("true")) << value;
        EXPECT_TRUE(element.isRootAttributeSet()) << value;
    }
}

TEST(TzSoapUtilsAttributes, OtherAttributesAreKeptInOrder) {
    Attributes attributes;
    attributes.declare("p", "urn:p")
        .add("id", "i1")
        .add("mustUnderstand", Env12, "1")
        .add("a", TzXmlNamespace("p", "urn:p"), "<&>")
        .declare("", "urn:default")
        .add("position", Enc12, "3");
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_EQ(attributeList(element.getAttributeSet()),
              "http://www.w3.org/2000/xmlns/:p=urn:p;id=i1;urn:p:a=<&>;"
              "http://www.w3.org/2000/xmlns/:=urn:default;" +
                  Enc12.getUri() + ":position=3;");
    EXPECT_EQ(element.getIdAttribute(), "i1");
}

TEST(TzSoapUtilsAttributes, AttributesAreMergedIntoThoseThatAreThere) {
    TzSoapTypeImp element;
    element.addAttribute("a", "old");
    Attributes attributes;
    attributes.add("b", "2").add("a", "new");
    Utils::copyAttributes(attributes.set(), element, nullptr);
    EXPECT_EQ(attributeList(element.getAttributeSet()), "a=new;b=2;");
}

TEST(TzSoapUtilsAttributes, TheTypeIsResolvedByTheContext) {
    Attributes attributes;
    attributes.type("ctx:thing").add("a", "1");
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_EQ(spelt(element.getTypeValue()), "ctx|thing|urn:ctx");
    EXPECT_EQ(element.getTypeAttribute(), "ctx:thing");
    EXPECT_EQ(attributeList(element.getAttributeSet()), "a=1;");
}

TEST(TzSoapUtilsAttributes, TheTypeMayUseTheElementsOwnDeclarations) {
    Attributes attributes;
    attributes.type("own:thing").declare("own", "urn:own");
    EXPECT_EQ(spelt(Reading(V::V1_2).read(attributes).getTypeValue()), "own|thing|urn:own");
}

TEST(TzSoapUtilsAttributes, ATypeWithoutPrefixIsInTheDefaultNamespace) {
    Attributes attributes;
    attributes.type("thing");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(reading.read(attributes).getTypeValue()), "|thing|");
    reading.outer().setDefaultNamespaceAttribute(TzCString("urn:default"));
    EXPECT_EQ(spelt(reading.read(attributes).getTypeValue()), "|thing|urn:default");
}

TEST(TzSoapUtilsAttributes, AnUnboundPrefixHasTheEmptyUri) {
    Attributes attributes;
    attributes.type("none:a:b");
    EXPECT_EQ(spelt(Reading(V::V1_2).read(attributes).getTypeValue()), "none|a:b|");
}

TEST(TzSoapUtilsAttributes, TypesOfOlderSchemasAreRecognised) {
    Attributes attributes;
    attributes.add("type", TzXmlNamespace("i", "http://www.w3.org/1999/XMLSchema-instance"),
                   "ctx:old");
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_EQ(spelt(element.getTypeValue()), "ctx|old|urn:ctx");
    EXPECT_EQ(element.attributeCount(), 0U);
}

TEST(TzSoapUtilsAttributes, TheLastOfSeveralTypesCounts) {
    Attributes attributes;
    attributes.add("type", TzXmlNamespace("i", "http://www.w3.org/1999/XMLSchema-instance"), "a:b")
        .type("ctx:last");
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_EQ(spelt(element.getTypeValue()), "ctx|last|urn:ctx");
    EXPECT_EQ(element.attributeCount(), 0U);
}

TEST(TzSoapUtilsAttributes, AnUnqualifiedTypeIsAnyAttribute) {
    Attributes attributes;
    attributes.add("type", "ctx:a");
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_TRUE(element.getTypeValue().isEmpty());
    EXPECT_EQ(attributeList(element.getAttributeSet()), "type=ctx:a;");
}

TEST(TzSoapUtilsAttributes, WithoutContextTheLatestVersionIsRead) {
    TzSoapTypeImp element;
    Attributes attributes;
    attributes.add("role", Env12, "urn:r").add("actor", Env11, "urn:a").type("p:t");
    Utils::copyAttributes(attributes.set(), element, nullptr);
    EXPECT_EQ(element.getActorAttribute(), "urn:r");
    EXPECT_EQ(attributeList(element.getAttributeSet()), Env11.getUri() + ":actor=urn:a;");
    EXPECT_EQ(spelt(element.getTypeValue()), "p|t|");
}

TEST(TzSoapUtilsAttributes, AttributesGivenAwayAreMoved) {
    TzSoapTypeImp element;
    Attributes attributes;
    attributes.add("a", TzCString(100, 'x')).type("xsd:int").add("b", "2");
    const char* const text = attributes.set().find(TzXmlName("a"))->getValue().data();
    Utils::copyAttributes(std::move(attributes.set()), element, nullptr);
    ASSERT_EQ(element.attributeCount(), 2U);
    EXPECT_EQ(element.attributesBegin()[0].getValue().data(), text);
    EXPECT_EQ(element.attributesBegin()[1].getValue(), "2");
    EXPECT_EQ(element.getTypeAttribute(), "xsd:int");
}

TEST(TzSoapUtilsAttributes, AKnownTypeIsReadWithoutAllocating) {
    Reading reading(V::V1_2);
    Attributes attributes;
    attributes.type("ctx:int");
    TzSoapTypeImp first("n");
    Utils::copyAttributes(attributes.set(), first, reading.context());
    TzSoapTypeImp second("n");
    const std::size_t before = madeAllocations();
    Utils::copyAttributes(attributes.set(), second, reading.context());
    EXPECT_EQ(madeAllocations(), before);
    EXPECT_EQ(second.getTypeAttribute(), "ctx:int");
}

TEST(TzSoapUtilsAttributes, ManyAttributesAreCopied) {
    Attributes attributes;
    for (int i = 0; i < 2000; ++i) {
        attributes.add("a" + std::to_string(i), std::to_string(i));
    }
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_EQ(element.attributeCount(), 2000U);
    EXPECT_EQ(element.findAttribute(TzXmlName("a1999"))->getValue(), "1999");
}

TEST(TzSoapUtilsAttributes, AnElementBeginsWithNameAndAttributes) {
    TzSoapTypeImp element;
    Attributes attributes;
    attributes.add("a", "1").add("mustUnderstand", Env12, "1").type("x:y");
    EXPECT_EQ(Utils::beginElement(element, "n", attributes.set()), nullptr);
    EXPECT_EQ(element.getName(), TzXmlName("n"));
    EXPECT_EQ(attributeList(element.getAttributeSet()), attributeList(attributes.set()));
    EXPECT_EQ(element.getMustUnderstandAttribute(), "");
    EXPECT_TRUE(element.getTypeValue().isEmpty());
}

TEST(TzSoapUtilsAttributes, AnElementThatBeginsTellsItsEncodingStyle) {
    TzSoapTypeImp element;
    element.addAttribute("a", "old");
    Attributes attributes;
    attributes.add("encodingStyle", Env12, "urn:s").add("a", "new");
    EXPECT_EQ(*Utils::beginElement(element, "n", attributes.set()), "urn:s");
    EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:s");
    EXPECT_EQ(attributeList(element.getAttributeSet()), "a=new;");

    TzSoapTypeImp both;
    attributes.add("encodingStyle", Env11, "urn:1.1");
    EXPECT_EQ(*Utils::beginElement(both, "n", attributes.set()), "urn:s");
    EXPECT_EQ(attributeList(both.getAttributeSet()),
              "a=new;" + Env11.getUri() + ":encodingStyle=urn:1.1;");

    TzSoapTypeImp empty;
    Attributes none;
    none.add("encodingStyle", Env12, "");
    EXPECT_EQ(*Utils::beginElement(empty, "n", none.set()), "");
    EXPECT_FALSE(empty.hasEncodingStyleAttribute());
    EXPECT_EQ(empty.attributeCount(), 1U);
}

TEST(TzSoapUtilsAttributes, AttributesAreListedAsMarkup) {
    Attributes attributes;
    EXPECT_EQ(Utils::getAttributesAsString(attributes.set()), "");
    attributes.add("a", "1 < \"2\" &amp;")
        .declare("p", "urn:p")
        .add("b", TzXmlNamespace("p", "urn:p"), "")
        .declare("", "urn:d");
    EXPECT_EQ(Utils::getAttributesAsString(attributes.set()),
              " a=\"1 < \"2\" &amp;\" xmlns:p=\"urn:p\" p:b=\"\" xmlns=\"urn:d\"");
}

TEST(TzSoapUtilsAttributes, WithoutTypeAttributeThereIsNoType) {
    Attributes attributes;
    attributes.add("type", "ctx:a");
    EXPECT_TRUE(Utils::getTypeValue(attributes.set(), Reading(V::V1_2).context()).isEmpty());
}

TEST(TzSoapUtilsAttributes, TheTypeValueAsksTheContextFirst) {
    Attributes attributes;
    attributes.declare("ctx", "urn:own").type("ctx:a");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "ctx|a|urn:ctx");
}

TEST(TzSoapUtilsAttributes, TheTypeValueAsksTheAttributesNext) {
    Attributes attributes;
    attributes.declare("own", "urn:own").type("own:a");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "own|a|urn:own");
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), nullptr)), "own|a|urn:own");
}

TEST(TzSoapUtilsAttributes, TheTypeValueOfAnUnboundPrefixHasNoUri) {
    Attributes attributes;
    attributes.type("none:a");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "none|a|");
}

TEST(TzSoapUtilsAttributes, TheTypeValueWithoutPrefixIsInTheDefaultNamespace) {
    Attributes attributes;
    attributes.declare("", "urn:own").type("a");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "|a|urn:own");
    reading.outer().setDefaultNamespaceAttribute(TzCString("urn:outer"));
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "|a|urn:outer");
}

TEST(TzSoapUtilsAttributes, TheFirstTypeAttributeCounts) {
    Attributes attributes;
    attributes.add("type", TzXmlNamespace("i", "http://www.w3.org/1999/XMLSchema-instance"), "a:b")
        .type("c:d");
    EXPECT_EQ(Utils::getTypeValue(attributes.set(), nullptr).getLocalName(), "b");
}
