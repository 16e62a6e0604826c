// SPDX-License-Identifier: MIT
#include <soap/TzSoapAttributeSet.h>

#include <tz/xml/TzXmlNamespace.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using Set = TzSoapAttributeSet;
using V = TzSoapVersion;

const V::Version both[] = {V::V1_1, V::V1_2};

/// The set as text: each attribute as URI, blank, local part, "=", value.
std::vector<std::string> listed(const TzXmlAttributeSet& set) {
    std::vector<std::string> result;
    for (const TzXmlAttribute& attribute : set) {
        result.push_back(attribute.getName().getUniqueName() + "=" + attribute.getValue());
    }
    return result;
}

/// Where the text operations of one attribute are.
struct TextAttribute {
    V::SoapAttribute attribute;
    const TzCString& (Set::*get)() const;
    const TzCString& (Set::*getFor)(V::Version) const;
    void (Set::*set)(const TzCString&, V::Version);
    void (Set::*remove)();
};

const TextAttribute texts[] = {
    {V::Actor, &Set::getActorAttribute, &Set::getActorAttribute, &Set::setActorAttribute,
     &Set::removeActorAttribute},
    {V::EncodingStyle, &Set::getEncodingStyleAttribute, &Set::getEncodingStyleAttribute,
     &Set::setEncodingStyleAttribute, &Set::removeEncodingStyleAttribute},
    {V::Position, &Set::getPositionAttribute, &Set::getPositionAttribute,
     &Set::setPositionAttribute, &Set::removePositionAttribute},
    {V::Offset, &Set::getOffsetAttribute, &Set::getOffsetAttribute, &Set::setOffsetAttribute,
     &Set::removeOffsetAttribute},
};

/// Where the operations of one boolean attribute are.
struct BooleanAttribute {
    V::SoapAttribute attribute;
    bool (Set::*get)() const;
    bool (Set::*getFor)(V::Version) const;
    void (Set::*set)(bool, V::Version);
    void (Set::*remove)();
    bool (Set::*isSet)() const;
};

const BooleanAttribute booleans[] = {
    {V::MustUnderstand, &Set::getMustUnderstandAttribute, &Set::getMustUnderstandAttribute,
     &Set::setMustUnderstandAttribute, &Set::removeMustUnderstandAttribute,
     &Set::isMustUnderstandAttributeSet},
    {V::Root, &Set::getRootAttribute, &Set::getRootAttribute, &Set::setRootAttribute,
     &Set::removeRootAttribute, &Set::isRootAttributeSet},
};

V::Version otherThan(V::Version version) { return version == V::V1_1 ? V::V1_2 : V::V1_1; }

std::string normalised(const std::string& style) {
    Set set;
    set.setEncodingStyleAttribute(style, V::V1_2);
    return set.getEncodingStyleAttribute();
}

} // namespace

TEST(TzSoapAttributeSet, FixedNamesAndValues) {
    EXPECT_EQ(Set::getTrueAttributeValue(), "1");
    EXPECT_EQ(Set::getFalseAttributeValue(), "0");
    EXPECT_EQ(Set::getEmptyString(), "");
    EXPECT_EQ(Set::getIdAttributeName().getLocalName(), "id");
    EXPECT_TRUE(Set::getIdAttributeName().getNamespace().isEmpty());
    EXPECT_EQ(Set::getTypeAttributeName().getUniqueName(),
              "http://www.w3.org/2001/XMLSchema-instance:type");
    EXPECT_EQ(Set::getTypeAttributeName().getQualifiedName(), "xsi:type");
    EXPECT_EQ(Set::getNullAttributeName().getUniqueName(),
              "http://www.w3.org/2001/XMLSchema-instance:nil");
    EXPECT_EQ(Set::getNullAttributeName().getQualifiedName(), "xsi:nil");
}

TEST(TzSoapAttributeSet, TheIdNameIsUnqualified) {
    EXPECT_TRUE(Set::matchIdAttributeName(TzXmlName("id")));
    EXPECT_FALSE(Set::matchIdAttributeName(TzXmlName("ID")));
    EXPECT_FALSE(Set::matchIdAttributeName(TzXmlName("id", TzXmlNamespace("a", "urn:a"))));
    EXPECT_FALSE(Set::matchIdAttributeName(TzXmlName()));
}

TEST(TzSoapAttributeSet, TheTypeNameIsKnownInEverySchemaInstanceNamespace) {
    const auto type = [](const char* uri) { return TzXmlName("type", TzXmlNamespace("p", uri)); };
    EXPECT_TRUE(Set::matchTypeAttributeName(type("http://www.w3.org/2001/XMLSchema-instance")));
    EXPECT_TRUE(Set::matchTypeAttributeName(type("http://www.w3.org/2000/10/XMLSchema-instance")));
    EXPECT_TRUE(Set::matchTypeAttributeName(type("http://www.w3.org/1999/XMLSchema-instance")));
    EXPECT_FALSE(Set::matchTypeAttributeName(type("http://www.w3.org/2001/XMLSchema")));
    EXPECT_FALSE(Set::matchTypeAttributeName(TzXmlName("type")));
    EXPECT_FALSE(Set::matchTypeAttributeName(Set::getNullAttributeName()));
}

TEST(TzSoapAttributeSet, TextAttributesArePutUnderTheNameOfTheVersion) {
    for (const TextAttribute& entry : texts) {
        for (const V::Version version : both) {
            Set set;
            (set.*entry.set)("urn:value", version);
            ASSERT_EQ(set.size(), 1U);
            EXPECT_EQ(set.begin()->getName(), V::getSoapAttributeName(entry.attribute, version));
            EXPECT_EQ((set.*entry.get)(), "urn:value");
            EXPECT_EQ((set.*entry.getFor)(version), "urn:value");
            EXPECT_EQ((set.*entry.getFor)(otherThan(version)), "");
            (set.*entry.remove)();
            EXPECT_TRUE(set.empty());
        }
    }
}

TEST(TzSoapAttributeSet, AbsentTextAttributesAreTheEmptyString) {
    Set set;
    set.add(TzXmlName("a"), "b");
    for (const TextAttribute& entry : texts) {
        EXPECT_EQ(&(set.*entry.get)(), &Set::getEmptyString());
        EXPECT_EQ(&(set.*entry.getFor)(V::V1_1), &Set::getEmptyString());
        EXPECT_EQ(&(set.*entry.getFor)(V::V1_2), &Set::getEmptyString());
        (set.*entry.remove)();
    }
    EXPECT_EQ(set.size(), 1U);
}

TEST(TzSoapAttributeSet, TheFormOfTheLatestVersionWins) {
    for (const TextAttribute& entry : texts) {
        Set set;
        (set.*entry.set)("one", V::V1_1);
        (set.*entry.set)("two", V::V1_2);
        ASSERT_EQ(set.size(), 2U);
        EXPECT_EQ((set.*entry.get)(), "two");
        EXPECT_EQ((set.*entry.getFor)(V::V1_1), "one");
        // Only the one that the look-up finds is removed.
        (set.*entry.remove)();
        EXPECT_EQ((set.*entry.get)(), "one");
        (set.*entry.remove)();
        EXPECT_TRUE(set.empty());
    }
}

TEST(TzSoapAttributeSet, BooleansAreWrittenAsDigits) {
    for (const BooleanAttribute& entry : booleans) {
        for (const V::Version version : both) {
            Set set;
            EXPECT_FALSE((set.*entry.isSet)());
            EXPECT_FALSE((set.*entry.get)());
            (set.*entry.set)(true, version);
            ASSERT_EQ(set.size(), 1U);
            EXPECT_EQ(set.begin()->getName(), V::getSoapAttributeName(entry.attribute, version));
            EXPECT_EQ(set.begin()->getValue(), "1");
            EXPECT_TRUE((set.*entry.get)());
            EXPECT_TRUE((set.*entry.getFor)(version));
            EXPECT_FALSE((set.*entry.getFor)(otherThan(version)));
            EXPECT_TRUE((set.*entry.isSet)());
            (set.*entry.set)(false, version);
            ASSERT_EQ(set.size(), 1U);
            EXPECT_EQ(set.begin()->getValue(), "0");
            EXPECT_FALSE((set.*entry.get)());
            EXPECT_FALSE((set.*entry.getFor)(version));
            EXPECT_TRUE((set.*entry.isSet)());
            (set.*entry.remove)();
            EXPECT_TRUE(set.empty());
            EXPECT_FALSE((set.*entry.isSet)());
        }
    }
}

TEST(TzSoapAttributeSet, OnlyTheDigitIsTrue) {
    for (const BooleanAttribute& entry : booleans) {
        for (const V::Version version : both) {
            for (const char* value : {"true", "", "01", " 1", "1 ", "TRUE", "yes", "false"}) {
                Set set;
                set.add(V::getSoapAttributeName(entry.attribute, version), value);
                EXPECT_FALSE((set.*entry.get)()) << value;
                EXPECT_FALSE((set.*entry.getFor)(version)) << value;
                EXPECT_FALSE((set.*entry.isSet)()) << value;
            }
        }
    }
}

TEST(TzSoapAttributeSet, BooleansOfTheLatestVersionWin) {
    for (const BooleanAttribute& entry : booleans) {
        Set set;
        (set.*entry.set)(true, V::V1_1);
        (set.*entry.set)(false, V::V1_2);
        EXPECT_FALSE((set.*entry.get)());
        EXPECT_TRUE((set.*entry.getFor)(V::V1_1));
        (set.*entry.remove)();
        EXPECT_TRUE((set.*entry.get)());
    }
}

TEST(TzSoapAttributeSet, TheFormOfTheLatestVersionDecidesWhetherABooleanIsSet) {
    for (const BooleanAttribute& entry : booleans) {
        Set set;
        (set.*entry.set)(true, V::V1_1);
        set.add(V::getSoapAttributeName(entry.attribute, V::V1_2), "true");
        EXPECT_FALSE((set.*entry.isSet)());
        EXPECT_FALSE((set.*entry.get)());
        EXPECT_TRUE((set.*entry.getFor)(V::V1_1));
    }
}

TEST(TzSoapAttributeSet, ActorAndRoleAreOneAttribute) {
    Set set;
    set.setActorAttribute("urn:next", V::V1_2);
    EXPECT_EQ(listed(set),
              std::vector<std::string>{"http://www.w3.org/2002/06/soap-envelope:role=urn:next"});
    Set older;
    older.setActorAttribute("urn:next", V::V1_1);
    EXPECT_EQ(listed(older),
              std::vector<std::string>{"http://schemas.xmlsoap.org/soap/envelope/:actor=urn:next"});
    EXPECT_EQ(older.getActorAttribute(V::V1_2), "");
    EXPECT_EQ(older.getActorAttribute(), "urn:next");
}

TEST(TzSoapAttributeSet, ArrayTypeExistsIn11Only) {
    Set set;
    set.setArrayTypeAttribute("xsd:int[2]", V::V1_1);
    EXPECT_EQ(listed(set), std::vector<std::string>{
                               "http://schemas.xmlsoap.org/soap/encoding/:arrayType=xsd:int[2]"});
    EXPECT_EQ(set.getArrayTypeAttribute(), "xsd:int[2]");
    EXPECT_EQ(set.getArrayTypeAttribute(V::V1_1), "xsd:int[2]");
    EXPECT_EQ(set.getArrayTypeAttribute(V::V1_2), "");
    set.setArrayTypeAttribute("xsd:int[3]", V::V1_2);
    EXPECT_EQ(set.size(), 1U);
    EXPECT_EQ(set.getArrayTypeAttribute(), "xsd:int[2]");
    set.removeArrayTypeAttribute();
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(set.getArrayTypeAttribute(), "");
    set.removeArrayTypeAttribute();
}

TEST(TzSoapAttributeSet, AnAttributeWithoutANameIsNoArrayType) {
    Set set;
    set.append(TzXmlAttribute(TzXmlName(), "nameless"));
    EXPECT_EQ(set.getArrayTypeAttribute(), "");
    EXPECT_EQ(set.getArrayTypeAttribute(V::V1_2), "");
}

TEST(TzSoapAttributeSet, SettingTwiceKeepsThePlace) {
    Set set;
    set.setPositionAttribute("[1]", V::V1_1);
    set.setIdAttribute("a");
    set.setPositionAttribute("[2]", V::V1_1);
    ASSERT_EQ(set.size(), 2U);
    EXPECT_EQ(set.begin()->getValue(), "[2]");
    EXPECT_EQ(set.getPositionAttribute(), "[2]");
}

TEST(TzSoapAttributeSet, RemovingKeepsTheOrderOfTheOthers) {
    Set set;
    set.setIdAttribute("a");
    set.setMustUnderstandAttribute(true, V::V1_1);
    set.add(TzXmlName("b"), "b");
    set.setNullAttribute(true);
    set.add(TzXmlName("c"), "c");
    set.removeMustUnderstandAttribute();
    set.removeNullAttribute();
    EXPECT_EQ(listed(set), (std::vector<std::string>{"id=a", "b=b", "c=c"}));
    set.removeIdAttribute();
    EXPECT_EQ(listed(set), (std::vector<std::string>{"b=b", "c=c"}));
}

TEST(TzSoapAttributeSet, EncodingStylesAreSeparatedBySingleBlanks) {
    struct Case {
        const char* style;
        const char* expected;
    };
    const Case cases[] = {
        {"", ""},
        {"urn:a", "urn:a"},
        {"urn:a urn:b", "urn:a urn:b"},
        {"  urn:a\t\n urn:b  ", "urn:a urn:b"},
        {" \t\n ", ""},
        {"\turn:a", "urn:a"},
        {"urn:a\n", "urn:a"},
        {"a  b\tc\nd", "a b c d"},
        {" a", "a"},
        {"a ", "a"},
        {"\r", "\r"}, // a carriage return is not white space here
        {"a\r\nb", "a\r b"},
    };
    for (const Case& entry : cases) {
        EXPECT_EQ(normalised(entry.style), entry.expected) << entry.style;
    }
}

TEST(TzSoapAttributeSet, EmptyEncodingStylesAreThere) {
    Set set;
    EXPECT_FALSE(set.hasEncodingStyleAttribute());
    set.setEncodingStyleAttribute(" \t ", V::V1_1);
    EXPECT_TRUE(set.hasEncodingStyleAttribute());
    ASSERT_EQ(set.size(), 1U);
    EXPECT_EQ(set.begin()->getValue(), "");
    EXPECT_EQ(set.getEncodingStyleAttribute(), "");
    set.removeEncodingStyleAttribute();
    EXPECT_FALSE(set.hasEncodingStyleAttribute());
    set.setEncodingStyleAttribute("urn:a", V::V1_2);
    EXPECT_TRUE(set.hasEncodingStyleAttribute());
}

TEST(TzSoapAttributeSet, OnlyTheEncodingStyleIsNormalised) {
    Set set;
    set.setActorAttribute("  a\t b ", V::V1_1);
    EXPECT_EQ(set.getActorAttribute(), "  a\t b ");
    set.add(V::getSoapAttributeName(V::EncodingStyle, V::V1_1), "  a\t b ");
    EXPECT_EQ(set.getEncodingStyleAttribute(), "  a\t b ");
}

TEST(TzSoapAttributeSet, Id) {
    Set set;
    EXPECT_EQ(&set.getIdAttribute(), &Set::getEmptyString());
    set.add(TzXmlName("id", TzXmlNamespace("a", "urn:a")), "not this");
    EXPECT_EQ(set.getIdAttribute(), "");
    set.setIdAttribute("x-1");
    EXPECT_EQ(set.getIdAttribute(), "x-1");
    set.setIdAttribute("x-2");
    EXPECT_EQ(set.getIdAttribute(), "x-2");
    EXPECT_EQ(set.size(), 2U);
    set.removeIdAttribute();
    set.removeIdAttribute();
    EXPECT_EQ(listed(set), std::vector<std::string>{"urn:a:id=not this"});
}

TEST(TzSoapAttributeSet, Nil) {
    Set set;
    EXPECT_FALSE(set.getNullAttribute());
    set.setNullAttribute(true);
    EXPECT_TRUE(set.getNullAttribute());
    EXPECT_EQ(listed(set),
              std::vector<std::string>{"http://www.w3.org/2001/XMLSchema-instance:nil=1"});
    set.setNullAttribute(false);
    EXPECT_FALSE(set.getNullAttribute());
    EXPECT_EQ(listed(set),
              std::vector<std::string>{"http://www.w3.org/2001/XMLSchema-instance:nil=0"});
    set.add(Set::getNullAttributeName(), "true");
    EXPECT_FALSE(set.getNullAttribute());
    set.removeNullAttribute();
    EXPECT_TRUE(set.empty());
    set.removeNullAttribute();
}

TEST(TzSoapAttributeSet, CopiesAreIndependent) {
    Set set;
    set.setIdAttribute("a");
    Set copy(set);
    copy.setIdAttribute("b");
    EXPECT_EQ(set.getIdAttribute(), "a");
    set = copy;
    EXPECT_EQ(set.getIdAttribute(), "b");
    copy.removeIdAttribute();
    EXPECT_EQ(set.getIdAttribute(), "b");
}

TEST(TzSoapAttributeSet, MovesTakeTheListAlong) {
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Set>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Set>);
    Set set;
    set.setIdAttribute("a");
    const TzXmlAttribute* place = std::as_const(set).begin();
    Set moved(std::move(set));
    EXPECT_EQ(std::as_const(moved).begin(), place);
    Set assigned;
    assigned = std::move(moved);
    EXPECT_EQ(std::as_const(assigned).begin(), place);
    EXPECT_EQ(assigned.getIdAttribute(), "a");
}

TEST(TzSoapAttributeSet, AttributesAreFoundAmongMany) {
    Set set;
    for (int i = 0; i < 1000; ++i) {
        set.add(TzXmlName("a" + std::to_string(i)), "v");
    }
    set.setMustUnderstandAttribute(true, V::V1_2);
    set.setActorAttribute("urn:x", V::V1_1);
    EXPECT_TRUE(set.getMustUnderstandAttribute());
    EXPECT_EQ(set.getActorAttribute(), "urn:x");
    set.removeMustUnderstandAttribute();
    EXPECT_FALSE(set.isMustUnderstandAttributeSet());
    EXPECT_EQ(set.getActorAttribute(), "urn:x");
    EXPECT_EQ(set.size(), 1001U);
}
