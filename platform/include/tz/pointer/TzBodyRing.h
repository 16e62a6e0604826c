// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>
#include <tz/pointer/TzBodyBase.h>

#include <span>

class TzHandleBase;

/// Bodies that hold each other in a circle and still go when nothing else holds them.
///
/// Counts alone never free a circle. Cycle collection by trial deletion, as Bacon and Rajan
/// describe it ("Concurrent Cycle Collection in Reference Counted Systems", 2001), subtracts the
/// handles within the circle from the reference counts of its bodies; if nothing remains, the
/// circle is garbage. They subtract each time a count falls. This class subtracts once, when the
/// ring is closed, and keeps what remains as a separate count from then on. So the end needs no
/// walk, which would look at what other threads may be changing. Bodies outside of rings cost
/// nothing more.
///
/// The rules of a ring, whose links are the handles within it:
///
/// - the ring lives as long as a handle other than a link refers to any of its bodies; all its
///   bodies go with the last such handle;
/// - a link is a link as long as it stays where it was when the ring was closed: what is copied or
///   moved out of it is a handle like any other, and so is what is put in its place;
/// - a body of the ring to which not even links refer goes at once, as all bodies do;
/// - a circle through handles made later keeps itself alive, unless they `join`.
///
/// Threads: as for handles. The lock is one for all bodies and links of the ring.
class TZ_PLATFORM_API TzBodyRing {
public:
    TzBodyRing() = delete;

    /// Closes a ring of `bodies`, none of them in a ring yet, with `links`, handles that are part
    /// of one of them and refer to one of them. The bodies are held by another handle meanwhile.
    /// `std::bad_alloc`, and nothing changed, without memory. O(bodies + links).
    static void close(std::span<TzBodyBase* const> bodies, std::span<TzHandleBase* const> links);
    /// Makes `handle`, which `holder` holds, a link if it leads to a body of the same ring.
    static void join(const TzBodyBase& holder, TzHandleBase& handle) noexcept;
    /// Whether `body` is in a ring.
    static bool contains(const TzBodyBase& body) noexcept;
};
