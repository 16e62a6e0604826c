// SPDX-License-Identifier: MIT
#include "reading/TzSoapRings.h"

#include <soap/TzSoapReferenceToSoapTypeImp.h>
#include <tz/pointer/TzBodyRing.h>

#include "model/TzSoapAccess.h"
#include "values/TzSoapHeldValues.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <unordered_map>

namespace {

/// Only what holds or refers to values can be part of a ring.
bool canBeInRing(const TzSoapTypeImp& value) {
    switch (value.getSoapTypeId()) {
    case TzSoapContentBase::Composite:
    case TzSoapContentBase::Array:
    case TzSoapContentBase::Reference:
        return !TzBodyRing::contains(value);
    default:
        return false;
    }
}

/// Divides values into groups whose members all lead to each other, through what they hold and what
/// they refer to: Tarjan's strongly connected components, with a list in place of recursion.
class GroupFinder {
public:
    void walkFrom(TzSoapTypeImp& value) {
        steps_.push_back({&value, NoParent, false});
        while (!steps_.empty()) {
            const Step step = steps_.back();
            steps_.pop_back();
            if (step.leave) {
                leave(step.parent);
            } else {
                enter(step);
            }
        }
    }

    /// Makes a ring of each group whose members hold each other.
    void closeRings() {
        // The members of a group are adjacent.
        for (auto first = found_.begin(); first != found_.end();) {
            const std::size_t group = nodes_[*first].group;
            const auto last = std::find_if(first, found_.end(), [&](std::size_t number) {
                return nodes_[number].group != group;
            });
            closeRing({first, last}, group);
            first = last;
        }
    }

private:
    static constexpr std::size_t NoParent = static_cast<std::size_t>(-1);
    static constexpr std::size_t Open = static_cast<std::size_t>(-1);

    struct Node {
        std::size_t lowest; // of the open nodes known to be reached from here
        std::size_t group;  // `Open` while values on the way here may still be reached
        std::size_t parent;
        TzSoapTypeImp* value;
    };

    /// A value to enter from the node `parent` or, on the way back, the node `parent` to leave.
    struct Step {
        TzSoapTypeImp* value;
        std::size_t parent;
        bool leave;
    };

    void enter(const Step& step) {
        const auto [place, isNew] = numbers_.try_emplace(step.value, nodes_.size());
        const std::size_t number = place->second;
        if (isNew) {
            nodes_.push_back({number, Open, step.parent, step.value});
            open_.push_back(number);
            steps_.push_back({step.value, number, true});
            TzSoapHeldValues::forEachHeld(*step.value,
                                          [&](const TzSoapType& held) { enqueue(held, number); });
        } else if (nodes_[number].group == Open) {
            noteReached(step.parent, number);
        }
    }

    void leave(std::size_t number) {
        const Node node = nodes_[number];
        noteReached(node.parent, node.lowest);
        if (node.lowest != number) {
            return;
        }
        std::size_t member = NoParent;
        do {
            member = open_.back();
            open_.pop_back();
            nodes_[member].group = number;
            found_.push_back(member);
        } while (member != number);
    }

    void noteReached(std::size_t from, std::size_t number) {
        if (from != NoParent) {
            nodes_[from].lowest = std::min(nodes_[from].lowest, number);
        }
    }

    void enqueue(const TzSoapType& value, std::size_t number) {
        TzSoapTypeImp& body = TzSoapAccess::body(value);
        if (canBeInRing(body)) {
            steps_.push_back({&body, number, false});
        }
    }

    /// The group of a value, `Open` for one that was not walked over.
    std::size_t groupOf(const TzSoapTypeImp& value) const {
        const auto number = numbers_.find(&value);
        return number == numbers_.end() ? Open : nodes_[number->second].group;
    }

    void closeRing(std::span<const std::size_t> members, std::size_t group) {
        std::vector<TzBodyBase*> bodies;
        std::vector<TzHandleBase*> links;
        for (const std::size_t member : members) {
            bodies.push_back(nodes_[member].value);
            TzSoapHeldValues::forEachHeld(*nodes_[member].value, [&](TzSoapType& held) {
                if (groupOf(TzSoapAccess::body(held)) == group) {
                    links.push_back(&held);
                }
            });
        }
        // Without a way back the value alone makes a group.
        if (!links.empty()) {
            TzBodyRing::close(bodies, links);
        }
    }

    std::unordered_map<const TzSoapTypeImp*, std::size_t> numbers_;
    std::vector<Node> nodes_;
    std::vector<std::size_t> open_;  // entered, their groups not known yet
    std::vector<std::size_t> found_; // group after group
    std::vector<Step> steps_;
};

/// Whether a value may lead to another one, judging by its members alone: most targets are structs
/// of simple values.
bool mayLead(const TzSoapTypeImp& value) {
    // Called for each reference: many of them may point at one large value.
    constexpr unsigned int FewChildren = 16;
    if (value.getSoapTypeId() != TzSoapContentBase::Composite) {
        return canBeInRing(value);
    }
    const auto& composite = static_cast<const TzSoapCompositeTypeImp&>(value);
    return composite.childCount() > FewChildren ||
           std::any_of(
               composite.childrenBegin(), composite.childrenEnd(),
               [](const TzSoapType& child) { return canBeInRing(TzSoapAccess::body(child)); });
}

} // namespace

void tzSoapCloseRings(const std::vector<TzSoapReferenceToSoapTypeImp*>& resolved) {
    GroupFinder groups;
    for (TzSoapReferenceToSoapTypeImp* reference : resolved) {
        if (mayLead(TzSoapAccess::body(reference->getSoapReference()))) {
            groups.walkFrom(*reference);
        }
    }
    groups.closeRings();
}
