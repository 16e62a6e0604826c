// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/pointer/TzBodyBase.h>

#include <utility>

/// Base of handles: a counted reference to a shared body, possibly to none.
///
/// Copies share the body and count; moves hand the reference over without touching the count and
/// leave the source without a body. One handle object belongs to one thread at a time; handles that
/// share a body may live on different threads.
class TZ_PLATFORM_API TzHandleBase {
public:
    virtual ~TzHandleBase() { release(body_); }

protected:
    /// A handle to `body`, which may be null; counts one reference.
    explicit TzHandleBase(TzBodyBase* body) noexcept : body_(body) { retain(body); }
    TzHandleBase(const TzHandleBase& other) noexcept : body_(other.body_) { retain(body_); }
    TzHandleBase(TzHandleBase&& other) noexcept : body_(std::exchange(other.body_, nullptr)) {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): counts up before it counts down
    TzHandleBase& operator=(const TzHandleBase& other) noexcept {
        // The new body may hang below the old one, so it is held before the old one goes.
        retain(other.body_);
        release(std::exchange(body_, other.body_));
        return *this;
    }
    TzHandleBase& operator=(TzHandleBase&& other) noexcept {
        release(std::exchange(body_, std::exchange(other.body_, nullptr)));
        return *this;
    }

    /// The body; `TzTHRInvalidPointer` "Invalid pointer" when there is none.
    TzBodyBase& bodyBase() const {
        if (body_ == nullptr) [[unlikely]] {
            throwInvalidPointer();
        }
        return *body_;
    }
    /// The body, null when there is none.
    TzBodyBase* bodyPointer() const noexcept { return body_; }
    /// Refers to `body` without counting; allowed on a handle without a body.
    void attachBody(TzBodyBase* body) noexcept { body_ = body; }
    /// Gives the body up without counting and returns it.
    TzBodyBase* detachBody() noexcept { return std::exchange(body_, nullptr); }

private:
    static void retain(TzBodyBase* body) noexcept {
        if (body != nullptr) {
            body->addReference();
        }
    }
    static void release(TzBodyBase* body) noexcept {
        if (body != nullptr && body->removeReference()) {
            TzBodyBase::dispose(body);
        }
    }
    [[noreturn]] static void throwInvalidPointer();

    TzBodyBase* body_;
};
