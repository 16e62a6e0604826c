// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/pointer/TzBodyBase.h>

#include <cstdint>
#include <utility>

/// Base of handles: a counted reference to a shared body, or empty.
///
/// Copies share the body and count; moves hand the reference over without touching the count and
/// leave the source without a body. One handle object belongs to one thread at a time; handles that
/// share a body may live on different threads.
class TZ_PLATFORM_API TzHandleBase {
public:
    virtual ~TzHandleBase() { release(place_); }

protected:
    /// A handle to `body`, which may be null; counts one reference.
    explicit TzHandleBase(TzBodyBase* body) noexcept : place_(placeOf(body)) { retain(); }
    TzHandleBase(const TzHandleBase& other) noexcept : place_(other.place_) { retain(); }
    TzHandleBase(TzHandleBase&& other) noexcept : place_(std::exchange(other.place_, NoBody)) {
        leaveRing();
    }
    TzHandleBase& operator=(const TzHandleBase& other) noexcept {
        if (place_ != other.place_) {
            // The new body may hang below the old one, so it is held before the old one goes.
            const Place old = std::exchange(place_, other.place_);
            retain();
            release(old);
        }
        return *this;
    }
    TzHandleBase& operator=(TzHandleBase&& other) noexcept {
        const Place place = std::exchange(other.place_, NoBody);
        const Place old = std::exchange(place_, place);
        leaveRing();
        release(old);
        return *this;
    }

    /// The body; `TzTHRInvalidPointer` "Invalid pointer" for an empty handle.
    TzBodyBase& bodyBase() const { return isBody(place_) ? *bodyAt(place_) : linkedBodyBase(); }
    /// The body, null for an empty handle.
    TzBodyBase* bodyPointer() const noexcept {
        return isBody(place_) ? bodyAt(place_) : linkedBody();
    }
    /// Has the processor fetch the body, which is used soon, while it does something else. Changes
    /// nothing; a handle without a body may do it, too.
    void prefetchBody() const noexcept { TzBodyBase::prefetch(place_); }
    /// Refers to `body` without counting; allowed on a handle without a body.
    void attachBody(TzBodyBase* body) noexcept { place_ = placeOf(body); }
    /// Gives the body up without counting and returns it.
    TzBodyBase* detachBody() noexcept {
        leaveRing();
        const Place place = std::exchange(place_, NoBody);
        return isBody(place) ? bodyAt(place) : nullptr;
    }

private:
    friend class TzBodyRing;

    /// The address of a body; an odd number when this handle does not count: `NoBody`, or, for a
    /// link of a ring, the address of the record that the ring keeps of the body. So one bit
    /// separates what nearly all handles are from everything else.
    using Place = std::uintptr_t;
    static constexpr Place NoBody = 1;

    static Place placeOf(TzBodyBase* body) noexcept {
        return body == nullptr ? NoBody : reinterpret_cast<Place>(body);
    }
    static bool isBody(Place place) noexcept { return (place & 1) == 0; }
    static TzBodyBase* bodyAt(Place place) noexcept {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): it was made of a pointer
        return reinterpret_cast<TzBodyBase*>(place);
    }

    // Counts one reference more to what the place was copied from.
    void retain() noexcept {
        if (isBody(place_)) [[likely]] {
            bodyAt(place_)->addReference();
        } else if (place_ != NoBody) {
            copyLink();
        }
    }
    // The place was taken from another handle: only that one may have been a link.
    void leaveRing() noexcept {
        if (!isBody(place_)) [[unlikely]] {
            if (place_ != NoBody) {
                takeLink();
            }
        }
    }
    static void release(Place place) noexcept {
        if (isBody(place)) [[likely]] {
            TzBodyBase* const body = bodyAt(place);
            if (body->removeReference()) {
                TzBodyBase::dispose(body);
            }
        } else if (place != NoBody) {
            releaseLink(place);
        }
    }

    // What links of a ring do instead.
    void copyLink() noexcept;
    void takeLink() noexcept;
    static void releaseLink(Place link) noexcept;
    TzBodyBase* linkedBody() const noexcept;
    TzBodyBase& linkedBodyBase() const;

    Place place_;
};
