// SPDX-License-Identifier: MIT
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapTypeImp.h>
#include <tz/thread/TzTHRInvalidPointer.h>

#include "model/TzSoapAccess.h"
#include "support/AllocationFailure.h"
#include "values/ArrayTesting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace {

/// Indices and texts of the items, in their order: "[1]=a [0]=b".
std::string itemsOf(const TzSoapSparseArrayType& array) {
    std::string items;
    for (const auto& [index, value] : array) {
        items += (items.empty() ? "" : " ") +
                 TzSoapArrayType::vectorToString(index, true, TzSoapVersion::V1_1) + "=" +
                 itemText(value);
    }
    return items;
}

/// A value to be read into an array, at `position`.
TzSoapType member(const char* text, const char* position, TzSoapVersion::Version version) {
    TzSoapSimpleType value = valueOf(text);
    TzSoapAccess::body<TzSoapType>(value).getAttributeSet().setPositionAttribute(position, version);
    return value;
}

void read(TzSoapSparseArrayType& array, const TzSoapType& value) {
    TzSoapAccess::body(array).addChild(value);
}

TEST(TzSoapSparseArray, HoldsNothingAtFirst) {
    const TzSoapSparseArrayType array("xsd:int", 5);
    EXPECT_EQ(array.entries(), 0U);
    EXPECT_EQ(array.begin(), array.end());
    EXPECT_TRUE(array.isSparse());
    EXPECT_FALSE(array.isCompact());
    EXPECT_EQ(array.getArrayType(), "xsd:int[5]");
    EXPECT_EQ(TzSoapAccess::body(array).getSize(), 5U);
    EXPECT_EQ(array.getSoapTypeId(), TzSoapContentBase::Array);
}

TEST(TzSoapSparseArray, ConstructorsAgree) {
    const TzXmlName name("list", TzXmlNamespace("p", "urn:p"));
    const Index bounds{2, 3};
    const TzSoapSparseArrayType arrays[] = {
        TzSoapSparseArrayType("xsd:int", bounds),
        TzSoapSparseArrayType("xsd:int", "[2,3]"),
        TzSoapSparseArrayType("xsd:int", "2 3"),
        TzSoapSparseArrayType(name, "xsd:int", bounds),
        TzSoapSparseArrayType(name, "xsd:int", "[2,3]"),
    };
    for (const TzSoapSparseArrayType& array : arrays) {
        EXPECT_EQ(array.getBounds(), bounds);
        EXPECT_EQ(array.getStartIndex(), (Index{0, 0}));
        EXPECT_EQ(array.getElementType(), "xsd:int");
        EXPECT_EQ(TzSoapAccess::body(array).getSize(), 0U);
    }
    EXPECT_TRUE(arrays[0].getName().isEmpty());
    EXPECT_EQ(arrays[3].getName(), name);
    EXPECT_EQ(TzSoapSparseArrayType(name, "xsd:int", 4).getName(), name);
    EXPECT_EQ(TzSoapSparseArrayType("xsd:int", "[]").getBounds(), Index{0});
    EXPECT_EQ(TzSoapSparseArrayType("xsd:int", "[,3]").getBounds(), (Index{0, 3}));
}

TEST(TzSoapSparseArray, ConstructorsCheckTheShape) {
    expectBadEntry([] { TzSoapSparseArrayType("xsd:int", "3 *"); }, 1, 0);
    expectBadEntry([] { TzSoapSparseArrayType("xsd:int", Index{65536, 65536}); }, 0, 65536);
    expectBadText([] { TzSoapSparseArrayType("xsd:int", "[3,0]"); }, "[3,0]");
}

TEST(TzSoapSparseArray, ConstAccessAnswersWithTheTemplate) {
    const TzSoapSparseArrayType array("xsd:int", 5);
    const TzSoapType& substitute = array[3];
    EXPECT_EQ(substitute.getSoapTypeId(), TzSoapContentBase::Generic);
    EXPECT_TRUE(substitute.getName().isEmpty());
    EXPECT_EQ(&array[Index{2}], &substitute);
    EXPECT_EQ(&array["[1]"], &substitute);
    EXPECT_EQ(&array(17), &substitute);
    EXPECT_EQ(&array(Index{9, 9}), &substitute);
    EXPECT_EQ(&array("[9]"), &substitute);
    EXPECT_EQ(array.entries(), 0U);
}

TEST(TzSoapSparseArray, KeepsTheOrderOfInsertion) {
    TzSoapSparseArrayType array("xsd:int", 5);
    array[3] = valueOf("d");
    array[1] = valueOf("b");
    EXPECT_EQ(array.entries(), 2U);
    EXPECT_EQ(itemsOf(array), "[3]=d [1]=b");
    array[Index{3}] = valueOf("D");
    EXPECT_EQ(array.entries(), 2U);
    EXPECT_EQ(itemsOf(array), "[3]=D [1]=b");
}

TEST(TzSoapSparseArray, ReachesItemsByPositionIndexAndText) {
    TzSoapSparseArrayType array("xsd:int", "[2,3]");
    array[4] = valueOf("a");
    EXPECT_EQ(itemsOf(array), "[1,1]=a");
    array(Index{0, 2}) = valueOf("b");
    array["[0,1]"] = valueOf("c");
    array("0 0") = valueOf("d");
    EXPECT_EQ(itemsOf(array), "[1,1]=a [0,2]=b [0,1]=c [0,0]=d");
    const TzSoapSparseArrayType& constant = array;
    EXPECT_EQ(itemText(constant[4]), "a");
    EXPECT_EQ(itemText(constant[Index{0, 2}]), "b");
    EXPECT_EQ(itemText(constant["[0,1]"]), "c");
    EXPECT_EQ(itemText(constant(0)), "d");
    EXPECT_EQ(itemText(constant(Index{0, 1})), "c");
    EXPECT_EQ(itemText(constant("[1,1]")), "a");
}

TEST(TzSoapSparseArray, NewItemsAreCopiesOfTheTemplate) {
    TzSoapSparseArrayType array("xsd:int", 5);
    const TzSoapType substitute = static_cast<const TzSoapSparseArrayType&>(array)[0];
    TzSoapType(substitute).setName("made");
    (void)array[2];
    (void)array[4];
    EXPECT_EQ(array.entries(), 2U);
    EXPECT_EQ(array[2].getName(), TzXmlName("made"));
    EXPECT_FALSE(TzSoapAccess::sameBody(array[2], array[4]));
    EXPECT_FALSE(TzSoapAccess::sameBody(array[2], substitute));
}

TEST(TzSoapSparseArray, CheckingFormsStayWithinTheShape) {
    TzSoapSparseArrayType array("xsd:int", "[2,3]");
    expectOutOfRange([&array] { (void)array[6]; }, "6", "0 0", "2 3");
    expectOutOfRange([&array] { (void)array[Index{2, 0}]; }, "2 0", "0 0", "2 3");
    expectOutOfRange([&array] { (void)array[Index{1}]; }, "1", "0 0", "2 3");
    expectOutOfRange([&array] { (void)array["[0,3]"]; }, "0 3", "0 0", "2 3");
    expectBadText([&array] { (void)array["[0,]"]; }, "[0,]");
    EXPECT_EQ(array.entries(), 0U);
    array(6) = valueOf("a");
    array(Index{9, 9}) = valueOf("b");
    array("[7]") = valueOf("c"); // whatever the number of axes
    EXPECT_EQ(itemsOf(array), "[2,0]=a [9,9]=b [7]=c");
}

TEST(TzSoapSparseArray, BoundsDropItemsAndMoveNone) {
    TzSoapSparseArrayType array("xsd:int", 5);
    array[4] = valueOf("e");
    array[1] = valueOf("b");
    array.setBounds(Index{3});
    EXPECT_EQ(itemsOf(array), "[1]=b");
    EXPECT_EQ(array.entries(), 1U);
    EXPECT_EQ(array.getBounds(), Index{3});

    TzSoapSparseArrayType matrix("xsd:int", "[2,3]");
    matrix[Index{1, 2}] = valueOf("f");
    matrix[Index{1, 0}] = valueOf("d");
    matrix[Index{0, 2}] = valueOf("c");
    matrix(Index{0}) = valueOf("other rank");
    matrix.setBounds(TzCString("[,2]"));
    EXPECT_EQ(itemsOf(matrix), "[1,0]=d");
    matrix.setBounds(TzCString("[2,3]"));
    EXPECT_EQ(itemText(matrix[3]), "d");
}

TEST(TzSoapSparseArray, BoundsThatAreNoneChangeNothing) {
    TzSoapSparseArrayType array("xsd:int", 5);
    array[4] = valueOf("e");
    expectIllegal([&array] { array.setBounds(Index{3, 3}); }, "setBounds");
    expectBadText([&array] { array.setBounds(TzCString("[-1]")); }, "[-1]");
    EXPECT_EQ(itemsOf(array), "[4]=e");
    EXPECT_EQ(array.getBounds(), Index{5});
}

TEST(TzSoapSparseArray, TakesMembersByTheirPosition) {
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2}) {
        TzSoapSparseArrayType array("xsd:int", "[4,4]");
        const TzSoapType first = member("a", "[2,1]", version);
        const TzSoapType second = member("b", "0 3", version);
        read(array, first);
        read(array, second);
        EXPECT_EQ(itemsOf(array), "[2,1]=a [0,3]=b");
        EXPECT_TRUE(TzSoapAccess::sameBody(array[Index{2, 1}], first));
        EXPECT_EQ(first.attributeCount(), 0U);
        EXPECT_EQ(second.attributeCount(), 0U);
    }
}

TEST(TzSoapSparseArray, LaterMemberReplacesTheEarlierOne) {
    TzSoapSparseArrayType array("xsd:int", 4);
    read(array, member("a", "[2]", TzSoapVersion::V1_1));
    read(array, member("b", "[1]", TzSoapVersion::V1_1));
    read(array, member("c", "[2]", TzSoapVersion::V1_1));
    EXPECT_EQ(itemsOf(array), "[2]=c [1]=b");
}

TEST(TzSoapSparseArray, RefusesMembersOutsideOfTheShape) {
    TzSoapSparseArrayType array("xsd:int", 4);
    const TzSoapType outside = member("a", "[4]", TzSoapVersion::V1_1);
    expectOutOfRange([&] { read(array, outside); }, "4", "0", "4");
    EXPECT_EQ(outside.attributeCount(), 1U);
    expectBadText([&] { read(array, member("a", "[,1]", TzSoapVersion::V1_1)); }, "[,1]");
    expectBadText([&] { read(array, member("a", "[4294967296]", TzSoapVersion::V1_1)); },
                  "[4294967296]");
    EXPECT_EQ(array.entries(), 0U);

    TzSoapSparseArrayType open("xsd:int", 0);
    read(open, member("far", "[4294967295]", TzSoapVersion::V1_1));
    EXPECT_EQ(itemsOf(open), "[4294967295]=far");
}

TEST(TzSoapSparseArray, CopiesShareValuesNotSlots) {
    TzSoapSparseArrayType array("xsd:int", 5);
    array[3] = valueOf("d");
    TzSoapSparseArrayType copy = array.copy();
    array[3].setIdAttribute("three");
    EXPECT_EQ(copy[3].getIdAttribute(), "three");
    copy[1] = valueOf("b");
    copy[3] = valueOf("D");
    EXPECT_EQ(itemsOf(array), "[3]=d");
    EXPECT_EQ(itemsOf(copy), "[3]=D [1]=b");
    const TzSoapSparseArrayType& first = array;
    const TzSoapSparseArrayType& second = copy;
    EXPECT_TRUE(TzSoapAccess::sameBody(first[0], second[0]));
    EXPECT_EQ(TzSoapAccess::body(copy).getSize(), 5U);
    const TzSoapSparseArrayType shared = array;
    array[0] = valueOf("a");
    EXPECT_EQ(itemsOf(shared), "[3]=d [0]=a");
}

/// An array so long that items are not looked for one by one.
TzSoapSparseArrayType longArray() {
    TzSoapSparseArrayType array("xsd:int", 1000);
    for (unsigned int at = 0; at < 100; ++at) {
        const unsigned int position = at * 7 % 100;
        array[position] = valueOf(std::to_string(position));
    }
    return array;
}

TEST(TzSoapSparseArray, FindsItemsOfLongArrays) {
    TzSoapSparseArrayType array = longArray();
    EXPECT_EQ(array.entries(), 100U);
    const TzSoapSparseArrayType& constant = array;
    for (unsigned int position = 0; position < 100; ++position) {
        ASSERT_EQ(itemText(constant[position]), std::to_string(position));
        ASSERT_EQ(itemText(array[position]), std::to_string(position));
    }
    EXPECT_EQ(itemText(constant[100]), "");
    EXPECT_EQ(array.entries(), 100U);
    EXPECT_EQ(std::next(array.begin(), 2)->first, Index{14});
}

TEST(TzSoapSparseArray, ChangesThroughIteratorsAreSeen) {
    TzSoapSparseArrayType array = longArray();
    EXPECT_EQ(itemText(array[7]), "7");
    std::next(array.begin())->first = Index{500}; // was 7
    EXPECT_EQ(itemText(array[500]), "7");
    EXPECT_EQ(array.entries(), 100U);
    const TzSoapSparseArrayType& constant = array;
    EXPECT_EQ(itemText(constant[7]), "");
    // the position after the last leads to items, too
    std::prev(array.end())->first = Index{501}; // was 93
    EXPECT_EQ(itemText(constant[501]), "93");
    EXPECT_EQ(itemText(constant[93]), "");
}

TEST(TzSoapSparseArray, FirstOfEqualIndicesIsFound) {
    TzSoapSparseArrayType array = longArray();
    (void)array[0];
    std::next(array.begin(), 5)->first = Index{14}; // 14 comes third
    const TzSoapSparseArrayType& constant = array;
    EXPECT_EQ(itemText(constant[14]), "14");
    std::next(array.begin())->first = Index{14}; // the second was 7
    EXPECT_EQ(itemText(constant[14]), "7");
}

TEST(TzSoapSparseArray, LongArraysNoticeNewBounds) {
    TzSoapSparseArrayType array = longArray();
    EXPECT_EQ(itemText(array[99]), "99");
    array.setBounds(Index{50});
    EXPECT_EQ(array.entries(), 50U);
    array.setBounds(Index{1000});
    const TzSoapSparseArrayType& constant = array;
    EXPECT_EQ(itemText(constant[99]), "");
    EXPECT_EQ(itemText(constant[49]), "49");
}

TEST(TzSoapSparseArray, LongArraysOfManyAxes) {
    TzSoapSparseArrayType array("xsd:int", "[4,4,4,4]");
    for (unsigned int position = 256; position-- > 0;) {
        array[position] = valueOf(std::to_string(position));
    }
    array(Index{1, 2}) = valueOf("short");
    array(Index{}) = valueOf("none");
    const TzSoapSparseArrayType& constant = array;
    for (unsigned int position = 0; position < 256; ++position) {
        ASSERT_EQ(itemText(constant[position]), std::to_string(position));
    }
    EXPECT_EQ(itemText(constant(Index{1, 2})), "short");
    EXPECT_EQ(itemText(constant(Index{})), "none");
    EXPECT_EQ(itemText(constant(Index{1, 2, 0})), "");
    EXPECT_EQ(array.entries(), 258U);
}

TEST(TzSoapSparseArray, OutOfMemoryLeavesNoTrace) {
    const TzSoapSparseArrayType array = longArray();
    const TzSoapSimpleType value = valueOf("new");
    EXPECT_GT(failEachAllocation([&] {
                  TzSoapSparseArrayType copy = array.copy();
                  copy[200] = value;
                  copy[201] = value;
                  copy.setBounds(Index{150});
              }),
              200U);
    TzSoapSparseArrayType tested = array.copy();
    for (std::size_t nth = 1; nth < 200; ++nth) {
        try {
            const AllocationFailure failure(nth);
            tested[300] = value;
            break;
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(tested.entries(), 100U);
        }
    }
    EXPECT_EQ(tested.entries(), 101U);
    EXPECT_EQ(itemText(tested[300]), "new");
}

TEST(TzSoapSparseArray, WithoutBodyRefuses) {
    auto array =
        TzSoapAccess::handle<TzSoapSparseArrayType>(static_cast<TzSoapSparseArrayImp*>(nullptr));
    const TzSoapSparseArrayType& constant = array;
    const auto refused = [](const auto& action) {
        EXPECT_EQ(textThrown<TzTHRInvalidPointer>(action), "Invalid pointer");
    };
    refused([&] { (void)array.copy(); });
    refused([&] { (void)array.entries(); });
    refused([&] { (void)array.begin(); });
    refused([&] { (void)array.end(); });
    refused([&] { (void)constant.begin(); });
    refused([&] { (void)constant.end(); });
}

} // namespace
