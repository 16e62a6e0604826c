// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>
#include <vector>

// The table of virtual functions is how compiled programs reach them, so their order is a promise.
// All compilers of this library lay it out by the C++ ABI of Itanium: a destructor takes two
// places.

/// The place of a virtual function in the table of its class.
template <typename Function> std::size_t slotOf(Function function) {
    struct {
        std::ptrdiff_t offset;
        std::ptrdiff_t adjustment;
    } parts;
    static_assert(sizeof(function) == sizeof(parts));
    std::memcpy(&parts, &function, sizeof(parts));
    return static_cast<std::size_t>(parts.offset) / sizeof(void*);
}

/// The places of several virtual functions.
template <typename... Functions> std::vector<std::size_t> slotsOf(Functions... functions) {
    return {slotOf(functions)...};
}

/// As many numbers as there are functions, counted from `first` on.
inline std::vector<std::size_t> inARow(std::size_t first, std::size_t count) {
    std::vector<std::size_t> numbers;
    for (std::size_t i = 0; i < count; ++i) {
        numbers.push_back(first + i);
    }
    return numbers;
}

/// Chooses among functions of one name by their parameters.
template <typename... Parameters> struct Overload {
    template <typename Result, typename Class>
    static auto plain(Result (Class::*function)(Parameters...)) {
        return function;
    }
    template <typename Result, typename Class>
    static auto constant(Result (Class::*function)(Parameters...) const) {
        return function;
    }
};
