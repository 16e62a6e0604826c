// SPDX-License-Identifier: MIT
#include <soap/TzSoapArrayType.h>
#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapUtils.h>
#include <soap/TzSoapVisitor.h>
#include <tz/thread/TzTHRInvalidPointer.h>

#include "model/TzSoapAccess.h"
#include "support/ForeignLocale.h"
#include "values/ArrayTesting.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

/// An array that is neither compact nor sparse.
class GenericArray : public TzSoapArrayTypeImp {
public:
    GenericArray() = default;
    GenericArray(Index bounds, Index start)
        : TzSoapArrayTypeImp("list", "xsd:int", std::move(bounds), std::move(start)) {}
    GenericArray(unsigned int size, unsigned int start)
        : TzSoapArrayTypeImp("list", "xsd:int", size, start) {}
    GenericArray(const char* bounds, const char* start)
        : TzSoapArrayTypeImp("list", "xsd:int", TzCString(bounds), TzCString(start)) {}
    GenericArray(const GenericArray& other) = default;
    GenericArray(const GenericArray& other, const Index& newBounds)
        : TzSoapArrayTypeImp(other, newBounds) {}
};

class TestedHandle : public TzSoapArrayType {
public:
    explicit TestedHandle(TzSoapArrayTypeImp* body) : TzSoapArrayType(body) {}
};

/// A text, how it is read and what it states; nothing for an error.
struct TextCase {
    const char* text;
    bool boundsMode;
    std::optional<Index> result;
};

const TextCase TextCases[] = {
    // brackets
    {"[2,3]", false, Index{2, 3}},
    {"[2,3]", true, Index{2, 3}},
    {"[ 2 , 3 ]", false, Index{2, 3}},
    {"[2,\n3]", false, Index{2, 3}},
    {"\t[2,3]\n ", true, Index{2, 3}},
    {"[1 2]", false, Index{12}},
    {"[7]", false, Index{7}},
    {"[+7]", false, Index{7}},
    {"[-0]", false, Index{0}},
    {"[007,08]", false, Index{7, 8}},
    {"[\r7]", false, Index{7}},
    {"[0]", true, Index{0}},
    {"[0,3]", true, Index{0, 3}},
    {"[,3]", true, Index{0, 3}},
    {"[]", true, Index{0}},
    {"[ ]", true, Index{0}},
    {"[3,0]", false, Index{3, 0}},
    {"[0,0]", false, Index{0, 0}},
    {"[4294967295]", false, Index{4294967295U}},
    {"[65536,65536]", true, Index{65536, 65536}},
    // whatever separates
    {"[1;2]", false, Index{1, 2}},
    {"[1x2]", true, Index{1, 2}},
    {"[1-2]", false, Index{1, 2}},
    {"[1[2]", false, Index{1, 2}},
    {"[1,,]", false, std::nullopt},
    {"[1;;2]", false, std::nullopt},
    // refused
    {"[", false, std::nullopt},
    {"[2,3", false, std::nullopt},
    {"[2,3", true, std::nullopt},
    {"2[3]", false, std::nullopt},
    {"[3,]", false, std::nullopt},
    {"[3,]", true, std::nullopt},
    {"[3,0]", true, std::nullopt},
    {"[0,0]", true, std::nullopt},
    {"[,]", true, std::nullopt},
    {"[,,3]", true, std::nullopt},
    {"[,3]", false, std::nullopt},
    {"[]", false, std::nullopt},
    {"[;]", true, std::nullopt},
    {"[-1]", false, std::nullopt},
    {"[-1]", true, std::nullopt},
    {"[1--2]", false, std::nullopt},
    {"[+]", false, std::nullopt},
    {"[+-1]", false, std::nullopt},
    {"[x]", false, std::nullopt},
    {"[1]x", false, std::nullopt},
    {"[1]]", false, std::nullopt},
    {"[1]2]", false, std::nullopt},
    {"[4294967296]", false, std::nullopt},
    {"[-4294967296]", false, std::nullopt},
    {"[18446744073709551616]", true, std::nullopt},
    {"[99999999999999999999999999,1]", false, std::nullopt},
    {"xsd:int[2]", false, std::nullopt},
    // without brackets
    {"2 3", false, Index{2, 3}},
    {"2 3", true, Index{2, 3}},
    {"  2\t\r\n3  ", false, Index{2, 3}},
    {"", false, Index{}},
    {"", true, Index{}},
    {" \t", true, Index{}},
    {"* 3", true, Index{0, 3}},
    {"* 3", false, Index{0, 3}},
    {"3 *", true, Index{3, 0}},
    {"*", false, Index{0}},
    {"*x 2", false, Index{0, 2}},
    {"3 0", true, Index{3, 0}},
    {"2,3]", false, Index{2}},
    {"+5", false, Index{5}},
    {"-0", false, Index{0}},
    {"x", false, Index{0}},
    {"- 5", false, Index{0, 5}},
    {"4294967295", false, Index{4294967295U}},
    {"* *", true, std::nullopt},
    {"* 2 *x", false, std::nullopt},
    {"-1", false, std::nullopt},
    {"3 -1x", true, std::nullopt},
    {"4294967296", false, std::nullopt},
    {"1 99999999999999999999", false, std::nullopt},
};

TEST(TzSoapArrayTypeImp, ReadsTexts) {
    for (const TextCase& tested : TextCases) {
        SCOPED_TRACE(std::string(tested.text) + (tested.boundsMode ? " as bounds" : " as index"));
        const auto read = [&tested] {
            return TzSoapArrayTypeImp::stringToVector(tested.text, tested.boundsMode);
        };
        if (tested.result) {
            EXPECT_EQ(read(), *tested.result);
        } else {
            expectBadText(read, tested.text);
        }
    }
}

TEST(TzSoapArrayTypeImp, ReadsTextsOfTheLatestVersionAlone) {
    for (const bool boundsMode : {false, true}) {
        const auto read = [boundsMode](const char* text) {
            return TzSoapArrayTypeImp::stringToVectorForLatestVersion(text, boundsMode);
        };
        EXPECT_EQ(read("2 3"), (Index{2, 3}));
        EXPECT_EQ(read("* 0"), (Index{0, 0}));
        EXPECT_EQ(read("[2,3]"), (Index{0})); // not a number
        expectBadText([&read] { read("* *"); }, "* *");
    }
}

TEST(TzSoapArrayTypeImp, ReadsAndWritesTextsInAnyLocale) {
    const ForeignLocale locale;
    EXPECT_EQ(TzSoapArrayTypeImp::stringToVector("[1234567,1.5]", false), (Index{1234567, 1, 5}));
    EXPECT_EQ(TzSoapArrayTypeImp::vectorToString({1234567}, true, TzSoapVersion::V1_1),
              "[1234567]");
}

TEST(TzSoapArrayTypeImp, ReadsEmbeddedNulsAsAnyOtherCharacter) {
    EXPECT_EQ(TzSoapArrayTypeImp::stringToVector(std::string("[1\0002]", 5), false), (Index{1, 2}));
    const std::string open("[\000]", 3);
    expectBadText([&open] { TzSoapArrayTypeImp::stringToVector(open, true); }, open);
}

TEST(TzSoapArrayTypeImp, WritesTexts) {
    struct Case {
        Index vector;
        const char* open11;
        const char* digit11;
        const char* open12;
        const char* digit12;
    };
    const Case cases[] = {
        {{}, "[]", "[]", "", ""},
        {{0}, "[]", "[0]", "*", "0"},
        {{5}, "[5]", "[5]", "5", "5"},
        {{0, 3}, "[,3]", "[0,3]", "* 3", "0 3"},
        {{3, 0}, "[3,]", "[3,0]", "3 *", "3 0"},
        {{0, 0, 2}, "[,,2]", "[0,0,2]", "* 0 2", "0 0 2"},
        {{4294967295U, 1}, "[4294967295,1]", "[4294967295,1]", "4294967295 1", "4294967295 1"},
    };
    for (const Case& tested : cases) {
        SCOPED_TRACE(tested.digit12);
        const auto written = [&tested](bool zeroAsDigit, TzSoapVersion::Version version) {
            return TzSoapArrayType::vectorToString(tested.vector, zeroAsDigit, version);
        };
        EXPECT_EQ(written(false, TzSoapVersion::V1_1), tested.open11);
        EXPECT_EQ(written(true, TzSoapVersion::V1_1), tested.digit11);
        EXPECT_EQ(written(false, TzSoapVersion::V1_2), tested.open12);
        EXPECT_EQ(written(true, TzSoapVersion::V1_2), tested.digit12);
        EXPECT_EQ(written(true, static_cast<TzSoapVersion::Version>(7)), tested.digit12);
        EXPECT_EQ(TzSoapArrayTypeImp::vectorToStringForLatestVersion(tested.vector, false),
                  tested.open12);
        EXPECT_EQ(TzSoapArrayTypeImp::vectorToStringForLatestVersion(tested.vector, true),
                  tested.digit12);
    }
}

TEST(TzSoapArrayTypeImp, CountsPositions) {
    EXPECT_EQ(TzSoapArrayTypeImp::allocSizeOf({}), 0U);
    EXPECT_EQ(TzSoapArrayTypeImp::allocSizeOf({0}), 0U);
    EXPECT_EQ(TzSoapArrayTypeImp::allocSizeOf({7}), 7U);
    EXPECT_EQ(TzSoapArrayTypeImp::allocSizeOf({0, 3}), 3U);
    EXPECT_EQ(TzSoapArrayTypeImp::allocSizeOf({0, 3, 4}), 12U);
    EXPECT_EQ(TzSoapArrayTypeImp::allocSizeOf({2, 3, 4}), 24U);
    EXPECT_EQ(TzSoapArrayTypeImp::allocSizeOf({4294967295U}), 4294967295U);
    EXPECT_EQ(TzSoapArrayTypeImp::allocSizeOf({65537, 65535}), 4294967295U);
}

TEST(TzSoapArrayTypeImp, RefusesOpenInnerAxes) {
    expectBadEntry([] { TzSoapArrayTypeImp::allocSizeOf({3, 0}); }, 1, 0);
    expectBadEntry([] { TzSoapArrayTypeImp::allocSizeOf({0, 0}); }, 1, 0);
    expectBadEntry([] { TzSoapArrayTypeImp::allocSizeOf({2, 3, 0, 0}); }, 2, 0);
    expectBadEntry([] { GenericArray(Index{3, 0}, Index{0, 0}); }, 1, 0);
    expectBadEntry([] { GenericArray("3 *", "0 0"); }, 1, 0);
}

TEST(TzSoapArrayTypeImp, RefusesMorePositionsThanFit) {
    expectBadEntry([] { TzSoapArrayTypeImp::allocSizeOf({65536, 65536}); }, 0, 65536);
    expectBadEntry([] { TzSoapArrayTypeImp::allocSizeOf({0, 65536, 65537}); }, 2, 65537);
    expectBadEntry(
        [] {
            TzSoapArrayTypeImp::allocSizeOf({4294967295U, 4294967295U});
        },
        0, 4294967295U);
    expectBadEntry([] { TzSoapArrayTypeImp::allocSizeOf({2, 2147483648U}); }, 1, 2147483648U);
    expectBadEntry(
        [] {
            TzSoapArrayTypeImp::allocSizeOf({65536, 65536, 65536, 65536, 65536, 65537});
        },
        5, 65537);
    expectBadEntry([] { GenericArray("[65536,65536]", "[0,0]"); }, 0, 65536);
}

TEST(TzSoapArrayTypeImp, RefusesShapesThatDoNotMatch) {
    expectCatalogued<TzXmlBoundsError>(
        [] {
            GenericArray(Index{2, 3}, Index{0});
        },
        0x7022,
        "[MISMATCH_BOUNDS][(Bounds: 2 Start: 1) Vector dimensions unequal, or bounds < offset]");
    expectCatalogued<TzXmlBoundsError>(
        [] { GenericArray("[3]", ""); }, 0x7022,
        "[MISMATCH_BOUNDS][(Bounds: 1 Start: 0) Vector dimensions unequal, or bounds < offset]");
    expectCatalogued<TzXmlBoundsError>(
        [] {
            GenericArray(Index{2, 3}, Index{0, 4});
        },
        0x7021,
        "[MISMATCH_VECTOR][(Bounds: 2 3 Start: 0 4) Vector dimension unequal, or bounds < than "
        "offset]");
    expectCatalogued<TzXmlBoundsError>(
        [] { GenericArray(3U, 4U); }, 0x7021,
        "[MISMATCH_VECTOR][(Bounds: 3 Start: 4) Vector dimension unequal, or bounds < than "
        "offset]");
    // the number of axes comes first, then each axis, then open ones
    expectCatalogued<TzXmlBoundsError>(
        [] {
            GenericArray(Index{2, 0}, Index{3, 0});
        },
        0x7021,
        "[MISMATCH_VECTOR][(Bounds: 2 0 Start: 3 0) Vector dimension unequal, or bounds < than "
        "offset]");
    EXPECT_NO_THROW(GenericArray(Index{2, 3}, Index{2, 3}));
    EXPECT_NO_THROW(GenericArray(Index{0, 3}, Index{9, 3}));
    expectBadText([] { GenericArray("[3", "[0]"); }, "[3");
    expectBadText([] { GenericArray("[3]", "[]"); }, "[]"); // the start is no bounds
}

TEST(TzSoapArrayTypeImp, ConvertsBetweenIndexAndPosition) {
    const GenericArray array(Index{2, 3}, Index{0, 0});
    EXPECT_EQ(array.indexToLinear({1, 2}, false), 5U);
    EXPECT_EQ(array.linearToIndex(4, false), (Index{1, 1}));
    EXPECT_EQ(array.linearToIndex(0, false), (Index{0, 0}));
    expectOutOfRange([&array] { array.indexToLinear({2, 0}, false); }, "2 0", "0 0", "2 3");
    expectOutOfRange([&array] { array.indexToLinear({0, 3}, false); }, "0 3", "0 0", "2 3");
    expectOutOfRange([&array] { array.linearToIndex(6, false); }, "6", "0 0", "2 3");
    EXPECT_EQ(array.indexToLinear({2, 0}, true), 6U);
    EXPECT_EQ(array.indexToLinear({0, 9}, true), 9U);
    EXPECT_EQ(array.linearToIndex(7, true), (Index{2, 1}));

    const GenericArray cube(Index{2, 3, 4}, Index{0, 0, 0});
    EXPECT_EQ(cube.indexToLinear({1, 2, 3}, false), 23U);
    EXPECT_EQ(cube.linearToIndex(23, false), (Index{1, 2, 3}));
}

TEST(TzSoapArrayTypeImp, OpenAxisTakesEveryIndex) {
    const GenericArray array(Index{0, 3}, Index{0, 0});
    EXPECT_EQ(array.indexToLinear({7, 1}, false), 22U);
    EXPECT_EQ(array.linearToIndex(22, false), (Index{7, 1}));
    EXPECT_TRUE(array.boundsCheck({4294967295U, 2}, true));
    EXPECT_FALSE(array.boundsCheck({0, 3}, false));
    const GenericArray shifted(Index{0, 3}, Index{5, 1});
    EXPECT_TRUE(shifted.boundsCheck({0, 1}, true)); // not even the start matters
    EXPECT_FALSE(shifted.boundsCheck({0, 0}, false));
}

TEST(TzSoapArrayTypeImp, StartIndexBoundsButDoesNotMove) {
    const GenericArray array(Index{4, 3}, Index{1, 1});
    EXPECT_EQ(array.indexToLinear({1, 1}, false), 4U);
    expectOutOfRange([&array] { array.indexToLinear({1, 0}, false); }, "1 0", "1 1", "4 3");
    EXPECT_FALSE(array.boundsCheck({0, 2}, false));
    EXPECT_TRUE(array.boundsCheck({3, 2}, false));
    expectOutOfRange([&array] { array.boundsCheck({4, 2}, true); }, "4 2", "1 1", "4 3");
    EXPECT_EQ(array.linearToIndex(0, false), (Index{0, 0})); // positions are not bound by it
}

TEST(TzSoapArrayTypeImp, IndexOfOtherRank) {
    const GenericArray array(Index{2, 3}, Index{0, 0});
    EXPECT_FALSE(array.boundsCheck({1}, false));
    EXPECT_FALSE(array.boundsCheck({1, 1, 1}, false));
    expectOutOfRange([&array] { array.indexToLinear({1}, false); }, "1", "0 0", "2 3");
    expectOutOfRange([&array] { array.indexToLinear({}, false); }, "", "0 0", "2 3");
    EXPECT_EQ(array.indexToLinear({1}, true), 3U);
    EXPECT_EQ(array.indexToLinear({}, true), 0U);
    EXPECT_EQ(array.indexToLinear({1, 1, 9}, true), 4U);
}

TEST(TzSoapArrayTypeImp, PositionsBeyond32BitsAreRefused) {
    const GenericArray array(Index{0, 3}, Index{0, 0});
    EXPECT_EQ(array.indexToLinear({1431655765U, 0}, false), 4294967295U);
    for (const bool noCheck : {false, true}) {
        expectOutOfRange(
            [&] {
                array.indexToLinear({1431655765U, 1}, noCheck);
            },
            "1431655765 1", "0 0", "0 3");
        expectOutOfRange(
            [&] {
                array.indexToLinear({4294967295U, 2}, noCheck);
            },
            "4294967295 2", "0 0", "0 3");
    }
    const GenericArray wide(Index{0, 4294967295U}, Index{0, 0});
    EXPECT_EQ(wide.indexToLinear({1, 0}, false), 4294967295U);
    expectOutOfRange(
        [&wide] {
            wide.indexToLinear({4294967295U, 4294967295U}, true);
        },
        "4294967295 4294967295", "0 0", "0 4294967295");
}

TEST(TzSoapArrayTypeImp, HasNoAxesAtFirst) {
    GenericArray array;
    EXPECT_EQ(array.getDimension(), 0U);
    EXPECT_EQ(array.getElementType(), "");
    EXPECT_TRUE(array.getName().isEmpty());
    EXPECT_EQ(array.entries(), 0U);
    EXPECT_EQ(array.getArrayType(), "[]");
    EXPECT_EQ(array.linearToIndex(3, false), Index{});
    array.setBounds(Index{2, 3});
    EXPECT_EQ(array.getBounds(), (Index{2, 3}));
    EXPECT_EQ(array.getStartIndex(), (Index{0, 0}));
    EXPECT_EQ(array.indexToLinear({1, 2}, false), 5U);
}

TEST(TzSoapArrayTypeImp, ChangesBounds) {
    GenericArray array(Index{2, 3}, Index{0, 1});
    EXPECT_EQ(array.indexToLinear({1, 1}, false), 4U);
    array.setBounds(Index{2, 5});
    EXPECT_EQ(array.indexToLinear({1, 1}, false), 6U);
    EXPECT_EQ(array.getStartIndex(), (Index{0, 1}));
    array.setBounds(TzCString("[,4]"));
    EXPECT_EQ(array.getBounds(), (Index{0, 4}));
    array.setBounds(TzCString("* 6"));
    EXPECT_EQ(array.getBounds(), (Index{0, 6}));

    expectIllegal([&array] { array.setBounds(Index{2}); }, "setBounds");
    expectIllegal([&array] { array.setBounds(Index{}); }, "setBounds");
    expectIllegal([&array] { array.setBounds(TzCString("[1,2,3]")); }, "setBounds");
    expectBadEntry([&array] { array.setBounds(Index{3, 0}); }, 1, 0);
    expectBadEntry([&array] { array.setBounds(Index{65536, 65536}); }, 0, 65536);
    expectBadText([&array] { array.setBounds(TzCString("[3,0]")); }, "[3,0]");
    EXPECT_EQ(array.getBounds(), (Index{0, 6}));
    EXPECT_EQ(array.indexToLinear({1, 1}, false), 7U);
}

TEST(TzSoapArrayTypeImp, CopiesWithOtherBounds) {
    const GenericArray array(Index{2, 3}, Index{0, 1});
    const GenericArray copy(array, Index{4, 4});
    EXPECT_EQ(copy.getBounds(), (Index{4, 4}));
    EXPECT_EQ(copy.getElementType(), "xsd:int");
    EXPECT_EQ(array.getBounds(), (Index{2, 3}));
    expectIllegal([&array] { GenericArray(array, Index{4}); }, "setBounds");
}

TEST(TzSoapArrayTypeImp, GenericArrayReachesNoItems) {
    GenericArray array(Index{2}, Index{0});
    const GenericArray& constant = array;
    const TzCString text = "[1]";
    expectIllegal([&] { array.at(1U); }, "operator[]");
    expectIllegal([&] { array.at(Index{1}); }, "operator[]");
    expectIllegal([&] { array.at(text); }, "operator[]");
    expectIllegal([&] { array.bcat(9U); }, "operator[]");
    expectIllegal([&] { array.bcat(Index{9}); }, "operator[]");
    expectIllegal([&] { array.bcat(text); }, "operator[]");
    expectIllegal([&] { constant.at(1U); }, "operator[]");
    expectIllegal([&] { constant.at(Index{1}); }, "operator[]");
    expectIllegal([&] { constant.at(text); }, "operator[]");
    expectIllegal([&] { constant.bcat(9U); }, "operator[]");
    expectIllegal([&] { constant.bcat(Index{9}); }, "operator[]");
    expectIllegal([&] { constant.bcat(text); }, "operator[]");
    expectIllegal([&] { array.addChild(valueOf("a")); }, "operator[]");
    // checks the shape first
    expectOutOfRange([&] { array.at(2U); }, "2", "0", "2");
    expectOutOfRange([&] { array.at(Index{2}); }, "2", "0", "2");
    expectBadText([&] { array.at(TzCString("[]")); }, "[]");
    EXPECT_FALSE(array.isSparse());
    EXPECT_FALSE(array.isCompact());
}

TEST(TzSoapArrayTypeImp, KnowsItsKind) {
    const GenericArray array(3U, 0U);
    EXPECT_EQ(array.getSoapTypeId(), TzSoapContentBase::Array);
    EXPECT_EQ(array.getSoapTypeIdAsString(), "Array");
    EXPECT_EQ(&array.getSoapTypeIdAsString(), &TzSoapUtils::arrayString);
    EXPECT_EQ(array.getDimension(), 1U);
    EXPECT_EQ(array.getBounds(), (Index{3}));
    EXPECT_EQ(array.getStartIndex(), (Index{0}));
    EXPECT_EQ(array.getName(), TzXmlName("list"));
}

TEST(TzSoapArrayTypeImp, WritesTypeAndBounds) {
    GenericArray array(Index{0, 3}, Index{0, 0});
    EXPECT_FALSE(array.getSizeShouldBeEncoded());
    EXPECT_EQ(array.getArrayType(), "xsd:int[,3]");
    EXPECT_EQ(array.getBoundsAsString(TzSoapVersion::V1_1), "[,3]");
    EXPECT_EQ(array.getBoundsAsString(TzSoapVersion::V1_2), "* 3");
    array.setSizeShouldBeEncoded(true);
    EXPECT_EQ(array.getArrayType(), "xsd:int[0,3]");
    EXPECT_EQ(array.getBoundsAsString(TzSoapVersion::V1_1), "[0,3]");
    EXPECT_EQ(array.getBoundsAsString(TzSoapVersion::V1_2), "0 3");
    array.setElementType("xsd:string");
    EXPECT_EQ(array.getArrayType(), "xsd:string[0,3]");
    EXPECT_EQ(GenericArray(Index{2, 3}, Index{0, 0}).getArrayType(), "xsd:int[2,3]");
    EXPECT_EQ(GenericArray(0U, 0U).getArrayType(), "xsd:int[]");
}

TEST(TzSoapArrayTypeImp, KeepsAnOffset) {
    GenericArray array(Index{4, 3}, Index{0, 0});
    EXPECT_FALSE(array.hasOffset());
    EXPECT_EQ(array.getOffsetIndex(), Index{});
    EXPECT_EQ(array.getOffsetAttribute(TzSoapVersion::V1_1), "");
    array.setOffset(Index{0, 0});
    EXPECT_TRUE(array.hasOffset());
    EXPECT_EQ(array.getOffsetAttribute(TzSoapVersion::V1_1), "");
    array.setOffset(Index{0, 2});
    EXPECT_EQ(array.getOffsetAttribute(TzSoapVersion::V1_1), "[0,2]");
    EXPECT_EQ(array.getOffsetAttribute(TzSoapVersion::V1_2), "0 2");
    array.setOffset(TzCString("[3,0]"));
    EXPECT_EQ(array.getOffsetIndex(), (Index{3, 0}));
    expectBadText([&array] { array.setOffset(TzCString("[,1]")); }, "[,1]");
    EXPECT_EQ(array.getOffsetIndex(), (Index{3, 0}));
    // the attribute of every element is another thing
    EXPECT_EQ(array.getOffsetAttribute(), "");
}

TEST(TzSoapArrayTypeImp, StartBecomesTheOffset) {
    EXPECT_EQ(GenericArray(4U, 2U).getOffsetAttribute(TzSoapVersion::V1_1), "[2]");
    EXPECT_EQ(GenericArray("[4,4]", "[0,1]").getOffsetIndex(), (Index{0, 1}));
    EXPECT_FALSE(GenericArray(4U, 0U).hasOffset());
    EXPECT_TRUE(TzSoapArrayTypeImp::isDefaultOffset({}));
    EXPECT_TRUE(TzSoapArrayTypeImp::isDefaultOffset({0, 0}));
    EXPECT_FALSE(TzSoapArrayTypeImp::isDefaultOffset({0, 1}));
}

TEST(TzSoapArrayTypeImp, CopiesShapeAndSettings) {
    GenericArray array(Index{0, 3}, Index{1, 0});
    array.setSizeShouldBeEncoded(true);
    array.setCountElementsToWrite(2);
    array.setNull(true);
    const TestedHandle handle(new GenericArray(array));
    const TzSoapArrayType copy = handle.copy();
    EXPECT_EQ(copy.getName(), TzXmlName("list"));
    EXPECT_EQ(copy.getArrayType(), "xsd:int[0,3]");
    EXPECT_EQ(copy.getStartIndex(), (Index{1, 0}));
    EXPECT_EQ(copy.getOffsetIndex(), (Index{1, 0}));
    EXPECT_EQ(copy.getCountElementsToWrite(), 2U);
    EXPECT_TRUE(copy.isNull());
    EXPECT_FALSE(copy.isSparse());
    EXPECT_FALSE(copy.isCompact());
}

TEST(TzSoapArrayTypeImp, OnePlaceholderForAnArrayAndItsCopies) {
    const GenericArray array(3U, 0U);
    EXPECT_TRUE(TzSoapArrayTypeImp::isPlaceholder(array.getDefaultValue()));
    EXPECT_EQ(array.getDefaultValue().getSoapTypeIdAsString(), "Default");
    const GenericArray copy(array);
    EXPECT_TRUE(TzSoapAccess::sameBody(copy.getDefaultValue(), array.getDefaultValue()));
    const GenericArray other(3U, 0U);
    EXPECT_FALSE(TzSoapAccess::sameBody(other.getDefaultValue(), array.getDefaultValue()));
    EXPECT_FALSE(TzSoapArrayTypeImp::isPlaceholder(TzSoapType()));
    EXPECT_FALSE(TzSoapArrayTypeImp::isPlaceholder(valueOf("a")));
    EXPECT_TRUE(TzSoapArrayTypeImp::isPlaceholder(TzSoapDefaultType()));
}

TEST(TzSoapArrayType, ForwardsToItsBody) {
    TestedHandle array(new GenericArray(Index{0, 3}, Index{0, 0}));
    EXPECT_EQ(array.getElementType(), "xsd:int");
    EXPECT_EQ(array.getDimension(), 2U);
    EXPECT_EQ(array.getBounds(), (Index{0, 3}));
    EXPECT_EQ(array.getBoundsAsString(TzSoapVersion::V1_2), "* 3");
    EXPECT_EQ(array.entries(), 0U);
    EXPECT_EQ(array.getSoapTypeId(), TzSoapContentBase::Array);
    array.setSizeShouldBeEncoded(true);
    EXPECT_TRUE(array.getSizeShouldBeEncoded());
    EXPECT_EQ(array.getCountElementsToWrite(), 0U);
    array.setCountElementsToWrite(5);
    EXPECT_EQ(array.getCountElementsToWrite(), 5U);
    array.setOffset(TzCString("1 2"));
    EXPECT_EQ(array.getOffsetIndex(), (Index{1, 2}));
    array.setOffset(Index{1, 1});
    EXPECT_EQ(array.getOffsetAttribute(TzSoapVersion::V1_1), "[1,1]");
    array.setBounds(TzCString("[4,5]"));
    EXPECT_EQ(array.indexToLinear({1, 1}), 6U);
    EXPECT_EQ(array.linearToIndex(6), (Index{1, 1}));
    expectOutOfRange([&array] { array.indexToLinear({4, 0}); }, "4 0", "0 0", "4 5");
    expectOutOfRange([&array] { array.linearToIndex(20); }, "20", "0 0", "4 5");
    EXPECT_EQ(TzSoapArrayType::stringToVector("[0,1]"), (Index{0, 1}));
    expectBadText([] { TzSoapArrayType::stringToVector("[,1]"); }, "[,1]");
}

TEST(TzSoapArrayType, GenericArrayReachesNoItems) {
    TestedHandle array(new GenericArray(Index{2}, Index{0}));
    const TestedHandle& constant = array;
    const TzCString text = "[1]";
    expectIllegal([&] { (void)array[1U]; }, "operator[]");
    expectIllegal([&] { (void)array[Index{1}]; }, "operator[]");
    expectIllegal([&] { (void)array[text]; }, "operator[]");
    expectIllegal([&] { (void)array(1U); }, "operator[]");
    expectIllegal([&] { (void)array(Index{1}); }, "operator[]");
    expectIllegal([&] { (void)array(text); }, "operator[]");
    expectIllegal([&] { (void)constant[1U]; }, "operator[]");
    expectIllegal([&] { (void)constant[Index{1}]; }, "operator[]");
    expectIllegal([&] { (void)constant[text]; }, "operator[]");
    expectIllegal([&] { (void)constant(1U); }, "operator[]");
    expectIllegal([&] { (void)constant(Index{1}); }, "operator[]");
    expectIllegal([&] { (void)constant(text); }, "operator[]");
}

TEST(TzSoapArrayType, WithoutBodyRefuses) {
    const TestedHandle array(nullptr);
    const auto refused = [](const auto& action) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    };
    refused([&] { (void)array.copy(); });
    refused([&] { (void)array.isSparse(); });
    refused([&] { (void)array.isCompact(); });
    refused([&] { (void)array.getElementType(); });
    refused([&] { (void)array.getDimension(); });
    refused([&] { (void)array.getBounds(); });
    refused([&] { (void)array.getBoundsAsString(TzSoapVersion::V1_1); });
    refused([&] { (void)array.getArrayType(); });
    refused([&] { (void)array.entries(); });
    refused([&] { (void)array.getSizeShouldBeEncoded(); });
    refused([&] { (void)array.getStartIndex(); });
    refused([&] { (void)array.getOffsetIndex(); });
    refused([&] { (void)array.getOffsetAttribute(TzSoapVersion::V1_1); });
    refused([&] { (void)array.getCountElementsToWrite(); });
    refused([&] { (void)array.indexToLinear({0}); });
    refused([&] { (void)array.linearToIndex(0); });
}

TEST(TzSoapArrayType, WithoutBodyRefusesItemsAndChanges) {
    TestedHandle array(nullptr);
    const TestedHandle& constant = array;
    const TzCString text = "[0]";
    const auto refused = [](const auto& action) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    };
    refused([&] { array.setBounds(Index{1}); });
    refused([&] { array.setBounds(text); });
    refused([&] { array.setOffset(Index{1}); });
    refused([&] { array.setOffset(text); });
    refused([&] { array.setSizeShouldBeEncoded(true); });
    refused([&] { array.setCountElementsToWrite(1); });
    refused([&] { (void)array[0U]; });
    refused([&] { (void)array[Index{0}]; });
    refused([&] { (void)array[text]; });
    refused([&] { (void)array(0U); });
    refused([&] { (void)array(Index{0}); });
    refused([&] { (void)array(text); });
    refused([&] { (void)constant[0U]; });
    refused([&] { (void)constant[Index{0}]; });
    refused([&] { (void)constant[text]; });
    refused([&] { (void)constant(0U); });
    refused([&] { (void)constant(Index{0}); });
    refused([&] { (void)constant(text); });
}

} // namespace
