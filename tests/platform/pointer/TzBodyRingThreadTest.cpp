// SPDX-License-Identifier: MIT
#include <tz/pointer/TzBodyRing.h>

#include <gtest/gtest.h>

#include "platform/pointer/Ring.h"

#include <thread>
#include <vector>

namespace {

/// One handle to each body of a ring of `length`.
std::vector<Node> handlesOfARing(int length) {
    std::vector<Node> handles{ringOf(length)};
    while (handles.size() < static_cast<std::size_t>(length)) {
        handles.push_back(handles.back().child());
    }
    return handles;
}

/// Gives each thread its handle and waits for all of them.
void runOnThreads(std::vector<Node> handles, const auto& action) {
    std::vector<std::thread> threads;
    threads.reserve(handles.size());
    for (Node& handle : handles) {
        threads.emplace_back([mine = std::move(handle), &action]() mutable { action(mine); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace

TEST(TzBodyRingThread, HandlesOfARingAreCopiedAndDestroyedByMany) {
    runOnThreads(handlesOfARing(4), [](Node& mine) {
        for (int i = 0; i < 2000; ++i) {
            Node copy(mine);
            Node next(copy.child());
            copy = next;
            next = std::move(copy);
            const Node last(next.child());
        }
    });
    EXPECT_EQ(Node::Body::living, 0);
}

TEST(TzBodyRingThread, TheLastHandleEndsTheRingOnWhateverThread) {
    for (int round = 0; round < 200; ++round) {
        runOnThreads(handlesOfARing(4), [](Node& mine) { mine = Node(); });
        ASSERT_EQ(Node::Body::living, 0) << round;
    }
}

TEST(TzBodyRingThread, ContentIsChangedWhileOthersLetGo) {
    for (int round = 0; round < 200; ++round) {
        std::vector<Node> handles = handlesOfARing(4);
        // A chain of links that are taken away while the other handles go.
        runOnThreads(std::move(handles), [&round](Node& mine) {
            if (round % 2 == 0) {
                mine.child() = Node();
            } else {
                const Node next = std::move(mine.child());
                mine.other() = Node(new Node::Body);
            }
            mine = Node();
        });
        ASSERT_EQ(Node::Body::living, 0) << round;
    }
}
