// SPDX-License-Identifier: MIT
#include <tz/pointer/TzTCountingBody.h>

#include <gtest/gtest.h>

#include "platform/pointer/Node.h"

TEST(TzTCountingBody, CountsFromZero) {
    Node::Body body;
    EXPECT_EQ(body.referenceCount(), 0U);
    body.addReference();
    body.addReference();
    EXPECT_EQ(body.referenceCount(), 2U);
    EXPECT_FALSE(body.removeReference());
    EXPECT_TRUE(body.removeReference());
    EXPECT_EQ(body.referenceCount(), 0U);
}

TEST(TzTCountingBody, CopiesDoNotTakeTheCount) {
    Node::Body first;
    first.addReference();
    Node::Body second(first);
    EXPECT_EQ(second.referenceCount(), 0U);
    second.addReference();
    second.addReference();
    first = second;
    EXPECT_EQ(first.referenceCount(), 1U);
    EXPECT_EQ(second.referenceCount(), 2U);
}

TEST(TzTCountingBody, DisposeDeletes) {
    const int before = Node::Body::living;
    auto* body = new Node::Body;
    EXPECT_EQ(Node::Body::living, before + 1);
    TzBodyBase::dispose(body);
    EXPECT_EQ(Node::Body::living, before);
}

namespace {

/// Says when it is deleted, and how many deletions are under way then.
class Nested : public TzBodyBase {
public:
    explicit Nested(int& depth, int& deepest) : depth_(depth), deepest_(deepest) {}
    ~Nested() override {
        deepest_ = ++depth_ > deepest_ ? depth_ : deepest_;
        if (below != nullptr) {
            TzBodyBase::dispose(below);
        }
        --depth_;
    }
    Nested* below = nullptr;

private:
    int& depth_;
    int& deepest_;
};

} // namespace

TEST(TzTCountingBody, DeletionsDoNotNest) {
    int depth = 0;
    int deepest = 0;
    auto* top = new Nested(depth, deepest);
    top->below = new Nested(depth, deepest);
    top->below->below = new Nested(depth, deepest);
    TzBodyBase::dispose(top);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(depth, 0);
}
