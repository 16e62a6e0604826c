// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlNamespaceStack.h>

#include <gtest/gtest.h>

#include "support/AllocationFailure.h"

namespace {

/// The declarations of the innermost scope, such as "p=urn:a q=urn:b".
TzCString written(const TzXmlNamespaceStack& stack) {
    TzCString text;
    for (const TzXmlNamespace& declared : stack) {
        text += (text.empty() ? "" : " ") + declared.getPrefix() + '=' + declared.getUri();
    }
    return text;
}

TzXmlNamespace numbered(std::size_t i, const char* uri = "urn:") {
    return {"p" + std::to_string(i), uri + std::to_string(i)};
}

void addMany(TzXmlNamespaceStack& stack, std::size_t from, std::size_t to,
             const char* uri = "urn:") {
    for (std::size_t i = from; i < to; ++i) {
        stack.add(numbered(i, uri));
    }
}

} // namespace

TEST(TzXmlNamespaceStack, IsEmptyByDefault) {
    TzXmlNamespaceStack stack;
    EXPECT_EQ(stack.depth(), 0U);
    EXPECT_EQ(stack.begin(), stack.end());
    EXPECT_EQ(stack.getURIForPrefix("p"), "");
    EXPECT_EQ(stack.find("p"), nullptr);
    stack.popScope();
    EXPECT_EQ(stack.depth(), 0U);
}

TEST(TzXmlNamespaceStack, FindsTheInnermostDeclaration) {
    TzXmlNamespaceStack stack;
    stack.pushScope();
    stack.add({"p", "urn:outer"});
    stack.add({"q", "urn:q"});
    stack.pushScope();
    stack.add({"p", "urn:inner"});
    EXPECT_EQ(stack.depth(), 2U);
    EXPECT_EQ(stack.getURIForPrefix("p"), "urn:inner");
    EXPECT_EQ(stack.getURIForPrefix("q"), "urn:q");
    EXPECT_EQ(*stack.find("p"), TzXmlNamespace("p", "urn:inner"));
    stack.popScope();
    EXPECT_EQ(stack.getURIForPrefix("p"), "urn:outer");
    stack.popScope();
    EXPECT_EQ(stack.getURIForPrefix("p"), "");
}

TEST(TzXmlNamespaceStack, KnowsTheDefaultNamespace) {
    TzXmlNamespaceStack stack;
    stack.pushScope();
    EXPECT_EQ(stack.find(""), nullptr);
    stack.add({"", "urn:d"});
    EXPECT_EQ(stack.getURIForPrefix(""), "urn:d");
    stack.pushScope();
    stack.add({"", ""});
    EXPECT_EQ(stack.getURIForPrefix(""), "");
    EXPECT_NE(stack.find(""), nullptr);
}

TEST(TzXmlNamespaceStack, IteratesTheInnermostScopeInOrder) {
    TzXmlNamespaceStack stack;
    stack.pushScope();
    stack.add({"z", "urn:1"});
    stack.add({"a", "urn:2"});
    EXPECT_EQ(written(stack), "z=urn:1 a=urn:2");
    stack.pushScope();
    EXPECT_EQ(written(stack), "");
    stack.add({"m", "urn:3"});
    EXPECT_EQ(written(stack), "m=urn:3");
    stack.popScope();
    EXPECT_EQ(written(stack), "z=urn:1 a=urn:2");
}

TEST(TzXmlNamespaceStack, ReplacesWithinAScopeOnly) {
    TzXmlNamespaceStack stack;
    stack.pushScope();
    stack.add({"p", "urn:1"});
    stack.add({"q", "urn:2"});
    stack.add({"p", "urn:3"});
    EXPECT_EQ(written(stack), "p=urn:3 q=urn:2");
    stack.pushScope();
    stack.add({"p", "urn:4"});
    stack.add({"p", "urn:5"});
    EXPECT_EQ(written(stack), "p=urn:5");
    stack.popScope();
    EXPECT_EQ(written(stack), "p=urn:3 q=urn:2");
}

TEST(TzXmlNamespaceStack, OpensAScopeForTheFirstDeclaration) {
    TzXmlNamespaceStack stack;
    stack.add({"p", "urn:1"});
    EXPECT_EQ(stack.depth(), 1U);
    EXPECT_EQ(written(stack), "p=urn:1");
}

TEST(TzXmlNamespaceStack, CopiesHoldAllScopes) {
    for (const std::size_t count : {3U, 50U}) {
        TzXmlNamespaceStack stack;
        stack.pushScope();
        addMany(stack, 0, count);
        stack.pushScope();
        stack.add({"p0", "urn:inner"});
        TzXmlNamespaceStack copy(stack);
        stack.popScope();
        stack.popScope();
        EXPECT_EQ(copy.depth(), 2U);
        EXPECT_EQ(copy.getURIForPrefix("p0"), "urn:inner");
        copy.popScope();
        EXPECT_EQ(copy.getURIForPrefix("p0"), "urn:0");
        EXPECT_EQ(copy.getURIForPrefix("p2"), "urn:2");
        stack = copy;
        EXPECT_EQ(stack.getURIForPrefix("p1"), "urn:1");
    }
}

TEST(TzXmlNamespaceStack, WorksTheSameAroundTheSizeOfTheIndex) {
    for (std::size_t count = 29; count <= 35; ++count) {
        TzXmlNamespaceStack stack;
        stack.pushScope();
        addMany(stack, 0, count);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_EQ(stack.getURIForPrefix("p" + std::to_string(i)), "urn:" + std::to_string(i));
        }
        EXPECT_EQ(stack.find("p"), nullptr);
        for (int round = 0; round < 3; ++round) {
            stack.pushScope();
            addMany(stack, 0, 4, "urn:inner:");
            stack.add({"own", "urn:own"});
            stack.add(numbered(2, "urn:again:"));
            EXPECT_EQ(stack.getURIForPrefix("p0"), "urn:inner:0");
            EXPECT_EQ(stack.getURIForPrefix("p2"), "urn:again:2");
            EXPECT_EQ(stack.getURIForPrefix("p5"), "urn:5");
            EXPECT_EQ(written(stack),
                      "p0=urn:inner:0 p1=urn:inner:1 p2=urn:again:2 p3=urn:inner:3 own=urn:own");
            stack.popScope();
            EXPECT_EQ(stack.getURIForPrefix("p0"), "urn:0");
            EXPECT_EQ(stack.find("own"), nullptr);
        }
        stack.popScope();
        EXPECT_EQ(stack.find("p0"), nullptr);
    }
}

TEST(TzXmlNamespaceStack, TakesAHundredThousandDeclarations) {
    constexpr std::size_t Count = 100'000;
    TzXmlNamespaceStack stack;
    stack.pushScope();
    addMany(stack, 0, Count);
    addMany(stack, 0, Count, "urn:again:");
    EXPECT_EQ(stack.end() - stack.begin(), static_cast<std::ptrdiff_t>(Count));
    for (std::size_t i = 0; i < Count; ++i) {
        ASSERT_EQ(stack.find("p" + std::to_string(i)), &*(stack.begin() + static_cast<int>(i)));
    }
    EXPECT_EQ(stack.getURIForPrefix("p99999"), "urn:again:99999");
    stack.popScope();
    EXPECT_EQ(stack.find("p0"), nullptr);
}

TEST(TzXmlNamespaceStack, LookUpsTakeNoMemory) {
    TzXmlNamespaceStack stack;
    addMany(stack, 0, 1000);
    const std::size_t made = madeAllocations();
    EXPECT_EQ(stack.getURIForPrefix("p500"), "urn:500");
    EXPECT_EQ(stack.getURIForPrefix("unknown"), "");
    EXPECT_EQ(madeAllocations(), made);
}

TEST(TzXmlNamespaceStack, FailedAllocationsLeaveNothingBehind) {
    EXPECT_GT(failEachAllocation([] {
                  TzXmlNamespaceStack stack;
                  stack.pushScope();
                  addMany(stack, 0, 40, "urn:of:more:than:fifteen:characters:");
                  stack.pushScope();
                  addMany(stack, 30, 50);
                  const TzXmlNamespaceStack copy(stack);
                  stack.popScope();
              }),
              100U);
}

TEST(TzXmlNamespaceStack, AFailedAdditionLeavesAStackThatFindsWhatItHolds) {
    for (const std::size_t count : {3U, 31U, 32U, 63U, 64U, 100U}) {
        bool failed = true;
        for (std::size_t nth = 1; failed; ++nth) {
            TzXmlNamespaceStack stack;
            addMany(stack, 0, count);
            {
                const TzXmlNamespace added("added", "urn:added");
                const AllocationFailure failure(nth);
                try {
                    stack.pushScope();
                    stack.add(added);
                } catch (const std::bad_alloc&) { // it may be declared or not
                }
                failed = failure.happened();
            }
            for (const TzXmlNamespace& declared : stack) {
                ASSERT_EQ(stack.find(declared.getPrefix()), &declared);
            }
            ASSERT_EQ(stack.getURIForPrefix("p1"), "urn:1");
            if (stack.depth() == 2) {
                stack.popScope();
            }
            ASSERT_EQ(stack.find("added"), nullptr);
            addMany(stack, count, count + 2);
            ASSERT_EQ(stack.getURIForPrefix("p" + std::to_string(count)),
                      "urn:" + std::to_string(count));
            ASSERT_EQ(stack.getURIForPrefix("p0"), "urn:0");
        }
    }
}
