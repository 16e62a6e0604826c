// SPDX-License-Identifier: MIT
#include "TzSoapWsReplays.h"

#include <algorithm>

TzSoapWsReplays::Result TzSoapWsReplays::add(const TzCString& digest, Time end, Time now) {
    const std::lock_guard<std::mutex> guard(mutex_);
    while (!ends_.empty() && ends_.begin()->first < now) {
        forgotten_ = std::max(forgotten_, ends_.begin()->first);
        known_.erase(ends_.begin()->second);
        ends_.erase(ends_.begin());
    }
    if (end <= forgotten_ || known_.contains(digest)) {
        return Result::Repeated;
    }
    if (known_.size() >= limit_) {
        return Result::Full;
    }
    const auto added = known_.insert(digest).first;
    try {
        ends_.emplace(end, added);
    } catch (const std::bad_alloc&) {
        known_.erase(added); // what has no end would stay for ever
        throw;
    }
    return Result::New;
}
