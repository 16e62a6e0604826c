// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <string>

/// How the benchmarks are run.
namespace bench {

/// How often each one is repeated; medians are shown.
constexpr int Repetitions = 5;

/// The end of a benchmark's name that says how large its message is.
inline std::string suffixOf(int size) {
    std::string suffix("/");
    suffix += std::to_string(size);
    return suffix;
}

/// Adds the benchmark `name` that runs `work`, which takes the benchmark's state.
template <typename Work> void add(const std::string& name, Work work) {
    benchmark::RegisterBenchmark(name.c_str(), work)
        ->Repetitions(Repetitions)
        ->ReportAggregatesOnly(true)
        ->Unit(benchmark::kMillisecond);
}

} // namespace bench
