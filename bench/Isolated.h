// SPDX-License-Identifier: MIT
#pragma once

#include "Table.h"

#include <functional>

/// What must not be measured in the process of all other benchmarks.
namespace isolated {

/// Runs `measure` in a process of its own, before this one has a second thread or has touched the
/// settings of its heap, and adds what is measured there to `measured`. False when that process
/// does not end as it should.
bool run(MedianReporter& measured, const std::function<void(MedianReporter&)>& measure);

/// Reading and writing on a heap without any free memory, as the allocator is by default.
void measureFresh(MedianReporter& measured);

/// Reading on two threads at once, and on one in a process that has a second one.
void measureThreads(MedianReporter& measured);

} // namespace isolated
