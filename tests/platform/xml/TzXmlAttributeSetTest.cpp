// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlAttributeSet.h>

#include <gtest/gtest.h>

#include "support/AllocationFailure.h"

#include <utility>

namespace {

TzXmlName named(const TzCString& prefix, const TzCString& uri, const TzCString& local) {
    return {local, TzXmlNamespace(prefix, uri)};
}

/// The attributes in order as written, such as `a="1" p:b="2"`.
TzCString written(const TzXmlAttributeSet& set) {
    TzCString text;
    for (const TzXmlAttribute& attribute : set) {
        text += text.empty() ? "" : " ";
        text += attribute.getName().getQualifiedName() + "=\"" + attribute.getValue() + '"';
    }
    return text;
}

TzXmlName numbered(std::size_t i) { return TzXmlName("a" + std::to_string(i)); }

/// A list of `count` attributes a0="0", a1="1" ...
TzXmlAttributeSet listOf(std::size_t count) {
    TzXmlAttributeSet set;
    for (std::size_t i = 0; i < count; ++i) {
        set.add(numbered(i), std::to_string(i));
    }
    return set;
}

/// Whether every attribute is found where it stands and nothing else is found.
void expectFindable(const TzXmlAttributeSet& set) {
    for (const TzXmlAttribute& attribute : set) {
        ASSERT_EQ(set.find(attribute.getName()), &attribute);
        ASSERT_EQ(set.find(attribute), &attribute);
    }
    EXPECT_EQ(set.find(TzXmlName("missing")), set.end());
}

} // namespace

TEST(TzXmlAttributeSet, IsEmptyByDefault) {
    TzXmlAttributeSet set;
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(set.size(), 0U);
    EXPECT_EQ(set.begin(), set.end());
    EXPECT_EQ(set.find(TzXmlName("a")), set.end());
    EXPECT_EQ(std::as_const(set).find(TzXmlName("a")), set.end());
    EXPECT_EQ(set.findDeclaration(""), set.end());
}

TEST(TzXmlAttributeSet, KeepsTheOrderOfAddition) {
    TzXmlAttributeSet set;
    set.add(TzXmlName("z"), "1");
    set.add(TzXmlAttribute(TzXmlName("p:a"), "2"));
    set.add(TzXmlName("m"), "3");
    EXPECT_EQ(written(set), R"(z="1" p:a="2" m="3")");
    EXPECT_EQ(set.size(), 3U);
    EXPECT_FALSE(set.empty());
    EXPECT_EQ(set.end() - set.begin(), 3);
}

TEST(TzXmlAttributeSet, ReplacesAnExistingNameInPlace) {
    TzXmlAttributeSet set;
    set.add(named("p", "urn:a", "x"), "1");
    set.add(TzXmlName("y"), "2");
    set.add(named("q", "urn:a", "x"), "3");
    EXPECT_EQ(written(set), R"(q:x="3" y="2")");
    set.add(named("q", "urn:b", "x"), "4");
    EXPECT_EQ(written(set), R"(q:x="3" y="2" q:x="4")");
}

TEST(TzXmlAttributeSet, FindsByUriAndLocalPart) {
    TzXmlAttributeSet set;
    set.add(named("p", "urn:a", "x"), "1");
    set.add(named("", "", "x"), "2");
    EXPECT_EQ(set.find(named("other", "urn:a", "x"))->getValue(), "1");
    EXPECT_EQ(set.find(TzXmlName("x"))->getValue(), "2");
    EXPECT_EQ(set.find(named("p", "urn:b", "x")), set.end());
    EXPECT_EQ(set.find(TzXmlName("X")), set.end());
}

TEST(TzXmlAttributeSet, FindsByNameAndValue) {
    TzXmlAttributeSet set;
    set.add(TzXmlName("x"), "1");
    const TzXmlAttributeSet& constant = set;
    EXPECT_EQ(set.find(TzXmlAttribute(TzXmlName("x"), "1")), set.begin());
    EXPECT_EQ(constant.find(TzXmlAttribute(TzXmlName("x"), "1")), constant.begin());
    EXPECT_EQ(set.find(TzXmlAttribute(TzXmlName("x"), "2")), set.end());
    EXPECT_EQ(constant.find(TzXmlAttribute(TzXmlName("x"), "2")), constant.end());
    EXPECT_EQ(constant.find(TzXmlAttribute(TzXmlName("y"), "1")), constant.end());
}

TEST(TzXmlAttributeSet, HoldsDeclarationsAsAttributes) {
    TzXmlAttributeSet set;
    set.addDeclaration(TzXmlNamespace("p", "urn:a"));
    set.addDeclaration(TzXmlNamespace("", "urn:d"));
    set.add(TzXmlName("p"), "plain");
    EXPECT_EQ(written(set), R"(xmlns:p="urn:a" xmlns="urn:d" p="plain")");
    EXPECT_EQ(set.findDeclaration("p"), set.begin());
    EXPECT_EQ(std::as_const(set).findDeclaration("p"), set.begin());
    EXPECT_EQ(set.findDeclaration("")->getValue(), "urn:d");
    EXPECT_EQ(set.findDeclaration("q"), set.end());
    EXPECT_EQ(set.find(TzXmlName("p"))->getValue(), "plain");
    EXPECT_TRUE(set.begin()->isNamespaceDeclaration());
}

TEST(TzXmlAttributeSet, ReplacesADeclaration) {
    TzXmlAttributeSet set;
    set.addDeclaration(TzXmlNamespace("p", "urn:a"));
    set.addDeclaration(TzXmlNamespace("q", "urn:a"));
    set.addDeclaration(TzXmlNamespace("p", "urn:b"));
    EXPECT_EQ(written(set), R"(xmlns:p="urn:b" xmlns:q="urn:a")");
}

TEST(TzXmlAttributeSet, TakesAnUnqualifiedXmlnsAsTheDefaultNamespace) {
    TzXmlAttributeSet set;
    set.add(TzXmlName("xmlns"), "urn:d");
    EXPECT_EQ(set.findDeclaration("")->getValue(), "urn:d");
    EXPECT_EQ(set.begin()->getName().getLocalName(), "");
    EXPECT_EQ(set.begin()->getName().getNamespace(), TzXmlNamespace::getXmlns());
    set.addDeclaration(TzXmlNamespace("", "urn:e"));
    EXPECT_EQ(written(set), R"(xmlns="urn:e")");
    set.add(TzXmlAttribute(TzXmlName("xmlns"), "urn:f"));
    EXPECT_EQ(written(set), R"(xmlns="urn:f")");
    // In another namespace it is an attribute like any other.
    set.add(named("p", "urn:a", "xmlns"), "1");
    EXPECT_EQ(set.size(), 2U);
}

TEST(TzXmlAttributeSet, AppendDoesNotLookForTheName) {
    TzXmlAttributeSet set;
    set.append(TzXmlAttribute(TzXmlName("a"), "1"));
    set.append(TzXmlAttribute(TzXmlName("b"), "2"));
    EXPECT_EQ(written(set), R"(a="1" b="2")");
}

TEST(TzXmlAttributeSet, ErasesClosingUp) {
    TzXmlAttributeSet set = listOf(4);
    set.erase(set.begin() + 1);
    EXPECT_EQ(written(set), R"(a0="0" a2="2" a3="3")");
    set.erase(TzXmlName("a3"));
    set.erase(TzXmlName("missing"));
    EXPECT_EQ(written(set), R"(a0="0" a2="2")");
    expectFindable(set);
}

TEST(TzXmlAttributeSet, Clears) {
    TzXmlAttributeSet set = listOf(40);
    set.clear();
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(std::as_const(set).find(TzXmlName("a0")), set.end());
    set.add(TzXmlName("a0"), "new");
    EXPECT_EQ(written(set), R"(a0="new")");
}

TEST(TzXmlAttributeSet, CopiesAreIndependent) {
    for (const std::size_t count : {3U, 50U}) {
        const TzXmlAttributeSet first = listOf(count);
        expectFindable(first);
        TzXmlAttributeSet second(first);
        second.add(TzXmlName("a0"), "changed");
        second.add(TzXmlName("more"), "1");
        EXPECT_EQ(first.begin()->getValue(), "0");
        EXPECT_EQ(first.size(), count);
        EXPECT_EQ(second.size(), count + 1);
        expectFindable(first);
        expectFindable(second);
        second = first;
        EXPECT_EQ(written(second), written(first));
        expectFindable(second);
        const TzXmlAttributeSet& same = second;
        second = same;
        EXPECT_EQ(written(second), written(first));
    }
}

TEST(TzXmlAttributeSet, MovesLeaveTheSourceEmpty) {
    TzXmlAttributeSet first = listOf(50);
    expectFindable(first);
    TzXmlAttributeSet second(std::move(first));
    EXPECT_TRUE(first.empty()); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(std::as_const(first).find(TzXmlName("a0")), first.end());
    EXPECT_EQ(second.size(), 50U);
    expectFindable(second);
    first = std::move(second);
    EXPECT_TRUE(second.empty()); // NOLINT(bugprone-use-after-move)
    expectFindable(first);
    TzXmlAttributeSet& same = first;
    first = std::move(same);
    EXPECT_EQ(first.size(), 50U);
}

TEST(TzXmlAttributeSet, WorksTheSameAroundTheSizeOfTheIndex) {
    for (std::size_t count = 30; count <= 35; ++count) {
        TzXmlAttributeSet set = listOf(count);
        EXPECT_EQ(set.size(), count);
        expectFindable(set);
        set.add(numbered(count / 2), "replaced");
        EXPECT_EQ(set.size(), count);
        EXPECT_EQ((set.begin() + static_cast<std::ptrdiff_t>(count / 2))->getValue(), "replaced");
        set.add(named("p", "urn:a", "a0"), "other URI");
        EXPECT_EQ(set.size(), count + 1);
        expectFindable(set);
        set.erase(set.begin());
        expectFindable(set);
        EXPECT_EQ(std::as_const(set).find(numbered(0)), set.end());
    }
}

TEST(TzXmlAttributeSet, IndexKnowsAppendedAttributes) {
    TzXmlAttributeSet set = listOf(40);
    const TzXmlAttributeSet& constant = set;
    EXPECT_NE(constant.find(TzXmlName("a1")), constant.end());
    for (std::size_t i = 40; i < 200; ++i) {
        set.append(TzXmlAttribute(numbered(i), std::to_string(i)));
        ASSERT_EQ(constant.find(numbered(i)), constant.end() - 1);
    }
    expectFindable(set);
}

TEST(TzXmlAttributeSet, LookUpsShareOneIndex) {
    const TzXmlAttributeSet set = listOf(1000);
    const TzXmlName wanted = numbered(500);
    EXPECT_EQ(set.find(wanted)->getValue(), "500");
    // Looking up takes no memory once the index is there ...
    std::size_t made = madeAllocations();
    for (std::size_t i = 0; i < 100; ++i) {
        EXPECT_EQ(set.find(wanted)->getValue(), "500");
    }
    EXPECT_EQ(madeAllocations(), made);
    // ... and adding extends it instead of making it anew.
    TzXmlAttributeSet grown = listOf(1000);
    const TzXmlAttribute one(TzXmlName("x"), "1");
    const TzXmlAttribute two(TzXmlName("y"), "2");
    grown.add(one);
    made = madeAllocations();
    grown.add(two);
    EXPECT_LE(madeAllocations() - made, 2U);
}

TEST(TzXmlAttributeSet, LookUpsThatMayRenameShareTheIndexToo) {
    TzXmlAttributeSet set(listOf(1000));
    const TzXmlName wanted = numbered(999);
    EXPECT_EQ(set.findDeclaration("p"), set.end());
    const std::size_t made = madeAllocations();
    EXPECT_EQ(set.find(wanted)->getValue(), "999");
    EXPECT_EQ(set.findDeclaration("p"), set.end());
    EXPECT_EQ(madeAllocations(), made);
}

TEST(TzXmlAttributeSet, NoticesRenamingThroughIterators) {
    TzXmlAttributeSet set = listOf(100);
    const TzXmlAttributeSet& constant = set;
    expectFindable(set);
    (set.begin() + 50)->setName(TzXmlName("renamed"));
    EXPECT_EQ(constant.find(TzXmlName("renamed")), constant.begin() + 50);
    EXPECT_EQ(constant.find(numbered(50)), constant.end());
    set.find(TzXmlName("a60"))->getName().setLocalName("again");
    EXPECT_EQ(constant.find(TzXmlName("again")), constant.begin() + 60);
    set.find(TzXmlAttribute(TzXmlName("a70"), "70"))->getName().setNamespace({"p", "urn:a"});
    EXPECT_EQ(constant.find(named("", "urn:a", "a70")), constant.begin() + 70);
    set.addDeclaration(TzXmlNamespace("p", "urn:a"));
    EXPECT_NE(constant.findDeclaration("p"), constant.end());
    set.findDeclaration("p")->getName().setLocalName("q");
    EXPECT_NE(constant.findDeclaration("q"), constant.end());
    EXPECT_EQ(constant.findDeclaration("p"), constant.end());
    expectFindable(set);
}

TEST(TzXmlAttributeSet, TakesAHundredThousandAttributes) {
    constexpr std::size_t Count = 100'000;
    TzXmlAttributeSet set = listOf(Count);
    EXPECT_EQ(set.size(), Count);
    for (std::size_t i = 0; i < Count; i += 97) {
        ASSERT_EQ(std::as_const(set).find(numbered(i)), std::as_const(set).begin() + i);
        set.add(numbered(i), "again");
    }
    EXPECT_EQ(set.size(), Count);
    expectFindable(set);
}

TEST(TzXmlAttributeSet, FailedAllocationsLeaveNothingBehind) {
    EXPECT_GT(failEachAllocation([] {
                  TzXmlAttributeSet set = listOf(40);
                  set.add(TzXmlName("a name that does not fit into a short string"),
                          "a value that does not fit into a short string");
                  set.addDeclaration(TzXmlNamespace("p", "urn:of:more:than:fifteen:characters"));
                  const TzXmlAttributeSet copy(set);
                  set = copy;
                  EXPECT_NE(copy.find(TzXmlName("a1")), copy.end());
                  set.erase(TzXmlName("a1"));
              }),
              100U);
}

TEST(TzXmlAttributeSet, AFailedAdditionLeavesAListThatFindsWhatItHolds) {
    for (const std::size_t count : {2U, 31U, 32U, 64U, 100U}) {
        bool failed = true;
        for (std::size_t nth = 1; failed; ++nth) {
            TzXmlAttributeSet set = listOf(count);
            {
                const AllocationFailure failure(nth);
                try {
                    set.add(TzXmlName("added"), "1");
                } catch (const std::bad_alloc&) { // the list may hold it or not
                }
                failed = failure.happened();
            }
            ASSERT_GE(set.size(), count);
            ASSERT_LE(set.size(), count + 1);
            ASSERT_EQ(set.size() > count, std::as_const(set).find(TzXmlName("added")) != set.end());
            expectFindable(set);
            set.add(TzXmlName("added"), "2");
            ASSERT_EQ(set.size(), count + 1);
            ASSERT_EQ((set.end() - 1)->getValue(), "2");
        }
    }
}
