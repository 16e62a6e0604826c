// SPDX-License-Identifier: MIT
#include "support/ReadValues.h"

#include <soap/TzSoapAttributeSet.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapTypeRegistry.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using Base = TzSoapContentBase;
using V = TzSoapVersion;

class TzSoapUnknownTypeHandlerReading : public ReadingBothVersions {
protected:
    TzSoapType read(const std::string& entry) const {
        return bodyEntry(readMessage(wire.body(entry)));
    }
};

TzXmlName xsd(const char* name) { return TzXmlName(name, TzXmlNamespace::getXsd()); }

const WireForm wire12{V::V1_2};

TzSoapMisunderstoodType misunderstood(const std::string& attributes,
                                      const std::string& outer = {}) {
    const std::string entry =
        "<f:Misunderstood xmlns:f=\"http://www.w3.org/2002/06/soap-faults\" " + attributes + "/>";
    return as<TzSoapMisunderstoodType>(
        headerEntry(readMessage(wire12.envelope("<e:Header>" + entry + "</e:Header>", outer))));
}

} // namespace

TZSOAP_BOTH_VERSIONS(TzSoapUnknownTypeHandlerReading);

TEST_P(TzSoapUnknownTypeHandlerReading, AnElementWithoutChildrenIsASimpleValueWithItsText) {
    EXPECT_EQ(textOf(read("<a>text</a>")), "text");
    EXPECT_EQ(textOf(read("<a></a>")), "");
    EXPECT_EQ(textOf(read("<a/>")), "");
    EXPECT_EQ(textOf(read("<a> \n\t</a>")), " \n\t");
    EXPECT_EQ(textOf(read("<a>1 &lt; 2<![CDATA[<b/>]]><!-- no -->&#x20AC;<?no?>!</a>")),
              "1 < 2<b/>\xE2\x82\xAC!");
}

TEST_P(TzSoapUnknownTypeHandlerReading, TextDoesNotRunFromOneElementIntoTheNext) {
    const TzSoapMessage message =
        readMessage(wire.body("<a>first</a><b/><c>x<d/>y</c><e>last</e>"));
    EXPECT_EQ(textOf(bodyEntry(message, 0)), "first");
    EXPECT_EQ(textOf(bodyEntry(message, 1)), "");
    EXPECT_EQ(textOf(child(bodyEntry(message, 2), "d")), "");
    EXPECT_EQ(textOf(bodyEntry(message, 3)), "last");
}

TEST_P(TzSoapUnknownTypeHandlerReading, TheTypeAttributeGivesTypeAndSchemaType) {
    const std::pair<const char*, Base::SchemaType> types[] = {
        {"string", Base::xsdString},       {"int", Base::xsdInt},
        {"boolean", Base::xsdBoolean},     {"dateTime", Base::xsdDateTime},
        {"hexBinary", Base::xsdHexBinary}, {"unsignedByte", Base::xsdUnsignedByte},
        {"nosuchtype", Base::xsdUnknown},  {"NCName", Base::xsdUnknown},
        {"ncName", Base::xsdNCName},       {"QName", Base::xsdUnknown},
        {"qName", Base::xsdQName},         {"Name", Base::xsdUnknown},
        {"name", Base::xsdName},           {"INT", Base::xsdUnknown},
    };
    for (const auto& [name, schemaType] : types) {
        const auto value = simple(read("<a xsi:type=\"xsd:" + TzCString(name) + "\">1</a>"));
        EXPECT_EQ(value.getType(), schemaType) << name;
        EXPECT_EQ(TzSoapType(value).getType(), xsd(name)) << name;
        EXPECT_EQ(value.getTypeAttribute(), "xsd:" + TzCString(name));
        EXPECT_FALSE(value.hasAttribute(TzSoapAttributeSet::getTypeAttributeName())) << name;
    }
}

TEST_P(TzSoapUnknownTypeHandlerReading, TheLocalNameOfATypeDecidesWhateverItsNamespace) {
    for (const char* type : {"t:int", "int", "unbound:int"}) {
        const auto value =
            simple(read("<a xmlns:t=\"urn:t\" xsi:type=\"" + TzCString(type) + "\">1</a>"));
        EXPECT_EQ(value.getType(), Base::xsdInt) << type;
    }
    for (const char* type : {"xsd:x:int", "xsd:int ", "xsd: int", ":", ""}) {
        const auto value = simple(read("<a xsi:type=\"" + TzCString(type) + "\">1</a>"));
        EXPECT_EQ(value.getType(), Base::xsdUnknown) << type;
    }
}

TEST_P(TzSoapUnknownTypeHandlerReading, TheTypesOfOlderSchemasCount) {
    for (const char* year : {"1999", "2000/10"}) {
        const auto value = simple(read("<a xmlns:s=\"http://www.w3.org/" + TzCString(year) +
                                       "/XMLSchema-instance\" s:type=\"xsd:int\">1</a>"));
        EXPECT_EQ(value.getType(), Base::xsdInt) << year;
    }
}

TEST_P(TzSoapUnknownTypeHandlerReading, WithoutTypeTheSchemaTypeIsUnknown) {
    const auto value = simple(read("<a>1</a>"));
    EXPECT_EQ(value.getType(), Base::xsdUnknown);
    EXPECT_TRUE(TzSoapType(value).getType().isEmpty());
}

TEST_P(TzSoapUnknownTypeHandlerReading, TheRegistryOfTheMessageStandsInForAMissingType) {
    TzSoapMessage message;
    message.getTypeRegistry().registerType(TzXmlName("a"), xsd("int"));
    message.extract(wire.body("<a>1</a><a xsi:type=\"xsd:string\">1</a><b><a>2</a></b><c>3</c>"
                              "<p:a xmlns:p=\"urn:p\">4</p:a>"));
    const auto asked = simple(bodyEntry(message, 0));
    EXPECT_EQ(asked.getType(), Base::xsdInt);
    // Nothing is to be written that was not sent.
    EXPECT_TRUE(TzSoapType(asked).getType().isEmpty());
    EXPECT_EQ(simple(bodyEntry(message, 1)).getType(), Base::xsdString);
    EXPECT_EQ(simple(child(bodyEntry(message, 2), "a")).getType(), Base::xsdInt);
    EXPECT_EQ(simple(bodyEntry(message, 3)).getType(), Base::xsdUnknown);
    EXPECT_EQ(simple(bodyEntry(message, 4)).getType(), Base::xsdUnknown);
}

TEST_P(TzSoapUnknownTypeHandlerReading, ThePrefixOfATypeIsThatOfTheNearestDeclaration) {
    const TzSoapMessage message =
        readMessage(wire.body("<a xmlns:t=\"urn:a\"><b xsi:type=\"t:T\"/>"
                              "<b xmlns:t=\"urn:b\" xsi:type=\"t:T\"><d xsi:type=\"t:T\"/></b>"
                              "<b xsi:type=\"t:T\"/></a><c xsi:type=\"t:T\"/>",
                              "xmlns:t=\"urn:envelope\""));
    auto entry = composite(bodyEntry(message));
    std::string uris;
    for (auto child = entry.childrenBegin(); child != entry.childrenEnd(); ++child) {
        uris += child->getType().getUri() + " ";
    }
    EXPECT_EQ(uris, "urn:a urn:b urn:a ");
    EXPECT_EQ(child(*std::next(entry.childrenBegin()), "d").getType().getUri(), "urn:b");
    EXPECT_EQ(bodyEntry(message, 1).getType().getUri(), "urn:envelope");
}

TEST_P(TzSoapUnknownTypeHandlerReading, DeclarationsOfHeaderAndBodyServeTheirEntries) {
    const TzSoapMessage message =
        readMessage(wire.envelope("<e:Header xmlns:t=\"urn:h\"><a xsi:type=\"t:T\"/></e:Header>"
                                  "<e:Body xmlns:t=\"urn:b\"><a xsi:type=\"t:T\"/></e:Body>"));
    EXPECT_EQ(headerEntry(message).getType().getUri(), "urn:h");
    EXPECT_EQ(bodyEntry(message).getType().getUri(), "urn:b");
}

TEST_P(TzSoapUnknownTypeHandlerReading, ATypeWithoutPrefixIsOfTheDefaultNamespace) {
    const TzXmlName type = read("<a xmlns=\"urn:d\" xsi:type=\"T\"/>").getType();
    EXPECT_EQ(type, TzXmlName("T", TzXmlNamespace("", "urn:d")));
    EXPECT_EQ(type.getPrefix(), "");
}

TEST_P(TzSoapUnknownTypeHandlerReading, AnUnboundPrefixOfATypeHasTheEmptyUri) {
    const TzSoapType value = read("<a xsi:type=\"t:T\"/>");
    EXPECT_EQ(value.getType(), TzXmlName("T", TzXmlNamespace("t", "")));
    EXPECT_EQ(value.getTypeAttribute(), "t:T");
}

TEST_P(TzSoapUnknownTypeHandlerReading, AttributesBecomePropertiesOrStay) {
    const std::string role = GetParam() == V::V1_1 ? "actor" : "role";
    for (const char* content : {"", "<b/>"}) {
        const TzSoapType value = read("<a e:mustUnderstand=\"1\" e:" + role +
                                      "=\"urn:next\" c:root=\"0\" id=\"x\" k=\"v\""
                                      " xsi:nil=\"1\" xmlns:p=\"urn:p\" e:encodingStyle=\"" +
                                      wire.style() + "\">" + content + "</a>");
        EXPECT_TRUE(value.getMustUnderstand());
        EXPECT_EQ(value.getActorAttribute(), "urn:next");
        EXPECT_TRUE(value.isRootAttributeSet());
        EXPECT_FALSE(value.getRoot());
        EXPECT_EQ(value.getIdAttribute(), "x");
        EXPECT_TRUE(value.isNull());
        EXPECT_EQ(value.getEncodingStyleAttribute(), wire.style());
        EXPECT_EQ(value.findAttribute(TzXmlName("k"))->getValue(), "v");
        EXPECT_EQ(value.findNamespaceAttribute("p")->getValue(), "urn:p");
        EXPECT_EQ(value.attributeCount(), 4U); // id, k, nil, p
    }
}

TEST_P(TzSoapUnknownTypeHandlerReading, FlagsAreReadAsOneOrTrueAndAreThereInAnyCase) {
    for (const auto& [text, yes] :
         {std::pair("1", true), std::pair("true", true), std::pair("0", false),
          std::pair("false", false), std::pair("TRUE", false), std::pair("", false)}) {
        const TzCString flag(text);
        const TzSoapType value =
            read("<a e:mustUnderstand=\"" + flag + "\" c:root=\"" + flag + "\"/>");
        EXPECT_EQ(value.getMustUnderstand(), yes) << text;
        EXPECT_EQ(value.getMustUnderstandAttribute(), yes ? "true" : "false") << text;
        EXPECT_EQ(value.getRoot(), yes) << text;
        EXPECT_TRUE(value.isRootAttributeSet()) << text;
    }
}

TEST_P(TzSoapUnknownTypeHandlerReading, AFirstChildMakesACompositeValueWithNameAndAttributes) {
    const TzSoapType value = read("<p:a xmlns:p=\"urn:p\" id=\"x\" xsi:type=\"p:T\">1<b>2</b>3"
                                  "<c><d>4</d></c></p:a>");
    EXPECT_EQ(value.getName(), TzXmlName("a", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(value.getName().getPrefix(), "p");
    EXPECT_EQ(value.getIdAttribute(), "x");
    EXPECT_EQ(value.getType(), TzXmlName("T", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(composite(value).childCount(), 2U);
    EXPECT_EQ(textOf(child(value, "b")), "2");
    EXPECT_EQ(textOf(child(child(value, "c"), "d")), "4");
}

TEST_P(TzSoapUnknownTypeHandlerReading, ChildrenKeepTheirOrderAndMayRepeat) {
    auto value = composite(read("<a><b>1</b><c>2</c><b>3</b></a>"));
    std::string texts;
    for (auto child = value.childrenBegin(); child != value.childrenEnd(); ++child) {
        texts += child->getName().getLocalName() + textOf(*child);
    }
    EXPECT_EQ(texts, "b1c2b3");
}

TEST_P(TzSoapUnknownTypeHandlerReading, OneElementMayHaveTheNameOfItsParent) {
    const TzSoapType value = read("<a><a><a>x</a></a></a>");
    EXPECT_EQ(textOf(child(child(value, "a"), "a")), "x");
}

TEST_P(TzSoapUnknownTypeHandlerReading, ManyAttributesAreKeptInOrder) {
    std::string attributes;
    for (int i = 0; i < 100; ++i) {
        attributes += " k" + std::to_string(i) + "=\"" + std::to_string(i) + "\"";
    }
    const TzSoapType value = read("<a" + attributes + "/>");
    ASSERT_EQ(value.attributeCount(), 100U);
    for (unsigned int i = 0; i < 100; ++i) {
        EXPECT_EQ(value.attributesBegin()[i].getName().getLocalName(), "k" + std::to_string(i));
    }
}

TEST(TzSoapUnknownTypeHandlerMisunderstood, NamesTheEntryThatWasNotUnderstood) {
    const auto report = misunderstood("qname=\"p:entry\" xmlns:p=\"urn:p\"");
    EXPECT_EQ(report.getQualifiedName(), TzXmlName("entry", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(report.getQualifiedName().getPrefix(), "p");
    EXPECT_EQ(report.getName().getQualifiedName(), "f:Misunderstood");
    EXPECT_EQ(report.findAttribute(TzXmlName("qname"))->getValue(), "p:entry");
    EXPECT_EQ(report.findNamespaceAttribute("p")->getValue(), "urn:p");
}

TEST(TzSoapUnknownTypeHandlerMisunderstood, ItsOwnDeclarationComesBeforeThoseAround) {
    EXPECT_EQ(misunderstood("qname=\"p:entry\" xmlns:p=\"urn:p\"", "xmlns:p=\"urn:outer\"")
                  .getQualifiedName()
                  .getUri(),
              "urn:p");
    EXPECT_EQ(
        misunderstood("qname=\"p:entry\"", "xmlns:p=\"urn:outer\"").getQualifiedName().getUri(),
        "urn:outer");
}

TEST(TzSoapUnknownTypeHandlerMisunderstood, ANameThatIsNotBoundOrNotThereIsNoError) {
    EXPECT_EQ(misunderstood("qname=\"p:entry\"").getQualifiedName(),
              TzXmlName("entry", TzXmlNamespace("p", "")));
    EXPECT_EQ(misunderstood("qname=\"entry\"").getQualifiedName(), TzXmlName("entry"));
    EXPECT_EQ(misunderstood("qname=\"entry\" xmlns=\"urn:d\"").getQualifiedName(),
              TzXmlName("entry", TzXmlNamespace("", "urn:d")));
    EXPECT_TRUE(misunderstood("").getQualifiedName().isEmpty());
}

TEST_P(TzSoapUnknownTypeHandlerReading, OnlyTheElementOfSoap12IsAReport) {
    const std::string faults = "xmlns:f=\"http://www.w3.org/2002/06/soap-faults\"";
    EXPECT_EQ(read("<f:Misunderstood " + faults + "/>").getSoapTypeId(), Base::Misunderstood);
    EXPECT_EQ(read("<Misunderstood qname=\"a\"/>").getSoapTypeId(), Base::Simple);
    EXPECT_EQ(read("<e:Misunderstood qname=\"a\"/>").getSoapTypeId(), Base::Simple);
    EXPECT_EQ(read("<f:misunderstood " + faults + "/>").getSoapTypeId(), Base::Simple);
    EXPECT_EQ(read("<f:Misunderstood " + faults + "><a/></f:Misunderstood>").getSoapTypeId(),
              Base::Composite);
}

TEST_P(TzSoapUnknownTypeHandlerReading, EmptyCompositesReadAsTheWhiteSpaceBetweenTheirTags) {
    EXPECT_EQ(textOf(read("<a>\n</a>")), "\n");
}
