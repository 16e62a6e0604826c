// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapReadLimits.h>
#include <soap/TzSoapReferenceType.h>

#include "support/AllocationFailure.h"
#include "values/ArrayReadingTesting.h"

#include <gtest/gtest.h>

namespace {

/// Arrays whose members state positions now and then, as some senders leave out what they have not.
class ArrayGaps : public testing::TestWithParam<TzSoapVersion::Version> {
protected:
    static TzSoapVersion::Version version() { return GetParam(); }
    static TzSoapCompactArrayType compact(const std::string& size, const std::string& members,
                                          const std::string& attributes = "") {
        return readCompact(version(), list(version(), size, members, attributes));
    }
    static std::string sparse(const std::string& size, const std::string& members,
                              const std::string& attributes = "") {
        std::string items;
        for (const auto& [index, value] :
             readSparse(version(), list(version(), size, members, attributes))) {
            items += (items.empty() ? "" : " ") +
                     TzSoapArrayType::vectorToString(index, true, TzSoapVersion::V1_1) + "=" +
                     itemText(value);
        }
        return items;
    }
};

INSTANTIATE_TEST_SUITE_P(BothVersions, ArrayGaps, testing::ValuesIn(BothVersions),
                         [](const auto& tested) { return "V" + std::to_string(tested.param); });

TEST_P(ArrayGaps, APositionMovesOnInADenseArray) {
    const auto array = compact("[4]", item("a") + itemAt("[2]", "c"));
    EXPECT_EQ(textsOf(array), "a - c -");
    EXPECT_EQ(array[2].attributeCount(), 0U);
}

TEST_P(ArrayGaps, AMemberWithoutAPositionComesBehindTheOneBefore) {
    EXPECT_EQ(
        textsOf(compact("[6]", item("a") + itemAt("[2]", "c") + item("d") + itemAt("[5]", "f"))),
        "a - c d - f");
    EXPECT_EQ(sparse("[6]", itemAt("[1]", "b") + item("c") + itemAt("[4]", "e") + item("f")),
              "[1]=b [2]=c [4]=e [5]=f");
}

TEST_P(ArrayGaps, PositionsMayGoBack) {
    EXPECT_EQ(
        textsOf(compact("[4]", item("a") + itemAt("[3]", "d") + itemAt("[1]", "b") + item("c"))),
        "a b c d");
    EXPECT_EQ(sparse("[4]", itemAt("[3]", "d") + itemAt("[0]", "a") + item("b")),
              "[3]=d [0]=a [1]=b");
}

TEST_P(ArrayGaps, ALaterMemberAtOnePositionReplacesTheEarlierOne) {
    EXPECT_EQ(textsOf(compact("[3]", item("a") + itemAt("[0]", "A") + item("B"))), "A B -");
    EXPECT_EQ(sparse("[3]", itemAt("[1]", "b") + itemAt("[0]", "a") + item("B")), "[1]=B [0]=a");
}

TEST_P(ArrayGaps, RowsGoOnInTheNextOne) {
    const auto array = compact("[2,3]", item("a") + itemAt("[0,2]", "c") + item("d"));
    EXPECT_EQ(textsOf(array), "a - c d - -");
    EXPECT_EQ(sparse("[2,3]", itemAt("[0,2]", "c") + item("d") + item("e")),
              "[0,2]=c [1,0]=d [1,1]=e");
    EXPECT_EQ(sparse("[,3]", itemAt("[7,2]", "x") + item("y")), "[7,2]=x [8,0]=y");
}

TEST_P(ArrayGaps, PositionsMayBeWrittenInEitherForm) {
    EXPECT_EQ(textsOf(compact("[2,2]", item("a") + itemAt("1 1", "d"))), "a - - d");
    EXPECT_EQ(sparse("[2,2]", itemAt("0 1", "b") + item("c")), "[0,1]=b [1,0]=c");
}

TEST_P(ArrayGaps, OpenArraysGrowToThePosition) {
    const auto array = compact("[]", item("a") + itemAt("[3]", "d") + item("e"));
    EXPECT_EQ(textsOf(array), "a - - d e");
    EXPECT_EQ(array.entries(), 5U);
    EXPECT_EQ(sparse("[]", itemAt("[3]", "d") + item("e")), "[3]=d [4]=e");
}

TEST_P(ArrayGaps, PositionsAreCountedFromTheArraysBeginningWhateverItsOffset) {
    const auto array =
        compact("[6]", item("c") + itemAt("[5]", "f") + itemAt("[0]", "a"), offsetOf("[2]"));
    EXPECT_EQ(textsOf(array), "a - c - - f");
}

TEST_P(ArrayGaps, MembersOfEveryKindHaveAPosition) {
    const std::string members =
        item("a") + "<s c:position=\"[2]\"><x>1</x></s>" +
        list(version(), "[1]", item("n"), " c:position=\"[4]\"") + "<r c:position=\"[6]\" " +
        (version() == TzSoapVersion::V1_1 ? "href=\"#t\"" : "ref=\"#t\"") + "/>";
    const TzSoapMessage message =
        readBody(version(), list(version(), "[8]", members) + "<t id=\"t\">T</t>");
    const auto array = entryAs<TzSoapCompactArrayType>(message);
    EXPECT_EQ(tzSoapCast<TzSoapCompositeType>(array[2]).value().childCount(), 1U);
    EXPECT_EQ(textsOf(tzSoapCast<TzSoapCompactArrayType>(array[4]).value()), "n");
    const auto reference = tzSoapCast<TzSoapReferenceType>(array[6]).value();
    EXPECT_EQ(itemText(reference.getSoapReference()), "T");
    for (const unsigned int position : {2U, 4U, 6U}) {
        EXPECT_EQ(array[position].asString().find("position"), TzCString::npos) << position;
    }
    EXPECT_EQ(itemText(array[7]), "-");
}

TEST_P(ArrayGaps, PositionsOutsideOfTheShapeAreRefused) {
    const auto read = [](const std::string& size, const std::string& members) {
        return [=] { readBody(version(), list(version(), size, members)); };
    };
    expectOutOfRange(read("[3]", item("a") + itemAt("[3]", "d")), "3", "0", "3");
    expectOutOfRange(read("[2,2]", item("a") + itemAt("[1]", "d")), "1", "0 0", "2 2");
    expectOutOfRange(read("[5]", itemAt("[4]", "e") + item("f")), "5", "0", "5");
    expectOutOfRange(read("[5]", item("a") + itemAt("", "b")), "", "0", "5");
    expectBadText(read("[3]", item("a") + itemAt("[x]", "d")), "[x]");
    expectBadText(read("[3]", item("a") + itemAt("[-1]", "d")), "[-1]");
}

TEST_P(ArrayGaps, ThereIsNothingBehindTheLargestPosition) {
    expectBadEntry(
        [] { readBody(version(), list(version(), "[]", itemAt("[4294967295]", "z") + item("?"))); },
        0, 4294967295U);
    EXPECT_EQ(sparse("[,65536]", itemAt("[70000,65535]", "y") + item("z")),
              "[70000,65535]=y [70001,0]=z");
}

/// Reads a body that may leave so many positions unfilled, its bytes included.
void readWith(TzSoapVersion::Version version, std::size_t positions, const std::string& body) {
    const std::string text = envelope(version, body);
    TzSoapReadLimits limits;
    limits.unfilledArrayPositions = positions - text.size();
    TzSoapMessage message;
    message.setReadLimits(limits);
    message.extract(text);
}

TEST_P(ArrayGaps, GapsOfDenseArraysCount) {
    const std::string gap = list(version(), "[]", item("a") + itemAt("[5001]", "z"));
    EXPECT_NO_THROW(readWith(version(), 5000, gap));
    expectBadEntry([&] { readWith(version(), 4999, gap); }, 0, 5001);
    const std::string back =
        list(version(), "[]", item("a") + itemAt("[5001]", "z") + itemAt("[1]", "b") + item("c"));
    const std::string more = list(version(), "[2]", item("x"));
    EXPECT_NO_THROW(readWith(version(), 5000, back + more)); // two were filled again
    expectBadEntry([&] { readWith(version(), 5000, gap + more); }, 0, 2);
}

TEST_P(ArrayGaps, ManyMembersAtOnePositionFillItOnce) {
    std::string members = item("a");
    for (int count = 0; count < 50; ++count) {
        members += itemAt("[0]", "b");
    }
    const std::string body =
        list(version(), "[5000]", members) + list(version(), "[40]", item("x"));
    EXPECT_NO_THROW(readWith(version(), 5039, body));
    expectBadEntry([&] { readWith(version(), 5038, body); }, 0, 40);
}

TEST_P(ArrayGaps, WhatIsReadIsWrittenAndReadAgain) {
    const auto array = compact("[5]", item("a") + itemAt("[2]", "c") + item("d"));
    TzSoapMessage message(version());
    message.getSoapBody().appendEntry(array);
    const auto again = entryAs<TzSoapCompactArrayType>(messageOf(message.asString()));
    EXPECT_EQ(itemText(again[0]), "a");
    EXPECT_TRUE(again[1].isNull());
    EXPECT_EQ(itemText(again[2]), "c");
    EXPECT_EQ(itemText(again[3]), "d");
    EXPECT_EQ(again.entries(), 5U);
}

TEST_P(ArrayGaps, FailedAllocationsGiveEverythingBack) {
    const std::string text =
        envelope(version(), list(version(), "[20]", item("a") + itemAt("[9]", "b") + item("c")) +
                                list(version(), "[20]", itemAt("[9]", "b") + item("c")) +
                                list(version(), "[]", item("a") + itemAt("[3]", "b")) +
                                list(version(), "[9]", ""));
    EXPECT_GT(failEachAllocation([&text] { messageOf(text); }), 50U);
}

} // namespace
