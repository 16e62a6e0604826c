// SPDX-License-Identifier: MIT
#pragma once

#include "growth/WorkCount.h"

#include <cstddef>
#include <string>
#include <vector>

namespace growth {

/// One operation on one text, counted.
struct Measured {
    std::size_t text = 0;    ///< Bytes that were read.
    WorkCount count = {};    ///< Work and memory of the operation.
    std::size_t written = 0; ///< Bytes that it wrote, if it writes.

    /// Work for each byte that was read.
    double workPerByte() const noexcept;
    /// Work for each byte that was read, or written when those are more.
    double workPerLargerByte() const noexcept;
    /// Most bytes of the heap for each byte that was read, or written when those are more.
    double peakPerLargerByte() const noexcept;
};

/// What is done with a text, and what that may cost.
struct Operation {
    const char* name;                         ///< An identifier.
    Measured (*run)(const std::string& text); ///< Runs the operation and measures it.
    double work;                              ///< Most work for each larger byte.
    double peak;                              ///< Most bytes of the heap for each.
};

/// Reading, writing in all its ways, converting.
std::vector<Operation> operations();
/// What services and clients over HTTP do, with texts of any kind.
std::vector<Operation> httpOperations();
/// Lists of records in and out of structs, and one record after the other.
std::vector<Operation> recordOperations();
/// Reading a text that is refused; throws `std::logic_error` when it is not.
Operation refusal();

/// Compact text of what `text` holds.
std::string compact(const std::string& text);
/// What compact output may have in bytes.
std::size_t mostCompact(const std::string& text);

} // namespace growth
