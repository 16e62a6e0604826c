// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapMessage.h>

#include <cstddef>

/// Messages with attachments.
namespace packages {

/// A message with `parts` references, each to a binary attachment of `size` bytes.
TzSoapMessage message(int parts, std::size_t size);

/// Adds the benchmarks of reading and writing packages.
void addBenchmarks();

/// How many bytes reading the package with the large attachment takes at most, for each byte of the
/// text that is handed in.
double peakOfReading();

} // namespace packages
