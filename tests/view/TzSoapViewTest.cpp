// SPDX-License-Identifier: MIT
#include "support/Throws.h"
#include "view/Orders.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapMissingError.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/tools/TzDecimalPortable.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlDuration.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

namespace {

const std::string Orders =
    "<GetOrdersResponse><order id='1'><total>1.5</total></order>"
    "<order id='2'><total>12x</total><total>3</total></order><note/></GetOrdersResponse>";

/// What `view[name]` holds, for one element `x` of a literal message.
template <typename Value> Value held(const std::string& text) {
    return literal("<x>" + text + "</x>")["x"].as<Value>();
}

/// The error about an element `x` of a literal message.
template <typename Value> std::string refused(const std::string& text) {
    return textThrown<TzXmlBadArgError>([&] { held<Value>(text); });
}

/// The text and the path of the error about what is missing.
template <typename Action> std::string missing(const Action& action) {
    std::string path;
    const std::string text = textThrown<TzSoapMissingError>([&] {
        try {
            action();
        } catch (const TzSoapMissingError& error) {
            path = error.getPath();
            throw;
        }
    });
    EXPECT_NE(text.find(path), std::string::npos) << path;
    return text;
}

} // namespace

TEST(TzSoapView, LeadsFromTheMessageToAMember) {
    const TzSoapView view = literal(Orders);
    EXPECT_EQ(view["GetOrdersResponse"]["order"]["total"].as<double>(), 1.5);
}

TEST(TzSoapView, BeginsAtABodyAndAtAValueToo) {
    const TzSoapMessage message = literalMessage(Orders);
    const TzSoapView entry(message.getSoapBody().getFirstEntry());
    EXPECT_EQ(TzSoapView(message.getSoapBody())["GetOrdersResponse"]["order"].getPath(),
              "GetOrdersResponse/order");
    EXPECT_EQ(entry["order"]["total"].getPath(), "GetOrdersResponse/order/total");
}

TEST(TzSoapView, IsReadInAllVersionsAndBothStyles) {
    for (const TzSoapVersion::Version version : BothVersions) {
        EXPECT_EQ(encoded("<a><b>4</b></a>", version)["a"]["b"].as<int>(), 4);
    }
    TzSoapMessage message;
    TzSoapReadLimits limits;
    limits.soap12Recommendation = true;
    message.setReadLimits(limits);
    message.extract("<e:Envelope xmlns:e='http://www.w3.org/2003/05/soap-envelope'><e:Body>"
                    "<a><b>4</b></a></e:Body></e:Envelope>");
    EXPECT_EQ(TzSoapView(message)["a"]["b"].as<int>(), 4);
}

TEST(TzSoapView, AnErrorSaysThePathAndTheText) {
    const TzSoapView view = literal(Orders);
    EXPECT_EQ(textThrown<TzXmlBadArgError>(
                  [&] { view["GetOrdersResponse"]["order"][1]["total"].as<double>(); }),
              "GetOrdersResponse/order[2]/total: \"12x\" is not a double");
}

TEST(TzSoapView, AnIndexCountsNamesakesFromZero) {
    const TzSoapView order = literal(Orders)["GetOrdersResponse"]["order"];
    EXPECT_EQ(order[0].attribute<int>("id"), 1);
    EXPECT_EQ(order[1].attribute<int>("id"), 2);
    EXPECT_EQ(order.at(1).at(0).attribute<int>("id"), 1);
    EXPECT_EQ(missing([&] { order[2]; }), "GetOrdersResponse/order[3] is missing; there are 2");
    EXPECT_EQ(missing([&] { order[-1]; }), "GetOrdersResponse/order[0] is missing; there are 2");
}

TEST(TzSoapView, TheFirstViewIsItsOwnOnlyNamesake) {
    const TzSoapView view(TzSoapSimpleType("a", 1, TzSoapType::xsdInt, false));
    EXPECT_EQ(view[0].as<int>(), 1);
    EXPECT_EQ(missing([&] { view[1]; }), "a/a[2] is missing; there are 0");
}

TEST(TzSoapView, AnIndexOfAnArrayIsThatOfAnItem) {
    const TzSoapView numbers =
        encoded("<m><n c:arrayType='x:int[5]'><i>1</i><i c:position='[3]'>4</i></n></m>")["m"]["n"];
    EXPECT_EQ(numbers[0].as<int>(), 1);
    EXPECT_EQ(numbers[1].as<int>(), 4);
    EXPECT_EQ(numbers[1].getPath(), "m/n/i[2]");
    EXPECT_EQ(missing([&] { numbers[2]; }), "m/n/[3] is missing; there are 2");
    EXPECT_EQ(numbers["i"].as<int>(), 1);
    EXPECT_EQ(numbers.all().size(), 2U);
}

TEST(TzSoapView, ANamespaceMayBeAskedFor) {
    const TzSoapView m = literal("<m xmlns:a='urn:a'><x>1</x><a:x>2</a:x></m>")["m"];
    EXPECT_EQ(m["x"].as<int>(), 1);
    EXPECT_EQ((m[{"x", "urn:a"}].as<int>()), 2);
    EXPECT_EQ((m[TzXmlName("x", TzXmlNamespace("p", "urn:a"))].as<int>()), 2);
    EXPECT_EQ((m[{"x", ""}].as<int>()), 1);
    EXPECT_EQ(missing([&] {
                  m[{"x", "urn:b"}];
              }),
              "m/x in namespace \"urn:b\" is missing; there is one in no namespace");
    EXPECT_EQ(m[std::string("x")].as<int>(), 1);
    EXPECT_EQ(m[std::string_view("x")].as<int>(), 1);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { m[static_cast<const char*>(nullptr)]; }),
              errorOf([] { TzXmlUtils::requireText(nullptr); }));
}

TEST(TzSoapView, WhatIsMissingIsToldWithThePath) {
    const TzSoapView view = literal("<a><b>1</b></a>");
    EXPECT_EQ(missing([&] { view["x"]; }), "x is missing");
    EXPECT_EQ(missing([&] { view["a"]["x"]; }), "a/x is missing");
    EXPECT_EQ(missing([&] { view["a"]["b"]["x"]; }),
              "a/b/x is missing; its parent is of kind \"Simple\"");
}

TEST(TzSoapView, AFaultInTheBodyIsTold) {
    const TzSoapView view = encoded("<e:Fault><faultcode>e:Server</faultcode>"
                                    "<faultstring>no stock</faultstring></e:Fault>");
    EXPECT_EQ(missing([&] { view["GetOrdersResponse"]; }),
              "GetOrdersResponse is missing; the body holds the fault \"no stock\"");
    EXPECT_EQ(textThrown<TzSoapMissingError>([&] { view.first(); }),
              "the first member of the body is missing; the body holds the fault \"no stock\"");
}

TEST(TzSoapView, FindAndExistsDoNotThrow) {
    const TzSoapView a = literal("<a><b xsi:nil='true'/></a>")["a"];
    EXPECT_TRUE(a.exists("b"));
    EXPECT_TRUE(a.find("b").value().isNil());
    EXPECT_FALSE(a.exists("c"));
    EXPECT_FALSE(a.find("c").has_value());
    EXPECT_FALSE(a.isNil());
}

TEST(TzSoapView, OptionalIsEmptyForNilAndAbsent) {
    const TzSoapView a = literal("<a><b xsi:nil='1'/><d>4</d><e>x</e></a>")["a"];
    EXPECT_EQ(a.optional<int>("b"), std::nullopt);
    EXPECT_EQ(a.optional<int>("c"), std::nullopt);
    EXPECT_EQ(a.optional<int>("d"), 4);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { a.optional<int>("e"); }),
              "a/e: \"x\" is not an int");
}

TEST(TzSoapView, ANilElementHoldsNothing) {
    const TzSoapView b = literal("<a><b xsi:nil='true'/></a>")["a"]["b"];
    const auto text = [](const auto& action) { return textThrown<TzXmlBadArgError>(action); };
    EXPECT_EQ(text([&] { b.as<double>(); }), "a/b is nil, not a double");
    EXPECT_EQ(text([&] { b.getText(); }), "a/b is nil, not a string");
    EXPECT_EQ(text([&] { b.as<std::vector<int>>(); }), "a/b is nil, not a list");
    EXPECT_EQ(text([&] { b.as<Order>(); }), "a/b is nil, not a struct");
    EXPECT_EQ(b.as<std::optional<int>>(), std::nullopt);
}

TEST(TzSoapView, AnArrayPositionWithoutItemIsNil) {
    const TzSoapCompactArrayType array("n", "xsd:int", 3U, 0U);
    const TzSoapView view(std::as_const(array)[0U]);
    EXPECT_TRUE(view.isNil());
    EXPECT_EQ(view.getPath(), "");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { view.as<int>(); }),
              "the value is nil, not an int");
}

TEST(TzSoapView, AllAreTheMembersOfAName) {
    const TzSoapView orders = literal(Orders)["GetOrdersResponse"];
    std::vector<std::string> paths;
    for (const TzSoapView& order : orders.all("order")) {
        paths.push_back(order.getPath());
    }
    EXPECT_EQ(paths,
              (std::vector<std::string>{"GetOrdersResponse/order", "GetOrdersResponse/order[2]"}));
    EXPECT_EQ(orders.all().size(), 3U);
    EXPECT_TRUE(orders.all("x").empty());
    EXPECT_TRUE(orders["note"].all().empty());
    EXPECT_EQ(orders["order"][1].all("total")[1].as<int>(), 3);
}

TEST(TzSoapView, MembersOfAListKnowTheirNumbers) {
    const TzSoapView a = literal("<a><b/><c/><m:b xmlns:m='urn:m'/><b/><c/></a>")["a"];
    const auto pathsOf = [](const TzSoapViewList& list) {
        std::string paths;
        for (const TzSoapView& view : list) {
            paths += view.getPath() + ' ';
        }
        return paths;
    };
    EXPECT_EQ(pathsOf(a.all()), "a/b a/c a/b[2] a/b[3] a/c[2] ");
    EXPECT_EQ(pathsOf(a.all("b")), "a/b a/b[2] a/b[3] ");
    EXPECT_EQ(pathsOf(a.all({"b", ""})), "a/b a/b[3] ");
    EXPECT_EQ(pathsOf(a.all({"b", "urn:m"})), "a/b[2] ");
    EXPECT_EQ(a.all("b")[2][1].getPath(), "a/b[3]");
}

TEST(TzSoapView, AListOfViewsHoldsAListOfValues) {
    const TzSoapView a = literal("<a><b>1</b><c>x</c><b>2</b></a>")["a"];
    EXPECT_EQ(a.all("b").as<int>(), (std::vector<int>{1, 2}));
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { a.all().as<int>(); }), "a/c: \"x\" is not an int");
}

TEST(TzSoapView, FirstIsTheFirstMemberWhateverItsName) {
    const TzSoapView view = literal("<a><b>1</b><c/></a>");
    EXPECT_EQ(view.first()["b"].as<int>(), 1);
    EXPECT_EQ(view.first().first().getName().getLocalName(), "b");
    EXPECT_EQ(textThrown<TzSoapMissingError>([&] { view["a"]["c"].first(); }),
              "the first member of a/c is missing; its parent is of kind \"Simple\"");
}

TEST(TzSoapView, ReferencesAreFollowed) {
    const TzSoapView view = encoded("<m><by href='#1'/><by href='#2'/></m>"
                                    "<x id='1' k='v'><name>Ann</name></x><x id='2'>Bob</x>");
    EXPECT_EQ(view["m"]["by"]["name"].getText(), "Ann");
    EXPECT_EQ(view["m"]["by"].attribute("k"), "v");
    EXPECT_EQ(view["m"]["by"][1].getText(), "Bob");
    EXPECT_EQ(view["m"]["by"]["name"].getPath(), "m/by/name");
    EXPECT_EQ(view["m"]["by"].getValue().getName().getLocalName(), "x");
}

TEST(TzSoapView, AReferenceWithoutTargetIsNoValue) {
    const TzSoapView view = encoded("<m><by href='#1'/></m>");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { view["m"]["by"].getText(); }),
              "m/by refers to \"#1\", which is no value here");
}

TEST(TzSoapView, AttributesAreFoundByName) {
    const TzSoapView a = literal("<a xmlns:id='urn:i' xmlns:n='urn:n' n:id='4' size='x'/>")["a"];
    EXPECT_EQ(a.attribute<int>("id"), 4);
    EXPECT_EQ((a.attribute<int>({"id", "urn:n"})), 4);
    EXPECT_EQ(a.attribute("size"), "x");
    EXPECT_EQ(a.optionalAttribute("size"), "x");
    EXPECT_EQ(a.optionalAttribute("no"), std::nullopt);
    EXPECT_EQ(missing([&] { a.attribute("no"); }), "a/@no is missing");
    EXPECT_EQ(missing([&] { (a.attribute<int>({"id", ""})); }), "a/@id in no namespace is missing");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { a.attribute<int>("size"); }),
              "a/@size: \"x\" is not an int");
}

TEST(TzSoapView, ABodyHasNoAttributesAndNoText) {
    const TzSoapView view = literal("<a/>");
    EXPECT_EQ(view.optionalAttribute("x"), std::nullopt);
    EXPECT_TRUE(view.getName().isEmpty());
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { view.getText(); }),
              "the body is not a simple value");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { view.getValue(); }),
              "the body: there is no value");
}

TEST(TzSoapView, NumbersHaveToFit) {
    EXPECT_EQ(held<int>(" 7\n"), 7);
    EXPECT_EQ(held<signed char>("-128"), -128);
    EXPECT_EQ(held<unsigned char>("255"), 255);
    EXPECT_EQ(held<unsigned long long>("18446744073709551615"),
              std::numeric_limits<unsigned long long>::max());
    EXPECT_EQ(refused<signed char>("128"), "x: \"128\" is not a byte");
    EXPECT_EQ(refused<unsigned char>("256"), "x: \"256\" is not an unsigned byte");
    EXPECT_EQ(refused<short>("32768"), "x: \"32768\" is not a short");
    EXPECT_EQ(refused<unsigned short>("-1"), "x: \"-1\" is not an unsigned short");
    EXPECT_EQ(refused<int>("2147483648"), "x: \"2147483648\" is not an int");
    EXPECT_EQ(refused<unsigned int>("1.0"), "x: \"1.0\" is not an unsigned int");
    EXPECT_EQ(refused<long>(""), "x: \"\" is not a long");
    EXPECT_EQ(refused<unsigned long>("x"), "x: \"x\" is not an unsigned long");
    EXPECT_EQ(refused<long long>("1 2"), "x: \"1 2\" is not a long long");
}

TEST(TzSoapView, RealNumbersInEveryForm) {
    EXPECT_EQ(held<double>("1e3"), 1000);
    EXPECT_EQ(held<float>("-INF"), -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(held<long double>("NaN")));
    EXPECT_EQ(refused<double>("1,5"), "x: \"1,5\" is not a double");
    EXPECT_EQ(refused<float>(""), "x: \"\" is not a float");
    EXPECT_EQ(refused<long double>("--1"), "x: \"--1\" is not a number");
}

TEST(TzSoapView, BooleansAndTexts) {
    EXPECT_TRUE(held<bool>(" true "));
    EXPECT_FALSE(held<bool>("0"));
    EXPECT_EQ(refused<bool>("yes"), "x: \"yes\" is not a boolean");
    EXPECT_EQ(held<std::string>(" a "), " a ");
    EXPECT_EQ(held<std::string>(""), "");
}

TEST(TzSoapView, DatesAndTimes) {
    using namespace std::chrono;
    EXPECT_EQ(held<TzDate>("2026-11-22"), TzDate(2026, 11, 22));
    EXPECT_EQ(held<sys_days>("2026-11-22+01:00"), sys_days(2026y / 11 / 22));
    EXPECT_EQ(held<TzDateTime>("2026-11-22T01:02:03Z").getMinute(), 2U);
    EXPECT_EQ(held<sys_seconds>("2026-11-22T01:00:00.9+01:00"), sys_days(2026y / 11 / 22));
    EXPECT_EQ(held<sys_time<milliseconds>>("1969-12-31T23:59:59.9999Z").time_since_epoch(), -1ms);
    EXPECT_EQ(held<TzXmlDuration>("P1D").asString(), "P1D");
    EXPECT_EQ(held<TzDecimalPortable>("1.50").asString(), "1.50");
    EXPECT_EQ(refused<TzDate>("22.11.2026"), "x: \"22.11.2026\" is not a date");
    EXPECT_EQ(refused<sys_days>("2026-13-01"), "x: \"2026-13-01\" is not a date");
    EXPECT_EQ(refused<TzDateTime>("now"), "x: \"now\" is not a date and time");
    EXPECT_EQ(refused<sys_seconds>("now"), "x: \"now\" is not a date and time from 1678 to 2261");
    EXPECT_EQ(refused<TzXmlDuration>("1d"), "x: \"1d\" is not a duration");
    EXPECT_EQ(refused<TzDecimalPortable>("1e2x"), "x: \"1e2x\" is not a decimal");
}

TEST(TzSoapView, BytesAsBase64OrHexadecimalDigits) {
    EXPECT_EQ(held<TzSoapBytes>(" AAEC\n").value, std::string("\0\1\2", 3));
    EXPECT_EQ(refused<TzSoapBytes>("*"), "x: \"*\" is not base64");
    const TzSoapView hex = encoded("<m xmlns:d='http://www.w3.org/2001/XMLSchema'>"
                                   "<a xsi:type='d:hexBinary'>0aFF</a>"
                                   "<a xsi:type='d:hexBinary'>0</a></m>")["m"]["a"];
    EXPECT_EQ(hex.as<TzSoapBytes>().value, "\x0a\xFF");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { hex[1].as<TzSoapBytes>(); }),
              "m/a[2]: \"0\" is not hexadecimal digits");
}

TEST(TzSoapView, EnumerationsByTheirTable) {
    EXPECT_EQ(held<Color>(" green "), Color::Green);
    EXPECT_EQ(refused<Color>("Blue"), "x: \"Blue\" is not one of \"red\", \"green\"");
}

TEST(TzSoapView, AListIsAllMembersOrItems) {
    EXPECT_EQ(held<std::vector<int>>("<a>1</a><b>2</b>"), (std::vector<int>{1, 2}));
    EXPECT_EQ(held<std::vector<int>>(""), std::vector<int>());
    EXPECT_EQ(
        encoded("<n c:arrayType='x:boolean[2]'><i>1</i><i>0</i></n>")["n"].as<std::vector<bool>>(),
        (std::vector<bool>{true, false}));
    EXPECT_EQ((held<std::vector<std::optional<int>>>("<a>1</a><a xsi:nil='1'/>")),
              (std::vector<std::optional<int>>{1, std::nullopt}));
    EXPECT_EQ((held<std::vector<std::vector<int>>>("<a><i>1</i></a><a/>")),
              (std::vector<std::vector<int>>{{1}, {}}));
    EXPECT_EQ(refused<std::vector<int>>("7"), "x is not a list but of kind \"Simple\"");
    EXPECT_EQ(refused<std::vector<int>>("<a>1</a><a>y</a>"), "x/a[2]: \"y\" is not an int");
}

TEST(TzSoapView, TheValueItselfIsShared) {
    const TzSoapView view = literal("<a><b>1</b></a>");
    TzSoapType b = view["a"]["b"].as<TzSoapType>();
    b.setName(TzXmlName("c"));
    EXPECT_EQ(view["a"]["c"].as<int>(), 1);
}

TEST(TzSoapView, AStructOfMembersIsNoSimpleValue) {
    EXPECT_EQ(refused<int>("<a>1</a>"), "x is not a simple value but of kind \"Composite\"");
}

TEST(TzSoapView, StaysGoodWhenTheMessageGoes) {
    std::optional<TzSoapView> by;
    {
        const TzSoapMessage message =
            messageOf(envelope(TzSoapVersion::V1_1, "<m><by href='#1'/></m><x id='1'>Ann</x>"));
        by = TzSoapView(message)["m"]["by"];
    }
    EXPECT_EQ(by.value().getText(), "Ann");
    EXPECT_EQ(by.value().getPath(), "m/by");
}

TEST(TzSoapView, GoesDownALimitedNumberOfSteps) {
    TzSoapView view = encoded("<n id='1'><n href='#1'/></n>")["n"];
    const auto down = [&] {
        for (std::size_t i = 0; i < TzSoapView::DepthLimit; ++i) {
            view = view["n"];
        }
    };
    EXPECT_TRUE(
        textThrown<TzXmlBadArgError>(down).ends_with("\" has too many steps, the limit is 1000") ||
        ::testing::Test::HasFailure());
}

TEST(TzSoapView, AHandleWithoutABodyIsRefused) {
    TzSoapType value;
    const TzSoapType taken = std::move(value);
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { TzSoapView view(value); }), "Invalid pointer");
}

TEST(TzSoapView, TypesThatAreNotReadAreNamedWhenCompiling) {
    static_assert(!TzSoapWholeNumber<char>);
    static_assert(!TzSoapWholeNumber<bool>);
    static_assert(!TzSoapViewIndex<bool>);
    static_assert(TzSoapBoundStruct<Order>);
    static_assert(!TzSoapBoundStruct<std::string>);
    static_assert(TzSoapTextEnum<Color>);
    static_assert(TzSoapHasText<Color>);
    static_assert(!TzSoapHasText<Order>);
    SUCCEED();
}
