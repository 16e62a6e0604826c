// SPDX-License-Identifier: MIT
#pragma once

#include <tz/pointer/TzBlocks.h>
#include <tz/pointer/TzBodyBase.h>

#include <cstddef>
#include <cstdint>
#include <new>

/// A counted body in a block: a class of its own, because it ends in another way.
template <typename Body> class TzBodyInBlock final : public Body {
public:
    TzBodyInBlock(const TzBodyInBlock&) = delete;
    TzBodyInBlock& operator=(const TzBodyInBlock&) = delete;

    /// A new body, made without arguments, in one of `blocks`, which hold bodies only; for a handle
    /// to hold. `std::bad_alloc` without memory.
    static Body* make(TzBlocks& blocks);
    /// Ends the body and leaves its block.
    static void operator delete(TzBodyInBlock* body, std::destroying_delete_t /*unused*/) noexcept;

private:
    // Where a body lies fits into a byte of its count.
    static constexpr std::size_t Step = 16;
    static_assert(TzBlocks::LargestBlock / Step <= UINT8_MAX + 1);

    TzBodyInBlock() = default;
    ~TzBodyInBlock() override = default;
};

template <typename Body> Body* TzBodyInBlock<Body>::make(TzBlocks& blocks) {
    constexpr std::size_t Size = (sizeof(TzBodyInBlock) + Step - 1) / Step * Step;
    static_assert(Size <= TzBlocks::LargestObject && alignof(TzBodyInBlock) <= Step);
    auto* const body = ::new (blocks.room(Size)) TzBodyInBlock;
    const auto* const block = blocks.use(Size);
    const auto offset = static_cast<std::size_t>(reinterpret_cast<const std::byte*>(body) -
                                                 reinterpret_cast<const std::byte*>(block));
    static_cast<TzBodyBase*>(body)->setStep(static_cast<std::uint8_t>(offset / Step));
    return body;
}

template <typename Body>
void TzBodyInBlock<Body>::operator delete(TzBodyInBlock* body,
                                          std::destroying_delete_t /*unused*/) noexcept {
    auto* const begin =
        reinterpret_cast<std::byte*>(body) - Step * static_cast<TzBodyBase*>(body)->step();
    body->~TzBodyInBlock();
    TzBlocks::leave(reinterpret_cast<TzBlocks::Block*>(begin), body, sizeof(TzBodyInBlock));
}
