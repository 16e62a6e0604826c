// SPDX-License-Identifier: MIT
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapReadLimits.h>
#include <soap/TzSoapSparseArrayImp.h>

#include "reading/TzSoapReadingState.h"
#include "values/ArrayReadingTesting.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

class ArrayReadingLimits : public testing::TestWithParam<TzSoapVersion::Version> {
protected:
    static TzSoapVersion::Version version() { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(BothVersions, ArrayReadingLimits, testing::ValuesIn(BothVersions),
                         [](const auto& tested) { return "V" + std::to_string(tested.param); });

TEST_P(ArrayReadingLimits, DeclaredPositionsMustBePaidFor) {
    const auto read = [](const std::string& size) {
        return [=] { readBody(version(), list(version(), size, item("a"))); };
    };
    expectBadEntry(read("[2147483647]"), 0, 2147483647);
    expectBadEntry(read("[4294967295]"), 0, 4294967295U);
    expectBadEntry(read("[65536,65535]"), 0, 65536);
    expectBadEntry(read("[2,3,2147483]"), 2, 2147483);
    expectBadEntry(read("[,2000000]"), 1, 2000000);
    EXPECT_EQ(readCompact(version(), list(version(), "[1048576]", item("a"))).entries(), 1048576U);
}

TEST_P(ArrayReadingLimits, ARefusedShapeSaysWhereAndWhichLimit) {
    const std::string text =
        envelope(version(), "\n  " + list(version(), "[3000000]", "\n    " + item("a")));
    try {
        messageOf(text);
        FAIL() << "accepted";
    } catch (const TzXmlBoundsError& error) {
        EXPECT_EQ(error.getLine(), 3U);
        EXPECT_EQ(error.getColumn(), 5U);
        EXPECT_EQ(error.getDetail(), "the text leaves more positions without an item than the " +
                                         std::to_string(1048576 + text.size()) +
                                         " that unfilledArrayPositions and its size allow");
        EXPECT_EQ(error.describe(),
                  TzCString(error.what()) + ", line 3, column 5 (" + error.getDetail() + ")");
    }
}

TEST_P(ArrayReadingLimits, AShapeBeyond32BitsSaysSo) {
    try {
        readBody(version(), "\n" + list(version(), "[65536,65536]", item("a")));
        FAIL() << "accepted";
    } catch (const TzXmlBoundsError& error) {
        EXPECT_EQ(error.getLine(), 2U);
        EXPECT_EQ(error.getDetail(), "an array has at most 4294967295 positions");
    }
}

TEST_P(ArrayReadingLimits, AGrowingArraySaysWhereItExceedsTheLimit) {
    try {
        readBody(version(), "\n" + list(version(), "[]", "\n" + item("a"), offsetOf("[3000000]")));
        FAIL() << "accepted";
    } catch (const TzXmlBoundsError& error) {
        EXPECT_EQ(error.getLine(), 3U);
        EXPECT_NE(error.getDetail().find("unfilledArrayPositions"), TzCString::npos);
    }
}

TEST_P(ArrayReadingLimits, ShapesWithoutMembersAreNotCounted) {
    for (const unsigned int size : {3000000U, 4294967295U}) {
        const auto array =
            readCompact(version(), list(version(), "[" + std::to_string(size) + "]", ""));
        EXPECT_EQ(array.entries(), size);
        EXPECT_EQ(array.getBounds(), Index{size});
        EXPECT_EQ(stored(array), 0U);
    }
    std::string many;
    for (int count = 0; count < 1000; ++count) {
        many += list(version(), "[1000000]", "");
    }
    const TzSoapMessage message =
        readBody(version(), many + list(version(), "[1000000]", item("a")));
    EXPECT_EQ(message.getSoapBody().entryCount(), 1001U);
    EXPECT_EQ(entryAs<TzSoapCompactArrayType>(message, 500).entries(), 1000000U);
}

TEST_P(ArrayReadingLimits, OffsetsMustBePaidFor) {
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

TEST_P(ArrayReadingLimits, OffsetWithoutMembersIsHarmless) {
    TzSoapMessage message =
        readBody(version(), list(version(), "[2,2]", "", offsetOf("[4294967295,4294967295]")));
    const auto array = entryAs<TzSoapCompactArrayType>(message);
    EXPECT_EQ(array.entries(), 4U);
    EXPECT_TRUE(TzSoapAccess::body(array).itemsToWrite().empty());
    EXPECT_EQ(countOf("offset", message.asString()), 1U);
}

TEST_P(ArrayReadingLimits, AllArraysOfAMessageDrawOnOneLimit) {
    std::string body;
    for (int count = 0; count < 3; ++count) {
        body += list(version(), "[400000]", item("a"));
    }
    expectBadEntry([&body] { readBody(version(), body); }, 0, 400000);
    body = list(version(), "[400000]", item("a")) + list(version(), "[400000]", item("a"));
    EXPECT_EQ(readBody(version(), body).getSoapBody().entryCount(), 2U);
    std::string many;
    for (int count = 0; count < 10000; ++count) {
        many += list(version(), "[1000000]", item("a"));
    }
    expectBadEntry([&many] { readBody(version(), many); }, 0, 1000000);
}

/// Reads a body under another limit.
TzSoapMessage readLimited(TzSoapVersion::Version version, std::size_t limit,
                          const std::string& body) {
    TzSoapMessage message;
    TzSoapReadLimits limits;
    limits.unfilledArrayPositions = limit;
    message.setReadLimits(limits);
    message.extract(envelope(version, body));
    return message;
}

TEST_P(ArrayReadingLimits, EveryByteOfTheTextPaysForOnePosition) {
    const std::string body = list(version(), "[1235]", item("a"));
    const std::size_t bytes = envelope(version(), body).size();
    EXPECT_NO_THROW(readLimited(version(), 1235 - bytes, body));
    expectBadEntry([&] { readLimited(version(), 1235 - bytes - 1, body); }, 0, 1235);
}

TEST_P(ArrayReadingLimits, MembersGivePositionsBack) {
    std::string members;
    for (int count = 0; count < 100; ++count) {
        members += "<i/>";
    }
    const std::string full = list(version(), "[100]", members);
    const std::string grown = list(version(), "[99]", members);    // 100 more, 99 of them unfilled
    const std::string empty = list(version(), "[100000]", "<i/>"); // but for one
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
    EXPECT_NO_THROW(readLimited(version(), limitFor(100000, empty + open), empty + open));
}

TEST_P(ArrayReadingLimits, RaisedLimitCostsNothing) {
    constexpr std::size_t NoLimit = std::numeric_limits<std::size_t>::max();
    const auto empty = entryAs<TzSoapCompactArrayType>(
        readLimited(version(), NoLimit, list(version(), "[2147483647]", "")));
    EXPECT_EQ(empty.entries(), 2147483647U);
    EXPECT_EQ(stored(empty), 0U);
    const auto partial = entryAs<TzSoapCompactArrayType>(readLimited(
        version(), NoLimit,
        list(version(), "[4294967295]", item("a") + item("b"), offsetOf("[4294967290]"))));
    EXPECT_EQ(partial.entries(), 4294967295U);
    EXPECT_LE(stored(partial), 2048U);
    EXPECT_EQ(itemText(partial[4294967291U]), "b");
    EXPECT_EQ(itemText(partial[4294967292U]), "-");
}

TEST(TzSoapCompactArrayImp, ReadingTakesPositionsFromTheContext) {
    TzSoapParseContext context;
    TzSoapAccess::reading(context).budget =
        TzSoapReadBudget(TzSoapReadLimits{.unfilledArrayPositions = 10}, 5);
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
