// SPDX-License-Identifier: MIT
#pragma once

#include <tz/TzPlatformExport.h>

#include <concepts>
#include <iosfwd>
#include <string_view>
#include <type_traits>

/// Where a text goes piece by piece, so that it need not be in memory as a whole: a function, a
/// stream or a file descriptor.
///
/// Refers to what it is made from, which must outlive it: made in the call that gets it, a sink
/// needs no thought. A piece may have any size but 0, and no piece ends where a character, a tag or
/// a line does. An error leaves the pieces written that were taken before it.
class TZ_PLATFORM_API TzSink {
public:
    /// Calls `taker` with each piece, which is valid only during the call. What it throws passes
    /// through whatever writes to the sink.
    // NOLINTBEGIN(bugprone-forwarding-reference-overload): the constraint leaves out copies
    template <typename Take>
    requires(
        std::invocable<Take&, std::string_view>&& std::is_object_v<std::remove_reference_t<Take>> &&
        !std::same_as<std::remove_cvref_t<Take>, TzSink>) TzSink(Take&& taker)
    noexcept : take_(&callObject<std::remove_reference_t<Take>>), object_(addressOf(taker)) {}
    // NOLINTEND(bugprone-forwarding-reference-overload)
    /// Writes to `stream`, which is not flushed. `TzWriteError` when it fails, or has failed
    /// before; what a stream throws that was made to throw passes through.
    TzSink(std::ostream& stream) noexcept;
    /// Writes to the file descriptor, which stays open, until all is written: goes on after a write
    /// that was interrupted or took only a part, and waits for one that does not block. A pipe or
    /// socket that nobody reads raises SIGPIPE unless the program ignores it. `TzWriteError` when
    /// it fails, with the number of the system's error.
    static TzSink toDescriptor(int descriptor) noexcept;

    /// Hands `piece` over, unless it is empty. Errors are those of what the sink was made from.
    void take(std::string_view piece) const {
        if (!piece.empty()) {
            take_(*this, piece);
        }
    }

private:
    using Taker = void (*)(const TzSink& sink, std::string_view piece);

    explicit TzSink(Taker taker) noexcept : take_(taker) {}

    template <typename Take> static void* addressOf(Take& taker) noexcept {
        return const_cast<void*>(static_cast<const volatile void*>(__builtin_addressof(taker)));
    }
    template <typename Take> static void callObject(const TzSink& sink, std::string_view piece) {
        (*static_cast<Take*>(sink.object_))(piece);
    }
    static void writeToStream(const TzSink& sink, std::string_view piece);
    static void writeToDescriptor(const TzSink& sink, std::string_view piece);

    Taker take_;
    void* object_ = nullptr;
    int descriptor_ = -1;
};
