// SPDX-License-Identifier: MIT
#include "support/AllocationFailure.h"

#include <tz/pointer/TzBodyInBlock.h>

#include <gtest/gtest.h>

#include "platform/pointer/Node.h"

#include <thread>
#include <utility>
#include <vector>

namespace {

using Placed = TzBodyInBlock<Node::Body>;

Node nodeIn(TzBlocks& blocks) { return Node(Placed::make(blocks)); }

} // namespace

TEST(TzBodyInBlock, IsABody) {
    TzBlocks blocks;
    const int before = Node::Body::living;
    {
        const Node node = nodeIn(blocks);
        const Node copy(node); // NOLINT(performance-unnecessary-copy-initialization): counts
        EXPECT_EQ(node.pointer()->referenceCount(), 2U);
        EXPECT_EQ(Node::Body::living, before + 1);
        EXPECT_NE(dynamic_cast<Node::Body*>(node.pointer()), nullptr);
    }
    EXPECT_EQ(Node::Body::living, before);
}

TEST(TzBodyInBlock, TakesNoMemoryOfItsOwn) {
    TzBlocks blocks;
    const Node first = nodeIn(blocks);
    const std::size_t before = madeAllocations();
    const Node second = nodeIn(blocks);
    EXPECT_EQ(madeAllocations(), before);
}

TEST(TzBodyInBlock, OutlivesTheMaker) {
    const std::ptrdiff_t before = liveAllocations();
    Node kept;
    {
        TzBlocks blocks;
        for (int i = 0; i < 1000; ++i) {
            kept = nodeIn(blocks);
        }
    }
    EXPECT_EQ(kept.pointer()->referenceCount(), 1U);
    EXPECT_EQ(liveAllocations(), before + 1);
    kept = Node();
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TzBodyInBlock, ACopyIsABodyOfItsOwn) {
    const std::ptrdiff_t before = liveAllocations();
    Node copy;
    {
        TzBlocks blocks;
        const Node node = nodeIn(blocks);
        copy = Node(new Node::Body(node.body()));
    }
    EXPECT_EQ(liveAllocations(), before + 1);
    copy = Node();
    EXPECT_EQ(liveAllocations(), before);
}

TEST(TzBodyInBlock, DeepStructuresEndWithoutRecursion) {
    const int before = Node::Body::living;
    {
        TzBlocks blocks;
        Node top = nodeIn(blocks);
        for (int i = 0; i < 100000; ++i) {
            Node above = nodeIn(blocks);
            above.child() = std::move(top);
            top = std::move(above);
        }
    }
    EXPECT_EQ(Node::Body::living, before);
}

TEST(TzBodyInBlock, EndsOnWhateverThread) {
    for (int round = 0; round < 100; ++round) {
        std::vector<Node> nodes;
        {
            TzBlocks blocks;
            for (int i = 0; i < 40; ++i) {
                nodes.push_back(nodeIn(blocks));
            }
        }
        std::thread other([mine = std::vector<Node>(nodes.begin(), nodes.begin() + 20)]() mutable {
            mine.clear();
        });
        nodes.clear();
        other.join();
        EXPECT_EQ(Node::Body::living, 0);
    }
}

TEST(TzBodyInBlock, WithoutMemoryNothingIsLeftBehind) {
    EXPECT_EQ(failEachAllocation([] {
                  TzBlocks blocks;
                  const Node node = nodeIn(blocks);
              }),
              1U);
}
