// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

#include <chrono>
#include <cstddef>
#include <map>
#include <mutex>
#include <set>

/// The digests that were accepted and would still be accepted if they came again.
///
/// Bounded: it never forgets a digest early, so that it is full with `limit` of them. Locked.
class TzSoapWsReplays {
public:
    using Time = std::chrono::system_clock::time_point;

    /// What adding a digest showed.
    enum class Result {
        New,      ///< It is remembered now.
        Repeated, ///< It is remembered, or it may be one of those that were forgotten.
        Full,     ///< The limit is reached.
    };

    explicit TzSoapWsReplays(std::size_t limit) : limit_(limit) {}

    /// Remembers `digest` until `end`, after it forgot those whose end is before `now`. Times may
    /// go back: another thread looked at the clock earlier, or somebody put it back. O(log limit),
    /// and O(log limit) for each digest that is forgotten.
    Result add(const TzCString& digest, Time end, Time now);

private:
    std::size_t limit_;
    std::mutex mutex_;
    std::set<TzCString> known_;
    std::multimap<Time, std::set<TzCString>::iterator> ends_;
    Time forgotten_ = Time::min(); // the latest end of a digest that was forgotten
};
