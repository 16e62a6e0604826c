// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/// Prints every benchmark as it ends and keeps the medians, in seconds of the processor for one
/// iteration: others on the machine do not count.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;
    /// The median of the benchmark `name`; a missing one ends the program.
    double median(const std::string& name) const;
    /// Whether the benchmark `name` ran.
    bool has(const std::string& name) const { return medians_.count(name) != 0; }
    /// Adds what was measured elsewhere.
    void note(const std::string& name, double seconds) { medians_[name] = seconds; }
    /// All of them, by name.
    const std::map<std::string, double>& all() const noexcept { return medians_; }

private:
    std::map<std::string, double> medians_;
};

/// Prints the table of what was measured against what it must be; false when a figure is missed.
bool printTable(const MedianReporter& measured);
