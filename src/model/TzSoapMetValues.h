// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapTypeImp.h>

#include <unordered_set>

/// The values that a walk through a message has met, so that it enters each of them once.
///
/// A value that only one handle refers to is met once anyway and is not stored. So the walk must
/// not hold further handles, and the message must not change meanwhile.
class TzSoapMetValues {
public:
    /// Whether this is the first call for `value`.
    bool isNew(const TzSoapTypeImp& value) {
        return value.referenceCount() < 2 || met_.insert(&value).second;
    }

private:
    std::unordered_set<const TzSoapTypeImp*> met_;
};
