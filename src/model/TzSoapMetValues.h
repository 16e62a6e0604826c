// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapTypeImp.h>

#include <unordered_set>

/// The values that a walk through a message has met, for it to go into each of them once.
///
/// A value that only one handle refers to is met once anyway and costs nothing. So the walk must
/// not hold handles of its own, and nobody may change the message meanwhile.
class TzSoapMetValues {
public:
    /// Whether `value` is met for the first time.
    bool isNew(const TzSoapTypeImp& value) {
        return value.referenceCount() < 2 || met_.insert(&value).second;
    }

private:
    std::unordered_set<const TzSoapTypeImp*> met_;
};
