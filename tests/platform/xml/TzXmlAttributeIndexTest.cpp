// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlAttributeSet.h>

#include "support/AllocationFailure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

TzXmlName named(const std::string& prefix, const std::string& uri, const std::string& localName) {
    return {localName, TzXmlNamespace(prefix, uri)};
}

TzXmlName numbered(std::size_t number) { return {"a" + std::to_string(number), {}}; }

TzXmlAttributeSet listOf(std::size_t count) {
    TzXmlAttributeSet set;
    for (std::size_t i = 0; i < count; ++i) {
        set.append(TzXmlAttribute(numbered(i), std::to_string(i)));
    }
    return set;
}

std::string valueOf(const TzXmlAttributeSet& set, const TzXmlName& name) {
    const auto* found = set.find(name);
    return found == set.end() ? "-" : found->getValue();
}

/// Sizes on both sides of the one from which look-ups have an index.
class TzXmlAttributeIndexes : public testing::TestWithParam<std::size_t> {
protected:
    TzXmlAttributeSet set = listOf(GetParam());
    const TzXmlAttributeSet& constant = set;
};

INSTANTIATE_TEST_SUITE_P(Sizes, TzXmlAttributeIndexes, testing::Values(2U, 31U, 32U, 33U, 200U));

TEST_P(TzXmlAttributeIndexes, UnboundPrefixesTellNamesApart) {
    set.add(TzXmlName("p:x"), "1");
    set.add(TzXmlName("q:x"), "2");
    set.add(TzXmlName("x"), "3");
    EXPECT_EQ(set.size(), GetParam() + 3);
    EXPECT_EQ(valueOf(set, TzXmlName("p:x")), "1");
    EXPECT_EQ(valueOf(set, TzXmlName("q:x")), "2");
    EXPECT_EQ(valueOf(set, TzXmlName("x")), "3");
    EXPECT_EQ(valueOf(set, TzXmlName("r:x")), "1") << "the first of the name";
    set.add(TzXmlName("q:x"), "4");
    EXPECT_EQ(set.size(), GetParam() + 3);
    EXPECT_EQ(valueOf(set, TzXmlName("q:x")), "4");
    set.erase(TzXmlName("p:x"));
    EXPECT_EQ(valueOf(set, TzXmlName("p:x")), "4") << "the first that is left";
}

TEST_P(TzXmlAttributeIndexes, AnUnboundPrefixIsFoundWithoutIt) {
    set.add(TzXmlName("p:x"), "1");
    EXPECT_EQ(valueOf(set, TzXmlName("x")), "1");
    set.add(TzXmlName("x"), "2");
    EXPECT_EQ(set.size(), GetParam() + 2);
    EXPECT_EQ(valueOf(set, TzXmlName("x")), "2");
}

TEST_P(TzXmlAttributeIndexes, BoundPrefixesDoNotMatter) {
    set.add(named("p", "urn:x", "x"), "1");
    set.add(named("q", "urn:x", "x"), "2");
    set.add(named("", "urn:y", "x"), "3");
    EXPECT_EQ(set.size(), GetParam() + 2);
    EXPECT_EQ(valueOf(set, named("r", "urn:x", "x")), "2");
    EXPECT_EQ((set.end() - 2)->getName().getPrefix(), "q");
    EXPECT_EQ(valueOf(set, TzXmlName("x")), "-");
}

TEST_P(TzXmlAttributeIndexes, RenamingThroughAnOlderPositionIsSeen) {
    TzXmlAttribute* first = set.begin();
    TzXmlAttribute* last = set.find(numbered(GetParam() - 1));
    EXPECT_EQ(valueOf(set, numbered(0)), "0");
    first->setName(TzXmlName("renamed"));
    last->getName().setLocalName("too");
    EXPECT_EQ(valueOf(set, TzXmlName("renamed")), "0");
    EXPECT_EQ(valueOf(set, TzXmlName("too")), std::to_string(GetParam() - 1));
    EXPECT_EQ(valueOf(set, numbered(0)), "-");
    set.add(TzXmlName("renamed"), "new");
    EXPECT_EQ(set.size(), GetParam());
    *first = TzXmlAttribute(TzXmlName("again"), "x");
    EXPECT_EQ(valueOf(set, TzXmlName("again")), "x");
    EXPECT_EQ(valueOf(set, TzXmlName("renamed")), "-");
}

TEST_P(TzXmlAttributeIndexes, PrefixesAndNamespacesMayChangeInPlace) {
    EXPECT_EQ(valueOf(set, numbered(0)), "0");
    TzXmlAttribute* first = set.begin();
    first->getName().setPrefix("p");
    set.add(numbered(0), "plain");
    EXPECT_EQ(set.size(), GetParam() + 1);
    EXPECT_EQ(valueOf(set, TzXmlName("p:a0")), "0");
    set.begin()->getName().setNamespace(TzXmlNamespace("p", "urn:x"));
    EXPECT_EQ(valueOf(set, TzXmlName("p:a0")), "plain");
    EXPECT_EQ(valueOf(set, named("", "urn:x", "a0")), "0");
}

TEST_P(TzXmlAttributeIndexes, AttributesMayChangePlaces) {
    EXPECT_EQ(valueOf(set, numbered(0)), "0");
    std::swap(*set.begin(), *(set.end() - 1));
    EXPECT_EQ(set.find(numbered(0)), set.end() - 1);
    std::reverse(set.begin(), set.end());
    for (std::size_t i = 0; i < GetParam(); ++i) {
        ASSERT_EQ(valueOf(set, numbered(i)), std::to_string(i));
    }
    const TzXmlAttribute taken = std::move(*set.begin());
    EXPECT_EQ(valueOf(set, std::as_const(taken).getName()), "-");
}

TEST_P(TzXmlAttributeIndexes, ErasedAttributesAreNotFound) {
    EXPECT_EQ(valueOf(set, numbered(0)), "0");
    for (std::size_t i = 0; i < GetParam(); i += 2) {
        set.erase(numbered(i));
        ASSERT_EQ(valueOf(set, numbered(i)), "-");
    }
    for (std::size_t i = 1; i < GetParam(); i += 2) {
        ASSERT_EQ(valueOf(set, numbered(i)), std::to_string(i));
    }
    set.add(numbered(0), "new");
    EXPECT_EQ(set.find(numbered(0)), set.end() - 1);
}

TEST_P(TzXmlAttributeIndexes, TheFirstOfEqualNamesIsFound) {
    EXPECT_EQ(valueOf(set, numbered(1)), "1");
    set.begin()->setName(numbered(1));
    EXPECT_EQ(valueOf(set, numbered(1)), "0");
    set.append(TzXmlAttribute(numbered(1), "last"));
    EXPECT_EQ(valueOf(set, numbered(1)), "0");
    set.begin()->setName(numbered(0));
    EXPECT_EQ(valueOf(set, numbered(1)), "1");
    set.erase(numbered(1));
    EXPECT_EQ(valueOf(set, numbered(1)), "last");
}

TEST_P(TzXmlAttributeIndexes, CopiesAndMovedListsKnowTheirOwn) {
    EXPECT_EQ(valueOf(set, numbered(1)), "1");
    TzXmlAttributeSet copy = set;
    copy.begin()->setName(TzXmlName("copied"));
    EXPECT_EQ(valueOf(set, numbered(0)), "0");
    EXPECT_EQ(valueOf(copy, TzXmlName("copied")), "0");
    TzXmlAttribute* first = set.begin();
    TzXmlAttributeSet moved = std::move(set);
    first->setName(TzXmlName("moved"));
    EXPECT_EQ(valueOf(moved, TzXmlName("moved")), "0");
    TzXmlAttribute outside = *moved.begin();
    outside.setName(numbered(0));
    EXPECT_EQ(valueOf(moved, TzXmlName("moved")), "0");
}

/// Allocations of adding so many attributes and looking each up by a list that may change.
std::size_t additionsWithLookUps(std::size_t count) {
    TzXmlAttributeSet set;
    const std::size_t before = madeAllocations();
    for (std::size_t i = 0; i < count; ++i) {
        const TzXmlName name("a" + std::to_string(i), {});
        set.add(name, "x");
        EXPECT_EQ(set.find(name), set.end() - 1);
    }
    return madeAllocations() - before;
}

TEST(TzXmlAttributeIndex, AddingAndLookingUpIsLinear) {
    const std::size_t once = additionsWithLookUps(1000);
    EXPECT_LT(additionsWithLookUps(4000), 5 * once);
    EXPECT_LT(once, 6000U);
}

TEST(TzXmlAttributeIndex, LookingThroughNamesBetweenLookUpsMakesNoIndexAnew) {
    TzXmlAttributeSet set = listOf(1000);
    const TzXmlName wanted = numbered(999);
    (void)set.find(wanted);
    for (TzXmlAttribute& attribute : set) {
        EXPECT_FALSE(attribute.getName().isEmpty());
    }
    (void)set.find(wanted);
    const std::size_t before = madeAllocations();
    for (TzXmlAttribute* at = set.begin(); at != set.end(); ++at) {
        EXPECT_FALSE(at->getName().isEmpty());
        EXPECT_EQ(set.find(wanted), set.end() - 1);
    }
    EXPECT_EQ(madeAllocations(), before);
}

TEST(TzXmlAttributeIndex, ErasingOneByOneMakesNoIndexAnew) {
    TzXmlAttributeSet set = listOf(2000);
    (void)set.find(numbered(0));
    const std::size_t before = madeAllocations();
    for (std::size_t i = 0; i < 1900; ++i) {
        set.erase(numbered(i));
    }
    EXPECT_EQ(set.size(), 100U);
    EXPECT_LT(madeAllocations() - before, 3 * 2000U);
}

TEST(TzXmlAttributeIndex, ErasingTheLastOfManyIsNoWalkOverTheOthers) {
    TzXmlAttributeSet set = listOf(200000);
    (void)set.find(numbered(0));
    while (set.size() > 1) {
        set.erase(set.end() - 1); // a walk for each of them would take minutes
    }
    EXPECT_EQ(valueOf(set, numbered(0)), "0");
}

TEST(TzXmlAttributeIndex, AddingAndErasingForLongTakesNoMoreMemory) {
    TzXmlAttributeSet set = listOf(40);
    const std::ptrdiff_t before = liveAllocations();
    for (std::size_t i = 0; i < 10000; ++i) {
        set.add(TzXmlName("x"), "1");
        set.erase(TzXmlName("x"));
    }
    EXPECT_LT(liveAllocations() - before, 200);
    EXPECT_EQ(valueOf(set, numbered(39)), "39");
}

TEST(TzXmlAttributeIndex, ManyUnboundPrefixesOfOneName) {
    TzXmlAttributeSet set;
    for (std::size_t i = 0; i < 5000; ++i) {
        set.add(TzXmlName("p" + std::to_string(i) + ":x"), std::to_string(i));
    }
    EXPECT_EQ(set.size(), 5000U);
    for (std::size_t i = 0; i < 5000; ++i) {
        ASSERT_EQ(valueOf(set, TzXmlName("p" + std::to_string(i) + ":x")), std::to_string(i));
    }
    EXPECT_EQ(valueOf(set, TzXmlName("x")), "0");
}

TEST(TzXmlAttributeIndex, NoMemoryChangesNothing) {
    TzXmlAttributeSet set = listOf(100);
    bool failed = true;
    for (std::size_t nth = 1; failed; ++nth) {
        TzXmlAttributeSet tested = set;
        TzXmlAttribute* fifth = tested.begin() + 5;
        const std::string fresh = "renamed to a name that is not short";
        {
            const AllocationFailure failure(nth);
            try {
                (void)tested.find(numbered(50));
                fifth->setName(TzXmlName(fresh));
                (void)tested.find(numbered(50));
                tested.add(TzXmlName("x"), "1");
            } catch (const std::bad_alloc&) { // looked at below
            }
            failed = failure.happened();
        }
        const bool renamed = tested.begin()[5].getName() == TzXmlName(fresh);
        ASSERT_EQ(valueOf(tested, numbered(50)), "50") << nth;
        ASSERT_EQ(valueOf(tested, TzXmlName(fresh)), renamed ? "5" : "-") << nth;
        ASSERT_EQ(valueOf(tested, TzXmlName("x")), tested.size() == 101 ? "1" : "-") << nth;
        tested.erase(numbered(0));
        ASSERT_EQ(valueOf(tested, numbered(99)), "99") << nth;
    }
}

TEST(TzXmlAttributeIndexThread, ConstLookUpsOnSeveralThreads) {
    const TzXmlAttributeSet set = listOf(200);
    const auto lookUp = [&set](std::size_t& found) {
        for (std::size_t i = 0; i < 250; ++i) {
            found += set.find(numbered(i)) != set.end() ? 1U : 0U;
        }
        const TzXmlAttributeSet copy = set;
        found += copy.size();
    };
    std::size_t counts[3] = {};
    std::vector<std::thread> threads;
    for (std::size_t& found : counts) {
        threads.emplace_back([&lookUp, &found] { lookUp(found); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::size_t found : counts) {
        EXPECT_EQ(found, 400U);
    }
}

} // namespace
