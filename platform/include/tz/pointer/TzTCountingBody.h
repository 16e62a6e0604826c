// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/thread/TzMutexLock.h>
#include <tz/thread/TzTMonitor.h>

#include <cstdint>

/// Base of bodies that live as long as handles refer to them.
///
/// The count starts at 0 and is guarded by the body's own lock: handles that share a body may be
/// copied and destroyed on different threads. A copied body has a count of its own, 0.
template <typename Lock> class TzTCountingBody : private TzTMonitor<Lock> {
public:
    virtual ~TzTCountingBody() = default;

    /// Counts one more reference.
    void addReference() noexcept {
        const typename TzTMonitor<Lock>::Guard guard(this->lock());
        ++countOrNext_;
    }

    /// Counts one reference less; true when it was the last one and the caller must dispose of the
    /// body.
    [[nodiscard]] bool removeReference() noexcept {
        const typename TzTMonitor<Lock>::Guard guard(this->lock());
        return --countOrNext_ == 0;
    }

    /// Number of references at this moment.
    std::uintptr_t referenceCount() const noexcept {
        const typename TzTMonitor<Lock>::Guard guard(this->lock());
        return countOrNext_;
    }

    /// Deletes a body without references.
    ///
    /// A body that dies while another one is being deleted on this thread waits until that is done,
    /// so structures of any depth go without recursion. Takes no memory.
    static void dispose(TzTCountingBody* body) noexcept;

protected:
    TzTCountingBody() noexcept = default;
    TzTCountingBody(const TzTCountingBody& other) noexcept : TzTMonitor<Lock>(other) {}
    TzTCountingBody& operator=(const TzTCountingBody&) noexcept { return *this; }

private:
    struct Waiting;

    // Counts while the body lives; links to the next one that waits for deletion when it does not.
    std::uintptr_t countOrNext_ = 0;
};

extern template class TZ_PLATFORM_API TzTCountingBody<TzMutexLock>;
