// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapSparseArrayType.h>

#include "values/ArrayReadingTesting.h"

#include <gtest/gtest.h>

namespace {

class ArrayReading : public testing::TestWithParam<TzSoapVersion::Version> {
protected:
    static TzSoapVersion::Version version() { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(BothVersions, ArrayReading, testing::ValuesIn(BothVersions),
                         [](const auto& tested) { return "V" + std::to_string(tested.param); });

TEST_P(ArrayReading, Dense) {
    const auto array =
        readCompact(version(), list(version(), "[3]", item("1") + item("2") + item("3")));
    EXPECT_EQ(array.getName(), TzXmlName("list"));
    EXPECT_EQ(array.getElementType(), "xsd:int");
    EXPECT_EQ(array.getBounds(), Index{3});
    EXPECT_EQ(array.entries(), 3U);
    EXPECT_EQ(textsOf(array), "1 2 3");
    EXPECT_EQ(array.attributeCount(), 0U);
    EXPECT_EQ(array.getOffsetAttribute(version()), "");
}

TEST_P(ArrayReading, OpenAndMissingSizes) {
    for (const char* size : {"[]", "[0]", ""}) {
        SCOPED_TRACE(size);
        const auto array = readCompact(version(), list(version(), size, item("1") + item("2")));
        EXPECT_EQ(array.getBounds(), Index{0});
        EXPECT_EQ(textsOf(array), "1 2");
    }
    if (version() == TzSoapVersion::V1_2) {
        for (const char* attribute : {"c:itemType=\"xsd:int\"", "c:arraySize=\"*\""}) {
            const auto array =
                readCompact(version(), std::string("<list ") + attribute + "><i>1</i></list>");
            EXPECT_EQ(array.getBounds(), Index{0});
            EXPECT_EQ(textsOf(array), "1");
        }
    }
}

TEST_P(ArrayReading, MoreAxes) {
    const auto array = readCompact(
        version(), list(version(), "[2,2]", item("1") + item("2") + item("3") + item("4")));
    EXPECT_EQ(itemText(array[Index{1, 0}]), "3");
    const auto open =
        readCompact(version(), list(version(), "[,2]", item("1") + item("2") + item("3")));
    EXPECT_EQ(open.getBounds(), (Index{0, 2}));
    EXPECT_EQ(itemText(open[Index{1, 0}]), "3");
}

TEST_P(ArrayReading, FewerMembersThanDeclared) {
    const auto array = readCompact(version(), list(version(), "[5]", item("1") + item("2")));
    EXPECT_EQ(array.entries(), 5U);
    EXPECT_EQ(stored(array), 2U);
    EXPECT_EQ(textsOf(array), "1 2 - - -");
}

TEST_P(ArrayReading, MoreMembersThanDeclared) {
    const auto array =
        readCompact(version(), list(version(), "[2]", item("1") + item("2") + item("3")));
    EXPECT_EQ(array.getBounds(), Index{2});
    EXPECT_EQ(array.entries(), 5U);
    EXPECT_EQ(textsOf(array), "1 2 3 - -");
}

TEST_P(ArrayReading, WithoutMembers) {
    const auto array = readCompact(version(), list(version(), "[4]", ""));
    EXPECT_EQ(array.entries(), 4U);
    EXPECT_EQ(stored(array), 0U);
    EXPECT_EQ(textsOf(array), "- - - -");
    EXPECT_EQ(array.attributeCount(), 0U);
    EXPECT_EQ(array.getElementType(), "xsd:int");
    const auto spaced = readCompact(version(), list(version(), "[]", " \n "));
    EXPECT_EQ(spaced.entries(), 0U);
}

TEST_P(ArrayReading, Partial) {
    const std::string text =
        list(version(), "[6]", item("2") + item("3"), offsetOf("[2]") + " id=\"a\"");
    const auto array = readCompact(version(), text);
    EXPECT_EQ(array.getOffsetIndex(), Index{2});
    EXPECT_EQ(array.getStartIndex(), Index{0});
    EXPECT_EQ(array.getIdAttribute(), "a");
    EXPECT_EQ(array.attributeCount(), 1U);
    EXPECT_EQ(array.entries(), 6U);
    EXPECT_EQ(stored(array), 2U);
    EXPECT_EQ(itemText(array[2]), "2");
    EXPECT_EQ(textsOf(array), "- - 2 3 - -");
    const auto matrix =
        readCompact(version(), list(version(), "[3,3]", item("5") + item("6"), offsetOf("[1,2]")));
    EXPECT_EQ(itemText(matrix[Index{1, 2}]), "5");
    EXPECT_EQ(itemText(matrix[Index{2, 0}]), "6");
}

TEST_P(ArrayReading, Sparse) {
    const auto message =
        readBody(version(), list(version(), "[10]", itemAt("[7]", "h") + itemAt("[2]", "c")));
    const auto array = entryAs<TzSoapSparseArrayType>(message);
    EXPECT_EQ(array.getBounds(), Index{10});
    EXPECT_EQ(array.entries(), 2U);
    EXPECT_EQ(array.begin()->first, Index{7});
    EXPECT_EQ(itemText(array.begin()->second), "h");
    EXPECT_EQ(array.begin()->second.attributeCount(), 0U);
    EXPECT_EQ(itemText(array[2]), "c");
    EXPECT_EQ(array.attributeCount(), 0U);
}

TEST_P(ArrayReading, SparseInManyAxes) {
    const auto array = entryAs<TzSoapSparseArrayType>(
        readBody(version(), list(version(), "[,4]", itemAt("[2,3]", "a") + itemAt("5 0", "b"))));
    EXPECT_EQ(itemText(array[Index{2, 3}]), "a");
    EXPECT_EQ(itemText(array[Index{5, 0}]), "b");
}

TEST_P(ArrayReading, FirstMemberDecidesTheForm) {
    const auto compact =
        readBody(version(), list(version(), "[5]", item("a") + itemAt("[4]", "b")));
    EXPECT_TRUE(entryAs<TzSoapArrayType>(compact).isCompact());
    const auto sparse = readBody(version(), list(version(), "[5]", itemAt("[3]", "b") + item("a")));
    EXPECT_TRUE(entryAs<TzSoapArrayType>(sparse).isSparse());
}

TEST_P(ArrayReading, TwoMembersAtOnePosition) {
    const auto array = entryAs<TzSoapSparseArrayType>(
        readBody(version(), list(version(), "[5]",
                                 itemAt("[1]", "a") + itemAt("[2]", "b") + itemAt("[1]", "c"))));
    EXPECT_EQ(array.entries(), 2U);
    EXPECT_EQ(itemText(array[1]), "c");
}

TEST_P(ArrayReading, Nested) {
    const std::string inner = list(version(), "[2]", item("1") + item("2"));
    const std::string row = "<row><a>x</a><b>y</b></row>";
    const auto array = readCompact(version(), list(version(), "[3]", inner + row + item("z")));
    ASSERT_EQ(array.entries(), 3U);
    EXPECT_EQ(textsOf(tzSoapCast<TzSoapCompactArrayType>(array[0]).value()), "1 2");
    EXPECT_EQ(tzSoapCast<TzSoapCompositeType>(array[1]).value().childCount(), 2U);
    EXPECT_EQ(itemText(array[2]), "z");
}

TEST_P(ArrayReading, BadShapes) {
    const auto read = [](const std::string& size, const std::string& members,
                         const std::string& attributes = "") {
        return [=] { readBody(version(), list(version(), size, members, attributes)); };
    };
    for (const std::string& members : {std::string(), item("a"), itemAt("[1]", "a")}) {
        SCOPED_TRACE(members);
        expectBadText(read("[3,0]", members), "[3,0]");
        expectBadText(read("[-1]", members), "[-1]");
        expectBadText(read("[4294967296]", members), "[4294967296]");
        expectBadEntry(read("[65536,65536]", members), 0, 65536);
        expectBadEntry(read("[4294967295,4294967295]", members), 0, 4294967295U);
        expectBadEntry(read("[,65536,65537]", members), 2, 65537);
        expectBadText(read("[3]", members, offsetOf("[,1]")), "[,1]");
    }
    if (version() == TzSoapVersion::V1_2) {
        expectBadEntry(read("3 *", ""), 1, 0);
        expectBadText(read("* *", ""), "* *");
    }
    expectBadText(read("[3]", itemAt("[]", "a")), "[]");
    expectOutOfRange(read("[3]", itemAt("[3]", "a")), "3", "0", "3");
    expectOutOfRange(read("[3]", itemAt("[1,1]", "a")), "1 1", "0", "3");
}

TEST_P(ArrayReading, SparseArraysOfAnyShapeCostTheirMembers) {
    const auto array = entryAs<TzSoapSparseArrayType>(
        readBody(version(), list(version(), "[4294967295]", itemAt("[4294967294]", "last"))));
    EXPECT_EQ(array.entries(), 1U);
    EXPECT_EQ(itemText(array[4294967294U]), "last");
}

TEST_P(ArrayReading, LongSparseArray) {
    std::string members;
    for (unsigned int count = 0; count < 500; ++count) {
        const std::string position = std::to_string(count * 37 % 500);
        members += itemAt("[" + position + "]", position);
    }
    const auto array =
        entryAs<TzSoapSparseArrayType>(readBody(version(), list(version(), "[500]", members)));
    ASSERT_EQ(array.entries(), 500U);
    for (unsigned int position = 0; position < 500; ++position) {
        ASSERT_EQ(itemText(array[position]), std::to_string(position));
    }
}

TEST_P(ArrayReading, MessageCanBeReadAgainAfterAnError) {
    TzSoapMessage message;
    expectBadEntry(
        [&] {
            message.extract(envelope(
                version(), list(version(), "[2]", list(version(), "[2147483647]", item("a")))));
        },
        0, 2147483647);
    message.extract(envelope(version(), list(version(), "[2]", item("a"))));
    EXPECT_EQ(textsOf(entryAs<TzSoapCompactArrayType>(message)), "a -");
}

} // namespace
