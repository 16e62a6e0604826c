// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>

/// Base of all `TzTSpares`: knows each of them, whatever objects it holds.
class TZ_PLATFORM_API TzSpares {
public:
    TzSpares(const TzSpares&) = delete;
    TzSpares& operator=(const TzSpares&) = delete;

    /// A number for the calling thread, from 0 in the order in which threads ask first.
    static std::size_t threadNumber() noexcept;
    /// Frees everything that waits for the next work on the calling thread, such as the names of
    /// the texts that it has read, and what waits for that of any thread. For a thread that will
    /// not work for a while. May be called at any time, also during such work, whose objects do not
    /// wait.
    static void dropOfThisThread() noexcept;

protected:
    TzSpares() noexcept;
    ~TzSpares() = default;
    /// Leaves the list of all; derived destructors call it first.
    void end() noexcept;

private:
    virtual void drop() noexcept = 0;

    TzSpares* next_ = nullptr;
};

/// Objects that one piece of work leaves for the next one on its thread.
///
/// There are `Places` places, and each holds one object at most. The first `Places` threads use a
/// different place each; the threads after them use the same places again, so the memory does not
/// grow with the number of threads. Two threads of one place may pass objects to each other: what
/// the one did with an object happens before the other takes it. Any number of threads may take and
/// give back at once without waiting. A thread that ends runs no destructor.
template <typename Object> class TzTSpares final : public TzSpares {
public:
    /// Number of places, and the most objects that wait.
    static constexpr std::size_t Places = 64;

    TzTSpares() noexcept = default;
    ~TzTSpares() {
        end();
        for (Place& place : places_) {
            empty(place);
        }
    }

    /// The object that waits in the place of this thread, null without one: the first time, and
    /// for work within work.
    std::unique_ptr<Object> take() noexcept {
        return std::unique_ptr<Object>(here().spare.exchange(nullptr, std::memory_order_acquire));
    }
    /// Leaves `object` for the next work; one that waits there already goes.
    void giveBack(std::unique_ptr<Object> object) noexcept {
        delete here().spare.exchange(object.release(), std::memory_order_acq_rel);
    }

private:
    /// Fills a cache line: threads that write to neighbouring places slow each other down if these
    /// lie in one line.
    struct alignas(64) Place {
        std::atomic<Object*> spare{nullptr};
    };

    static void empty(Place& place) noexcept {
        delete place.spare.exchange(nullptr, std::memory_order_acquire);
    }
    void drop() noexcept override { empty(here()); }
    Place& here() noexcept { return places_[threadNumber() % Places]; }

    std::array<Place, Places> places_;
};
