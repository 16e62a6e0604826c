// SPDX-License-Identifier: MIT
#pragma once

#include "Subject.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdint>
#include <memory>
#include <string>

/// How the benchmarks are run.
namespace bench {

/// How often each one is repeated; medians are shown.
constexpr int Repetitions = 5;

/// What an operation finds on the heap.
enum class Heap {
    Warm, ///< The memory that the operation before it gave back.
    Fresh ///< Nothing: all free memory was handed to the system, so that every page is new.
};

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

/// Runs `work` without measuring it.
template <typename Work> void unmeasured(benchmark::State& state, Work work) {
    state.PauseTiming();
    work();
    state.ResumeTiming();
}

/// Measures `work`, called with the text of the subject.
template <typename Work>
void addOnText(const std::string& name, const SharedSubject& subject, Work work,
               Heap heap = Heap::Warm) {
    add(name, [subject, work, heap](benchmark::State& state) {
        const std::string& text = subject->text();
        for (auto _ : state) {
            if (heap == Heap::Fresh) {
                unmeasured(state, [] { malloc_trim(0); });
            }
            work(text);
        }
        state.SetBytesProcessed(static_cast<int64_t>(text.size()) * state.iterations());
    });
}

/// Reading alone: the message that was read goes outside the measured time.
void addReading(const std::string& name, const SharedSubject& subject, Heap heap = Heap::Warm);

/// Reading and dropping what was read. For small messages, where the clock would cost more than the
/// message, too.
void addReadingAndDropping(const std::string& name, const SharedSubject& subject);

/// Dropping a message that was read.
void addDropping(const std::string& name, const SharedSubject& subject);

/// Writing into a text that is reused, not indented, by us and by pugixml.
void addRawWriting(const std::string& name, const SharedSubject& subject);

} // namespace bench
