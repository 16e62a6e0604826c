// SPDX-License-Identifier: MIT
#pragma once

#include <tz/thread/TzMutexLock.h>
#include <tz/thread/TzTMonitor.h>

#include <atomic>
#include <forward_list>
#include <memory>

/// The packages that want to know when the headers of a part change. Usable from several threads at
/// once.
class TzMimeHeaderWatchers : private TzTMonitor<TzMutexLock> {
public:
    /// Has the next `raise` set `changed`.
    void add(const std::weak_ptr<std::atomic<bool>>& changed);
    /// Sets the flags of all watchers.
    void raise();

private:
    std::weak_ptr<std::atomic<bool>> first_;
    std::forward_list<std::weak_ptr<std::atomic<bool>>> others_; // most parts have one watcher
};
