// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

/// Records of a message as structs of the program.
namespace records {

/// Adds the benchmarks of reading the records of what `workloads::structs` makes into structs, and
/// of making a message of them; their names end in `suffix`.
void addBenchmarks(const std::string& suffix, const std::function<const std::string&()>& text);

} // namespace records
