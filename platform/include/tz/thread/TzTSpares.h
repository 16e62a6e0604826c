// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>

/// What pieces of work leave for the next ones on their threads, whatever it is.
class TZ_PLATFORM_API TzSpares {
public:
    TzSpares(const TzSpares&) = delete;
    TzSpares& operator=(const TzSpares&) = delete;

    /// A number for the calling thread, from 0 in the order in which threads ask first.
    static std::size_t threadNumber() noexcept;
    /// Frees everything that waits for the next work on this thread, such as the names of the texts
    /// that it has read: for a program that does not go on for a while. Any thread, at any time.
    static void dropOfThisThread() noexcept;

protected:
    TzSpares() noexcept;
    ~TzSpares() = default;
    /// Before the destructor.
    void end() noexcept;

private:
    virtual void drop() noexcept = 0;

    TzSpares* next_ = nullptr;
};

/// Objects that one piece of work leaves for the next one on its thread.
///
/// Each of the first `Places` threads has a place of its own for one object; later ones share
/// these places, so that the memory does not grow with the threads. An object may pass to another
/// thread that way: all that was done with it comes before it is taken. Any number of threads may
/// take and give back at once; nobody waits. Needs no destructor when a thread ends.
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
    /// On a cache line of its own, because threads must not wait for each other's.
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
