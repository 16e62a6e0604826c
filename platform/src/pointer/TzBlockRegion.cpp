// SPDX-License-Identifier: MIT
#include "pointer/TzBlockRegion.h"

#include "pointer/TzAddressSanitizer.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <new>

namespace {

/// Keeps `errno` as it was: nobody is told of what the system refuses here.
class SameErrno {
public:
    SameErrno() noexcept : error_(errno) {}
    SameErrno(const SameErrno&) = delete;
    SameErrno& operator=(const SameErrno&) = delete;
    ~SameErrno() { errno = error_; }

private:
    int error_;
};

/// New memory of `TzBlockRegion::Size` bytes that begins where a large page may, null without any.
std::byte* mapRegion() noexcept {
    constexpr std::size_t Size = TzBlockRegion::Size;
    void* const mapped =
        mmap(nullptr, 2 * Size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) {
        return nullptr;
    }
    auto* const begin = static_cast<std::byte*>(mapped);
    const std::size_t before = (Size - reinterpret_cast<std::uintptr_t>(begin) % Size) % Size;
    munmap(begin, before); // which may be nothing
    munmap(begin + before + Size, Size - before);
    return begin + before;
}

} // namespace

TzBlockRegion* TzBlockRegion::open() noexcept {
    static const bool pagesFit = sysconf(_SC_PAGESIZE) == static_cast<long>(BlockSize);
    const SameErrno unchanged;
    std::byte* const memory = pagesFit ? mapRegion() : nullptr;
    if (memory == nullptr) {
        return nullptr;
    }
    auto* const region = new (std::nothrow) TzBlockRegion(memory);
    if (region == nullptr) {
        munmap(memory, Size);
    }
    return region;
}

TzBlockRegion::TzBlockRegion(std::byte* memory) noexcept : memory_(memory) {
#ifdef MADV_HUGEPAGE
    madvise(memory_, Size, MADV_HUGEPAGE);
#endif
    TzAddressSanitizer::addRoot(memory_, Size);
    left_.set(); // a large page comes as a whole
}

TzBlockRegion::~TzBlockRegion() {
    const SameErrno unchanged;
    TzAddressSanitizer::removeRoot(memory_, Size);
    munmap(memory_, Size);
}

void* TzBlockRegion::take() noexcept {
    while (inUse_[firstFree_]) {
        ++firstFree_;
    }
    inUse_[firstFree_] = true;
    leftCount_ -= left_[firstFree_] ? 1 : 0;
    left_[firstFree_] = false;
    ++used_;
    return memory_ + BlockSize * firstFree_++;
}

void TzBlockRegion::giveBack(void* block) noexcept {
    const std::size_t number =
        static_cast<std::size_t>(static_cast<std::byte*>(block) - memory_) / BlockSize;
    inUse_[number] = false;
    left_[number] = true;
    ++leftCount_;
    --used_;
    firstFree_ = std::min(firstFree_, number);
}

void TzBlockRegion::discard() noexcept {
    const SameErrno unchanged;
#ifdef MADV_NOHUGEPAGE
    // Otherwise the system makes it a large page again, in the background.
    madvise(memory_, Size, MADV_NOHUGEPAGE);
#endif
    for (std::size_t begin = 0; begin < Blocks; ++begin) {
        std::size_t end = begin;
        while (end < Blocks && left_[end]) {
            ++end;
        }
        if (end != begin) {
            madvise(memory_ + BlockSize * begin, BlockSize * (end - begin), MADV_DONTNEED);
            begin = end;
        }
    }
    left_.reset();
    leftCount_ = 0;
    isDiscarded_ = true;
}

void TzBlockRegion::lend() noexcept {
#ifdef MADV_FREE
    const SameErrno unchanged;
    madvise(memory_, Size, MADV_FREE);
#endif
}
