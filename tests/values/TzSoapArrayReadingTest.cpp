// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapReadLimits.h>
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>

#include "model/TzSoapAccess.h"
#include "values/ArrayTesting.h"
#include "values/EnvelopeTesting.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

/// An array element; its size is stated in the form of SOAP 1.1, which 1.2 understands, too.
std::string list(TzSoapVersion::Version version, const std::string& size,
                 const std::string& members, const std::string& attributes = "") {
    const std::string type = version == TzSoapVersion::V1_1
                                 ? "c:arrayType=\"xsd:int" + size + "\""
                                 : "c:itemType=\"xsd:int\" c:arraySize=\"" + size + "\"";
    return "<list " + type + attributes + ">" + members + "</list>";
}

std::string item(const std::string& text) { return "<item>" + text + "</item>"; }

std::string itemAt(const std::string& position, const std::string& text) {
    return "<item c:position=\"" + position + "\">" + text + "</item>";
}

std::string offsetOf(const std::string& offset) { return " c:offset=\"" + offset + "\""; }

TzSoapMessage readBody(TzSoapVersion::Version version, const std::string& body) {
    return messageOf(envelope(version, body));
}

TzSoapCompactArrayType readCompact(TzSoapVersion::Version version, const std::string& body) {
    return entryAs<TzSoapCompactArrayType>(readBody(version, body));
}

std::size_t stored(const TzSoapCompactArrayType& array) {
    const auto items = TzSoapAccess::body(array).storedItems();
    return static_cast<std::size_t>(std::distance(items.begin(), items.end()));
}

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
        readCompact(version(), list(version(), "[5]", item("a") + itemAt("[4]", "b") + item("c")));
    EXPECT_EQ(textsOf(compact), "a b c - -");
    EXPECT_EQ(compact[1].attributeCount(), 1U); // the position stays what it is, an attribute
    EXPECT_EQ(compact[1].attributesBegin()->getValue(), "[4]");
    expectOutOfRange(
        [&] { readBody(version(), list(version(), "[5]", itemAt("[4]", "b") + item("a"))); }, "",
        "0", "5");
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

TEST_P(ArrayReading, DeclaredPositionsMustBePaidFor) {
    for (const std::string& members : {std::string(), item("a")}) {
        SCOPED_TRACE(members);
        const auto read = [&members](const std::string& size) {
            return [=] { readBody(version(), list(version(), size, members)); };
        };
        expectBadEntry(read("[2147483647]"), 0, 2147483647);
        expectBadEntry(read("[4294967295]"), 0, 4294967295U);
        expectBadEntry(read("[65536,65535]"), 0, 65536);
        expectBadEntry(read("[2,3,2147483]"), 2, 2147483);
        expectBadEntry(read("[,2000000]"), 1, 2000000);
        EXPECT_EQ(readCompact(version(), list(version(), "[1048576]", members)).entries(),
                  1048576U);
    }
}

TEST_P(ArrayReading, OffsetsMustBePaidFor) {
    const auto read = [](const std::string& size, const std::string& offset) {
        return [=] { readBody(version(), list(version(), size, item("a"), offsetOf(offset))); };
    };
    expectBadEntry(read("[]", "[2147483000]"), 0, 2147483000);
    expectBadEntry(read("[10]", "[2147483000]"), 0, 2147483000);
    expectBadEntry(read("[10]", "[4294967295]"), 0, 4294967295U);
    expectBadEntry(read("[,3]", "[2,2147483]"), 0, 715829); // carried over
    expectOutOfRange(read("[2,2]", "[4294967295,4294967295]"), "4294967295 4294967295", "0 0",
                     "2 2");
    EXPECT_EQ(
        stored(readCompact(version(), list(version(), "[]", item("a"), offsetOf("[1000000]")))),
        1U);
}

TEST_P(ArrayReading, OffsetWithoutMembersIsHarmless) {
    TzSoapMessage message =
        readBody(version(), list(version(), "[2,2]", "", offsetOf("[4294967295,4294967295]")));
    const auto array = entryAs<TzSoapCompactArrayType>(message);
    EXPECT_EQ(array.entries(), 4U);
    EXPECT_TRUE(TzSoapAccess::body(array).itemsToWrite().empty());
    EXPECT_EQ(countOf("offset", message.asString()), 1U);
}

TEST_P(ArrayReading, AllArraysOfAMessageDrawOnOneLimit) {
    std::string body;
    for (int count = 0; count < 3; ++count) {
        body += list(version(), "[400000]", item("a"));
    }
    expectBadEntry([&body] { readBody(version(), body); }, 0, 400000);
    body = list(version(), "[400000]", item("a")) + list(version(), "[400000]", "");
    EXPECT_EQ(readBody(version(), body).getSoapBody().entryCount(), 2U);
    std::string many;
    for (int count = 0; count < 10000; ++count) {
        many += list(version(), "[1000000]", "");
    }
    expectBadEntry([&many] { readBody(version(), many); }, 0, 1000000);
}

/// Reads a body under a limit of its own.
TzSoapMessage readLimited(TzSoapVersion::Version version, std::size_t limit,
                          const std::string& body) {
    TzSoapMessage message;
    TzSoapReadLimits limits;
    limits.unfilledArrayPositions = limit;
    message.setReadLimits(limits);
    message.extract(envelope(version, body));
    return message;
}

TEST_P(ArrayReading, EveryByteOfTheTextPaysForOnePosition) {
    const std::string body = list(version(), "[1234]", "");
    const std::size_t bytes = envelope(version(), body).size();
    EXPECT_NO_THROW(readLimited(version(), 1234 - bytes, body));
    expectBadEntry([&] { readLimited(version(), 1234 - bytes - 1, body); }, 0, 1234);
}

TEST_P(ArrayReading, MembersGivePositionsBack) {
    std::string members;
    for (int count = 0; count < 100; ++count) {
        members += "<i/>";
    }
    const std::string full = list(version(), "[100]", members);
    const std::string grown = list(version(), "[99]", members); // 100 more, 99 of them unfilled
    const std::string empty = list(version(), "[99999]", "");
    const auto limitFor = [](std::size_t positions, const std::string& body) {
        return positions - envelope(version(), body).size();
    };
    EXPECT_NO_THROW(
        readLimited(version(), limitFor(100099, empty + full + full), empty + full + full));
    expectBadEntry([&] { readLimited(version(), limitFor(100098, empty + full), empty + full); }, 0,
                   100);
    EXPECT_NO_THROW(readLimited(version(), limitFor(100098, empty + grown), empty + grown));
    EXPECT_NO_THROW(
        readLimited(version(), limitFor(100197, empty + grown + grown), empty + grown + grown));
    expectBadEntry(
        [&] {
            readLimited(version(), limitFor(100196, empty + grown + grown), empty + grown + grown);
        },
        0, 99);
    // open arrays leave nothing unfilled
    const std::string open = list(version(), "[]", members);
    EXPECT_NO_THROW(readLimited(version(), limitFor(99999, empty + open), empty + open));
}

TEST_P(ArrayReading, RaisedLimitCostsNothing) {
    constexpr std::size_t NoLimit = std::numeric_limits<std::size_t>::max();
    const auto empty = entryAs<TzSoapCompactArrayType>(
        readLimited(version(), NoLimit, list(version(), "[2147483647]", "")));
    EXPECT_EQ(empty.entries(), 2147483647U);
    EXPECT_EQ(stored(empty), 0U);
    const auto partial = entryAs<TzSoapCompactArrayType>(readLimited(
        version(), NoLimit,
        list(version(), "[4294967295]", item("a") + item("b"), offsetOf("[4294967290]"))));
    EXPECT_EQ(partial.entries(), 4294967295U);
    EXPECT_EQ(stored(partial), 2U);
    EXPECT_EQ(itemText(partial[4294967291U]), "b");
    EXPECT_EQ(itemText(partial[4294967292U]), "-");
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

TEST(TzSoapCompactArrayImp, ReadingTakesPositionsFromTheContext) {
    TzSoapParseContext context;
    context.setLimits(TzSoapReadLimits{.unfilledArrayPositions = 10}, 5);
    const auto make = [&context](const char* size) {
        return TzSoapCompactArrayImp::forReading("list", "xsd:int", size, context);
    };
    expectBadEntry([&make] { make("[16]"); }, 0, 16);
    const TzSoapCompactArrayType array = make("[2,5]");
    EXPECT_EQ(array.getName(), TzXmlName("list"));
    EXPECT_EQ(array.getArrayType(), "xsd:int[2,5]");
    EXPECT_EQ(array.entries(), 10U);
    expectBadEntry([&make] { make("[6]"); }, 0, 6);
    EXPECT_EQ(make("[5]").entries(), 5U);
    expectBadEntry([&make] { make("[1]"); }, 0, 1);
    EXPECT_EQ(make("").getBounds(), Index{0});
    EXPECT_EQ(make("  ").getBounds(), Index{0});
    EXPECT_EQ(make("[]").getBounds(), Index{0});
    EXPECT_EQ(TzSoapSparseArrayImp::forReading("list", "xsd:int", "").getBounds(), Index{0});
}

} // namespace
