// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzBlocks.h>
#include <tz/pointer/TzBodyBase.h>

#include <cstdint>
#include <type_traits>
#include <utility>

/// The only access of the library's sources to the bodies of handles.
///
/// Every handle class befriends it; programs that use the library never see it.
struct TzSoapAccess {
    /// The body of `handle`, as its class declares it; `TzTHRInvalidPointer` for an empty handle.
    template <typename Handle> static decltype(auto) body(const Handle& handle) {
        return handle.body();
    }
    /// A handle of class `Handle` by its protected constructor, from a body, a version or a handle
    /// that gives its body up.
    template <typename Handle, typename Source> static Handle handle(Source source) {
        return Handle(std::move(source));
    }
    /// Whether both handles refer to one body.
    template <typename Handle>
    static bool sameBody(const Handle& left, const Handle& right) noexcept {
        return left.bodyPointer() == right.bodyPointer();
    }
    /// Has the processor fetch the body of a handle, which is used soon.
    template <typename Handle> static void prefetch(const Handle& handle) noexcept {
        handle.prefetchBody();
    }
    /// Whether the handle refers to a body.
    template <typename Handle> static bool hasBody(const Handle& handle) noexcept {
        return handle.bodyPointer() != nullptr;
    }
    /// A handle of class `Handle` that takes over the body of `other`, which becomes empty.
    template <typename Handle, typename Other> static Handle take(Other& other) noexcept {
        Handle taken(static_cast<std::remove_reference_t<decltype(other.body())>*>(nullptr));
        taken.attachBody(other.detachBody());
        return taken;
    }
    /// A handle of class `Handle` that shares `body`, of whatever class that is.
    template <typename Handle> static Handle share(TzBodyBase& body) noexcept {
        using Body = std::remove_reference_t<decltype(std::declval<const Handle&>().body())>;
        Handle shared(static_cast<Body*>(nullptr));
        body.addReference();
        shared.attachBody(&body);
        return shared;
    }
    /// Adds `value` to `list`, as the last one, in a node in one of `blocks`, which hold such nodes
    /// only. `List` is `TzSoapValueList`.
    template <typename List, typename Value>
    static void append(List& list, Value&& value, TzBlocks& blocks) {
        list.append(std::forward<Value>(value), blocks);
    }
    /// Whether the handle refers to `body`.
    template <typename Handle>
    static bool refersTo(const Handle& handle, const TzBodyBase* body) noexcept {
        return handle.bodyPointer() == body;
    }
    /// The item at `index` of `array`, a compact array; null where none came to life, and unless
    /// both have two axes.
    template <typename Array, typename Index>
    static auto* storedInPlane(Array& array, const Index& index) noexcept {
        const Index& step = array.getStep();
        // No item has the position that stands for another number of axes.
        const bool isPlane = index.size() == 2 && step.size() == 2;
        const auto position =
            isPlane ? std::uint64_t{step[0]} * index[0] + index[1] : Array::Largest + 1;
        return array.items_.find(position - array.base_);
    }
    /// A writer of class `Writer` that writes with `path`, which must outlive it.
    template <typename Writer, typename Path> static Writer writingWith(Path& path) noexcept {
        return Writer(path);
    }
    /// What `writer` writes with.
    template <typename Writer> static auto& path(const Writer& writer) noexcept {
        return *writer.path_;
    }
    /// What `context`, a parse context, holds for the participants of its reading.
    template <typename Context> static auto& reading(const Context& context) noexcept {
        return *context.state_;
    }
};
