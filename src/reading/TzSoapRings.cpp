// SPDX-License-Identifier: MIT
#include "reading/TzSoapRings.h"

#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapDefaultType.h>
#include <soap/TzSoapReferenceToSoapTypeImp.h>
#include <soap/TzSoapSparseArrayImp.h>

#include "model/TzSoapAccess.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

namespace {

/// Only what holds or refers to values can be part of a ring.
bool canBeInRing(const TzSoapTypeImp& value) {
    switch (value.getSoapTypeId()) {
    case TzSoapContentBase::Composite:
    case TzSoapContentBase::Array:
    case TzSoapContentBase::Reference:
        return true;
    default:
        return false;
    }
}

/// Divides values into groups whose members all lead to each other, through what they hold and what
/// they refer to: Tarjan's walk in depth, with a stack of its own.
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

    /// Whether the target of `reference`, which was walked over, leads back to it.
    bool closesRing(TzSoapReferenceToSoapTypeImp& reference) const {
        const auto target = numbers_.find(&TzSoapAccess::body(reference.getSoapReference()));
        return target != numbers_.end() &&
               nodes_[target->second].group == nodes_[numbers_.at(&reference)].group;
    }

private:
    static constexpr std::size_t NoParent = static_cast<std::size_t>(-1);
    static constexpr std::size_t Open = static_cast<std::size_t>(-1);

    struct Node {
        std::size_t lowest; // of the open nodes known to be reached from here
        std::size_t group;  // `Open` while values on the way here may still be reached
        std::size_t parent;
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
            nodes_.push_back({number, Open, step.parent});
            open_.push_back(number);
            steps_.push_back({step.value, number, true});
            enterContent(*step.value, number);
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
        } while (member != number);
    }

    void noteReached(std::size_t from, std::size_t number) {
        if (from != NoParent) {
            nodes_[from].lowest = std::min(nodes_[from].lowest, number);
        }
    }

    void enterContent(TzSoapTypeImp& value, std::size_t number) {
        switch (value.getSoapTypeId()) {
        case TzSoapContentBase::Composite:
            return waitForChildren(static_cast<const TzSoapCompositeTypeImp&>(value), number);
        case TzSoapContentBase::Array:
            return waitForItems(static_cast<const TzSoapArrayTypeImp&>(value), number);
        case TzSoapContentBase::Reference:
            return waitForTarget(static_cast<TzSoapReferenceTypeImp&>(value), number);
        default:
            return;
        }
    }

    void waitForChildren(const TzSoapCompositeTypeImp& composite, std::size_t number) {
        for (auto child = composite.childrenBegin(); child != composite.childrenEnd(); ++child) {
            wait(*child, number);
        }
    }

    void waitForItems(const TzSoapArrayTypeImp& array, std::size_t number) {
        if (array.isSparse()) {
            for (const auto& [index, item] : static_cast<const TzSoapSparseArrayImp&>(array)) {
                wait(item, number);
            }
        } else if (array.isCompact()) {
            for (const TzSoapType& item :
                 static_cast<const TzSoapCompactArrayImp&>(array).storedItems()) {
                wait(item, number);
            }
        }
    }

    void waitForTarget(TzSoapReferenceTypeImp& reference, std::size_t number) {
        if (reference.isSoapReference() && reference.hasReference()) {
            wait(reference.getSoapReference(), number);
        }
    }

    void wait(const TzSoapType& value, std::size_t number) {
        TzSoapTypeImp& body = TzSoapAccess::body(value);
        if (canBeInRing(body)) {
            steps_.push_back({&body, number, false});
        }
    }

    std::unordered_map<const TzSoapTypeImp*, std::size_t> numbers_;
    std::vector<Node> nodes_;
    std::vector<std::size_t> open_; // entered, their groups not known yet
    std::vector<Step> steps_;
};

/// Whether a value may lead to another one, told from its members alone: most targets are structs
/// of simple values.
bool mayLead(const TzSoapTypeImp& value) {
    // Asked for each reference: many of them may point at one large value.
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

std::vector<TzSoapReferenceToSoapTypeImp*>
tzSoapFindRingClosers(const std::vector<TzSoapReferenceToSoapTypeImp*>& resolved) {
    GroupFinder groups;
    std::vector<TzSoapReferenceToSoapTypeImp*> candidates;
    for (TzSoapReferenceToSoapTypeImp* reference : resolved) {
        if (mayLead(TzSoapAccess::body(reference->getSoapReference()))) {
            candidates.push_back(reference);
        }
    }
    for (TzSoapReferenceToSoapTypeImp* reference : candidates) {
        groups.walkFrom(*reference);
    }
    std::vector<TzSoapReferenceToSoapTypeImp*> closers;
    for (TzSoapReferenceToSoapTypeImp* reference : candidates) {
        if (groups.closesRing(*reference)) {
            closers.push_back(reference);
        }
    }
    return closers;
}
