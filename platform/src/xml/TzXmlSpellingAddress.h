// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// A spelling known by its address, for texts that never move and never repeat.
class TzXmlSpellingAddress {
public:
    static bool accepts(const char*) noexcept { return true; }
    bool is(const char* text) const noexcept { return address_ == text; }
    void set(const char* text) noexcept { address_ = text; }
    static std::uint64_t hash(const char* text) noexcept {
        return reinterpret_cast<std::uintptr_t>(text);
    }

private:
    const char* address_ = nullptr;
};
