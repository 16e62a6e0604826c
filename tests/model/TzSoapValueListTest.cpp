// SPDX-License-Identifier: MIT
#include "support/AllocationFailure.h"
#include "support/CataloguedError.h"
#include "support/Named.h"
#include "support/Throws.h"

#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapValueList.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzXmlError.h>

#include <gtest/gtest.h>

#include <iterator>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

namespace {

std::string names(const TzSoapValueList& list) { return namesOf(list.begin(), list.end()); }

TzSoapValueList listOf(std::initializer_list<const char*> values) {
    TzSoapValueList list;
    for (const char* value : values) {
        list.append(named(value));
    }
    return list;
}

TEST(TzSoapValueList, NewListIsEmpty) {
    const TzSoapValueList list;
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(list.begin(), list.end());
}

TEST(TzSoapValueList, ValuesStandWhereTheyWereAdded) {
    TzSoapValueList list;
    list.append(named("b"));
    list.append(named("c"));
    list.prepend(named("a"));
    const auto inserted = list.insert(std::next(list.begin()), named("x"));
    EXPECT_EQ(inserted->getName(), TzXmlName("x"));
    list.insert(list.end(), named("z"));
    EXPECT_EQ(names(list), "a x b c z");
    EXPECT_EQ(list.size(), 5u);
}

TEST(TzSoapValueList, PositionsGoBothWays) {
    TzSoapValueList list = listOf({"a", "b", "c"});
    auto position = list.end();
    EXPECT_EQ((--position)->getName(), TzXmlName("c"));
    EXPECT_EQ((position--)->getName(), TzXmlName("c"));
    EXPECT_EQ((*position).getName(), TzXmlName("b"));
    EXPECT_EQ((position++)->getName(), TzXmlName("b"));
    EXPECT_EQ(++position, list.end());
    EXPECT_EQ(std::distance(list.begin(), list.end()), 3);
}

TEST(TzSoapValueList, APositionMayBecomeOneThatOnlyLooks) {
    TzSoapValueList list = listOf({"a"});
    const TzSoapValueList::const_iterator first = list.begin();
    EXPECT_EQ(first, std::as_const(list).begin());
    EXPECT_EQ(list.begin(), first);
    EXPECT_NE(first, list.end());
    EXPECT_EQ(std::next(first), std::as_const(list).end());
    static_assert(
        !std::is_convertible_v<TzSoapValueList::const_iterator, TzSoapValueList::iterator>);
    static_assert(std::bidirectional_iterator<TzSoapValueList::iterator>);
    static_assert(std::bidirectional_iterator<TzSoapValueList::const_iterator>);
}

TEST(TzSoapValueList, PositionsSurviveWhatHappensElsewhere) {
    TzSoapValueList list = listOf({"a", "b", "c"});
    const auto second = std::next(list.begin());
    list.prepend(named("x"));
    list.remove(TzXmlName("a"));
    list.remove(std::next(second));
    EXPECT_EQ(second->getName(), TzXmlName("b"));
    EXPECT_EQ(std::prev(second)->getName(), TzXmlName("x"));
    EXPECT_EQ(std::next(second), list.end());
    EXPECT_EQ(names(list), "x b");
}

TEST(TzSoapValueList, MovingKeepsPositions) {
    TzSoapValueList list = listOf({"a", "b"});
    const auto first = list.begin();
    TzSoapValueList moved(std::move(list));
    EXPECT_EQ(first, moved.begin());
    EXPECT_EQ(names(moved), "a b");
    // NOLINTNEXTLINE(bugprone-use-after-move): it is empty
    EXPECT_EQ(list.begin(), list.end());
    EXPECT_EQ(list.size(), 0U);
    list.append(named("c"));
    list = std::move(moved);
    EXPECT_EQ(names(list), "a b");
    EXPECT_EQ(first, list.begin());
    EXPECT_EQ(std::next(first, 2), list.end());
    list = TzSoapValueList();
    EXPECT_EQ(list.begin(), list.end());
    EXPECT_EQ(list.size(), 0U);
}

TEST(TzSoapValueList, WhatWasReadAndWhatWasAddedGoTogether) {
    TzSoapMessage message;
    message.extract("<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'><s:Body>"
                    "<l><a>1</a><b>2</b><c>3</c></l></s:Body></s:Envelope>");
    ASSERT_EQ(message.getSoapBody().entryCount(), 1U);
    auto list = tzSoapAs<TzSoapCompositeType>(*message.getSoapBody().entriesBegin());
    list.insertChild(std::next(list.childrenBegin()), named("x"));
    list.removeChild(TzXmlName("b"));
    list.appendChild(named("y"));
    message = TzSoapMessage();
    EXPECT_EQ(namesOf(list.childrenBegin(), list.childrenEnd()), "a x c y");
    list.removeAllChildren(TzXmlName("a"));
    list.removeChild(list.childrenBegin());
    EXPECT_EQ(namesOf(list.childrenBegin(), list.childrenEnd()), "c y");
}

TEST(TzSoapValueList, AValueThatWasReadHoldsBackLittle) {
    std::string text =
        "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'><s:Body><l>";
    for (int i = 0; i < 10000; ++i) {
        text += "<v>1</v>";
    }
    text += "</l></s:Body></s:Envelope>";
    TzSoapMessage().extract(text); // what the first use makes stays
    const std::ptrdiff_t before = liveAllocations();
    TzSoapType kept = named("none");
    const std::ptrdiff_t one = liveAllocations() - before;
    {
        TzSoapMessage message;
        message.extract(text);
        ASSERT_EQ(message.getSoapBody().entryCount(), 1U);
        const auto list = tzSoapAs<TzSoapCompositeType>(*message.getSoapBody().entriesBegin());
        ASSERT_EQ(list.childCount(), 10000U);
        kept = *std::next(list.childrenBegin(), 5000);
    }
    EXPECT_EQ(kept.getName(), TzXmlName("v"));
    // The block of the value, and what its name shares with others.
    EXPECT_LE(liveAllocations() - before, one + 2);
}

TEST(TzSoapValueList, AddedValuesAreShared) {
    TzSoapType value = named("a");
    TzSoapValueList list;
    list.append(value);
    list.prepend(value);
    list.insert(list.end(), value);
    value.setRoot(true);
    for (const TzSoapType& held : list) {
        EXPECT_TRUE(held.getRoot());
    }
}

TEST(TzSoapValueList, FindsTheFirstOfAName) {
    TzSoapValueList list = listOf({"a", "b", "a"});
    EXPECT_EQ(list.find("a"), list.begin());
    EXPECT_EQ(std::as_const(list).find("b"), std::next(std::as_const(list).begin()));
    EXPECT_EQ(list.find("c"), list.end());
    EXPECT_EQ(std::as_const(list).find("c"), std::as_const(list).end());
}

TEST(TzSoapValueList, FindsByUriAndLocalPart) {
    TzSoapValueList list;
    list.append(TzSoapType(TzXmlName("a", TzXmlNamespace("p", "urn:one"))));
    list.append(TzSoapType(TzXmlName("a", TzXmlNamespace("p", "urn:two"))));
    EXPECT_EQ(list.find(TzXmlName("a", TzXmlNamespace("q", "urn:two"))), std::next(list.begin()));
    EXPECT_EQ(list.find("a"), list.end());
}

TEST(TzSoapValueList, RemovesTheFirstOfAName) {
    TzSoapValueList list = listOf({"a", "b", "a"});
    list.remove(TzXmlName("a"));
    EXPECT_EQ(names(list), "b a");
    list.remove(TzXmlName("c"));
    EXPECT_EQ(names(list), "b a");
    EXPECT_EQ(list.size(), 2u);
}

TEST(TzSoapValueList, RemovesAPositionAndReturnsTheNext) {
    TzSoapValueList list = listOf({"a", "b", "c"});
    const auto next = list.remove(std::next(list.begin()));
    EXPECT_EQ(next->getName(), TzXmlName("c"));
    EXPECT_EQ(names(list), "a c");
    EXPECT_EQ(list.remove(next), list.end());
}

TEST(TzSoapValueList, RemovesAllOfANameAndKeepsTheOrder) {
    TzSoapValueList list = listOf({"a", "b", "a", "c", "a"});
    list.removeAll(TzXmlName("a"));
    EXPECT_EQ(names(list), "b c");
    EXPECT_EQ(list.size(), 2u);
    list.removeAll(TzXmlName("x"));
    EXPECT_EQ(names(list), "b c");
}

TEST(TzSoapValueList, TheNameToRemoveMayBeThatOfAValueThatGoes) {
    TzSoapValueList list = listOf({"a", "b", "a", "a"});
    list.removeAll(std::as_const(*list.begin()).getName());
    EXPECT_EQ(names(list), "b");
    list.remove(std::as_const(*list.begin()).getName());
    EXPECT_EQ(list.size(), 0u);
}

TEST(TzSoapValueList, EmptyListStaysEmpty) {
    TzSoapValueList list;
    list.remove(TzXmlName("a"));
    list.removeAll(TzXmlName("a"));
    EXPECT_EQ(list.find("a"), list.end());
    list.clear();
    EXPECT_EQ(list.size(), 0u);
}

TEST(TzSoapValueList, CopyingTheListSharesItsValues) {
    TzSoapValueList list = listOf({"a", "b"});
    const TzSoapValueList copy = list;
    EXPECT_TRUE(copy.sharesValues(list));
    list.clear();
    EXPECT_EQ(names(copy), "a b");
}

TEST(TzSoapValueList, CopiedValuesAreValuesOfTheirOwn) {
    TzSoapValueList list = listOf({"a", "b"});
    const TzSoapValueList copy = list.copyValues();
    EXPECT_EQ(names(copy), "a b");
    EXPECT_FALSE(copy.sharesValues(list));
    list.begin()->setRoot(true);
    EXPECT_FALSE(copy.begin()->getRoot());
}

TEST(TzSoapValueList, SharesValuesPositionByPosition) {
    const TzSoapType a = named("a");
    const TzSoapType b = named("b");
    TzSoapValueList ab;
    ab.append(a);
    ab.append(b);
    TzSoapValueList ba;
    ba.append(b);
    ba.append(a);
    EXPECT_FALSE(ab.sharesValues(ba));
    TzSoapValueList longer = ab;
    longer.append(a);
    EXPECT_FALSE(ab.sharesValues(longer));
    EXPECT_FALSE(longer.sharesValues(ab));
    EXPECT_TRUE(TzSoapValueList().sharesValues(TzSoapValueList()));
}

TEST(TzSoapValueList, SearchingMeetsAValueWithoutABody) {
    TzSoapType moved = named("a");
    const TzSoapType taken = std::move(moved);
    TzSoapValueList list;
    list.append(
        moved); // NOLINT(bugprone-use-after-move): a handle without a body is what is wanted
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { list.find("a"); }), "Invalid pointer");
}

TEST(TzSoapValueList, PlaceholdersCannotBeCopied) {
    TzSoapValueList list;
    list.append(named("a"));
    list.append(TzSoapDefaultType());
    expectCatalogued<TzXmlError>([&] { list.copyValues(); }, 0x7019,
                                 "[BAD_USAGE][Illegal use of this Class/Method "
                                 "\"TzSoapDefaultType\". Check the documentation]");
}

constexpr char Long[] = "a text of more than fifteen letters";

TEST(TzSoapValueList, WithoutMemoryRemovingChangesNothing) {
    for (const bool following : {false, true}) {
        const TzSoapValueList before = [&] {
            TzSoapValueList list = listOf({"a", "b"});
            list.setTextBefore(list.begin(), Long);
            if (following) {
                list.setTextBefore(std::next(list.begin()), Long);
            }
            return list;
        }();
        bool failed = true;
        for (std::size_t nth = 1; failed; ++nth) {
            TzSoapValueList list = before;
            {
                const AllocationFailure failure(nth);
                try {
                    list.remove(list.begin());
                } catch (const std::bad_alloc&) {
                    EXPECT_TRUE(failure.happened());
                }
                failed = failure.happened();
            }
            const std::string first = list.textBefore(list.begin());
            EXPECT_EQ(list.size(), failed ? 2u : 1u);
            EXPECT_EQ(first, failed || !following ? Long : std::string(Long) + Long);
        }
    }
}

TEST(TzSoapValueList, ErasingTakesTheTextBeforeAlong) {
    TzSoapValueList list = listOf({"a", "b"});
    list.setTextBefore(list.begin(), "first");
    list.setTextBefore(std::next(list.begin()), "second");
    const AllocationFailure failure(1, OutOfMemory::FromThenOn);
    const auto next = list.erase(list.begin());
    EXPECT_EQ(next->getName().getLocalName(), "b");
    EXPECT_EQ(list.textBefore(next), "second");
    EXPECT_EQ(list.erase(next), list.end());
    EXPECT_FALSE(list.hasText());
    EXPECT_FALSE(failure.happened());
}

TEST(TzSoapValueList, WhatWasMovedAwayHasNoText) {
    TzSoapValueList list = listOf({"a"});
    list.setTextBefore(list.begin(), "text");
    TzSoapValueList other = listOf({"b"});
    other.setTextBefore(other.end(), "old");
    other = std::move(list);
    EXPECT_EQ(other.textBefore(other.begin()), "text");
    EXPECT_EQ(other.textBefore(other.end()), "");
    EXPECT_FALSE(list.hasText()); // NOLINT(bugprone-use-after-move): that is the question
}

} // namespace
