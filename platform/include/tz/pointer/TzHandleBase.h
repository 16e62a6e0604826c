// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/pointer/TzBodyBase.h>

#include <cstdint>
#include <utility>

/// Base of handles: a counted reference to a shared body, possibly to none.
///
/// Copies share the body and count; moves hand the reference over without touching the count and
/// leave the source without a body. One handle object belongs to one thread at a time; handles that
/// share a body may live on different threads.
class TZ_PLATFORM_API TzHandleBase {
public:
    virtual ~TzHandleBase() { release(place_); }

protected:
    /// A handle to `body`, which may be null; counts one reference.
    explicit TzHandleBase(TzBodyBase* body) noexcept : place_(placeOf(body)) {
        if (isBody(place_)) [[likely]] {
            body->addReference();
        }
    }
    TzHandleBase(const TzHandleBase& other) noexcept : place_(other.share()) {}
    TzHandleBase(TzHandleBase&& other) noexcept : place_(other.give()) {}
    TzHandleBase& operator=(const TzHandleBase& other) noexcept {
        if (place_ != other.place_) {
            // The new body may hang below the old one, so it is held before the old one goes.
            const Place place = other.share();
            release(std::exchange(place_, place));
        }
        return *this;
    }
    TzHandleBase& operator=(TzHandleBase&& other) noexcept {
        const Place place = other.give();
        release(std::exchange(place_, place));
        return *this;
    }

    /// The body; `TzTHRInvalidPointer` "Invalid pointer" when there is none.
    TzBodyBase& bodyBase() const { return isBody(place_) ? *bodyAt(place_) : linkedBodyBase(); }
    /// The body, null when there is none.
    TzBodyBase* bodyPointer() const noexcept {
        return isBody(place_) ? bodyAt(place_) : linkedBody();
    }
    /// Refers to `body` without counting; allowed on a handle without a body.
    void attachBody(TzBodyBase* body) noexcept { place_ = placeOf(body); }
    /// Gives the body up without counting and returns it.
    TzBodyBase* detachBody() noexcept {
        const Place place = give();
        return isBody(place) ? bodyAt(place) : nullptr;
    }

private:
    friend class TzBodyRing;

    /// The address of a body; an odd number when there is none to be counted here: `NoBody`, or
    /// where the ring that the handle is a link of keeps its books on the body. So one bit tells
    /// what nearly all handles are from everything else.
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

    Place share() const noexcept {
        if (isBody(place_)) [[likely]] {
            bodyAt(place_)->addReference();
            return place_;
        }
        return place_ == NoBody ? NoBody : shareLink(place_);
    }
    Place give() noexcept {
        const Place place = std::exchange(place_, NoBody);
        return isBody(place) || place == NoBody ? place : leaveRing(place);
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
    static Place shareLink(Place link) noexcept;
    static Place leaveRing(Place link) noexcept;
    static void releaseLink(Place link) noexcept;
    TzBodyBase* linkedBody() const noexcept;
    TzBodyBase& linkedBodyBase() const;

    Place place_;
};
