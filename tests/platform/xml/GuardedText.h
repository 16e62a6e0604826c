// SPDX-License-Identifier: MIT
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <string_view>

/// Memory between two pages that nobody may read: whoever reads before the beginning or beyond the
/// end of a text in it ends the program.
class GuardedText {
public:
    /// Holds texts of at most `size` bytes.
    explicit GuardedText(std::size_t size)
        : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))),
          room_((size + page_ - 1) / page_ * page_), memory_(map()) {}
    GuardedText(const GuardedText&) = delete;
    GuardedText& operator=(const GuardedText&) = delete;
    ~GuardedText() { munmap(memory_, room_ + 2 * page_); }

    /// A copy of `text` right after the first guarded page.
    std::string_view atBegin(std::string_view text) noexcept {
        return copied(memory_ + page_, text);
    }
    /// A copy of `text` right before the last guarded page.
    std::string_view atEnd(std::string_view text) noexcept {
        return copied(memory_ + page_ + room_ - text.size(), text);
    }

private:
    char* map() const {
        void* const memory =
            mmap(nullptr, room_ + 2 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED ||
            mprotect(static_cast<char*>(memory) + page_, room_, PROT_READ | PROT_WRITE) != 0) {
            throw std::bad_alloc();
        }
        return static_cast<char*>(memory);
    }
    static std::string_view copied(char* to, std::string_view text) noexcept {
        std::memcpy(to, text.data(), text.size());
        return {to, text.size()};
    }

    const std::size_t page_;
    const std::size_t room_;
    char* const memory_;
};
