// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompactArrayType.h>

#include "model/TzSoapAccess.h"
#include "support/AllocationFailure.h"
#include "values/ArrayTesting.h"
#include "values/EnvelopeTesting.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

/// More positions than are kept in one block.
constexpr unsigned int BeyondTheBlock = 3000000;

TzSoapCompactArrayType readArray(const std::string& shape, const std::string& members) {
    return entryAs<TzSoapCompactArrayType>(messageOf(envelope(
        TzSoapVersion::V1_1, "<list c:arrayType=\"xsd:int" + shape + "\">" + members + "</list>")));
}

/// Sizes on both sides of the limit of one block.
class TzSoapCompactArrayAddresses : public testing::TestWithParam<unsigned int> {
protected:
    static TzSoapCompactArrayType array() { return {"xsd:int", GetParam(), 0}; }
    static unsigned int last() { return GetParam() - 1; }
};

INSTANTIATE_TEST_SUITE_P(Sizes, TzSoapCompactArrayAddresses,
                         testing::Values(3U, 1024U, 1048576U, 1048577U, BeyondTheBlock));

TEST_P(TzSoapCompactArrayAddresses, AssigningAnItemToAnother) {
    TzSoapCompactArrayType array = TzSoapCompactArrayAddresses::array();
    array[0] = valueOf("a");
    array[1] = array[0];
    array[last()] = array[1];
    array["[2]"] = array["[0]"];
    array(1) = array(0);
    EXPECT_EQ(itemText(array[1]), "a");
    EXPECT_EQ(itemText(array[2]), "a");
    EXPECT_EQ(itemText(array[last()]), "a");
}

TEST_P(TzSoapCompactArrayAddresses, AssigningFromAnItemThatWasNeverReached) {
    TzSoapCompactArrayType array = TzSoapCompactArrayAddresses::array();
    array[1] = array[0];
    EXPECT_EQ(itemText(array[1]), "-");
}

TEST_P(TzSoapCompactArrayAddresses, ItemsStayWhereTheyAre) {
    TzSoapCompactArrayType array = TzSoapCompactArrayAddresses::array();
    TzSoapType& middle = array[last() / 2];
    TzSoapType& first = array[0];
    TzSoapType& end = array[last()];
    middle = valueOf("middle");
    first = valueOf("first");
    end = valueOf("end");
    EXPECT_EQ(&array[last() / 2], &middle);
    EXPECT_EQ(&array[0], &first);
    EXPECT_EQ(&array(Index{last()}), &end);
    EXPECT_EQ(itemText(array[last() / 2]), "middle");
}

TEST_P(TzSoapCompactArrayAddresses, ConstAccessMakesNothing) {
    TzSoapCompactArrayType array = TzSoapCompactArrayAddresses::array();
    array[1] = valueOf("b");
    const TzSoapCompactArrayType& constant = array;
    (void)constant[0]; // the first use makes the placeholder
    const std::size_t made = madeAllocations();
    EXPECT_TRUE(TzSoapAccess::hasBody(constant[1]));
    EXPECT_TRUE(TzSoapAccess::hasBody(constant[last()]));
    EXPECT_TRUE(TzSoapAccess::hasBody(constant(last())));
    EXPECT_EQ(constant.entries(), GetParam());
    EXPECT_EQ(madeAllocations(), made);
}

TEST(TzSoapCompactArray, MatrixItemsAssignedToEachOther) {
    TzSoapCompactArrayType array("xsd:int", Index{2, 3}, Index{0, 0});
    array["[1,2]"] = array["[0,0]"];
    array["[0,0]"] = valueOf("a");
    array["[1,2]"] = array["[0,0]"];
    array[Index{0, 1}] = array[Index{0, 0}];
    EXPECT_EQ(textsOf(array), "a a - - - a");
}

TEST(TzSoapCompactArray, EachItemAssignedToTheNext) {
    TzSoapCompactArrayType array("xsd:int", 2000, 0);
    array[0] = valueOf("a");
    for (unsigned int at = 1; at < 2000; ++at) {
        array[at] = array[at - 1];
    }
    EXPECT_EQ(itemText(array[1999]), "a");
    TzSoapCompactArrayType backwards("xsd:int", 2000, 0);
    backwards[1999] = valueOf("z");
    for (unsigned int at = 1999; at-- > 0;) {
        backwards[at] = backwards[at + 1];
    }
    EXPECT_EQ(itemText(backwards[0]), "z");
}

TEST(TzSoapCompactArray, ReferenceKeptOverAnAssignment) {
    TzSoapCompactArrayType array("xsd:int", 3, 0);
    TzSoapType& first = array[0];
    array[1] = valueOf("b");
    first = valueOf("a");
    EXPECT_EQ(textsOf(array), "a b -");
}

TEST(TzSoapCompactArray, ItemsOfAnArrayThatWasRead) {
    TzSoapCompactArrayType array = readArray("[5]", "<i>x</i>");
    array[4] = array[0];
    EXPECT_EQ(textsOf(array), "x - - - x");
    TzSoapCompactArrayType empty = readArray("[5]", "");
    TzSoapType& third = empty[3];
    empty[0] = valueOf("a");
    third = empty[0];
    EXPECT_EQ(textsOf(empty), "a - - a -");
    TzSoapCompactArrayType long_ = readArray("[3000000]", "");
    TzSoapType& far = long_[2999999];
    long_[0] = valueOf("a");
    far = long_[0];
    EXPECT_EQ(itemText(long_[2999999]), "a");
}

TEST(TzSoapCompactArray, IteratingMovesNothingInABlock) {
    TzSoapCompactArrayType array("xsd:int", 1000, 0);
    TzSoapType& item = array[500];
    const TzSoapCompactArrayType& constant = array;
    EXPECT_EQ(constant.begin() + 500, &item);
    EXPECT_EQ(constant.end() - constant.begin(), 1000);
    EXPECT_EQ(array.begin() + 500, &item);
    EXPECT_EQ(&array[500], &item);
    const std::size_t made = madeAllocations();
    EXPECT_EQ(constant.begin() + 1000, constant.end());
    EXPECT_EQ(madeAllocations(), made);
}

TEST(TzSoapCompactArray, IteratingABlockThatIsNewTakesNoMemory) {
    const TzSoapCompactArrayType array("xsd:int", 1000, 0);
    (void)array[0];
    const std::size_t made = madeAllocations();
    EXPECT_EQ(array.end() - array.begin(), 1000);
    EXPECT_EQ(madeAllocations(), made);
}

TEST(TzSoapCompactArray, IteratingBeyondTheLimitMakesOneBlock) {
    TzSoapCompactArrayType array("xsd:int", BeyondTheBlock, 0);
    array[2000000] = valueOf("far");
    array[5] = valueOf("near");
    const TzSoapCompactArrayType& constant = array;
    EXPECT_EQ(constant.end() - constant.begin(), static_cast<std::ptrdiff_t>(BeyondTheBlock));
    EXPECT_EQ(itemText(constant.begin()[2000000]), "far");
    EXPECT_EQ(itemText(constant.begin()[5]), "near");
    EXPECT_EQ(itemText(constant.begin()[BeyondTheBlock - 1]), "-");
    // From now on it is as with a shorter array.
    TzSoapType& item = array[1000000];
    array[1] = valueOf("b");
    item = array[1];
    EXPECT_EQ(array.begin() + 1000000, &item);
    EXPECT_EQ(itemText(array(1000000)), "b");
}

TEST(TzSoapCompactArray, PlaceholderOfAConstArrayStaysOne) {
    TzSoapCompactArrayType array("xsd:int", 3, 0);
    const TzSoapCompactArrayType& constant = array;
    const TzSoapType& before = constant[1];
    array[1] = valueOf("b");
    EXPECT_EQ(itemText(before), "-");
    EXPECT_EQ(itemText(constant[1]), "b");
}

TEST(TzSoapCompactArray, GrowthKeepsTheItems) {
    TzSoapCompactArrayType array("xsd:int", 1000000, 0);
    array[999999] = valueOf("last");
    array[3] = valueOf("d");
    array(1000000) = valueOf("grown"); // beyond the limit of a block
    EXPECT_EQ(array.entries(), 2000001U);
    EXPECT_EQ(itemText(array[999999]), "last");
    EXPECT_EQ(itemText(array[3]), "d");
    EXPECT_EQ(itemText(array(1000000)), "grown");
    const TzSoapDefaultType* first = array.begin();
    EXPECT_EQ(first + 3, &array[3]);
    array(2000001) = valueOf("again");
    EXPECT_EQ(itemText(array(2000001)), "again");
    EXPECT_EQ(itemText(array[3]), "d");
}

/// Reaches a position after the last one while the n-th allocation fails, for every n.
void expectGrowthOrNothing(const TzSoapCompactArrayType& array, unsigned int position) {
    bool failed = true;
    for (std::size_t nth = 1; failed; ++nth) {
        TzSoapCompactArrayType tested = array.copy();
        {
            const AllocationFailure failure(nth);
            try {
                (void)tested(position);
            } catch (const std::bad_alloc&) { // looked at below
            }
            failed = failure.happened();
        }
        ASSERT_EQ(tested.entries() > position, !failed) << nth;
        ASSERT_EQ(tested.entries() == array.entries(), failed) << nth;
        ASSERT_EQ(tested.assignedPositions(), array.assignedPositions()) << nth;
        tested(position) = valueOf("again");
        ASSERT_EQ(itemText(tested(position)), "again") << nth;
        for (const unsigned int kept : array.assignedPositions()) {
            ASSERT_EQ(itemText(tested(kept)), itemText(array(kept))) << nth;
        }
    }
}

TEST(TzSoapCompactArray, GrowthWithoutMemoryAddsNoPositions) {
    TzSoapCompactArrayType open("xsd:int", 0U, 0U);
    expectGrowthOrNothing(open, 50);
    expectGrowthOrNothing(open, BeyondTheBlock);
    open(2) = valueOf("c");
    expectGrowthOrNothing(open, 50);
    expectGrowthOrNothing(open, BeyondTheBlock);
    TzSoapCompactArrayType closed("xsd:int", BeyondTheBlock, 0);
    expectGrowthOrNothing(closed, 2 * BeyondTheBlock);
    closed[7] = valueOf("h");
    expectGrowthOrNothing(closed, 2 * BeyondTheBlock);
    expectGrowthOrNothing(readArray("[9]", ""), 50);
}

TEST(TzSoapCompactArray, OpenAxisGrowsBeyondTheLimit) {
    TzSoapCompactArrayType array("xsd:int", 0, 0);
    const TzSoapSimpleType value = valueOf("v");
    for (unsigned int at = 0; at < 1050000; ++at) {
        array[at] = value;
    }
    EXPECT_EQ(array.entries(), 1050000U);
    EXPECT_EQ(itemText(array[0]), "v");
    EXPECT_EQ(itemText(array[1049999]), "v");
    EXPECT_TRUE(TzSoapAccess::sameBody<TzSoapType>(array.begin()[1048576], value));
}

TEST(TzSoapCompactArray, ShapesTakeLittleMemory) {
    const std::size_t before = askedBytes();
    {
        TzSoapCompactArrayType array("xsd:int", 4294967295U, 0);
        array[4294967294U] = valueOf("last");
        array[0] = valueOf("first");
        array[2147483647U] = valueOf("middle");
    }
    EXPECT_LT(askedBytes() - before, 400000U);
}

TEST(TzSoapCompactArray, EmptyArraysThatAreReadTakeNoMemoryForTheirShape) {
    const std::string text = envelope(TzSoapVersion::V1_1, "<l c:arrayType=\"x[1000000]\"/>");
    (void)messageOf(text);
    const std::size_t before = askedBytes();
    const TzSoapMessage message = messageOf(text);
    EXPECT_LT(askedBytes() - before, 100000U);
    EXPECT_EQ(entryAs<TzSoapCompactArrayType>(message).entries(), 1000000U);
}

TEST(TzSoapCompactArray, PositionsThatHoldSomething) {
    TzSoapCompactArrayType array("xsd:int", 5, 1);
    EXPECT_EQ(array.assignedPositions(), Index{});
    array[4] = valueOf("e");
    array[2] = valueOf("c");
    (void)array[3];
    EXPECT_EQ(array.assignedPositions(), (Index{2, 4}));
    array[2] = TzSoapDefaultType();
    EXPECT_EQ(array.assignedPositions(), Index{4});
    EXPECT_EQ(array.end() - array.begin(), 4);
    EXPECT_EQ(array.assignedPositions(), Index{4});
    TzSoapCompactArrayType longer("xsd:int", 4294967295U, 0);
    longer[4294967294U] = valueOf("last");
    longer[7] = valueOf("h");
    EXPECT_EQ(longer.assignedPositions(), (Index{7, 4294967294U}));
    EXPECT_EQ(readArray("[4294967295]", "").assignedPositions(), Index{});
}

TEST(TzSoapCompactArray, FillingBackwardsIsLinear) {
    for (const unsigned int size : {1000000U, 1100000U}) {
        TzSoapCompactArrayType array("xsd:int", size, 0);
        const TzSoapSimpleType value = valueOf("v");
        const std::size_t before = askedBytes();
        for (unsigned int at = size; at-- > 0;) {
            array[at] = value;
        }
        EXPECT_LT(askedBytes() - before, 40 * std::size_t{size});
        EXPECT_EQ(array.entries(), size);
    }
}

/// Reads every item of an array in every way that changes nothing.
std::size_t readAll(const TzSoapCompactArrayType& array) {
    std::size_t placeholders = 0;
    Index index(1);
    for (unsigned int at = 0; at < array.entries(); ++at) {
        index[0] = at;
        placeholders += TzSoapArrayTypeImp::isPlaceholder(array[at]) ? 1U : 0U;
        placeholders += TzSoapArrayTypeImp::isPlaceholder(array(index)) ? 1U : 0U;
        placeholders += array.linearToIndex(at) == index ? 0U : 1000U;
    }
    for (const TzSoapDefaultType& item : array) {
        placeholders += TzSoapArrayTypeImp::isPlaceholder(item) ? 1U : 0U;
    }
    return placeholders;
}

TEST(TzSoapCompactArrayThread, ConstOperationsOnSeveralThreads) {
    TzSoapCompactArrayType assigned("xsd:int", 1000, 0);
    assigned[500] = valueOf("x");
    const TzSoapCompactArrayType arrays[] = {TzSoapCompactArrayType("xsd:int", 1000, 0), assigned,
                                             readArray("[1000]", "<i>1</i><i>2</i>"),
                                             readArray("[1000]", ""), readArray("[]", "<i/>")};
    for (const TzSoapCompactArrayType& array : arrays) {
        std::size_t counts[3] = {};
        std::vector<std::thread> threads;
        for (std::size_t& count : counts) {
            threads.emplace_back([&array, &count] { count = readAll(array); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(counts[0], counts[1]);
        EXPECT_EQ(counts[0], counts[2]);
        EXPECT_EQ(counts[0], readAll(array));
    }
}

} // namespace
