// SPDX-License-Identifier: MIT
//
// Literal messages are valid by the schemas of their services, and are read by them.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/tools/TzDecimalPortable.h>

#include "literal/XmlOracle.h"

#include <gtest/gtest.h>

namespace {

constexpr char Uri[] = "urn:test:schema";

TzXmlName in(const char* local) { return {local, TzXmlNamespace("t", Uri)}; }

TzXmlName plain(const char* local) { return TzXmlName(local); }

TzSoapSimpleType text(const TzXmlName& name, const char* value) {
    return {name, value, TzSoapType::xsdString, false};
}

TzSoapCompositeType composite(const TzXmlName& name, const std::vector<TzSoapType>& children) {
    TzSoapCompositeType made(name);
    for (const TzSoapType& child : children) {
        made.appendChild(child);
    }
    return made;
}

std::string schema(const std::string& content, const std::string& forms = "qualified") {
    return R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns:t="urn:test:schema" )"
           R"(targetNamespace="urn:test:schema" elementFormDefault=")" +
           forms + R"(">)" + content + "</xs:schema>";
}

TzSoapMessage messageWith(const TzSoapType& entry, TzSoapVersion::Version version) {
    TzSoapMessage message(version);
    message.setStyle(TzSoapStyle::Literal);
    message.getSoapBody().appendEntry(entry);
    return message;
}

/// Expects that a message with `entry` is valid in each version, and again after it was read.
void expectValid(const std::string& schema, const TzSoapType& entry) {
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2}) {
        const std::string written = messageWith(entry, version).asString();
        EXPECT_EQ(XmlOracle::whyInvalid(schema, written), "") << written;
        TzSoapMessage read;
        read.setStyle(TzSoapStyle::Literal);
        read.extract(written);
        EXPECT_EQ(read.asString(), written);
    }
}

TEST(LiteralSchema, AMessageThatBreaksItsSchemaIsNotValid) {
    const std::string number = schema(R"(<xs:element name="n" type="xs:int"/>)");
    expectValid(number, TzSoapSimpleType(in("n"), 1, TzSoapType::xsdInt, false));
    const auto wrong = messageWith(text(in("n"), "x"), TzSoapVersion::V1_1).asString();
    EXPECT_NE(XmlOracle::whyInvalid(number, wrong), "");
}

TEST(LiteralSchema, RepeatedElementsWithinRepeatedElements) {
    const std::string orders = schema(
        R"(<xs:element name="orders"><xs:complexType><xs:sequence>)"
        R"(<xs:element name="order" maxOccurs="unbounded"><xs:complexType><xs:sequence>)"
        R"(<xs:element name="line" maxOccurs="unbounded"><xs:complexType><xs:sequence>)"
        R"(<xs:element name="item" type="xs:string"/><xs:element name="count" type="xs:int"/>)"
        R"(</xs:sequence></xs:complexType></xs:element></xs:sequence></xs:complexType>)"
        R"(</xs:element></xs:sequence></xs:complexType></xs:element>)");
    TzSoapCompositeType all(in("orders"));
    for (int order = 0; order < 3; ++order) {
        TzSoapCompositeType made(in("order"));
        for (int line = 0; line <= order; ++line) {
            made.appendChild(composite(
                in("line"), {text(in("item"), "x"),
                             TzSoapSimpleType(in("count"), line, TzSoapType::xsdInt, false)}));
        }
        all.appendChild(made);
    }
    expectValid(orders, all);
    TzSoapMessage read;
    read.setStyle(TzSoapStyle::Literal);
    read.extract(messageWith(all, TzSoapVersion::V1_1).asString());
    const TzSoapType count = read.getSoapBody().getChild("orders/order[3]/line[2]/count");
    EXPECT_EQ(TzSoapValueReader(count).getInt(), 1);
}

TEST(LiteralSchema, OptionalAndNillableElements) {
    const std::string person = schema(
        R"(<xs:element name="person"><xs:complexType><xs:sequence>)"
        R"(<xs:element name="name" type="xs:string"/>)"
        R"(<xs:element name="born" type="xs:date" minOccurs="0"/>)"
        R"(<xs:element name="died" type="xs:date" nillable="true"/>)"
        R"(<xs:element name="notes" nillable="true" minOccurs="0"><xs:complexType><xs:sequence>)"
        R"(<xs:element name="note" type="xs:string" minOccurs="0" maxOccurs="unbounded"/>)"
        R"(</xs:sequence></xs:complexType></xs:element></xs:sequence></xs:complexType></xs:element>)");
    TzSoapSimpleType died = text(in("died"), "");
    died.setNull(true);
    expectValid(person, composite(in("person"), {text(in("name"), ""), died}));
    const TzSoapSimpleType born(in("born"), TzDate(1912, 6, 23), TzSoapType::xsdDate, false);
    TzSoapCompositeType notes(in("notes"));
    expectValid(person, composite(in("person"), {text(in("name"), "A"), born, died, notes}));
    notes.setNull(true);
    expectValid(person, composite(in("person"), {text(in("name"), "A"), born, died, notes}));
}

TEST(LiteralSchema, AttributesAndTextOfOneElement) {
    const std::string price = schema(
        R"(<xs:attribute name="source" type="xs:string"/><xs:element name="price"><xs:complexType>)"
        R"(<xs:simpleContent><xs:extension base="xs:decimal">)"
        R"(<xs:attribute name="currency" use="required"/><xs:attribute name="id" type="xs:ID"/>)"
        R"(<xs:attribute ref="t:source"/></xs:extension></xs:simpleContent></xs:complexType>)"
        R"(</xs:element>)");
    TzSoapSimpleType value(in("price"), TzDecimalPortable("9.50"), TzSoapType::xsdDecimal, false);
    value.addAttribute(plain("currency"), "EUR");
    value.addAttribute(plain("id"), "p1");
    value.addAttribute(in("source"), "list");
    expectValid(price, value);
}

TEST(LiteralSchema, AnyElement) {
    const std::string parcel =
        schema(R"(<xs:element name="parcel"><xs:complexType><xs:sequence>)"
               R"(<xs:any namespace="##other" processContents="lax" maxOccurs="2"/>)"
               R"(</xs:sequence></xs:complexType></xs:element>)");
    TzSoapCompositeType inner(TzXmlName("box", TzXmlNamespace("", "urn:other")));
    inner.appendChild(text(TzXmlName("inside"), "x"));
    expectValid(parcel,
                composite(in("parcel"), {inner, text({"y", TzXmlNamespace("z", "urn:z")}, "1")}));
}

TEST(LiteralSchema, MixedContent) {
    const std::string letter =
        schema(R"(<xs:element name="letter"><xs:complexType mixed="true"><xs:sequence>)"
               R"(<xs:element name="name" type="xs:string"/><xs:element name="id" type="xs:int"/>)"
               R"(</xs:sequence></xs:complexType></xs:element>)");
    TzSoapCompositeType value =
        composite(in("letter"), {text(in("name"), "A"),
                                 TzSoapSimpleType(in("id"), 5, TzSoapType::xsdInt, false)});
    value.setTextBefore(value.childrenBegin(), "Dear ");
    value.setTextBefore(value.childrenEnd(), " is your number.");
    expectValid(letter, value);
}

TEST(LiteralSchema, Choice) {
    const std::string payment =
        schema(R"(<xs:element name="payment"><xs:complexType><xs:choice>)"
               R"(<xs:element name="card" type="xs:string"/><xs:element name="cash">)"
               R"(<xs:complexType/></xs:element></xs:choice></xs:complexType></xs:element>)");
    expectValid(payment, composite(in("payment"), {text(in("card"), "1234")}));
    expectValid(payment, composite(in("payment"), {TzSoapCompositeType(in("cash"))}));
}

TEST(LiteralSchema, UnqualifiedLocalElements) {
    const std::string add =
        schema(R"(<xs:element name="add"><xs:complexType><xs:sequence>)"
               R"(<xs:element name="a" type="xs:int"/><xs:element name="b" type="xs:int"/>)"
               R"(</xs:sequence></xs:complexType></xs:element>)",
               "unqualified");
    const TzSoapSimpleType a(plain("a"), 1, TzSoapType::xsdInt, false);
    const TzSoapSimpleType b(plain("b"), 2, TzSoapType::xsdInt, false);
    expectValid(add, composite(in("add"), {a, b}));
    expectValid(add, composite({"add", TzXmlNamespace("", Uri)}, {a, b}));
}

TEST(LiteralSchema, ARecursiveTypeAndOneThatStandsForItsBase) {
    const std::string tree =
        schema(R"(<xs:complexType name="node"><xs:sequence><xs:element name="node" type="t:node" )"
               R"(minOccurs="0" maxOccurs="unbounded"/></xs:sequence></xs:complexType>)"
               R"(<xs:complexType name="leaf"><xs:complexContent><xs:extension base="t:node">)"
               R"(<xs:attribute name="value" use="required"/></xs:extension></xs:complexContent>)"
               R"(</xs:complexType><xs:element name="tree" type="t:node"/>)");
    TzSoapCompositeType leaf(in("node"));
    leaf.setTypeAttribute(in("leaf"));
    leaf.addAttribute(plain("value"), "1");
    TzSoapCompositeType node = leaf;
    for (int level = 0; level < 20; ++level) {
        node = composite(in("node"), {node, leaf});
    }
    expectValid(tree, composite(in("tree"), {node}));
}

} // namespace
