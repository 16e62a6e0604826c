// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <new>

/// The objects that a library makes on first use and needs to the last.
///
/// Exit handlers and destructors of global objects may use a library that was first used after they
/// were registered or made, so what it made then must outlive them. Each library has one list, a
/// global object with an early `init_priority`: its destructor therefore runs after all
/// of theirs, or when the library is unloaded, and destroys the objects, the latest first. Any
/// number of threads may add objects at once.
class TzLastingList {
public:
    /// An object in a list.
    class Entry {
    public:
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;

    protected:
        Entry() noexcept = default;
        ~Entry() = default;

    private:
        friend class TzLastingList;

        virtual void destroy() noexcept = 0;

        Entry* next_ = nullptr;
    };

    /// An empty list, before any code runs.
    constexpr TzLastingList() noexcept = default;
    TzLastingList(const TzLastingList&) = delete;
    TzLastingList& operator=(const TzLastingList&) = delete;
    ~TzLastingList() {
        for (Entry* entry = latest_.exchange(nullptr); entry != nullptr;) {
            Entry* const next = entry->next_;
            entry->destroy();
            entry = next;
        }
    }

    /// Takes charge of `entry`, which is in no list.
    void add(Entry& entry) noexcept {
        entry.next_ = latest_.load();
        while (!latest_.compare_exchange_weak(entry.next_, &entry)) {
        }
    }

private:
    std::atomic<Entry*> latest_{nullptr};
};

/// A function-local static of class `Value` that lasts as long as `list`.
///
/// Has a trivial destructor, so that its definition registers nothing.
template <TzLastingList& list, typename Value> class TzLasting final : TzLastingList::Entry {
public:
    /// Holds what `make` returns; what that throws passes through, and the next use tries again.
    template <typename Make> explicit TzLasting(Make make) {
        ::new (static_cast<void*>(room_)) Value(make());
        list.add(*this);
    }

    /// The object.
    Value& operator*() noexcept { return *std::launder(reinterpret_cast<Value*>(room_)); }

private:
    void destroy() noexcept override { (**this).~Value(); }

    alignas(Value) std::byte room_[sizeof(Value)];
};
