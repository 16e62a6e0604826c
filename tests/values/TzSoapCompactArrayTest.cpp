// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <tz/thread/TzTHRInvalidPointer.h>

#include "model/TzSoapAccess.h"
#include "support/AllocationFailure.h"
#include "values/ArrayTesting.h"

#include <gtest/gtest.h>

#include <iterator>
#include <numeric>

namespace {

/// An array of the bounds whose items have their position as text, from the start on.
TzSoapCompactArrayType filled(const Index& bounds, const Index& start) {
    TzSoapCompactArrayType array("xsd:int", bounds, start);
    for (unsigned int at = 0; at < array.entries(); ++at) {
        const unsigned int position = array.indexToLinear(start) + at;
        array(position) = valueOf(std::to_string(position));
    }
    return array;
}

TzSoapCompactArrayType filled(const Index& bounds) { return filled(bounds, Index(bounds.size())); }

std::string written(const TzSoapCompactArrayType& array) {
    return textsOf(TzSoapAccess::body(array).itemsToWrite());
}

std::size_t stored(const TzSoapCompactArrayType& array) {
    const auto items = TzSoapAccess::body(array).storedItems();
    return static_cast<std::size_t>(std::distance(items.begin(), items.end()));
}

TEST(TzSoapCompactArray, HoldsAnItemForEveryPosition) {
    const TzSoapCompactArrayType array("xsd:int", 3, 0);
    EXPECT_EQ(array.entries(), 3U);
    EXPECT_EQ(array.end() - array.begin(), 3);
    EXPECT_EQ(textsOf(array), "- - -");
    EXPECT_TRUE(array.isCompact());
    EXPECT_FALSE(array.isSparse());
    EXPECT_TRUE(array.getName().isEmpty());
    EXPECT_EQ(array.getArrayType(), "xsd:int[3]");
}

TEST(TzSoapCompactArray, ConstructorsAgree) {
    const TzXmlName name("list", TzXmlNamespace("p", "urn:p"));
    const Index bounds{2, 3};
    const Index start{0, 1};
    const TzSoapCompactArrayType arrays[] = {
        TzSoapCompactArrayType("xsd:int", bounds, start),
        TzSoapCompactArrayType("xsd:int", "[2,3]", "[0,1]"),
        TzSoapCompactArrayType("xsd:int", "2 3", "0 1"),
        TzSoapCompactArrayType(name, "xsd:int", bounds, start),
        TzSoapCompactArrayType(name, "xsd:int", "[2,3]", "0 1"),
    };
    for (const TzSoapCompactArrayType& array : arrays) {
        EXPECT_EQ(array.getBounds(), bounds);
        EXPECT_EQ(array.getStartIndex(), start);
        EXPECT_EQ(array.entries(), 5U);
    }
    EXPECT_TRUE(arrays[2].getName().isEmpty());
    EXPECT_EQ(arrays[3].getName(), name);
    EXPECT_EQ(arrays[4].getName(), name);
    const TzSoapCompactArrayType oneAxis(name, "xsd:int", 4, 1);
    EXPECT_EQ(oneAxis.getName(), name);
    EXPECT_EQ(oneAxis.entries(), 3U);
    EXPECT_EQ(TzSoapCompactArrayType("xsd:int", "[]", "[0]").getBounds(), Index{0});
    expectBadEntry([] { TzSoapCompactArrayType("xsd:int", "3 *", "0 0"); }, 1, 0);
    expectBadText([] { TzSoapCompactArrayType("xsd:int", "[3,0]", "[0,0]"); }, "[3,0]");
    expectCatalogued<TzXmlBoundsError>(
        [] { TzSoapCompactArrayType("xsd:int", 3, 4); }, 0x7021,
        "[MISMATCH_VECTOR][(Bounds: 3 Start: 4) Vector dimension unequal, or bounds < than "
        "offset]");
}

TEST(TzSoapCompactArray, StartsAtTheStartIndex) {
    TzSoapCompactArrayType array("xsd:int", 4, 2);
    EXPECT_EQ(array.entries(), 2U);
    array[2] = valueOf("c");
    array[3] = valueOf("d");
    EXPECT_EQ(textsOf(array), "c d");
    EXPECT_EQ(array.getOffsetAttribute(TzSoapVersion::V1_1), "[2]");
    expectOutOfRange([&array] { (void)array[1]; }, "1", "2", "4");
    expectOutOfRange([&array] { (void)array(0); }, "0", "2", "4");
    expectOutOfRange([&array] { (void)array(Index{1}); }, "1", "2", "4");
    const TzSoapCompactArrayType& constant = array;
    expectOutOfRange([&constant] { (void)constant(1); }, "1", "2", "4");
    EXPECT_EQ(array.entries(), 2U);
}

TEST(TzSoapCompactArray, StartIndexBoundsEveryAxis) {
    TzSoapCompactArrayType array = filled({3, 3}, {1, 1});
    const TzSoapCompactArrayType& constant = array;
    EXPECT_EQ(itemText(array[Index{2, 1}]), "7");
    EXPECT_EQ(itemText(array(Index{2, 0})), "6"); // stored, and yet before the start of its axis
    expectOutOfRange([&array] { (void)array[Index{2, 0}]; }, "2 0", "1 1", "3 3");
    expectOutOfRange([&constant] { (void)constant[Index{2, 0}]; }, "2 0", "1 1", "3 3");
    expectOutOfRange([&array] { (void)array[Index{0, 2}]; }, "0 2", "1 1", "3 3");
}

TEST(TzSoapCompactArray, StartAtTheEndLeavesNothing) {
    TzSoapCompactArrayType array("xsd:int", Index{2, 3}, Index{2, 3});
    EXPECT_EQ(array.entries(), 0U);
    EXPECT_EQ(array.begin(), array.end());
    array(9) = valueOf("x"); // the position of the start
    EXPECT_EQ(array.entries(), 1U);
    expectOutOfRange([&array] { (void)array(8); }, "2 2", "2 3", "2 3");
    const TzSoapCompactArrayType open("xsd:int", 0, 2);
    EXPECT_EQ(open.entries(), 0U);
}

TEST(TzSoapCompactArray, OpenAxisGrowsItemByItem) {
    TzSoapCompactArrayType array("xsd:int", 0, 0);
    EXPECT_EQ(array.entries(), 0U);
    array[0] = valueOf("a");
    EXPECT_EQ(array.entries(), 1U);
    array[2] = valueOf("c");
    EXPECT_EQ(array.entries(), 3U);
    EXPECT_EQ(textsOf(array), "a - c");
    EXPECT_EQ(array.getBounds(), Index{0});
}

TEST(TzSoapCompactArray, GrowsByOneMoreThanABlock) {
    TzSoapCompactArrayType array = filled({3});
    array(2) = valueOf("c");
    EXPECT_EQ(array.entries(), 3U);
    array(3) = valueOf("d");
    EXPECT_EQ(array.entries(), 7U);
    array(6) = valueOf("g");
    EXPECT_EQ(array.entries(), 7U);
    array(15) = valueOf("p"); // 7, 11, 15, 19
    EXPECT_EQ(array.entries(), 19U);
    EXPECT_EQ(textsOf(array), "0 1 c d - - g - - - - - - - - p - - -");
    // the checking forms stay within the shape
    expectOutOfRange([&array] { (void)array[3]; }, "3", "0", "3");

    TzSoapCompactArrayType partial("xsd:int", 5, 2); // blocks of 3
    partial(Index{6}) = valueOf("g");
    EXPECT_EQ(partial.entries(), 7U);
    EXPECT_EQ(textsOf(partial), "- - - - g - -");

    TzSoapCompactArrayType matrix("xsd:int", Index{0, 3}, Index{0, 0});
    EXPECT_EQ(matrix.entries(), 3U);
    matrix[Index{1, 1}] = valueOf("e");
    EXPECT_EQ(matrix.entries(), 7U);
    EXPECT_EQ(textsOf(matrix), "- - - - e - -");
}

TEST(TzSoapCompactArray, GrowthIsTheSameInWhateverOrder) {
    for (const unsigned int bound : {0U, 1U, 2U, 5U}) {
        for (unsigned int position = 0; position < 40; ++position) {
            std::size_t size = bound; // block by block, as the rule says
            while (position >= size) {
                size += bound + 1;
            }
            TzSoapCompactArrayType array("xsd:int", bound, 0);
            array(position) = valueOf("x");
            EXPECT_EQ(array.entries(), size) << bound << " " << position;
        }
    }
}

TEST(TzSoapCompactArray, RefusesMoreItemsThanCanBeCounted) {
    TzSoapCompactArrayType open("xsd:int", 0, 0);
    expectBadEntry([&open] { (void)open(4294967295U); }, 0, 4294967295U);
    EXPECT_EQ(open.entries(), 0U);
    TzSoapCompactArrayType full("xsd:int", 4294967295U, 0);
    EXPECT_EQ(full.entries(), 4294967295U);
    expectBadEntry([&full] { (void)full(4294967295U); }, 0, 4294967295U);
    TzSoapCompactArrayType wide("xsd:int", Index{0, 65536}, Index{0, 0});
    expectBadEntry([&wide] { (void)wide(Index{65535, 65535}); }, 0, 65535);
    expectOutOfRange([&wide] { (void)wide(Index{65536, 0}); }, "65536 0", "0 0", "0 65536");
    expectBadEntry([] { TzSoapCompactArrayType("xsd:int", "[65536,65536]", "[0,0]"); }, 0, 65536);
    expectBadEntry([] { TzSoapCompactArrayType("xsd:int", "[4294967295,4294967295]", "[0,0]"); }, 0,
                   4294967295U);
}

TEST(TzSoapCompactArray, ShapeAloneTakesNoMemory) {
    const std::size_t before = askedBytes();
    TzSoapCompactArrayType array("xsd:int", 2147483647, 0);
    EXPECT_EQ(array.entries(), 2147483647U);
    EXPECT_EQ(stored(array), 0U);
    array[2147483646] = valueOf("last");
    array[2147483645] = valueOf("before");
    const TzSoapCompactArrayType& constant = array;
    EXPECT_EQ(itemText(constant[0]), "-");
    EXPECT_EQ(itemText(constant[2147483645]), "before");
    const TzSoapCompactArrayType copy = array.copy();
    EXPECT_EQ(copy.entries(), 2147483647U);
    array.setBounds(Index{4294967295U});
    EXPECT_EQ(array.entries(), 4294967295U);
    EXPECT_EQ(itemText(constant[2147483646]), "last");
    EXPECT_LT(askedBytes() - before, 500000U);
    array.setBounds(Index{10});
    EXPECT_EQ(stored(array), 0U);
    EXPECT_EQ(textsOf(array), "- - - - - - - - - -");
}

TEST(TzSoapCompactArray, FillsInAnyOrder) {
    TzSoapCompactArrayType backwards("xsd:int", 50, 0);
    for (unsigned int left = 50; left-- > 0;) {
        backwards[left] = valueOf(std::to_string(left));
        ASSERT_EQ(backwards.entries(), 50U);
    }
    EXPECT_EQ(textsOf(backwards), textsOf(filled({50})));
    TzSoapCompactArrayType mixed("xsd:int", 6, 0);
    for (const unsigned int position : {3U, 1U, 5U, 4U}) {
        mixed[position] = valueOf(std::to_string(position));
    }
    EXPECT_EQ(textsOf(mixed), "- 1 - 3 4 5");
}

TEST(TzSoapCompactArray, ReachesItemsByPositionIndexAndText) {
    TzSoapCompactArrayType array = filled({2, 3});
    EXPECT_EQ(itemText(array[4]), "4");
    EXPECT_EQ(itemText(array[Index{1, 1}]), "4");
    EXPECT_EQ(itemText(array["[1,1]"]), "4");
    EXPECT_EQ(itemText(array["1 1"]), "4");
    EXPECT_EQ(itemText(array(4)), "4");
    EXPECT_EQ(itemText(array(Index{1, 1})), "4");
    EXPECT_EQ(itemText(array("[1,1]")), "4");
    array[Index{0, 2}] = valueOf("c");
    array["[1,0]"] = valueOf("d");
    EXPECT_EQ(textsOf(array), "0 1 c d 4 5");
    const TzSoapCompactArrayType& constant = array;
    EXPECT_EQ(itemText(constant[3]), "d");
    EXPECT_EQ(itemText(constant[Index{1, 0}]), "d");
    EXPECT_EQ(itemText(constant["[1,0]"]), "d");
    EXPECT_EQ(itemText(constant(3)), "d");
    EXPECT_EQ(itemText(constant(Index{1, 0})), "d");
    EXPECT_EQ(itemText(constant("1 0")), "d");
    expectOutOfRange([&] { (void)array[Index{2, 0}]; }, "2 0", "0 0", "2 3");
    expectOutOfRange([&] { (void)constant[Index{0, 3}]; }, "0 3", "0 0", "2 3");
    expectOutOfRange([&] { (void)array["[0]"]; }, "0", "0 0", "2 3");
    expectBadText([&] { (void)array["[,1]"]; }, "[,1]");
    EXPECT_EQ(array.entries(), 6U);
}

TEST(TzSoapCompactArray, ConstAccessStoresNothing) {
    const TzSoapCompactArrayType array("xsd:int", 3, 0);
    EXPECT_EQ(itemText(array(7)), "-");
    EXPECT_EQ(itemText(array(Index{7})), "-");
    EXPECT_EQ(array.entries(), 3U);
    EXPECT_EQ(stored(array), 0U);
}

TEST(TzSoapCompactArray, PlaceholdersShareTheArraysOwn) {
    TzSoapCompactArrayType array("xsd:int", 3, 0);
    (void)array[1];
    for (const TzSoapDefaultType& item : array) {
        EXPECT_TRUE(TzSoapAccess::sameBody(item, TzSoapAccess::body(array).getDefaultValue()));
    }
}

TEST(TzSoapCompactArray, ItemsCanBeReplacedWhileIterating) {
    TzSoapCompactArrayType array("xsd:int", 3, 0);
    unsigned int at = 0;
    for (TzSoapDefaultType& item : array) {
        item = valueOf(std::to_string(at++));
    }
    EXPECT_EQ(textsOf(array), "0 1 2");
    EXPECT_EQ(itemText(array[2]), "2");
}

TEST(TzSoapCompactArray, ReshapingKeepsWhatFits) {
    TzSoapCompactArrayType array = filled({2, 3});
    array.setBounds(Index{3, 3});
    EXPECT_EQ(textsOf(array), "0 1 2 3 4 5 - - -");
    EXPECT_EQ(itemText(array[Index{1, 2}]), "5");

    array = filled({2, 3});
    array.setBounds(Index{2, 2});
    EXPECT_EQ(textsOf(array), "0 1 3 4");
    EXPECT_EQ(array.entries(), 4U);

    array = filled({2, 3});
    array.setBounds(Index{3, 2}); // nothing stays where no old index belongs
    EXPECT_EQ(textsOf(array), "0 1 3 4 - -");

    array = filled({2, 3});
    array.setBounds(TzCString("[1,5]"));
    EXPECT_EQ(textsOf(array), "0 1 2 - -");

    array = filled({4});
    array.setBounds(Index{0});
    EXPECT_EQ(array.entries(), 4U); // an open axis has room for all
    EXPECT_EQ(textsOf(array), "0 1 2 3");
}

TEST(TzSoapCompactArray, ReshapingMovesTheBase) {
    TzSoapCompactArrayType array = filled({3, 3}, {1, 1});
    EXPECT_EQ(textsOf(array), "4 5 6 7 8");
    array.setBounds(Index{4, 4});
    // {1,1} is 5 now; {2,0} lies before the start of its axis
    EXPECT_EQ(array.entries(), 11U);
    EXPECT_EQ(textsOf(array), "4 5 - - 7 8 - - - - -");
    EXPECT_EQ(itemText(array[Index{2, 1}]), "7");
    array.setBounds(Index{1, 2}); // less than the start
    EXPECT_EQ(array.entries(), 0U);
}

TEST(TzSoapCompactArray, ReshapingKeepsItemsBehindTheBounds) {
    TzSoapCompactArrayType array = filled({3});
    array(5) = valueOf("f");
    array.setBounds(Index{6});
    EXPECT_EQ(textsOf(array), "0 1 2 - - f");
    array(Index{8}) = valueOf("i");
    array.setBounds(Index{4});
    EXPECT_EQ(textsOf(array), "0 1 2 -");
}

TEST(TzSoapCompactArray, ReshapingToAnOpenAxisKeepsPositionsNeverAssigned) {
    TzSoapCompactArrayType array("xsd:int", 4, 0);
    array[1] = valueOf("b");
    array.setBounds(Index{0});
    EXPECT_EQ(array.entries(), 4U);
    EXPECT_EQ(stored(array), 1U);
    EXPECT_EQ(textsOf(array), "- b - -");
    (void)array(5);
    array.setBounds(Index{0});
    EXPECT_EQ(array.entries(), 6U);

    TzSoapCompactArrayType matrix("xsd:int", Index{2, 3}, Index{0, 0});
    matrix.setBounds(Index{0, 3}); // 3, and then blocks of 3 until position 5
    EXPECT_EQ(matrix.entries(), 7U);
    TzSoapCompactArrayType narrower("xsd:int", Index{4, 4}, Index{1, 1});
    narrower.setBounds(Index{0, 2}); // {3,3} goes, {3,1} is the last that fits
    EXPECT_EQ(narrower.entries(), 5U);
    TzSoapCompactArrayType nothingFits("xsd:int", Index{2, 3}, Index{0, 2});
    nothingFits.setBounds(Index{0, 2});
    EXPECT_EQ(nothingFits.entries(), 0U);
    TzSoapCompactArrayType outside("xsd:int", Index{0, 2, 2}, Index{1, 0, 1});
    (void)outside(8);
    EXPECT_EQ(outside.entries(), 4U);
    outside.setBounds(Index{0, 2, 2}); // {2,0,0} lies before the start, {1,1,1} is the last
    EXPECT_EQ(outside.entries(), 3U);
}

TEST(TzSoapCompactArray, ReshapingToAnOpenAxisTakesNoMemory) {
    TzSoapCompactArrayType array("xsd:int", 4294967295U, 0);
    array.setBounds(Index{0});
    EXPECT_EQ(array.entries(), 4294967295U);
    EXPECT_EQ(stored(array), 0U);
    TzSoapCompactArrayType matrix("xsd:int", Index{65536, 65535}, Index{0, 0});
    expectBadEntry([&matrix] { matrix.setBounds(Index{0, 65536}); }, 0, 65535);
    EXPECT_EQ(matrix.getBounds(), (Index{65536, 65535}));
    TzSoapCompactArrayType last("xsd:int", 4294967295U, 4294967290U);
    last(4294967295U) = valueOf("last");
    last.setBounds(Index{0});
    EXPECT_EQ(itemText(last(4294967295U)), "last");
    EXPECT_EQ(last.entries(), 6U);
}

TEST(TzSoapCompactArray, ReshapedArraysGrowByTheirNewBlock) {
    TzSoapCompactArrayType array = filled({3});
    array.setBounds(Index{5});
    array(5) = valueOf("f");
    EXPECT_EQ(array.entries(), 11U);
    EXPECT_EQ(textsOf(array), "0 1 2 - - f - - - - -");
}

TEST(TzSoapCompactArray, CheckingFormsFollowTheShape) {
    TzSoapCompactArrayType array = filled({2, 3});
    EXPECT_EQ(itemText(array[Index{1, 2}]), "5");
    array(Index{2, 0}) = valueOf("behind"); // stored, but not of the shape
    expectOutOfRange([&array] { (void)array[Index{2, 0}]; }, "2 0", "0 0", "2 3");
    expectOutOfRange([&array] { (void)array[Index{0, 4}]; }, "0 4", "0 0", "2 3");
    EXPECT_EQ(itemText(array(Index{0, 4})), "4");
    array.setBounds(Index{3, 2});
    expectOutOfRange([&array] { (void)array[Index{0, 2}]; }, "0 2", "0 0", "3 2");
    EXPECT_EQ(itemText(array[Index{2, 0}]), "behind");
    array.setBounds(Index{0, 2});
    EXPECT_EQ(itemText(array[Index{2, 0}]), "behind");
    array[Index{7, 1}] = valueOf("open");
    EXPECT_EQ(itemText(array[Index{7, 1}]), "open");
}

TEST(TzSoapCompactArray, ReshapingThatFailsChangesNothing) {
    TzSoapCompactArrayType array = filled({2, 3});
    expectIllegal([&array] { array.setBounds(Index{6}); }, "setBounds");
    expectBadEntry([&array] { array.setBounds(Index{6, 0}); }, 1, 0);
    expectBadEntry([&array] { array.setBounds(Index{65536, 65536}); }, 0, 65536);
    EXPECT_EQ(array.getBounds(), (Index{2, 3}));
    EXPECT_EQ(textsOf(array), "0 1 2 3 4 5");

    TzSoapCompactArrayType open = filled({0, 2});
    open(Index{70000, 0}) = valueOf("far");
    const unsigned int entries = open.entries();
    expectOutOfRange([&open] { open.setBounds(Index{0, 65536}); }, "70000 0", "0 0", "0 65536");
    EXPECT_EQ(open.getBounds(), (Index{0, 2}));
    EXPECT_EQ(open.entries(), entries);
    EXPECT_EQ(itemText(open(Index{70000, 0})), "far");
}

TEST(TzSoapCompactArray, OutOfMemoryChangesNothing) {
    const TzSoapCompactArrayType array = filled({3, 3});
    const Index newBounds{5, 2};
    TzSoapCompactArrayType tested = array.copy();
    (void)array.linearToIndex(0); // what is made on first use is there
    const std::size_t failures = failEachAllocation([&] {
        TzSoapCompactArrayType copy = array.copy();
        copy.setBounds(newBounds);
    });
    EXPECT_GT(failures, 3U);
    for (std::size_t nth = 1; nth < 20; ++nth) {
        const AllocationFailure failure(nth);
        try {
            tested.setBounds(newBounds);
            break;
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(tested.getBounds(), (Index{3, 3}));
            EXPECT_EQ(tested.entries(), 9U);
        }
    }
    EXPECT_EQ(textsOf(tested), "0 1 3 4 6 7 - - - -");
}

TEST(TzSoapCompactArray, CopiesShareValuesNotSlots) {
    TzSoapCompactArrayType array = filled({3});
    const TzSoapCompactArrayType shared = array;
    TzSoapCompactArrayType copy = array.copy();
    EXPECT_TRUE(TzSoapAccess::sameBody(array[1], copy[1]));
    array[1].setIdAttribute("one");
    EXPECT_EQ(copy[1].getIdAttribute(), "one");
    copy[2] = valueOf("c");
    EXPECT_EQ(textsOf(array), "0 1 2");
    EXPECT_EQ(textsOf(copy), "0 1 c");
    array[0] = valueOf("a");
    EXPECT_EQ(textsOf(shared), "a 1 2");
    EXPECT_EQ(textsOf(copy), "0 1 c");
    const TzSoapType general = array.copy();
    EXPECT_EQ(tzSoapCast<TzSoapCompactArrayType>(general)->entries(), 3U);
}

TEST(TzSoapCompactArray, CopiesWithOtherBounds) {
    const TzSoapCompactArrayType array = filled({2, 3});
    const TzSoapCompactArrayType copy(array, Index{3, 2});
    EXPECT_EQ(textsOf(copy), "0 1 3 4 - -");
    EXPECT_EQ(copy.getElementType(), "xsd:int");
    EXPECT_EQ(textsOf(array), "0 1 2 3 4 5");
    EXPECT_TRUE(TzSoapAccess::sameBody(copy(0), array(0)));
    expectIllegal([&array] { TzSoapCompactArrayType(array, Index{3}); }, "setBounds");
    const TzXmlName name("reshaped", TzXmlNamespace("p", "urn:p"));
    const TzSoapCompactArrayType renamed(name, array, Index{1, 3});
    EXPECT_EQ(renamed.getName(), name);
    EXPECT_EQ(renamed.getName().getPrefix(), "p");
    EXPECT_EQ(textsOf(renamed), "0 1 2");
    EXPECT_TRUE(array.getName().isEmpty());
}

TEST(TzSoapCompactArray, WritesFromTheOffsetOn) {
    TzSoapCompactArrayType array = filled({5});
    EXPECT_EQ(written(array), "0 1 2 3 4");
    array.setOffset(Index{2});
    EXPECT_EQ(written(array), "2 3 4");
    array.setOffset(Index{5});
    EXPECT_EQ(written(array), "");
    array.setOffset(Index{4294967295U});
    EXPECT_EQ(written(array), "");
    EXPECT_EQ(written(filled({5}, {2})), "2 3 4");
    TzSoapCompactArrayType partial = filled({5}, {2});
    partial.setOffset(Index{0}); // before the first item
    EXPECT_EQ(written(partial), "2 3 4");
    TzSoapCompactArrayType matrix = filled({2, 3});
    matrix.setOffset(Index{1, 1});
    EXPECT_EQ(written(matrix), "4 5");
    matrix.setOffset(Index{1});
    EXPECT_EQ(written(matrix), "3 4 5");
    matrix.setOffset(Index{4294967295U, 4294967295U});
    EXPECT_EQ(written(matrix), "");
}

TEST(TzSoapCompactArray, WritesPlaceholdersBetweenItemsOnly) {
    TzSoapCompactArrayType array("xsd:int", 6, 0);
    EXPECT_EQ(written(array), "");
    array[1] = valueOf("b");
    array[3] = valueOf("d");
    EXPECT_EQ(written(array), "- b - d");
    array.setOffset(Index{2});
    EXPECT_EQ(written(array), "- d");
    (void)array[5]; // looked at, not assigned
    EXPECT_EQ(written(array), "- d");
    array[5] = TzSoapDefaultType();
    EXPECT_EQ(written(array), "- d");
    EXPECT_EQ(array.entries(), 6U);
}

TEST(TzSoapCompactArray, WritesNoMoreThanAsked) {
    TzSoapCompactArrayType array = filled({5});
    array.setCountElementsToWrite(2);
    EXPECT_EQ(written(array), "0 1");
    array.setOffset(Index{1});
    EXPECT_EQ(written(array), "1 2");
    array.setCountElementsToWrite(99);
    EXPECT_EQ(written(array), "1 2 3 4");
    array.setCountElementsToWrite(0);
    EXPECT_EQ(written(array), "1 2 3 4");
}

TEST(TzSoapCompactArray, MembersGoFromTheOffsetOn) {
    TzSoapCompactArrayType array("xsd:int", 5, 0);
    array.setOffset(Index{2});
    auto& body = TzSoapAccess::body(array);
    for (const char* text : {"c", "d", "e", "f"}) { // one more than the bounds say
        body.addChild(valueOf(text));
    }
    EXPECT_EQ(array.entries(), 11U);
    EXPECT_EQ(written(array), "c d e f");
    EXPECT_EQ(itemText(array[2]), "c");
    EXPECT_EQ(itemText(array(5)), "f");
    EXPECT_EQ(stored(array), 4U);
    EXPECT_EQ(textsOf(array), "- - c d e f - - - - -");
}

TEST(TzSoapCompactArray, MembersShareTheirBody) {
    TzSoapCompactArrayType array("xsd:int", 0, 0);
    TzSoapSimpleType member = valueOf("a");
    member.setIdAttribute("m");
    auto& attributes = TzSoapAccess::body(member).getAttributeSet();
    attributes.setPositionAttribute("[7]", TzSoapVersion::V1_1);
    TzSoapAccess::body(array).addChild(member);
    EXPECT_TRUE(TzSoapAccess::sameBody<TzSoapType>(array[7], member));
    EXPECT_FALSE(attributes.hasPositionAttribute());
    EXPECT_EQ(array.entries(), 8U);
}

TEST(TzSoapCompactArray, MembersReplaceWhatIsThere) {
    TzSoapCompactArrayType array = filled({3});
    auto& body = TzSoapAccess::body(array);
    body.addChild(valueOf("a"));
    body.addChild(valueOf("b"));
    EXPECT_EQ(textsOf(array), "a b 2");
    array.setOffset(Index{0}); // starts again
    body.addChild(valueOf("z"));
    EXPECT_EQ(textsOf(array), "z b 2");
}

TEST(TzSoapCompactArray, RandomAccessAllocatesNothing) {
    TzSoapCompactArrayType array = filled({10, 10});
    const TzSoapCompactArrayType& constant = array;
    Index index{3, 4};
    (void)array(index);
    const std::size_t before = madeAllocations();
    for (index[0] = 0; index[0] < 10; ++index[0]) {
        EXPECT_TRUE(TzSoapAccess::hasBody(array(index)));
        EXPECT_TRUE(TzSoapAccess::hasBody(array[index]));
        EXPECT_TRUE(TzSoapAccess::hasBody(constant(index)));
        EXPECT_TRUE(TzSoapAccess::hasBody(constant[index]));
        EXPECT_TRUE(TzSoapAccess::hasBody(array(index[0])));
    }
    EXPECT_EQ(madeAllocations(), before);
}

TEST(TzSoapCompactArray, WithoutBodyRefuses) {
    auto array =
        TzSoapAccess::handle<TzSoapCompactArrayType>(static_cast<TzSoapCompactArrayImp*>(nullptr));
    const TzSoapCompactArrayType& constant = array;
    const auto refused = [](const auto& action) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    };
    refused([&] { (void)array.copy(); });
    refused([&] { TzSoapCompactArrayType(array, Index{1}); });
    refused([&] { (void)array.entries(); });
    refused([&] { (void)array.begin(); });
    refused([&] { (void)array.end(); });
    refused([&] { (void)constant.begin(); });
    refused([&] { (void)constant.end(); });
    refused([&] { (void)array[Index{0, 0}]; });
    refused([&] { (void)constant[Index{0, 0}]; });
    refused([&] { (void)array(Index{0, 0}); });
    refused([&] { (void)constant(Index{0, 0}); });
}

} // namespace
