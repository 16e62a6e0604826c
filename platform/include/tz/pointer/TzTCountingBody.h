// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/thread/TzMutexLock.h>
#include <tz/thread/TzTMonitor.h>

#include <cstdint>

template <typename Lock> class TzTRing;
template <typename Body> class TzBodyInBlock;

/// The reference count of a body: a base, so that it stands before the lock, and what a body adds
/// fills the word that the lock begins.
struct TzBodyCount {
    // While the body lives: its count, or the address of its ring's count with the highest bit set.
    // Afterwards: the next body that waits for deletion.
    std::uintptr_t count_ = 0;
};

/// Base of bodies that live as long as handles refer to them.
///
/// The count starts at 0 and is guarded by the body's own lock: handles that share a body may be
/// copied and destroyed on different threads. A copied body starts at 0 again. The count of
/// a body in a ring (`TzBodyRing`) is kept, and guarded, there.
template <typename Lock> class TzTCountingBody : private TzBodyCount, private TzTMonitor<Lock> {
public:
    virtual ~TzTCountingBody() = default;

    /// Counts one more reference.
    void addReference() noexcept {
        std::uintptr_t ring = 0;
        {
            const typename TzTMonitor<Lock>::Guard guard(this->lock());
            if (isCount(++count_)) [[likely]] {
                return;
            }
            ring = --count_;
        }
        addInRing(ring);
    }

    /// Counts one reference less; true when it was the last one and the caller must dispose of the
    /// body.
    [[nodiscard]] bool removeReference() noexcept {
        std::uintptr_t ring = 0;
        {
            const typename TzTMonitor<Lock>::Guard guard(this->lock());
            if (isCount(--count_)) [[likely]] {
                return count_ == 0;
            }
            ring = ++count_;
        }
        return removeInRing(ring);
    }

    /// Number of references at this moment.
    std::uintptr_t referenceCount() const noexcept {
        std::uintptr_t count = 0;
        {
            const typename TzTMonitor<Lock>::Guard guard(this->lock());
            count = count_;
        }
        return isCount(count) ? count : countInRing(count);
    }

    /// Has the processor fetch the memory of the body at `address`; any number will do.
    static void prefetch(std::uintptr_t address) noexcept {
        constexpr std::uintptr_t Line = 64; // of a cache; bodies take two
        // NOLINTBEGIN(performance-no-int-to-ptr): nothing is read through them
        __builtin_prefetch(reinterpret_cast<const void*>(address), 1);
        __builtin_prefetch(reinterpret_cast<const void*>(address + Line), 1);
        // NOLINTEND(performance-no-int-to-ptr)
    }

    /// Deletes a body without references.
    ///
    /// A body that dies while another one is being deleted on this thread waits until that is done,
    /// so structures of any depth go without recursion. Takes no memory.
    static void dispose(TzTCountingBody* body) noexcept;

protected:
    TzTCountingBody() noexcept = default;
    TzTCountingBody(const TzTCountingBody& other) noexcept
        : TzBodyCount(), TzTMonitor<Lock>(other) {}
    TzTCountingBody& operator=(const TzTCountingBody&) noexcept { return *this; }

private:
    friend class TzTRing<Lock>;
    template <typename Body> friend class TzBodyInBlock;
    struct Waiting;

    // No count reaches the highest bit. The address of a ring's count is read under the lock only,
    // because other threads change the field for a moment before they notice the ring.
    static bool isCount(std::uintptr_t count) noexcept {
        return static_cast<std::intptr_t>(count) >= 0;
    }
    static void addInRing(std::uintptr_t ring) noexcept;
    static bool removeInRing(std::uintptr_t ring) noexcept;
    static std::uintptr_t countInRing(std::uintptr_t ring) noexcept;

    std::uint8_t step() const noexcept { return step_; }
    void setStep(std::uint8_t step) noexcept { step_ = step; }

    std::uint8_t step_ = 0; // where a body in a block lies there
};

extern template class TZ_PLATFORM_API TzTCountingBody<TzMutexLock>;
