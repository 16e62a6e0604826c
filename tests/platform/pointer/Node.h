// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzHandleBase.h>

#include <atomic>
#include <utility>

/// A handle to a body that holds another such handle.
class Node : public TzHandleBase {
public:
    class Body;

    Node() : TzHandleBase(nullptr) {}
    explicit Node(Body* body);
    /// A handle to a new body that refers to `child`.
    static Node above(Node child);

    TzBodyBase* pointer() const noexcept { return bodyPointer(); }
    /// The child; throws without a body.
    Node& child() const;
    /// A second child; throws without a body.
    Node& other() const;
    /// The body; throws for an empty handle.
    Body& body() const;

    using TzHandleBase::attachBody;
    using TzHandleBase::detachBody;
};

class Node::Body : public TzBodyBase {
public:
    Body() { ++living; }
    explicit Body(Node below) : child(std::move(below)) { ++living; }
    Body(const Body& from) : TzBodyBase(from), child(from.child), other(from.other) { ++living; }
    Body& operator=(const Body&) = default;
    ~Body() override { --living; }

    Node child;
    Node other;

    static inline std::atomic<int> living{0};
};

inline Node::Node(Body* body) : TzHandleBase(body) {}

inline Node Node::above(Node child) { return Node(new Body(std::move(child))); }

inline Node::Body& Node::body() const { return static_cast<Body&>(bodyBase()); }

inline Node& Node::child() const { return body().child; }

inline Node& Node::other() const { return body().other; }
