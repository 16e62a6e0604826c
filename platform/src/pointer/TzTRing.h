// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzTCountingBody.h>
#include <tz/thread/TzTMonitor.h>

#include <cstdint>
#include <span>
#include <vector>

/// The records of a ring: how many handles refer to each of its bodies, and how many are links.
///
/// One lock guards all of it. Deletes itself with the last body or link.
template <typename Lock> class TzTRing : private TzTMonitor<Lock> {
public:
    using Body = TzTCountingBody<Lock>;

    /// What is known of one body.
    struct Member {
        TzTRing* ring;
        Body* body;
        std::uintptr_t references = 0; // links among them
        std::uintptr_t links = 0;
        bool gone = false; // handed over for deletion
    };

    /// A ring of `bodies` that do not refer to it yet; `std::bad_alloc` without memory.
    explicit TzTRing(std::span<Body* const> bodies) {
        members_.reserve(bodies.size());
        for (Body* body : bodies) {
            members_.push_back({this, body});
        }
    }

    /// The record of `body` in its ring, null outside of rings.
    static Member* find(const Body& body) noexcept {
        const Guard guard(body.lock());
        return Body::isCount(body.count_) ? nullptr : &countedAt(body.count_);
    }

    /// Moves the reference counts of all bodies into the ring, which holds the bodies until
    /// `letGo`.
    void takeCounts() noexcept {
        const Guard guard(this->lock());
        for (Member& member : members_) {
            const Guard bodyGuard(member.body->lock());
            member.references = member.body->count_;
            member.body->count_ = InRing | reinterpret_cast<std::uintptr_t>(&member) >> 1U;
            outside_ += member.references;
        }
        uses_ = members_.size();
        ++outside_;
    }

    /// Ends what `takeCounts` began.
    void letGo() noexcept { loseOutside(nullptr); }

    /// One of the handles to `member` is a link from now on.
    static void addLink(Member& member) noexcept {
        const Guard guard(member.ring->lock());
        ++member.links;
        ++member.ring->uses_;
        --member.ring->outside_;
    }

    /// Makes a handle to `member` a link unless it is the last one outside; whether it did.
    static bool addLinkIfHeld(Member& member) noexcept {
        const Guard guard(member.ring->lock());
        if (member.ring->outside_ < 2) {
            return false;
        }
        ++member.links;
        ++member.ring->uses_;
        --member.ring->outside_;
        return true;
    }

    /// A link to `member` becomes another handle.
    static void turnLink(Member& member) noexcept {
        const Guard guard(member.ring->lock());
        --member.links;
        --member.ring->uses_;
        ++member.ring->outside_;
    }

    /// A link to `member` goes.
    static void removeLink(Member& member) noexcept {
        TzTRing* const ring = member.ring;
        Body* const body = member.body;
        bool bodyGoes = false;
        bool ringGoes = false;
        {
            const Guard guard(ring->lock());
            --member.links;
            bodyGoes = --member.references == 0 && ring->markGone(member);
            ringGoes = --ring->uses_ == 0;
        }
        if (ringGoes) {
            delete ring;
        }
        if (bodyGoes) {
            Body::dispose(body);
        }
    }

    /// A handle to `member` that is not a link was made.
    static void add(Member& member) noexcept {
        const Guard guard(member.ring->lock());
        ++member.references;
        ++member.ring->outside_;
    }

    /// A handle to `member` that is not a link goes; whether the body, and it alone, has to go.
    static bool remove(Member& member) noexcept { return member.ring->loseOutside(&member); }

    /// The number of handles to `member`.
    static std::uintptr_t count(const Member& member) noexcept {
        const Guard guard(member.ring->lock());
        return member.references;
    }

    /// The member that stands in place of the count of a body.
    static Member& countedAt(std::uintptr_t count) noexcept {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): it was made of a pointer
        return *reinterpret_cast<Member*>(count << 1U);
    }

    /// `member` as an odd number, for its links to hold in place of an address.
    static std::uintptr_t numberOf(const Member& member) noexcept {
        static_assert(alignof(Member) > 1 && alignof(Body) > 1, "addresses are even");
        return reinterpret_cast<std::uintptr_t>(&member) + 1;
    }

    /// The member that such a number stands for.
    static Member& memberOf(std::uintptr_t number) noexcept {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): it was made of a pointer
        return *reinterpret_cast<Member*>(number - 1);
    }

private:
    using Guard = typename TzTMonitor<Lock>::Guard;
    static constexpr std::uintptr_t InRing = ~(~std::uintptr_t{0} >> 1);

    bool markGone(Member& member) noexcept {
        if (member.gone || falling_) {
            return false;
        }
        member.gone = true;
        --uses_;
        return true;
    }

    bool loseOutside(Member* member) noexcept {
        {
            const Guard guard(this->lock());
            const bool unheld = member != nullptr && --member->references == 0;
            if (--outside_ != 0) {
                return unheld && markGone(*member);
            }
            falling_ = true;
        }
        fall();
        return false;
    }

    // Nothing else refers to the bodies any more; the links go with the bodies that hold them.
    void fall() noexcept {
        std::uintptr_t bodies = 0;
        for (const Member& member : members_) {
            if (!member.gone) {
                ++bodies;
                Body::dispose(member.body);
            }
        }
        bool ringGoes = false;
        {
            const Guard guard(this->lock());
            uses_ -= bodies;
            ringGoes = uses_ == 0;
        }
        if (ringGoes) {
            delete this;
        }
    }

    std::vector<Member> members_;
    std::uintptr_t outside_ = 0; // handles other than links
    std::uintptr_t uses_ = 0;    // links, and bodies that are not gone
    bool falling_ = false;
};
