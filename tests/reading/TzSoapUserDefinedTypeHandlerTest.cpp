// SPDX-License-Identifier: MIT
#include "support/ReadValues.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Base = TzSoapContentBase;

class TzSoapUserDefinedTypeHandlerReading : public ReadingBothVersions {
protected:
    TzSoapMessage readAll(const std::string& entries) const {
        return readMessage(wire.body(entries, "e:encodingStyle=\"urn:foreign\""));
    }
    std::string markupOf(const std::string& entry) const {
        return userDefined(bodyEntry(readAll(entry))).getValue();
    }
};

} // namespace

TZSOAP_BOTH_VERSIONS(TzSoapUserDefinedTypeHandlerReading);

TEST_P(TzSoapUserDefinedTypeHandlerReading, TheElementWithItsTagsIsKept) {
    EXPECT_EQ(markupOf("<a>text</a>"), "<a >text</a>");
    EXPECT_EQ(markupOf("<a/>"), "<a ></a>");
    EXPECT_EQ(markupOf("<a k=\"v\" l='w'/>"), "<a  k=\"v\" l=\"w\"></a>");
    EXPECT_EQ(markupOf("<a> <b k=\"v\">1</b>\n<c/></a>"), "<a > <b  k=\"v\">1</b>\n<c ></c></a>");
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, NamesAndDeclarationsAreKeptAsTheyWere) {
    EXPECT_EQ(markupOf("<p:a xmlns:p=\"urn:p\" p:k=\"v\"><p:b xmlns=\"urn:d\"/></p:a>"),
              "<p:a  xmlns:p=\"urn:p\" p:k=\"v\"><p:b  xmlns=\"urn:d\"></p:b></p:a>");
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, TextIsKeptDecoded) {
    EXPECT_EQ(markupOf("<a k=\"&quot;\">&amp;&lt;x/&gt;<![CDATA[<y>]]><!-- z --></a>"),
              "<a  k=\"\"\">&<x/><y></a>");
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, ElementsOfItsOwnNameInsideDoNotEndIt) {
    const std::string text = "<a ><a ><a >x</a></a><b ><a ></a></b></a>";
    const TzSoapMessage message = readAll("<a><a><a>x</a></a><b><a/></b></a><c/>");
    EXPECT_EQ(userDefined(bodyEntry(message)).getValue(), text);
    EXPECT_EQ(userDefined(bodyEntry(message, 1)).getValue(), "<c ></c>");
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, ANameIsItsNamespaceAndItsLocalPart) {
    EXPECT_EQ(markupOf("<p:a xmlns:p=\"urn:p\" xmlns:q=\"urn:p\"><q:a/><a/></p:a>"),
              "<p:a  xmlns:p=\"urn:p\" xmlns:q=\"urn:p\"><q:a ></q:a><a ></a></p:a>");
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, WhatStandsInsideIsNotDecoded) {
    EXPECT_EQ(markupOf("<a><b " + wire.ref("x") + "><c/></b><d e:encodingStyle=\"" + wire.style() +
                       "\"/></a>"),
              "<a ><b  " + wire.ref("x") + "><c ></c></b><d  e:encodingStyle=\"" + wire.style() +
                  "\"></d></a>");
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, NameTypeStyleAndAttributesAreThoseOfTheElement) {
    const auto value = userDefined(bodyEntry(readAll(
        "<p:a xmlns:p=\"urn:p\" xsi:type=\"p:T\" id=\"x\" k=\"v\" e:mustUnderstand=\"1\"/>")));
    EXPECT_EQ(value.getName(), TzXmlName("a", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(value.getType(), TzXmlName("T", TzXmlNamespace("p", "urn:p")));
    EXPECT_EQ(value.getTypeAttribute(), "p:T");
    EXPECT_EQ(value.getEncodingStyleAttribute(), "urn:foreign");
    EXPECT_EQ(value.getIdAttribute(), "x");
    EXPECT_EQ(value.findAttribute(TzXmlName("k"))->getValue(), "v");
    EXPECT_TRUE(value.getMustUnderstand());
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, TheStyleIsTheFirstOfTheListInForce) {
    const auto value =
        userDefined(bodyEntry(readAll("<a e:encodingStyle=\" urn:one  urn:two\"/>")));
    EXPECT_EQ(value.getEncodingStyleAttribute(), "urn:one");
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, ATypeIsTakenFromTheRegistryOfTheMessage) {
    TzSoapMessage message;
    message.getTypeRegistry().registerType(TzXmlName("a"),
                                           TzXmlName("T", TzXmlNamespace("t", "urn:t")));
    message.extract(wire.body("<a/><b/>", "e:encodingStyle=\"urn:foreign\""));
    EXPECT_EQ(bodyEntry(message, 0).getTypeAttribute(), "t:T");
    EXPECT_EQ(bodyEntry(message, 1).getTypeAttribute(), "");
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, ItsIdServesReferences) {
    const TzSoapMessage message =
        readAll("<r " + wire.ref("x") + " e:encodingStyle=\"\"/><a id=\"x\"/><a id=\"\"/>");
    EXPECT_TRUE(sameValue(reference(bodyEntry(message)).getSoapReference(), bodyEntry(message, 1)));
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, OneValueFollowsTheOther) {
    const TzSoapMessage message = readAll("<a>1</a><b k=\"v\"/><a>2</a>");
    EXPECT_EQ(userDefined(bodyEntry(message, 0)).getValue(), "<a >1</a>");
    EXPECT_EQ(userDefined(bodyEntry(message, 1)).getValue(), "<b  k=\"v\"></b>");
    EXPECT_EQ(userDefined(bodyEntry(message, 2)).getValue(), "<a >2</a>");
    EXPECT_EQ(bodyEntry(message, 2).attributeCount(), 0U);
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, MembersAndChildrenCanBeUserDefined) {
    const TzSoapMessage message = readMessage(
        wire.body("<a><b e:encodingStyle=\"urn:f\"><x/></b><c>1</c></a><d " +
                  wire.array("xsd:int", "2") + "><i e:encodingStyle=\"urn:f\">2</i><i>3</i></d>"));
    EXPECT_EQ(userDefined(child(bodyEntry(message), "b")).getValue(),
              "<b  e:encodingStyle=\"urn:f\"><x ></x></b>");
    EXPECT_EQ(textOf(child(bodyEntry(message), "c")), "1");
    const TzSoapCompactArrayType array = compact(bodyEntry(message, 1));
    EXPECT_EQ(userDefined(array(0U)).getValue(), "<i  e:encodingStyle=\"urn:f\">2</i>");
    EXPECT_EQ(textOf(array(1U)), "3");
}

TEST_P(TzSoapUserDefinedTypeHandlerReading, HeaderEntriesKeepTheirFlags) {
    const TzSoapMessage message = readMessage(wire.envelope(
        "<e:Header e:encodingStyle=\"urn:foreign\"><h e:mustUnderstand=\"1\"/></e:Header>"));
    EXPECT_EQ(userDefined(headerEntry(message)).getValue(), "<h  e:mustUnderstand=\"1\"></h>");
    EXPECT_TRUE(headerEntry(message).getMustUnderstand());
}
