// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include "model/TzSoapMetValues.h"

#include <set>
#include <unordered_set>
#include <utility>
#include <vector>

class TzSoapReferenceTypeImp;
class TzSoapTypeImp;

/// Where the targets of references stand, in a version that writes them inline: a target that
/// stands nowhere else takes the place of the first reference to it. Each id is written once.
///
/// Knows nothing until values are added. Values wait in a list instead of on the stack, so their
/// depth does not matter; all work together is O(values * log ids).
class TzSoapInlineTargets {
public:
    /// Whether no value was added.
    bool isEmpty() const noexcept { return isEmpty_; }
    /// `value` is to be written with all that it holds, before any of it is written.
    void add(TzSoapTypeImp& value);
    /// Whether a reference names a value by this id, the unqualified one: a program set it, because
    /// what is read has encoded ones. Any other unqualified "id" is the application's.
    bool isReferredTo(const TzCString& id) const { return referred_.contains({false, id}); }
    /// Whether the target of `reference` has to be written in its place; from then on it stands
    /// there with all that it holds.
    bool takePlace(TzSoapReferenceTypeImp& reference);
    /// Whether `value`, which is about to be written, has an id that references name and that is
    /// written already.
    bool isRepeated(const TzSoapTypeImp& value);
    /// Forgets everything.
    void clear();

private:
    /// An id, and whether it is encoded or unqualified.
    using Id = std::pair<bool, TzCString>;

    static Id idOf(const TzSoapTypeImp& value);
    void settle(TzSoapTypeImp& value);
    void findReferences(TzSoapTypeImp& value);

    bool isEmpty_ = true;
    std::set<Id> settled_;  // of values that stand somewhere
    std::set<Id> referred_; // that references name
    std::set<Id> written_;  // those of them that are written
    std::set<const TzSoapTypeImp*> placedWithoutId_;
    TzSoapMetValues standing_;
    TzSoapMetValues searched_;
    std::unordered_set<const TzSoapTypeImp*> found_; // targets of references
    std::vector<TzSoapTypeImp*> waiting_;
};
