// SPDX-License-Identifier: MIT
#include <soap/TzSoapUtils.h>

#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/tools/TzDateTime.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlUtils.h>

#include "model/TzSoapAccess.h"
#include "support/AllocationFailure.h"
#include "support/CataloguedError.h"
#include "support/ForeignLocale.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <list>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using Utils = TzSoapUtils;
using V = TzSoapVersion;

const TzXmlNamespace Env11("e", "http://schemas.xmlsoap.org/soap/envelope/");
const TzXmlNamespace Enc11("c", "http://schemas.xmlsoap.org/soap/encoding/");
const TzXmlNamespace Env12("e", "http://www.w3.org/2002/06/soap-envelope");
const TzXmlNamespace Enc12("c", "http://www.w3.org/2002/06/soap-encoding");

/// Made like an object of a program: before main, from whichever source comes first.
struct EarlyBird {
    std::string text = Utils::misunderstoodString + Utils::WhiteSpace;
};
const EarlyBird earlyBird;

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

/// The attributes as "URI:local=value;...".
std::string listed(const TzXmlAttributeSet& set) {
    std::string text;
    for (const TzXmlAttribute& attribute : set) {
        text += attribute.getName().getUniqueName() + "=" + attribute.getValue() + ";";
    }
    return text;
}

std::list<TzCString> styles(const TzCString& text) {
    std::list<TzCString> list = {"left over"};
    Utils::stringToEncodingList(text, list);
    return list;
}

using List = std::list<TzCString>;

std::string spelt(const TzXmlName& name) {
    return name.getPrefix() + "|" + name.getLocalName() + "|" + name.getUri();
}

} // namespace

TEST(TzSoapUtils, ConstantsHaveTheirTexts) {
    EXPECT_EQ(Utils::Blank, " ");
    EXPECT_EQ(Utils::BlankUtf8, ' ');
    EXPECT_EQ(Utils::Colon, ":");
    EXPECT_EQ(Utils::EmptyString, "");
    EXPECT_EQ(Utils::Hyphen, "-");
    EXPECT_EQ(Utils::Hypen, "-");
    EXPECT_EQ(Utils::Minus, "-");
    EXPECT_EQ(Utils::Plus, "+");
    EXPECT_EQ(Utils::Newline, "\n");
    EXPECT_EQ(Utils::NewlineUtf8, '\n');
    EXPECT_EQ(Utils::Tab, "\t");
    EXPECT_EQ(Utils::TabUtf8, '\t');
    EXPECT_EQ(Utils::WhiteSpace, " \n\t");
    EXPECT_EQ(Utils::TimeSeparator, "T");
    EXPECT_EQ(Utils::UTimeZone, "Z");
    EXPECT_EQ(Utils::TZD, "Z+-");
    EXPECT_EQ(Utils::ISO8601Date, "%Y-%m-%d");
    EXPECT_EQ(Utils::ISO8601DateFormat, "%Y-%m-%d");
    EXPECT_EQ(Utils::ISO8601Format, "%Y-%m-%dT%X");
    EXPECT_EQ(Utils::ISO8601Time, "T%X");
    EXPECT_EQ(Utils::MinDateLength, 10);
    EXPECT_EQ(Utils::MinTimeLength, 8);
    EXPECT_EQ(Utils::MinDateTimeLength, 19);
    EXPECT_EQ(Utils::TrueTag, "true");
    static_assert(std::is_same_v<decltype(Utils::Blank), const TzCString>);
    static_assert(std::is_same_v<decltype(Utils::MinDateLength), const int>);
}

TEST(TzSoapUtils, KindsHaveTheirNames) {
    EXPECT_EQ(Utils::arrayString, "Array");
    EXPECT_EQ(Utils::badString, "Bad");
    EXPECT_EQ(Utils::compositeString, "Composite");
    EXPECT_EQ(Utils::genericString, "Generic");
    EXPECT_EQ(Utils::misunderstoodString, "Misunderstood");
    EXPECT_EQ(Utils::pcdataString, "Pcdata");
    EXPECT_EQ(Utils::referenceString, "Reference");
    EXPECT_EQ(Utils::simpleString, "Simple");
    EXPECT_EQ(Utils::userDefinedString, "UserDefined");
}

TEST(TzSoapUtils, ConstantsServeGlobalObjects) { EXPECT_EQ(earlyBird.text, "Misunderstood \n\t"); }

TEST(TzSoapUtils, MessageEncodingsAreNumbered) {
    EXPECT_EQ(Utils::NoEncoding, 0);
    EXPECT_EQ(Utils::XmlEncoding, 1);
    EXPECT_EQ(Utils::MimeEncoding, 2);
}

TEST(TzSoapUtils, DatesAreConvertedByTheXmlLibrary) {
    EXPECT_EQ(Utils::convertDateToISOString(TzDate(2002, 6, 7)), "2002-06-07");
    EXPECT_EQ(Utils::convertDateTimeToISOString(TzDateTime(2002, 6, 7, 8, 9, 10)),
              "2002-06-07T08:09:10");
    EXPECT_EQ(Utils::convertISODateStringToDate("2002-06-07"), TzDate(2002, 6, 7));
    EXPECT_EQ(Utils::convertISODateStringToDateTime("2002-06-07T08:09:10"),
              TzDateTime(2002, 6, 7, 8, 9, 10));
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>([] { Utils::convertISODateStringToDate("7 June"); }),
        textThrown<TzXmlBadArgError>([] { TzXmlUtils::convertISODateStringToDate("7 June"); }));
    textThrown<TzXmlBadArgError>([] { Utils::convertISODateStringToDateTime("2002-06-07"); });
    textThrown<TzXmlBadArgError>([] { Utils::convertDateToISOString(TzDate(2002, 2, 30)); });
}

TEST(TzSoapUtils, DatesDoNotLookAtTheLocale) {
    const ForeignLocale foreign;
    EXPECT_EQ(Utils::convertDateTimeToISOString(TzDateTime(2002, 6, 7, 20, 9, 10)),
              "2002-06-07T20:09:10");
}

TEST(TzSoapUtils, AnArrayTypeIsSplitBeforeItsLastBracket) {
    TzCString type = "t";
    TzCString size = "s";
    Utils::getElementTypeAndSize("xsd:string[2,3]", type, size);
    EXPECT_EQ(type, "xsd:string");
    EXPECT_EQ(size, "[2,3]");
    Utils::getElementTypeAndSize("xsd:int[][3]", type, size);
    EXPECT_EQ(type, "xsd:int[]");
    EXPECT_EQ(size, "[3]");
    Utils::getElementTypeAndSize("[", type, size);
    EXPECT_EQ(type, "");
    EXPECT_EQ(size, "[");
}

TEST(TzSoapUtils, AnArrayTypeWithoutBracketChangesNothing) {
    TzCString type = "t";
    TzCString size = "s";
    Utils::getElementTypeAndSize("xsd:string", type, size);
    Utils::getElementTypeAndSize("", type, size);
    EXPECT_EQ(type, "t");
    EXPECT_EQ(size, "s");
}

TEST(TzSoapUtils, AnArrayTypeMayBeItsOwnOutput) {
    TzCString text = "xsd:int[5]";
    TzCString size;
    Utils::getElementTypeAndSize(text, text, size);
    EXPECT_EQ(text, "xsd:int");
    EXPECT_EQ(size, "[5]");
    text = "xsd:int[5]";
    TzCString type;
    Utils::getElementTypeAndSize(text, type, text);
    EXPECT_EQ(type, "xsd:int");
    EXPECT_EQ(text, "[5]");
}

TEST(TzSoapUtils, RecognisesWhatATextIs) {
    EXPECT_EQ(Utils::getMessageEncoding("<e:Envelope/>"), Utils::XmlEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("x content-type: y Envelope"), Utils::MimeEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("Envelope CONTENT-TYPE"), Utils::MimeEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("Content-Type"), Utils::MimeEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("<e:envelope/>"), Utils::NoEncoding);
    EXPECT_EQ(Utils::getMessageEncoding("Content Type"), Utils::NoEncoding);
    EXPECT_EQ(Utils::getMessageEncoding(""), Utils::NoEncoding);
}

TEST(TzSoapUtils, RecognisesAMultipart) {
    EXPECT_TRUE(Utils::isMimeMultipart("Content-Type: Multipart/Related"));
    EXPECT_TRUE(Utils::isMimeMultipart("MIME-Version: 1.0\ncontent-type: multipart/related"));
    EXPECT_TRUE(Utils::isMimeMultipart("Content-Type: text/xml\n\n<a>MULTIPART</a>"));
    EXPECT_FALSE(Utils::isMimeMultipart("Content-Type: text/xml"));
    EXPECT_FALSE(Utils::isMimeMultipart("multipart before Content-Type: text/xml"));
    EXPECT_FALSE(Utils::isMimeMultipart("Content-Type multipart"));
    EXPECT_FALSE(Utils::isMimeMultipart(""));
    EXPECT_FALSE(Utils::isMimeMultipart("<"));
}

TEST(TzSoapUtils, AnEarlyTagIsNoMultipart) {
    const std::string header = "Content-Type: multipart/related";
    EXPECT_FALSE(Utils::isMimeMultipart("<" + header));
    EXPECT_FALSE(Utils::isMimeMultipart("x<" + header));
    EXPECT_FALSE(Utils::isMimeMultipart("\n<" + header));
    EXPECT_TRUE(Utils::isMimeMultipart("\n\n<" + header));
}

TEST(TzSoapUtils, EncodingStylesAreSplitAtWhiteSpace) {
    EXPECT_EQ(styles("a  b"), (List{"a", "b"}));
    EXPECT_EQ(styles(" \r\n\ta\tb\nc\rd "), (List{"a", "b", "c", "d"}));
    EXPECT_EQ(styles("a"), List{"a"});
    EXPECT_EQ(styles("a\fb"), List{"a\fb"});
}

TEST(TzSoapUtils, AnEmptyEncodingStyleIsOneEmptyEntry) {
    EXPECT_EQ(styles(""), List{""});
    EXPECT_EQ(styles("  "), List{});
    EXPECT_EQ(styles("\t\r\n"), List{});
}

TEST(TzSoapUtils, AnEntryMayBeTheTextToSplit) {
    List list = {"a b"};
    Utils::stringToEncodingList(list.front(), list);
    EXPECT_EQ(list, (List{"a", "b"}));
}

TEST(TzSoapUtils, TheFirstEncodingStyleIsAPartOfTheText) {
    const std::string text = " \n first second";
    const std::string_view first = Utils::firstEncodingStyle(text);
    EXPECT_EQ(first, "first");
    EXPECT_EQ(first.data(), text.data() + 3);
    EXPECT_EQ(Utils::firstEncodingStyle("one"), "one");
    EXPECT_EQ(Utils::firstEncodingStyle(""), "");
    EXPECT_EQ(Utils::firstEncodingStyle(" \t\r\n"), "");
}

TEST(TzSoapUtils, TheEncodingStyleAttributeOfEitherVersionIsFound) {
    TzSoapTypeImp element;
    EXPECT_EQ(Utils::getEncodingStyleAttributeUri(&element), "");
    element.getAttributeSet().add(TzXmlName("encodingStyle", Env11), " urn:a  urn:b");
    EXPECT_EQ(Utils::getEncodingStyleAttributeUri(&element), " urn:a  urn:b");
    element.getAttributeSet().add(TzXmlName("encodingStyle", Env12), "urn:c");
    EXPECT_EQ(Utils::getEncodingStyleAttributeUri(&element), "urn:c");
    element.setEncodingStyle("urn:property");
    EXPECT_EQ(Utils::getEncodingStyleAttributeUri(&element), "urn:c");
}

TEST(TzSoapUtils, TheEncodingStyleAttributeIsRemoved) {
    TzSoapTypeImp element;
    element.addAttribute("a", "1");
    element.addAttribute(TzXmlName("encodingStyle", Env11), "urn:s");
    element.addAttribute("b", "2");
    Utils::removeEncodingStyleAttribute(&element);
    EXPECT_EQ(listed(element.getAttributeSet()), "a=1;b=2;");
    EXPECT_FALSE(element.hasEncodingStyleAttribute());
    Utils::removeEncodingStyleAttribute(&element);
    EXPECT_EQ(element.attributeCount(), 2U);
}

TEST(TzSoapUtils, TheEncodingStyleAttributeBecomesAProperty) {
    TzSoapTypeImp element;
    element.addAttribute(TzXmlName("encodingStyle", Env12), "urn:s  urn:t");
    element.addAttribute("b", "2");
    Utils::removeAndFixEncodingStyleAttribute(&element);
    EXPECT_EQ(listed(element.getAttributeSet()), "b=2;");
    EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:s  urn:t");
}

TEST(TzSoapUtils, AnEmptyEncodingStyleAttributeStays) {
    TzSoapTypeImp element;
    element.setEncodingStyle("urn:before");
    element.addAttribute(TzXmlName("encodingStyle", Env12), "");
    Utils::removeEncodingStyleAttribute(&element);
    Utils::removeAndFixEncodingStyleAttribute(&element);
    EXPECT_TRUE(element.getAttributeSet().hasEncodingStyleAttribute());
    EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:before");
}

TEST(TzSoapUtils, ArrayAttributesOf11BecomeProperties) {
    TzSoapCompactArrayImp array("n", "xsd:int", 5, 0);
    array.addAttribute("a", "1");
    array.addAttribute(TzXmlName("offset", Enc11), "[2]");
    array.addAttribute(TzXmlName("arrayType", Enc11), "xsd:int[5]");
    array.addAttribute("b", "2");
    Utils::removeAndFixArrayTypeAttributes(&array, V::V1_1);
    EXPECT_EQ(listed(array.getAttributeSet()), "a=1;b=2;");
    EXPECT_EQ(array.getOffsetIndex(), TzSoapArrayTypeImp::Index{2});
    EXPECT_EQ(array.TzSoapElementImp::getOffsetAttribute(), "");
}

TEST(TzSoapUtils, ArrayAttributesOf12AreDropped) {
    TzSoapCompactArrayImp array("n", "xsd:int", 5, 0);
    array.addAttribute(TzXmlName("itemType", Enc12), "xsd:int");
    array.addAttribute(TzXmlName("arraySize", Enc12), "5");
    array.addAttribute(TzXmlName("offset", Enc12), "3");
    array.addAttribute("a", "1");
    Utils::removeAndFixArrayTypeAttributes(&array, V::V1_2);
    EXPECT_EQ(listed(array.getAttributeSet()), "a=1;");
    EXPECT_EQ(array.getOffsetIndex(), TzSoapArrayTypeImp::Index{3});
}

TEST(TzSoapUtils, ArrayAttributesThatAreNotThereChangeNothing) {
    TzSoapCompactArrayImp array("n", "xsd:int", 5, 0);
    array.addAttribute(TzXmlName("itemType", Enc12), "xsd:int");
    array.addAttribute(TzXmlName("offset", Enc11), "");
    Utils::removeAndFixArrayTypeAttributes(&array, V::V1_1);
    EXPECT_EQ(array.attributeCount(), 2U);
    EXPECT_FALSE(array.hasOffset());
}

TEST(TzSoapUtils, AnOffsetThatIsNoneIsRefused) {
    TzSoapCompactArrayImp array("n", "xsd:int", 5, 0);
    array.addAttribute(TzXmlName("offset", Enc11), "[x]");
    expectCatalogued<TzXmlBadArgError>(
        [&] { Utils::removeAndFixArrayTypeAttributes(&array, V::V1_1); }, 0x7008,
        "[BAD_INDEX_STRING][Illegal SOAP array index string: \"[x]\"]");
}

TEST(TzSoapUtils, AttributesOfSoapBecomeProperties) {
    for (const auto version : {V::V1_1, V::V1_2}) {
        const TzXmlNamespace& env = version == V::V1_1 ? Env11 : Env12;
        const TzXmlNamespace& enc = version == V::V1_1 ? Enc11 : Enc12;
        Attributes attributes;
        attributes.add("mustUnderstand", env, "1")
            .add("encodingStyle", env, "urn:s")
            .add(version == V::V1_1 ? "actor" : "role", env, "urn:a")
            .add("root", enc, "1");
        const TzSoapTypeImp element = Reading(version).read(attributes);
        EXPECT_EQ(listed(element.getAttributeSet()), "");
        EXPECT_EQ(element.getMustUnderstandAttribute(), "true");
        EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:s");
        EXPECT_EQ(element.getActorAttribute(), "urn:a");
        EXPECT_EQ(element.getRootAttribute(), "1");
    }
}

TEST(TzSoapUtils, AttributesOfTheOtherVersionStay) {
    Attributes attributes;
    attributes.add("mustUnderstand", Env12, "1")
        .add("encodingStyle", Env12, "urn:s")
        .add("role", Env12, "urn:r")
        .add("role", Env11, "urn:r")
        .add("root", Enc12, "1")
        .add("root", Env11, "1")
        .add("mustUnderstand", "1");
    const TzSoapTypeImp element = Reading(V::V1_1).read(attributes);
    EXPECT_EQ(listed(element.getAttributeSet()), listed(attributes.set()));
    EXPECT_EQ(element.getMustUnderstandAttribute(), "");
    EXPECT_EQ(element.getRootAttribute(), "");
    EXPECT_EQ(element.getActorAttribute(), "");
    EXPECT_FALSE(element.hasEncodingStyleAttribute());
}

TEST(TzSoapUtils, BooleansOfSoapAreReadInBothForms) {
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

TEST(TzSoapUtils, OtherAttributesAreKeptInOrder) {
    Attributes attributes;
    attributes.declare("p", "urn:p")
        .add("id", "i1")
        .add("mustUnderstand", Env12, "1")
        .add("a", TzXmlNamespace("p", "urn:p"), "<&>")
        .declare("", "urn:default")
        .add("position", Enc12, "3");
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_EQ(listed(element.getAttributeSet()),
              "http://www.w3.org/2000/xmlns/:p=urn:p;id=i1;urn:p:a=<&>;"
              "http://www.w3.org/2000/xmlns/:=urn:default;" +
                  Enc12.getUri() + ":position=3;");
    EXPECT_EQ(element.getIdAttribute(), "i1");
}

TEST(TzSoapUtils, AttributesAreMergedIntoThoseThatAreThere) {
    TzSoapTypeImp element;
    element.addAttribute("a", "old");
    Attributes attributes;
    attributes.add("b", "2").add("a", "new");
    Utils::copyAttributes(attributes.set(), element, nullptr);
    EXPECT_EQ(listed(element.getAttributeSet()), "a=new;b=2;");
}

TEST(TzSoapUtils, TheTypeIsResolvedByTheContext) {
    Attributes attributes;
    attributes.type("ctx:thing").add("a", "1");
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_EQ(spelt(element.getTypeValue()), "ctx|thing|urn:ctx");
    EXPECT_EQ(element.getTypeAttribute(), "ctx:thing");
    EXPECT_EQ(listed(element.getAttributeSet()), "a=1;");
}

TEST(TzSoapUtils, TheTypeMayUseTheElementsOwnDeclarations) {
    Attributes attributes;
    attributes.type("own:thing").declare("own", "urn:own");
    EXPECT_EQ(spelt(Reading(V::V1_2).read(attributes).getTypeValue()), "own|thing|urn:own");
}

TEST(TzSoapUtils, ATypeWithoutPrefixIsInTheDefaultNamespace) {
    Attributes attributes;
    attributes.type("thing");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(reading.read(attributes).getTypeValue()), "|thing|");
    reading.outer().setDefaultNamespaceAttribute(TzCString("urn:default"));
    EXPECT_EQ(spelt(reading.read(attributes).getTypeValue()), "|thing|urn:default");
}

TEST(TzSoapUtils, AnUnboundPrefixHasTheEmptyUri) {
    Attributes attributes;
    attributes.type("none:a:b");
    EXPECT_EQ(spelt(Reading(V::V1_2).read(attributes).getTypeValue()), "none|a:b|");
}

TEST(TzSoapUtils, TypesOfOlderSchemasAreRecognised) {
    Attributes attributes;
    attributes.add("type", TzXmlNamespace("i", "http://www.w3.org/1999/XMLSchema-instance"),
                   "ctx:old");
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_EQ(spelt(element.getTypeValue()), "ctx|old|urn:ctx");
    EXPECT_EQ(element.attributeCount(), 0U);
}

TEST(TzSoapUtils, AnUnqualifiedTypeIsAnyAttribute) {
    Attributes attributes;
    attributes.add("type", "ctx:a");
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_TRUE(element.getTypeValue().isEmpty());
    EXPECT_EQ(listed(element.getAttributeSet()), "type=ctx:a;");
}

TEST(TzSoapUtils, WithoutContextTheLatestVersionIsRead) {
    TzSoapTypeImp element;
    Attributes attributes;
    attributes.add("role", Env12, "urn:r").add("actor", Env11, "urn:a").type("p:t");
    Utils::copyAttributes(attributes.set(), element, nullptr);
    EXPECT_EQ(element.getActorAttribute(), "urn:r");
    EXPECT_EQ(listed(element.getAttributeSet()), Env11.getUri() + ":actor=urn:a;");
    EXPECT_EQ(spelt(element.getTypeValue()), "p|t|");
}

TEST(TzSoapUtils, AttributesGivenAwayAreMoved) {
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

TEST(TzSoapUtils, AKnownTypeIsReadWithoutAllocating) {
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

TEST(TzSoapUtils, ManyAttributesAreCopied) {
    Attributes attributes;
    for (int i = 0; i < 2000; ++i) {
        attributes.add("a" + std::to_string(i), std::to_string(i));
    }
    const TzSoapTypeImp element = Reading(V::V1_2).read(attributes);
    EXPECT_EQ(element.attributeCount(), 2000U);
    EXPECT_EQ(element.findAttribute(TzXmlName("a1999"))->getValue(), "1999");
}

TEST(TzSoapUtils, AnElementBeginsWithNameAndAttributes) {
    TzSoapTypeImp element;
    Attributes attributes;
    attributes.add("a", "1").add("mustUnderstand", Env12, "1").type("x:y");
    EXPECT_FALSE(Utils::beginElement(element, "n", attributes.set()).has_value());
    EXPECT_EQ(element.getName(), TzXmlName("n"));
    EXPECT_EQ(listed(element.getAttributeSet()), listed(attributes.set()));
    EXPECT_EQ(element.getMustUnderstandAttribute(), "");
    EXPECT_TRUE(element.getTypeValue().isEmpty());
}

TEST(TzSoapUtils, AnElementThatBeginsTellsItsEncodingStyle) {
    TzSoapTypeImp element;
    element.addAttribute("a", "old");
    Attributes attributes;
    attributes.add("encodingStyle", Env12, "urn:s").add("a", "new");
    EXPECT_EQ(Utils::beginElement(element, "n", attributes.set()), "urn:s");
    EXPECT_EQ(element.getEncodingStyleAttribute(), "urn:s");
    EXPECT_EQ(listed(element.getAttributeSet()), "a=new;");

    TzSoapTypeImp empty;
    Attributes none;
    none.add("encodingStyle", Env12, "");
    EXPECT_EQ(Utils::beginElement(empty, "n", none.set()), "");
    EXPECT_FALSE(empty.hasEncodingStyleAttribute());
    EXPECT_EQ(empty.attributeCount(), 1U);
}

TEST(TzSoapUtils, AttributesAreListedAsMarkup) {
    Attributes attributes;
    EXPECT_EQ(Utils::getAttributesAsString(attributes.set()), "");
    attributes.add("a", "1 < \"2\" &amp;")
        .declare("p", "urn:p")
        .add("b", TzXmlNamespace("p", "urn:p"), "")
        .declare("", "urn:d");
    EXPECT_EQ(Utils::getAttributesAsString(attributes.set()),
              " a=\"1 < \"2\" &amp;\" xmlns:p=\"urn:p\" p:b=\"\" xmlns=\"urn:d\"");
}

TEST(TzSoapUtils, WithoutTypeAttributeThereIsNoType) {
    Attributes attributes;
    attributes.add("type", "ctx:a");
    EXPECT_TRUE(Utils::getTypeValue(attributes.set(), Reading(V::V1_2).context()).isEmpty());
}

TEST(TzSoapUtils, TheTypeValueAsksTheContextFirst) {
    Attributes attributes;
    attributes.declare("ctx", "urn:own").type("ctx:a");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "ctx|a|urn:ctx");
}

TEST(TzSoapUtils, TheTypeValueAsksTheAttributesNext) {
    Attributes attributes;
    attributes.declare("own", "urn:own").type("own:a");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "own|a|urn:own");
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), nullptr)), "own|a|urn:own");
}

TEST(TzSoapUtils, TheTypeValueOfAnUnboundPrefixHasNoUri) {
    Attributes attributes;
    attributes.type("none:a");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "none|a|");
}

TEST(TzSoapUtils, TheTypeValueWithoutPrefixIsInTheDefaultNamespace) {
    Attributes attributes;
    attributes.declare("", "urn:own").type("a");
    Reading reading(V::V1_2);
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "|a|urn:own");
    reading.outer().setDefaultNamespaceAttribute(TzCString("urn:outer"));
    EXPECT_EQ(spelt(Utils::getTypeValue(attributes.set(), reading.context())), "|a|urn:outer");
}

TEST(TzSoapUtils, TheFirstTypeAttributeCounts) {
    Attributes attributes;
    attributes.add("type", TzXmlNamespace("i", "http://www.w3.org/1999/XMLSchema-instance"), "a:b")
        .type("c:d");
    EXPECT_EQ(Utils::getTypeValue(attributes.set(), nullptr).getLocalName(), "b");
}
