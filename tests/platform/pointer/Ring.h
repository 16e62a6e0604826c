// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzBodyRing.h>

#include "platform/pointer/Node.h"

#include <vector>

/// A handle to the first of `length` bodies, each the child of the one before, the first of the
/// last.
inline Node ringOf(int length) {
    std::vector<Node> nodes;
    std::vector<TzBodyBase*> bodies;
    std::vector<TzHandleBase*> links;
    for (int i = 0; i < length; ++i) {
        nodes.emplace_back(new Node::Body);
    }
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        nodes[i].child() = nodes[(i + 1) % nodes.size()];
        bodies.push_back(nodes[i].pointer());
        links.push_back(&nodes[i].child());
    }
    TzBodyRing::close(bodies, links);
    return nodes.front();
}
