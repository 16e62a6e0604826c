// SPDX-License-Identifier: MIT
#include <tz/pointer/TzHandleBase.h>

#include <gtest/gtest.h>

#include <tz/thread/TzTHRInvalidPointer.h>

#include "platform/pointer/Node.h"
#include "support/AllocationFailure.h"
#include "support/Throws.h"

#include <type_traits>
#include <vector>

namespace {

class HandleBase : public testing::Test {
protected:
    ~HandleBase() override { EXPECT_EQ(Node::Body::living, 0); }

    static Node leaf() { return Node(new Node::Body); }
};

} // namespace

TEST_F(HandleBase, TakesOneReference) {
    const Node node = leaf();
    EXPECT_EQ(node.pointer()->referenceCount(), 1U);
    EXPECT_EQ(Node::Body::living, 1);
}

TEST_F(HandleBase, CopiesShareTheBody) {
    const Node first = leaf();
    {
        const Node second(first);
        EXPECT_EQ(second.pointer(), first.pointer());
        EXPECT_EQ(first.pointer()->referenceCount(), 2U);
    }
    EXPECT_EQ(first.pointer()->referenceCount(), 1U);
}

TEST_F(HandleBase, AssignmentSharesAndReleases) {
    const Node first = leaf();
    Node second = leaf();
    second = first;
    EXPECT_EQ(Node::Body::living, 1);
    EXPECT_EQ(second.pointer(), first.pointer());
    EXPECT_EQ(first.pointer()->referenceCount(), 2U);
}

TEST_F(HandleBase, MovesLeaveTheSourceWithoutABody) {
    Node first = leaf();
    TzBodyBase* body = first.pointer();
    Node second(std::move(first));
    EXPECT_EQ(second.pointer(), body);
    EXPECT_EQ(body->referenceCount(), 1U);
    EXPECT_EQ(first.pointer(), nullptr); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { first.child(); }), "Invalid pointer");
    static_assert(std::is_nothrow_move_constructible_v<Node>);
    static_assert(std::is_nothrow_move_assignable_v<Node>);
}

TEST_F(HandleBase, MoveAssignmentReleasesTheOldBody) {
    Node first = leaf();
    Node second = leaf();
    TzBodyBase* body = first.pointer();
    second = std::move(first);
    EXPECT_EQ(Node::Body::living, 1);
    EXPECT_EQ(second.pointer(), body);
    EXPECT_EQ(body->referenceCount(), 1U);
    EXPECT_EQ(first.pointer(), nullptr); // NOLINT(bugprone-use-after-move)
}

TEST_F(HandleBase, SurvivesSelfAssignment) {
    Node node = leaf();
    TzBodyBase* body = node.pointer();
    Node& same = node;
    node = same;
    EXPECT_EQ(node.pointer(), body);
    EXPECT_EQ(body->referenceCount(), 1U);
    node = std::move(same);
    EXPECT_EQ(node.pointer(), body);
    EXPECT_EQ(body->referenceCount(), 1U);
}

TEST_F(HandleBase, TakesItsOwnChild) {
    Node node = Node::above(Node::above(leaf()));
    TzBodyBase* child = node.child().pointer();
    node = node.child();
    EXPECT_EQ(node.pointer(), child);
    EXPECT_EQ(child->referenceCount(), 1U);
    EXPECT_EQ(Node::Body::living, 2);
}

TEST_F(HandleBase, TakesItsOwnChildByMove) {
    Node node = Node::above(Node::above(leaf()));
    TzBodyBase* child = node.child().pointer();
    node = std::move(node.child());
    EXPECT_EQ(node.pointer(), child);
    EXPECT_EQ(child->referenceCount(), 1U);
    EXPECT_EQ(Node::Body::living, 2);
}

TEST_F(HandleBase, ThrowsWithoutABody) {
    const Node node;
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { node.child(); }), "Invalid pointer");
    const Node copy(node);
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { copy.child(); }), "Invalid pointer");
    Node assigned = leaf();
    assigned = node;
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { assigned.child(); }), "Invalid pointer");
}

TEST_F(HandleBase, BorrowsABodyWithoutCounting) {
    Node::Body body;
    Node node;
    node.attachBody(&body);
    EXPECT_EQ(body.referenceCount(), 0U);
    EXPECT_EQ(node.detachBody(), &body);
    EXPECT_EQ(node.pointer(), nullptr);
}

TEST_F(HandleBase, AMillionLevelsDieWithoutRecursion) {
    constexpr int Levels = 1'000'000;
    Node top = leaf();
    for (int i = 1; i < Levels; ++i) {
        top = Node::above(std::move(top));
    }
    EXPECT_EQ(Node::Body::living, Levels);
    const std::size_t made = madeAllocations();
    top = Node();
    EXPECT_EQ(madeAllocations(), made);
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(HandleBase, SharedPartsOutliveDeepStructures) {
    const Node shared = leaf();
    Node top = Node::above(Node::above(shared));
    EXPECT_EQ(shared.pointer()->referenceCount(), 2U);
    top = Node();
    EXPECT_EQ(shared.pointer()->referenceCount(), 1U);
    EXPECT_EQ(Node::Body::living, 1);
}

TEST_F(HandleBase, GrowingListsMoveHandles) {
    const Node node = leaf();
    std::vector<Node> nodes;
    for (std::size_t i = 0; i < 100; ++i) {
        nodes.push_back(node);
        EXPECT_EQ(node.pointer()->referenceCount(), i + 2);
    }
}
