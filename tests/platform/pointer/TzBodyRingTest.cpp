// SPDX-License-Identifier: MIT
#include <tz/pointer/TzBodyRing.h>

#include <gtest/gtest.h>

#include "platform/pointer/Ring.h"
#include "support/AllocationFailure.h"

#include <utility>

namespace {

class BodyRing : public testing::Test {
protected:
    ~BodyRing() override { EXPECT_EQ(Node::Body::living, 0); }
};

} // namespace

TEST_F(BodyRing, GoesWithTheLastHandleThatIsNoLink) {
    Node first = ringOf(3);
    EXPECT_EQ(Node::Body::living, 3);
    Node second = first.child();
    first = Node();
    EXPECT_EQ(Node::Body::living, 3);
    second = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, ABodyOfItsOwnIsARing) {
    Node node = ringOf(1);
    EXPECT_EQ(node.pointer(), node.child().pointer());
    node = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, KnowsItsBodies) {
    const Node inside = ringOf(2);
    const Node outside(new Node::Body);
    EXPECT_TRUE(TzBodyRing::contains(*inside.pointer()));
    EXPECT_TRUE(TzBodyRing::contains(*inside.child().pointer()));
    EXPECT_FALSE(TzBodyRing::contains(*outside.pointer()));
}

TEST_F(BodyRing, AllHandlesAreCounted) {
    const Node node = ringOf(2);
    EXPECT_EQ(node.pointer()->referenceCount(), 2U);
    EXPECT_EQ(node.child().pointer()->referenceCount(), 1U);
    const Node other = node.child();
    EXPECT_EQ(node.child().pointer()->referenceCount(), 2U);
}

TEST_F(BodyRing, EveryBodyKeepsAll) {
    for (int kept = 0; kept < 4; ++kept) {
        Node node = ringOf(4);
        for (int i = 0; i < kept; ++i) {
            node = Node(node.child());
        }
        const TzBodyBase* body = node.pointer();
        for (int i = 0; i < 4; ++i) {
            node = Node(node.child());
        }
        EXPECT_EQ(node.pointer(), body);
        EXPECT_EQ(Node::Body::living, 4);
        node = Node();
        EXPECT_EQ(Node::Body::living, 0) << kept;
    }
}

TEST_F(BodyRing, WhatTheRingHoldsGoesWithIt) {
    Node node = ringOf(2);
    node.other() = Node::above(Node(new Node::Body));
    EXPECT_EQ(Node::Body::living, 4);
    node = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, WhatHoldsTheRingKeepsIt) {
    Node holder = Node::above(ringOf(2));
    EXPECT_EQ(Node::Body::living, 3);
    holder = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, ALinkThatIsReplacedEndsTheCircle) {
    Node first = ringOf(2);
    Node second = first.child();
    second.child() = Node();
    EXPECT_EQ(Node::Body::living, 2);
    first = Node();
    EXPECT_EQ(Node::Body::living, 1) << "nothing refers to the first any more";
    second = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, WhatIsMovedOutOfALinkIsAHandle) {
    Node first = ringOf(2);
    Node second = std::move(first.child());
    EXPECT_EQ(first.child().pointer(), nullptr);
    first = Node();
    EXPECT_EQ(Node::Body::living, 2) << "the second refers to the first";
    second = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, WhatIsDetachedFromALinkIsCounted) {
    Node first = ringOf(2);
    TzBodyBase* body = first.child().detachBody();
    EXPECT_EQ(body->referenceCount(), 1U);
    Node second;
    second.attachBody(body);
    first = Node();
    EXPECT_EQ(Node::Body::living, 2);
    second = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, ALinkAssignedToItselfIsOneStill) {
    Node first = ringOf(2);
    Node& link = first.child();
    Node& same = link;
    link = same;
    first = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, ACopiedBodyIsInNoRing) {
    Node first = ringOf(2);
    Node copy(new Node::Body(first.body()));
    EXPECT_FALSE(TzBodyRing::contains(*copy.pointer()));
    EXPECT_EQ(copy.child().pointer(), first.child().pointer());
    first = Node();
    EXPECT_EQ(Node::Body::living, 3);
    copy = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, AnUnheldRingGoesAtOnce) {
    auto* body = new Node::Body;
    const Node link(body);
    body->child = link;
    TzBodyBase* const bodies[] = {body};
    TzHandleBase* const links[] = {&body->child};
    TzBodyRing::close(bodies, links);
    EXPECT_EQ(Node::Body::living, 1);
}

TEST_F(BodyRing, AHandleThatJoinsIsALink) {
    Node first = ringOf(3);
    first.other() = first.child().child();
    TzBodyRing::join(*first.pointer(), first.other());
    EXPECT_EQ(first.child().child().pointer()->referenceCount(), 2U);
    first = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, WhatLeadsElsewhereDoesNotJoin) {
    Node first = ringOf(2);
    Node second = ringOf(2);
    first.other() = second;
    TzBodyRing::join(*first.pointer(), first.other());
    second.other() = Node(new Node::Body);
    TzBodyRing::join(*second.pointer(), second.other());
    TzBodyRing::join(*second.other().pointer(), second.other().other());
    first = Node();
    EXPECT_EQ(Node::Body::living, 3);
    second = Node();
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, TheOnlyHandleOfARingDoesNotJoin) {
    Node first = ringOf(2);
    Node::Body& body = first.body();
    body.other = std::move(first); // nothing else keeps the ring now
    TzBodyRing::join(body, body.other);
    EXPECT_EQ(Node::Body::living, 2);
    const Node last = std::move(body.other);
}

TEST_F(BodyRing, ALongRingGoesWithoutRecursionAndMemory) {
    constexpr int Length = 200'000;
    Node node = ringOf(Length);
    EXPECT_EQ(Node::Body::living, Length);
    const std::size_t made = madeAllocations();
    node = Node();
    EXPECT_EQ(madeAllocations(), made);
    EXPECT_EQ(Node::Body::living, 0);
}

TEST_F(BodyRing, GivesEverythingBack) {
    const std::ptrdiff_t before = liveAllocations();
    ringOf(10);
    EXPECT_EQ(liveAllocations(), before);
    {
        Node first = ringOf(10);
        Node second = std::move(first.child());
        first = Node();
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST_F(BodyRing, WithoutMemoryNothingIsClosed) {
    Node first(new Node::Body);
    Node second(new Node::Body);
    first.child() = second;
    second.child() = first;
    TzBodyBase* const bodies[] = {first.pointer(), second.pointer()};
    TzHandleBase* const links[] = {&first.child(), &second.child()};
    for (const std::size_t nth : {1U, 2U}) {
        const AllocationFailure failure(nth);
        EXPECT_THROW(TzBodyRing::close(bodies, links), std::bad_alloc);
    }
    EXPECT_FALSE(TzBodyRing::contains(*first.pointer()));
    EXPECT_EQ(second.pointer()->referenceCount(), 2U);
    first.child() = Node();
}
