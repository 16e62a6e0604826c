// SPDX-License-Identifier: MIT
#include "support/Throws.h"
#include "view/Orders.h"

#include <soap/TzSoapMissingError.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

/// Every choice of a field, in a namespace.
struct Parcel {
    std::optional<int> weight;
    std::optional<std::string> sender;
    std::vector<int> sizes;
    std::optional<std::vector<int>> marks;
    TzSoapBytes label;
    std::string token;
    std::optional<int> rank;
};

struct Price {
    double amount = 0;
    std::string currency;

    friend bool operator==(const Price&, const Price&) = default;
};

struct Node {
    int id = 0;
    std::vector<Node> nodes;
};

struct Pair {
    Price first;
    std::optional<Price> second;
};

struct Base {
    int id = 0;
};

struct Derived : Base {
    std::string text;
};

} // namespace

template <> struct TzSoapFields<Parcel> {
    static constexpr auto fields =
        tzFields("urn:parcel", tzField("weight", &Parcel::weight).nillable(),
                 tzField("sender", &Parcel::sender).inNamespace("urn:people"),
                 tzField("sizes", &Parcel::sizes).wrapped("size"),
                 tzField("marks", &Parcel::marks).wrapped("mark"),
                 tzField("label", &Parcel::label).type(TzSoapContentBase::xsdHexBinary),
                 tzField("token", &Parcel::token).type(TzSoapContentBase::xsdToken),
                 tzAttribute("rank", &Parcel::rank).inNamespace("urn:rank"));
};

template <> struct TzSoapFields<Price> {
    static constexpr auto fields =
        tzFields(tzText(&Price::amount), tzAttribute("currency", &Price::currency));
};

template <> struct TzSoapFields<Node> {
    static constexpr auto fields =
        tzFields(tzField("id", &Node::id), tzField("node", &Node::nodes));
};

template <> struct TzSoapFields<Pair> {
    static constexpr auto fields =
        tzFields("urn:pair", tzField("first", &Pair::first), tzField("second", &Pair::second))
            .unqualified();
};

template <> struct TzSoapFields<Derived> {
    static constexpr auto fields =
        tzFields("urn:d", tzField("id", &Derived::id), tzField("text", &Derived::text));
};

namespace {

/// The error of class `Error` about an order with these elements.
template <typename Error>
std::string refused(const std::string& members, const std::string& attributes = " id='7'") {
    return textThrown<Error>([&] { orderOf(members, attributes); });
}

Parcel parcelOf(const std::string& members, const std::string& attributes = "") {
    return literal("<p xmlns='urn:parcel'" + attributes + "><label/><token/><sizes/>" + members +
                   "</p>")["p"]
        .as<Parcel>();
}

} // namespace

TEST(TzSoapFields, AStructIsReadByItsDeclaration) {
    const Order order = orderOf("<total>9.5</total><note>soon</note><line><article>A</article>"
                                "<amount>2</amount></line><line><amount>1</amount>"
                                "<article>B</article></line><color>green</color>");
    EXPECT_EQ(order, (Order{7, 9.5, "soon", {{"A", 2}, {"B", 1}}, Color::Green, 5}));
}

TEST(TzSoapFields, ElementsComeInAnyOrderAndOthersAreIgnored) {
    const Order order = orderOf("<x/><line><article>A</article><amount>2</amount></line><y>1</y>"
                                "<total>1</total><line><article/><amount>3</amount></line>",
                                " other='1' id='1'");
    EXPECT_EQ(order, (Order{1, 1, std::nullopt, {{"A", 2}, {"", 3}}}));
}

TEST(TzSoapFields, AnEncodedMessageIsReadTheSameWay) {
    const TzSoapView view =
        encoded("<order id='7'><total xsi:type='x:double'>1</total><line href='#l'/></order>"
                "<l id='l'><article>A</article><amount>2</amount></l>");
    EXPECT_EQ(view["order"].as<Order>(), (Order{7, 1, std::nullopt, {{"A", 2}}}));
}

TEST(TzSoapFields, ARequiredElementIsMissing) {
    EXPECT_EQ(refused<TzSoapMissingError>("<note/>"), "order/total is missing");
    EXPECT_EQ(refused<TzSoapMissingError>("<total>1</total><line><article/></line>"),
              "order/line/amount is missing");
    EXPECT_EQ(refused<TzSoapMissingError>(
                  "<total>1</total><line><article/><amount>1</amount></line><line/>"),
              "order/line[2]/article is missing; its parent is of kind \"Simple\"");
}

TEST(TzSoapFields, ARequiredAttributeIsMissing) {
    EXPECT_EQ(refused<TzSoapMissingError>("<total>1</total>", ""), "order/@id is missing");
}

TEST(TzSoapFields, AnElementIsNil) {
    EXPECT_EQ(refused<TzXmlBadArgError>("<total xsi:nil='1'/>"),
              "order/total is nil, not a double");
    EXPECT_EQ(refused<TzXmlBadArgError>("<total>1</total><line xsi:nil='1'/>"),
              "order/line is nil, not a struct");
    EXPECT_EQ(orderOf("<total>1</total><note xsi:nil='1'/>").note, std::nullopt);
}

TEST(TzSoapFields, ATextIsOfAnotherForm) {
    EXPECT_EQ(refused<TzXmlBadArgError>("<total>12x</total>"),
              "order/total: \"12x\" is not a double");
    EXPECT_EQ(refused<TzXmlBadArgError>("<total>1</total>", " id='x'"),
              "order/@id: \"x\" is not an int");
    EXPECT_EQ(refused<TzXmlBadArgError>("<total>1</total><color>blue</color>"),
              "order/color: \"blue\" is not one of \"red\", \"green\"");
}

TEST(TzSoapFields, AnElementIsOfAnotherKind) {
    EXPECT_EQ(refused<TzXmlBadArgError>("<total><a/></total>"),
              "order/total is not a simple value but of kind \"Composite\"");
    EXPECT_EQ(refused<TzXmlBadArgError>("<total>1</total><line>x</line>"),
              "order/line is not a struct but of kind \"Simple\"");
    const TzSoapView array = encoded("<o id='1' c:arrayType='x:int[1]'><total>1</total></o>")["o"];
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { array.as<Order>(); }),
              "o is not a struct but of kind \"Array\"");
}

TEST(TzSoapFields, AnElementIsThereTwice) {
    EXPECT_EQ(refused<TzXmlBadArgError>("<total>1</total><total>2</total>"),
              "order/total[2] is one too many");
    EXPECT_EQ(refused<TzXmlBadArgError>("<total>1</total><note/><x/><note/>"),
              "order/note[2] is one too many");
}

TEST(TzSoapFields, ListsOfStructsHavePathsToo) {
    const TzSoapView view = literal("<r><order id='1'><total>1</total></order>"
                                    "<order id='2'><total>x</total></order></r>");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { view["r"].as<std::vector<Order>>(); }),
              "r/order[2]/total: \"x\" is not a double");
    EXPECT_EQ(view["r"]["order"].as<Order>().id, 1);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { view["r"].all("order").as<Order>(); }),
              "r/order[2]/total: \"x\" is not a double");
}

TEST(TzSoapFields, ABodyIsAStructOfItsEntries) {
    EXPECT_EQ(literal("<article>A</article><amount>3</amount>").as<Line>(), (Line{"A", 3}));
    EXPECT_EQ(textThrown<TzSoapMissingError>([] { literal("<article/>").as<Line>(); }),
              "amount is missing");
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>([] { literal("<article/><amount>x</amount>").as<Line>(); }),
        "amount: \"x\" is not an int");
}

TEST(TzSoapFields, NamespacesAreComparedWhereTheyAreDeclared) {
    const Parcel parcel =
        parcelOf("<weight>3</weight><o:sender xmlns:o='urn:people'>Ann</o:sender>",
                 " xmlns:r='urn:rank' r:rank='4' rank='x'");
    EXPECT_EQ(parcel.weight, 3);
    EXPECT_EQ(parcel.sender, "Ann");
    EXPECT_EQ(parcel.rank, 4);
    EXPECT_EQ(parcelOf("<sender>Bob</sender>").sender, std::nullopt);
    EXPECT_EQ(textThrown<TzSoapMissingError>([] { literal("<p><label/></p>")["p"].as<Parcel>(); }),
              "p/sizes in namespace \"urn:parcel\" is missing");
    EXPECT_EQ(textThrown<TzSoapMissingError>([] { literal("<p><sizes/></p>")["p"].as<Parcel>(); }),
              "p/sizes in namespace \"urn:parcel\" is missing; there is one in no namespace");
}

TEST(TzSoapFields, WrappedListsStandInOneElement) {
    const auto parcel = [](const std::string& sizes) {
        return literal("<p xmlns='urn:parcel'><label/><token/>" + sizes + "</p>")["p"].as<Parcel>();
    };
    EXPECT_EQ(parcel("<sizes><size>1</size><x/><size>2</size></sizes>").sizes,
              (std::vector<int>{1, 2}));
    EXPECT_EQ(parcel("<sizes/>").marks, std::nullopt);
    EXPECT_EQ(parcel("<sizes/><marks/>").marks, std::vector<int>());
    EXPECT_EQ(parcel("<sizes/><marks xsi:nil='1'/>").marks, std::nullopt);
    EXPECT_EQ(parcel("<sizes/><marks><mark>5</mark></marks>").marks, std::vector<int>{5});
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { parcel("<sizes/><sizes/>"); }),
              "p/sizes[2] is one too many");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { parcel("<sizes><size>z</size></sizes>"); }),
              "p/sizes/size: \"z\" is not an int");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { parcel("<sizes xsi:nil='true'/>"); }),
              "p/sizes is nil, not a list");
}

TEST(TzSoapFields, AnEncodedArrayIsAList) {
    const TzSoapView view = encoded("<order id='1'><total>1</total><line c:arrayType='x:l[2]'>"
                                    "<i><article>A</article><amount>1</amount></i>"
                                    "<j><article>B</article><amount>2</amount></j></line></order>");
    EXPECT_EQ(view["order"].as<Order>().lines, (std::vector<Line>{{"A", 1}, {"B", 2}}));
    const TzSoapView parcel = encoded("<p xmlns='urn:parcel'><label/><token/>"
                                      "<sizes c:arrayType='x:int[2]'><a>1</a><b>2</b></sizes></p>");
    EXPECT_EQ(parcel["p"].as<Parcel>().sizes, (std::vector<int>{1, 2}));
}

TEST(TzSoapFields, AFieldOfHexadecimalDigits) {
    EXPECT_EQ(literal("<p xmlns='urn:parcel'><label>0a0B</label><token/><sizes/></p>")["p"]
                  .as<Parcel>()
                  .label.value,
              "\x0a\x0b");
}

TEST(TzSoapFields, TheTextOfAnElementBesideItsAttributes) {
    const TzSoapView view = literal("<price currency='EUR'>12.5</price><price>x</price>");
    EXPECT_EQ(view["price"].as<Price>(), (Price{12.5, "EUR"}));
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { view["price"][1].as<Price>(); }),
              "price[2]: \"x\" is not a double");
    EXPECT_EQ(
        textThrown<TzSoapMissingError>([] { literal("<price>1</price>")["price"].as<Price>(); }),
        "price/@currency is missing");
    EXPECT_EQ(markupOf(Price{12.5, "EUR"}), "<value currency=\"EUR\">12.5</value>");
}

TEST(TzSoapFields, InheritedMembersAreFields) {
    const Derived read =
        literal("<d xmlns='urn:d'><id>3</id><text>t</text></d>")["d"].as<Derived>();
    EXPECT_EQ(read.id, 3);
    EXPECT_EQ(read.text, "t");
}

TEST(TzSoapFields, AStructMayHoldItself) {
    const Node node =
        literal("<n><id>1</id><node><id>2</id><node><id>3</id></node></node></n>")["n"].as<Node>();
    EXPECT_EQ(node.nodes.at(0).nodes.at(0).id, 3);
}

TEST(TzSoapFields, ARingOfReferencesEnds) {
    const TzSoapView view = encoded("<n id='1'><id>1</id><node href='#1'/></n>");
    const std::string text = textThrown<TzXmlBadArgError>([&] { view["n"].as<Node>(); });
    EXPECT_TRUE(text.ends_with(" has too many steps, the limit is 256")) << text;
}

TEST(TzSoapFields, ReferencesDoNotMultiplyWithoutEnd) {
    std::string body = "<n><id>0</id><node href='#1'/><node href='#1'/></n>";
    for (int i = 1; i < 40; ++i) {
        const std::string next = "<node href='#" + std::to_string(i + 1) + "'/>";
        body += "<x id='" + std::to_string(i) + "'><id>1</id>" + next + next + "</x>";
    }
    body += "<x id='40'><id>1</id></x>";
    const std::string text = textThrown<TzXmlBadArgError>([&] { encoded(body)["n"].as<Node>(); });
    EXPECT_TRUE(text.ends_with(": references repeat too many values, the limit is 1048576"))
        << text;
}

TEST(TzSoapFields, AStructIsWrittenInTheOrderOfItsDeclaration) {
    const Order order{7, 0.1, "a<b", {{"A", 2}}, Color::Green, 1};
    EXPECT_EQ(markupOf(order),
              "<value id=\"7\"><total>0.1</total><note>a&lt;b</note><line><article>A</article>"
              "<amount>2</amount></line><color>green</color><priority>1</priority></value>");
}

TEST(TzSoapFields, AnEncodedStructStatesItsTypes) {
    const std::string text = markupOf(Line{"A", 2}, TzSoapStyle::Encoded);
    const std::string xsi = " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";
    EXPECT_NE(text.find("<article" + xsi + " xsi:type=\"xsd:string\">A</article>"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("<amount" + xsi + " xsi:type=\"xsd:int\">2</amount>"), std::string::npos)
        << text;
}

TEST(TzSoapFields, AnEncodedListIsAnArray) {
    const std::string text = markupOf(std::vector<int>{1, 2}, TzSoapStyle::Encoded);
    EXPECT_NE(text.find("arrayType=\"xsd:int[2]\""), std::string::npos) << text;
    EXPECT_EQ(markupOf(std::vector<int>{1, 2}), "<value><item>1</item><item>2</item></value>");
}

TEST(TzSoapFields, EmptyMembersAreLeftOutOrNil) {
    EXPECT_EQ(markupOf(Order{}), "<value id=\"0\"><total>0</total><color>red</color>"
                                 "<priority>5</priority></value>");
    const std::string text =
        markupOf(Parcel{}, TzSoapStyle::Literal, TzXmlName("value", {"m", "urn:parcel"}));
    EXPECT_NE(text.find("<m:weight xsi:nil=\"true\"></m:weight>"), std::string::npos) << text;
    EXPECT_EQ(text.find("sender"), std::string::npos) << text;
    EXPECT_EQ(text.find("marks"), std::string::npos) << text;
    EXPECT_NE(text.find("<m:sizes></m:sizes>"), std::string::npos) << text;
}

TEST(TzSoapFields, NamesAreWrittenInTheirNamespaces) {
    Parcel parcel{3, "Ann", {1}, std::vector<int>{2}, {"\x0f"}, "t", 4};
    const std::string text =
        markupOf(parcel, TzSoapStyle::Literal, TzXmlName("value", {"q", "urn:parcel"}));
    EXPECT_NE(text.find("<q:weight>3</q:weight>"), std::string::npos) << text;
    EXPECT_NE(text.find("<q:sizes><q:size>1</q:size></q:sizes>"), std::string::npos) << text;
    EXPECT_NE(text.find("<q:label>0F</q:label>"), std::string::npos) << text;
    EXPECT_NE(text.find(">Ann</"), std::string::npos) << text;
}

TEST(TzSoapFields, UnqualifiedElementsStandInNoNamespace) {
    const Pair pair{{1, "EUR"}, {}};
    const std::string text =
        markupOf(pair, TzSoapStyle::Literal, TzXmlName("pair", {"p", "urn:pair"}));
    EXPECT_NE(text.find("><first currency=\"EUR\">1</first></p:pair>"), std::string::npos) << text;
    const TzSoapView view = literal("<p:pair xmlns:p='urn:pair'><p:first currency='x'>1</p:first>"
                                    "</p:pair>");
    EXPECT_EQ(textThrown<TzSoapMissingError>([&] { view["pair"].as<Pair>(); }),
              "pair/first in no namespace is missing; there is one in namespace \"urn:pair\"");
}

TEST(TzSoapFields, WhatIsWrittenReadsBack) {
    Parcel parcel{std::nullopt, "Ann", {1, 2}, std::vector<int>{}, {std::string("\0\xff", 2)},
                  "t",          4};
    for (const TzSoapStyle style : {TzSoapStyle::Literal, TzSoapStyle::Encoded}) {
        TzSoapMessage message(TzSoapVersion::V1_1);
        message.setStyle(style);
        message.getSoapBody().appendEntry(
            tzSoapValue(parcel, TzXmlName("p", {"a", "urn:parcel"}), style));
        TzSoapMessage read;
        read.setStyle(style);
        read.extract(message.asString());
        const auto back = TzSoapView(read)["p"].as<Parcel>();
        EXPECT_EQ(back.weight, parcel.weight);
        EXPECT_EQ(back.sender, parcel.sender) << message.asString();
        EXPECT_EQ(back.sizes, parcel.sizes);
        EXPECT_EQ(back.marks, parcel.marks);
        EXPECT_EQ(back.label, parcel.label);
        EXPECT_EQ(back.rank, parcel.rank);
    }
}

TEST(TzSoapFields, DoublesReadBackExactly) {
    for (const double number : {0.1, 1e300, -1.0 / 3, 5e-324, std::numeric_limits<double>::max()}) {
        TzSoapMessage message(TzSoapVersion::V1_1);
        message.getSoapBody().appendEntry(tzSoapValue(number, TzXmlName("x")));
        EXPECT_EQ(TzSoapView(messageOf(message.asString()))["x"].as<double>(), number);
    }
    EXPECT_EQ(markupOf(-std::numeric_limits<double>::infinity()), "<value>-INF</value>");
}

TEST(TzSoapFields, EveryTypeHasItsText) {
    using namespace std::chrono;
    EXPECT_EQ(markupOf(true), "<value>true</value>");
    EXPECT_EQ(markupOf(std::string("a")), "<value>a</value>");
    EXPECT_EQ(markupOf(static_cast<signed char>(-1)), "<value>-1</value>");
    EXPECT_EQ(markupOf(sys_days(2026y / 1 / 2)), "<value>2026-01-02</value>");
    EXPECT_EQ(markupOf(sys_seconds(sys_days(2026y / 1 / 2))),
              "<value>2026-01-02T00:00:00Z</value>");
    EXPECT_EQ(markupOf(sys_time<milliseconds>(1500ms)), "<value>1970-01-01T00:00:01.5Z</value>");
    EXPECT_EQ(markupOf(TzSoapBytes{"abc"}), "<value>YWJj</value>");
    EXPECT_EQ(markupOf(Color::Green), "<value>green</value>");
    EXPECT_EQ(markupOf(std::optional<int>(1)), "<value>1</value>");
    EXPECT_EQ(markupOf(TzSoapType(TzSoapSimpleType("x", 5, TzSoapType::xsdInt, false))),
              "<value>5</value>");
}

TEST(TzSoapFields, AnEnumeratorWithoutTextIsRefused) {
    EXPECT_EQ(textThrown<TzXmlBadArgError>([] { markupOf(static_cast<Color>(9)); }),
              "the enumerator 9 has no text in its TzSoapEnum");
}
