// SPDX-License-Identifier: MIT
#include <soap/TzSoapSparseArrayImp.h>
#include <soap/TzSoapSparseArrayType.h>

#include "model/TzSoapAccess.h"
#include "support/AllocationFailure.h"
#include "values/ArrayTesting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <thread>
#include <type_traits>

namespace {

static_assert(std::bidirectional_iterator<TzSoapSparseArrayType::iterator>);
static_assert(std::bidirectional_iterator<TzSoapSparseArrayType::const_iterator>);
static_assert(
    std::is_convertible_v<TzSoapSparseArrayType::iterator, TzSoapSparseArrayType::const_iterator>);
static_assert(
    !std::is_convertible_v<TzSoapSparseArrayType::const_iterator, TzSoapSparseArrayType::iterator>);

/// Items at 0 to `count` - 1, in this order, with their position as text.
TzSoapSparseArrayType filled(unsigned int count) {
    TzSoapSparseArrayType array("xsd:int", 0);
    for (unsigned int position = 0; position < count; ++position) {
        array[position] = valueOf(std::to_string(position));
    }
    return array;
}

/// Lengths on both sides of the one from which look-ups have an index.
class TzSoapSparseItems : public testing::TestWithParam<unsigned int> {
protected:
    TzSoapSparseArrayType array = filled(GetParam());
    const TzSoapSparseArrayType& constant = array;
};

INSTANTIATE_TEST_SUITE_P(Lengths, TzSoapSparseItems, testing::Values(1U, 15U, 16U, 17U, 100U));

TEST_P(TzSoapSparseItems, AnIndexChangedThroughAnIteratorIsFound) {
    array.begin()->first = Index{900};
    array[900] = valueOf("v");
    EXPECT_EQ(array.entries(), GetParam());
    EXPECT_EQ(itemText(array.begin()->second), "v");
    EXPECT_EQ(itemText(constant[0]), "");
}

TEST_P(TzSoapSparseItems, AnIteratorOlderThanTheLookUpChangesAnIndex) {
    const auto it = array.begin();
    (void)constant[0];
    it->first = Index{900};
    array[900] = valueOf("v");
    EXPECT_EQ(array.entries(), GetParam());
    EXPECT_EQ(itemText(it->second), "v");
}

TEST_P(TzSoapSparseItems, AReferenceOlderThanTheLookUpChangesAnIndex) {
    Index& index = array.begin()->first;
    (void)constant[0];
    (void)constant[5];
    index[0] = 900;
    array[900] = valueOf("v");
    EXPECT_EQ(array.entries(), GetParam());
    EXPECT_EQ(itemText(constant[0]), "");
    index[0] = 0;
    EXPECT_EQ(itemText(constant[0]), "v");
    EXPECT_EQ(itemText(constant[900]), "");
}

TEST_P(TzSoapSparseItems, IndicesChangeInALoopThatLooksUp) {
    for (auto& [index, value] : array) {
        (void)constant[0];
        index[0] += 1000;
        EXPECT_EQ(&constant[index], &value);
    }
    for (unsigned int position = 0; position < GetParam(); ++position) {
        EXPECT_EQ(itemText(constant[position]), "");
        EXPECT_EQ(itemText(constant[position + 1000]), std::to_string(position));
    }
}

TEST_P(TzSoapSparseItems, TheFirstOfEqualIndicesIsFound) {
    const unsigned int last = GetParam() - 1;
    std::prev(array.end())->first = Index{0};
    EXPECT_EQ(itemText(constant[0]), "0");
    array.begin()->first = Index{last};
    EXPECT_EQ(itemText(constant[0]), last == 0 ? "0" : std::to_string(last));
    EXPECT_EQ(itemText(constant[last]), "0");
    std::prev(array.end())->first = Index{last};
    EXPECT_EQ(itemText(constant[last]), "0");
    array.begin()->first = Index{900};
    EXPECT_EQ(itemText(constant[last]), last == 0 ? "" : std::to_string(last));
}

TEST_P(TzSoapSparseItems, TheNumberOfAxesOfAnIndexMayChange) {
    array.begin()->first = Index{0, 0};
    EXPECT_EQ(itemText(constant(Index{0, 0})), "0");
    EXPECT_EQ(itemText(constant(Index{0})), "");
    array.begin()->first = Index{0, 0, 0, 7};
    EXPECT_EQ(itemText(constant(Index{0, 0, 0, 7})), "0");
    EXPECT_EQ(itemText(constant(Index{0, 0, 0, 6})), "");
    EXPECT_EQ(itemText(constant(Index{0, 0})), "");
}

TEST_P(TzSoapSparseItems, IteratorsStepBothWays) {
    std::vector<std::string> forwards;
    for (auto it = array.begin(); it != array.end(); it++) {
        forwards.push_back(itemText((*it).second));
    }
    std::vector<std::string> backwards;
    for (auto it = constant.end(); it != constant.begin();) {
        backwards.push_back(itemText((--it)->second));
    }
    std::reverse(backwards.begin(), backwards.end());
    EXPECT_EQ(forwards, backwards);
    EXPECT_EQ(forwards.size(), GetParam());
    const TzSoapSparseArrayType::const_iterator first = array.begin();
    EXPECT_TRUE(first == constant.begin());
    EXPECT_TRUE(array.end() == constant.end());
}

TEST_P(TzSoapSparseItems, ItemsThatAreLookedAtStayWhereTheyAre) {
    TzSoapType& first = array[0];
    const auto it = array.begin();
    array[5000] = valueOf("new");
    array[5001] = array[0];
    EXPECT_EQ(&array[0], &first);
    EXPECT_EQ(&it->second, &first);
    EXPECT_EQ(itemText(array[5001]), "0");
}

TEST_P(TzSoapSparseItems, RemovedItemsAreForgotten) {
    for (auto& [index, value] : array) {
        (void)value;
    }
    array.setBounds(Index{GetParam() - GetParam() / 2});
    EXPECT_EQ(array.entries(), GetParam() - GetParam() / 2);
    array.setBounds(Index{0});
    EXPECT_EQ(itemText(constant[GetParam()]), "");
    EXPECT_EQ(itemText(constant[0]), "0");
    array[0] = valueOf("a");
    EXPECT_EQ(itemText(array.begin()->second), "a");
}

TEST(TzSoapSparseItemsLong, EveryIndexChangesAtOnce) {
    TzSoapSparseArrayType array = filled(1000);
    const TzSoapSparseArrayType& constant = array;
    EXPECT_EQ(itemText(constant[7]), "7");
    for (auto& [index, value] : array) {
        index[0] = 2000 - index[0];
    }
    for (unsigned int position = 0; position < 1000; ++position) {
        ASSERT_EQ(itemText(constant[2000 - position]), std::to_string(position));
    }
    EXPECT_EQ(itemText(constant[7]), "");
}

TEST(TzSoapSparseItemsLong, AnIndexOfAShortListChangesInALongOne) {
    TzSoapSparseArrayType array = filled(3);
    Index& index = array.begin()->first;
    for (unsigned int position = 3; position < 40; ++position) {
        array[position] = valueOf(std::to_string(position));
    }
    index = Index{900};
    array[900] = valueOf("v");
    EXPECT_EQ(array.entries(), 40U);
}

TEST(TzSoapSparseItemsLong, IteratingMakesNoIndexAnew) {
    TzSoapSparseArrayType array = filled(4000);
    (void)array[3999];
    (void)array.begin();
    const Index wanted{3999};
    const std::size_t before = madeAllocations();
    for (auto it = array.begin(); it != array.end(); ++it) {
        ASSERT_EQ(itemText(array[wanted]), "3999");
        array.begin();
    }
    // Nothing is made but what itemText takes for itself.
    EXPECT_LE(madeAllocations() - before, 4000U * 2);
}

TEST(TzSoapSparseItemsLong, LookingAtAllItemsBetweenLookUpsMakesNoIndexAnew) {
    TzSoapSparseArrayType array = filled(500);
    const Index wanted{499};
    (void)array[wanted];
    for (const auto& [index, value] : array) {
        (void)index;
    }
    (void)array[wanted];
    const std::size_t before = madeAllocations();
    for (auto it = array.begin(); it != array.end(); ++it) {
        EXPECT_TRUE(TzSoapAccess::hasBody(it->second));
        EXPECT_TRUE(TzSoapAccess::hasBody(array[wanted]));
    }
    EXPECT_EQ(madeAllocations(), before);
}

TEST(TzSoapSparseItemsLong, NoMemoryChangesNothing) {
    for (const std::size_t axes : {1U, 3U}) {
        TzSoapSparseArrayType array("xsd:int", Index(axes, axes == 1 ? 0 : 50));
        Index index(axes);
        for (index[0] = 0; index[0] < 40; ++index[0]) {
            array(index) = valueOf(std::to_string(index[0]));
        }
        const auto action = [&array, axes] {
            TzSoapSparseArrayType copy = array.copy();
            for (auto& [at, value] : copy) {
                at[0] += 2;
            }
            Index wanted(axes);
            wanted[0] = 20;
            EXPECT_EQ(itemText(copy(wanted)), "18");
            wanted[0] = 45;
            copy(wanted) = array(Index(axes));
            copy.setBounds(Index(axes, 30));
            wanted[0] = 2;
            EXPECT_EQ(itemText(std::as_const(copy)(wanted)), "0");
        };
        EXPECT_GT(failEachAllocation(action), 80U);
    }
}

TEST(TzSoapSparseItemsLong, ALookUpThatFailsCanBeTriedAgain) {
    TzSoapSparseArrayType array("xsd:int", Index{0, 9, 9});
    Index index(3);
    for (index[0] = 0; index[0] < 40; ++index[0]) {
        array(index) = valueOf(std::to_string(index[0]));
    }
    const Index wanted{1007, 0, 0};
    bool failed = true;
    for (std::size_t nth = 1; failed; ++nth) {
        for (auto& item : array) {
            item.first[0] = item.first[0] % 1000 + 1000;
        }
        {
            const AllocationFailure failure(nth);
            try {
                (void)array(wanted);
            } catch (const std::bad_alloc&) { // checked again below
            }
            failed = failure.happened();
        }
        ASSERT_EQ(itemText(array(wanted)), "7") << nth;
        ASSERT_EQ(array.entries(), 40U) << nth;
        for (auto& item : array) {
            item.first[0] -= 1000;
        }
        ASSERT_EQ(itemText(array(Index{7, 0, 0})), "7") << nth;
    }
}

TEST(TzSoapSparseItemsThread, ConstOperationsOnSeveralThreads) {
    const TzSoapSparseArrayType array = filled(300);
    const auto count = [&array](std::size_t& found) {
        for (unsigned int position = 0; position < 400; ++position) {
            found += itemText(array[position]).empty() ? 0U : 1U;
        }
        for (const auto& [index, value] : array) {
            found += &array[index] == &value ? 1U : 0U;
        }
    };
    std::size_t counts[3] = {};
    std::vector<std::thread> threads;
    for (std::size_t& found : counts) {
        threads.emplace_back([&count, &found] { count(found); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::size_t found : counts) {
        EXPECT_EQ(found, 600U);
    }
}

} // namespace
