// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzBodyBase.h>

#include <utility>

/// The one door from the library's own sources to the bodies behind handles.
///
/// Every handle class befriends it; programs that use the library never see it.
struct TzSoapAccess {
    /// The body of `handle`, as its class declares it; `TzTHRInvalidPointer` when there is none.
    template <typename Handle> static decltype(auto) body(const Handle& handle) {
        return handle.body();
    }
    /// A handle of class `Handle` by the constructor that it keeps to itself: on a body, for a
    /// version.
    template <typename Handle, typename Source> static Handle handle(Source source) {
        return Handle(source);
    }
    /// Whether both handles refer to one body.
    template <typename Handle>
    static bool sameBody(const Handle& left, const Handle& right) noexcept {
        return left.bodyPointer() == right.bodyPointer();
    }
    /// Whether the handle refers to a body.
    template <typename Handle> static bool hasBody(const Handle& handle) noexcept {
        return handle.bodyPointer() != nullptr;
    }
    /// A handle of class `Handle` that takes over the body of `other`, which is left without one.
    template <typename Handle, typename Other> static Handle take(Other& other) noexcept {
        Handle taken(static_cast<std::remove_reference_t<decltype(other.body())>*>(nullptr));
        taken.attachBody(other.detachBody());
        return taken;
    }
    /// Lets a handle without a body refer to `body` without counting.
    template <typename Handle> static void attach(Handle& handle, TzBodyBase* body) noexcept {
        handle.attachBody(body);
    }
    /// Takes the body out of `handle` without counting.
    template <typename Handle> static TzBodyBase* detach(Handle& handle) noexcept {
        return handle.detachBody();
    }
};

/// A handle of class `Handle` that borrows a body for a moment: no count is touched.
///
/// The body must be held by somebody else meanwhile.
template <typename Handle> class TzSoapBorrowed {
public:
    explicit TzSoapBorrowed(TzBodyBase& body) noexcept
        : handle_(TzSoapAccess::handle<Handle>(BodyOf(nullptr))) {
        TzSoapAccess::attach(handle_, &body);
    }
    ~TzSoapBorrowed() { TzSoapAccess::detach(handle_); }
    TzSoapBorrowed(const TzSoapBorrowed&) = delete;
    TzSoapBorrowed& operator=(const TzSoapBorrowed&) = delete;

    /// The handle, valid as long as this object lives.
    Handle& handle() noexcept { return handle_; }

private:
    using BodyOf =
        std::remove_reference_t<decltype(TzSoapAccess::body(std::declval<const Handle&>()))>*;

    Handle handle_;
};
