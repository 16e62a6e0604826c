// SPDX-License-Identifier: MIT
#include <tz/pointer/TzHandleBase.h>

#include <gtest/gtest.h>

#include "platform/pointer/Node.h"

#include <thread>
#include <vector>

namespace {

void runOnThreads(int count, const auto& action) {
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back(action);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace

TEST(TzHandleBaseThread, OneHandleIsCopiedAndDestroyedByMany) {
    {
        const Node node = Node::above(Node(new Node::Body));
        runOnThreads(8, [&] {
            for (int i = 0; i < 5000; ++i) {
                Node copy(node);
                Node other;
                other = copy;
                copy = Node(other.child());
                other = std::move(copy);
            }
        });
        EXPECT_EQ(node.pointer()->referenceCount(), 1U);
        EXPECT_EQ(node.child().pointer()->referenceCount(), 1U);
    }
    EXPECT_EQ(Node::Body::living, 0);
}

TEST(TzHandleBaseThread, TheLastHandleDeletesOnWhateverThread) {
    for (int round = 0; round < 200; ++round) {
        Node first = Node::above(Node(new Node::Body));
        Node second(first);
        std::thread other([mine = std::move(second)]() mutable { mine = Node(); });
        first = Node();
        other.join();
        EXPECT_EQ(Node::Body::living, 0);
    }
}

TEST(TzHandleBaseThread, DeepStructuresDieOnSeveralThreadsAtOnce) {
    runOnThreads(4, [] {
        Node top = Node(new Node::Body);
        for (int i = 0; i < 20000; ++i) {
            top = Node::above(std::move(top));
        }
    });
    EXPECT_EQ(Node::Body::living, 0);
}
