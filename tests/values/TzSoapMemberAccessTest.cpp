// SPDX-License-Identifier: MIT
#include "support/ReadValues.h"
#include "support/Throws.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMissingError.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <gtest/gtest.h>

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace {

const std::string Lines = "<amount>7</amount><amount>9</amount>";

/// A message with an order of three lines, the first of which has amounts.
TzSoapMessage order() {
    return messageOf(
        envelope(TzSoapVersion::V1_1, "<m:placeOrder xmlns:m='urn:stock'>"
                                      "<lines><line>" +
                                          Lines +
                                          "</line><line/><note/><line/></lines>"
                                          "<m:price>2</m:price><price>3</price><by href='#b'/>"
                                          "</m:placeOrder><b id='b'><name>Ann</name></b>"));
}

TzSoapBody body() { return order().getSoapBody(); }

/// The text and the path of the error about a missing element.
template <typename Start, typename... Texts>
std::string missing(const Start& start, const Texts&... texts) {
    std::string path;
    const std::string text = textThrown<TzSoapMissingError>([&] {
        try {
            start.getChild(texts...);
        } catch (const TzSoapMissingError& error) {
            path = error.getPath();
            throw;
        }
    });
    EXPECT_FALSE(start.findChildValue(texts...).has_value()) << path;
    EXPECT_TRUE(text.starts_with(path)) << path;
    return text;
}

/// The error about an invalid path.
std::string refused(const char* path) {
    return textThrown<TzXmlBadArgError>([&] { TzSoapCompositeType("s").getChild(path); });
}

} // namespace

TEST(TzSoapMemberAccess, APathLeadsFromTheBodyToAMember) {
    EXPECT_EQ(textOf(body().getChild("placeOrder/lines/line/amount")), "7");
    EXPECT_EQ(textOf(body().findChildValue("placeOrder/lines/line/amount").value()), "7");
}

TEST(TzSoapMemberAccess, AnIndexCountsMembersOfOneNameFromOne) {
    EXPECT_EQ(textOf(body().getChild("placeOrder/lines/line[1]/amount[2]")), "9");
    EXPECT_EQ(body().getChild("placeOrder/lines/line[3]").getName().getLocalName(), "line");
}

TEST(TzSoapMemberAccess, StepsMayBeTakenOneByOne) {
    EXPECT_EQ(textOf(body().getChild("placeOrder").getChild("lines/line").getChild("amount[2]")),
              "9");
}

TEST(TzSoapMemberAccess, EveryKindOfTextIsAPath) {
    const TzSoapType entry = body().getChild("placeOrder");
    EXPECT_EQ(textOf(entry.getChild(std::string("price"))), "2");
    EXPECT_EQ(textOf(entry.getChild(std::string_view("price"))), "2");
    EXPECT_EQ(textOf(entry.findChildValue(std::string("price")).value()), "2");
    EXPECT_EQ(textOf(entry.findChildValue(std::string_view("price")).value()), "2");
}

TEST(TzSoapMemberAccess, NameAndNamespaceAreComparedExactly) {
    const TzSoapType entry = body().getChild("placeOrder", "urn:stock");
    EXPECT_EQ(textOf(entry.getChild("price", "urn:stock")), "2");
    EXPECT_EQ(textOf(entry.getChild("price", "")), "3");
    EXPECT_EQ(textOf(entry.getChild(TzXmlName("price"))), "3");
    EXPECT_EQ(textOf(entry.getChild(TzXmlName("price", TzXmlNamespace("x", "urn:stock")))), "2");
    EXPECT_EQ(textOf(entry.findChildValue("price", "urn:stock").value()), "2");
    EXPECT_EQ(textOf(entry.findChildValue(TzXmlName("price")).value()), "3");
    EXPECT_FALSE(entry.findChildValue("price", "urn:other").has_value());
}

TEST(TzSoapMemberAccess, AnExactNameIsNoPath) {
    EXPECT_EQ(missing(body(), "placeOrder/lines", ""),
              "placeOrder/lines in no namespace is missing");
}

TEST(TzSoapMemberAccess, StepsFollowReferences) {
    EXPECT_EQ(textOf(body().getChild("placeOrder/by/name")), "Ann");
    EXPECT_EQ(textOf(body().getChild("placeOrder/by").getChild("name")), "Ann");
}

TEST(TzSoapMemberAccess, TheLastValueIsTheReferenceItself) {
    EXPECT_EQ(body().getChild("placeOrder/by").getSoapTypeId(), TzSoapContentBase::Reference);
}

TEST(TzSoapMemberAccess, ItemsOfArraysAreMembers) {
    TzSoapMessage message = messageOf(
        envelope(TzSoapVersion::V1_1, "<a c:arrayType='xsd:int[4]'><i>1</i><i>2</i></a>"
                                      "<s c:arrayType='xsd:int[9]'><i c:position='[5]'>5</i>"
                                      "<i c:position='[3]'>3</i></s>"));
    EXPECT_EQ(textOf(message.getSoapBody().getChild("a/i[2]")), "2");
    EXPECT_EQ(textOf(message.getSoapBody().getChild("s/i[2]")), "3");
    EXPECT_EQ(missing(message.getSoapBody(), "a/i[3]"), "a/i[3] is missing; there are 2");
}

TEST(TzSoapMemberAccess, ArrayPositionsWithoutItemArePassedOver) {
    TzSoapCompactArrayType array("xsd:int", 9U, 0U);
    array[7] = TzSoapSimpleType("i", 7, TzSoapContentBase::xsdInt, false);
    array[2] = TzSoapSimpleType("i", 2, TzSoapContentBase::xsdInt, false);
    EXPECT_EQ(textOf(array.getChild("i[2]")), "7");
}

TEST(TzSoapMemberAccess, HeaderEntriesAreMembersOfTheHeader) {
    TzSoapMessage message =
        messageOf(envelope(TzSoapVersion::V1_1, "", "<t><id>5</id></t><t><id>6</id></t>"));
    EXPECT_EQ(textOf(message.getSoapHeader().getChild("t[2]/id")), "6");
    EXPECT_EQ(missing(message.getSoapHeader(), "t[3]/id"), "t[3] is missing; there are 2");
}

TEST(TzSoapMemberAccess, TheErrorNamesThePathDownToWhatIsMissing) {
    EXPECT_EQ(missing(body(), "placeOrder/lines/line[1]/weight"),
              "placeOrder/lines/line[1]/weight is missing");
    EXPECT_EQ(missing(body(), "placeOrder/rows/row/amount"), "placeOrder/rows is missing");
}

TEST(TzSoapMemberAccess, TheErrorSaysHowManyOfThatNameThereAre) {
    EXPECT_EQ(missing(body(), "placeOrder/lines/line[4]/amount"),
              "placeOrder/lines/line[4] is missing; there are 3");
    EXPECT_EQ(missing(body(), "placeOrder/lines/note[2]"),
              "placeOrder/lines/note[2] is missing; there is 1");
}

TEST(TzSoapMemberAccess, TheErrorSaysWhichNamespaceTheElementIsIn) {
    EXPECT_EQ(missing(body(), "placeOrder", "urn:shop"),
              "placeOrder in namespace \"urn:shop\" is missing; there is one in namespace "
              "\"urn:stock\"");
    EXPECT_EQ(missing(body().getChild("placeOrder"), TzXmlName("price", {"m", "urn:shop"})),
              "placeOrder/price in namespace \"urn:shop\" is missing; there is one in namespace "
              "\"urn:stock\"");
}

TEST(TzSoapMemberAccess, TheErrorSaysOfWhichKindTheParentIs) {
    EXPECT_EQ(missing(body(), "placeOrder/price/cents"),
              "placeOrder/price/cents is missing; its parent is of kind \"Simple\"");
}

TEST(TzSoapMemberAccess, TheErrorBeginsAtTheValueThatWasAsked) {
    const TzSoapType line = body().getChild("placeOrder/lines/line");
    EXPECT_EQ(missing(line, "weight/kilos"), "line/weight is missing");
    EXPECT_EQ(missing(TzSoapCompositeType(), "weight"), "weight is missing");
}

TEST(TzSoapMemberAccess, TheErrorTellsOfAFaultInTheBody) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    EXPECT_EQ(missing(message.getSoapBody(), "placed"), "placed is missing");
    message.getSoapBody().getSoapFault().setCode(TzXmlName("Server"));
    message.getSoapBody().getSoapFault().setReason("closed");
    EXPECT_EQ(missing(message.getSoapBody(), "placed"),
              "placed is missing; the body holds the fault \"closed\"");
}

TEST(TzSoapMemberAccess, ValuesOfOtherKindsHaveNoMembers) {
    EXPECT_EQ(missing(TzSoapType(TzXmlName("g")), "x"),
              "g/x is missing; its parent is of kind \"Default\"");
    EXPECT_EQ(missing(TzSoapDefaultType(), "x"), "x is missing; its parent is of kind \"Default\"");
}

TEST(TzSoapMemberAccess, WhatIsNoPathIsRefused) {
    for (const char* path : {"", "/a", "a/", "a//b", "a[0]", "a[]", "a[", "a[1", "a[-1]", "a[+1]",
                             "a[1]b", "a[1][2]", "a[4294967296]", "a[x]", "[1]", "m:a", "a/m:b"}) {
        EXPECT_TRUE(
            refused(path).ends_with(" is not a step of a path: a local name, \"[n]\" may follow"))
            << path << ": " << refused(path);
    }
    EXPECT_EQ(refused("a/b[0]/c"),
              "\"b[0]\" is not a step of a path: a local name, \"[n]\" may follow");
}

TEST(TzSoapMemberAccess, APathIsRefusedWhereverItLeads) {
    EXPECT_EQ(textThrown<TzXmlBadArgError>([] { body().findChildValue("nothing/b[0]"); }),
              "\"b[0]\" is not a step of a path: a local name, \"[n]\" may follow");
}

TEST(TzSoapMemberAccess, ANullPointerIsRefused) {
    const TzSoapCompositeType value("s");
    const char* const null = nullptr;
    const std::string text = "a null pointer is not a text";
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { value.getChild(null); }), text);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { value.getChild("a", null); }), text);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { value.getChild(null, "u"); }), text);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { value.findChildValue(null); }), text);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { value.findChildValue("a", null); }), text);
}

TEST(TzSoapMemberAccess, AHandleWithoutBodyIsRefused) {
    TzSoapCompositeType moved("s");
    const TzSoapCompositeType taken(std::move(moved));
    // NOLINTNEXTLINE(bugprone-use-after-move): that is what this is about
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { moved.getChild("a"); }), "Invalid pointer");
}

TEST(TzSoapMemberAccess, AValueOutlivesItsMessage) {
    const TzSoapType amount = order().getSoapBody().getChild("placeOrder/lines/line/amount");
    EXPECT_EQ(textOf(amount), "7");
}

TEST(TzSoapMemberAccess, AValueIsSharedWithItsMessage) {
    const TzSoapMessage message = order();
    message.getSoapBody().getChild("placeOrder/price").setIdAttribute("p");
    EXPECT_EQ(message.getSoapBody().getChild("placeOrder/price").getIdAttribute(), "p");
}

TEST(TzSoapMemberAccess, NothingIsAssignedToAReturnedHandle) {
    EXPECT_FALSE((std::assignable_from<TzSoapType&&, const TzSoapType&>));
    EXPECT_FALSE((std::assignable_from<TzSoapType&&, TzSoapType>));
    EXPECT_TRUE((std::assignable_from<TzSoapType&, const TzSoapType&>));
    EXPECT_TRUE((std::assignable_from<TzSoapType&, TzSoapType>));
}

TEST(TzSoapMemberAccess, LoopsOverBodyHeaderAndComposite) {
    TzSoapMessage message =
        messageOf(envelope(TzSoapVersion::V1_1, "<a><x/><y/></a><b/>", "<h/><i/>"));
    std::string names;
    const auto note = [&](const TzSoapType& value) { names += value.getName().getLocalName(); };
    for (TzSoapType& entry : message.getSoapBody()) {
        note(entry);
    }
    for (TzSoapType& entry : message.getSoapHeader()) {
        note(entry);
    }
    for (TzSoapType& child : tzSoapAs<TzSoapCompositeType>(message.getSoapBody().getFirstEntry())) {
        note(child);
    }
    EXPECT_EQ(names, "abhixy");
}

TEST(TzSoapMemberAccess, LoopsOverConstBodyHeaderAndComposite) {
    const TzSoapMessage message =
        messageOf(envelope(TzSoapVersion::V1_1, "<a><x/><y/></a><b/>", "<h/><i/>"));
    std::string names;
    const auto note = [&](const TzSoapType& value) { names += value.getName().getLocalName(); };
    for (const TzSoapType& entry : message.getSoapBody()) {
        note(entry);
    }
    for (const TzSoapType& entry : message.getSoapHeader()) {
        note(entry);
    }
    const TzSoapCompositeType first = composite(message.getSoapBody().getFirstEntry());
    for (const TzSoapType& child : first) {
        note(child);
    }
    EXPECT_EQ(names, "abhixy");
}

TEST(TzSoapMemberAccess, TheFirstEntry) {
    EXPECT_EQ(body().getFirstEntry().getName().getLocalName(), "placeOrder");
}

TEST(TzSoapMemberAccess, ABodyWithoutEntriesHasNoFirst) {
    TzSoapMessage message(TzSoapVersion::V1_2);
    const auto first = [&] { message.getSoapBody().getFirstEntry(); };
    EXPECT_EQ(textThrown<TzSoapMissingError>(first), "the body has no entry");
    message.getSoapBody().getSoapFault().setCode(TzXmlName("Receiver"));
    message.getSoapBody().getSoapFault().setReason("closed");
    EXPECT_EQ(textThrown<TzSoapMissingError>(first),
              "the body has no entry; the body holds the fault \"closed\"");
}
