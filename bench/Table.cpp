// SPDX-License-Identifier: MIT
#include "Table.h"

#include "HeapCount.h"
#include "Packages.h"
#include "Workloads.h"

#include <tz/thread/TzTSpares.h>

#include <cstdio>
#include <cstdlib>

namespace {

/// A time of ours, the baseline's time in the same run, the most that their ratio may be
/// (0: shown without a limit), and what it is aimed to be (0: nothing beyond that).
struct Ratio {
    const char* what;
    const char* ours;
    const char* baseline;
    double most;
    double aim = 0;
};

constexpr Ratio Ratios[] = {
    {"read T, fresh heap / Expat no-op", "fresh/read/T/tzsoap", "fresh/read/T/expat", 0.8, 0.6},
    {"read T, warm heap / Expat no-op", "read/T/tzsoap/10000", "read/T/expat/10000", 0.6, 0.45},
    {"read V, fresh heap / Expat no-op", "fresh/read/V/tzsoap", "fresh/read/V/expat", 0.8, 0.6},
    {"read V, warm heap / Expat no-op", "read/V/tzsoap", "read/V/expat", 0.6, 0.45},
    {"read U, fresh heap / Expat no-op", "fresh/read/U/tzsoap", "fresh/read/U/expat", 0.8, 0.65},
    {"read U, warm heap / Expat no-op", "read/U/tzsoap", "read/U/expat", 0.55, 0.45},
    {"read S / Expat no-op", "read/S/tzsoap", "read/S/expat", 0.9, 0.5},
    {"read Y / Expat no-op", "read/Y/tzsoap", "read/Y/expat", 1.1, 0.9},
    {"write T compact / pugixml raw", "raw/T/tzsoap", "raw/T/pugixml", 1.0, 0.7},
    {"write U compact / pugixml raw", "raw/U/tzsoap", "raw/U/pugixml", 1.0, 0.7},
    {"write V compact / pugixml raw", "raw/V/tzsoap", "raw/V/pugixml", 1.0, 0.7},
    {"write S compact / pugixml raw", "raw/S/tzsoap", "raw/S/pugixml", 1.5, 1.0},
    {"write Y compact / pugixml raw", "raw/Y/tzsoap", "raw/Y/pugixml", 0},
    {"write Z compact / pugixml raw", "raw/Z/tzsoap", "raw/Z/pugixml", 0.8, 0.5},
    {"destroy T / Expat no-op", "drop/T/tzsoap", "read/T/expat/10000", 0.2, 0.12},
    {"read a 64 MiB package handed over / memmem", "package/large/readOver", "package/large/memmem",
     1.5, 1.1},
    {"write T / libxml2 dump", "write/T/tzsoap/10000", "write/T/libxml2/10000", 0.35},
    {"read T / libxml2 DOM", "read/T/tzsoap/10000", "read/T/libxml2/10000", 0},
    {"read T / pugixml", "read/T/tzsoap/10000", "read/T/pugixml/10000", 0},
    {"read and drop T / Expat no-op", "readDrop/T/tzsoap/10000", "read/T/expat/10000", 0},
    {"message T to structs / Expat no-op", "structs/T/message/10000", "read/T/expat/10000", 0.5},
    {"text T to structs / Expat no-op", "structs/T/text/10000", "read/T/expat/10000", 0},
    {"stream T to structs / Expat no-op", "structs/T/stream/10000", "read/T/expat/10000", 0},
    {"structs to message T / Expat no-op", "structs/T/make/10000", "read/T/expat/10000", 0},
    {"write U / libxml2 dump", "write/U/tzsoap", "write/U/libxml2", 0.35},
    {"write V / libxml2 dump", "write/V/tzsoap", "write/V/libxml2", 0.35},
    {"serializer on T / writer", "serialize/T", "write/T/tzsoap/10000", 1.2},
    {"serializer on U / writer", "serialize/U", "write/U/tzsoap", 1.2},
    {"write it, made, to a counting sink / memmem", "package/large/count", "package/large/memmem",
     1.5, 1.1},
    {"write it, read, to a counting sink / memmem", "package/large/countRead",
     "package/large/memmem", 1.5, 1.1},
    {"read a 64 MiB attachment / copy", "package/large/read", "package/large/copy", 1.3},
    {"write a 64 MiB attachment / copy", "package/large/write", "package/large/copy", 2.2},
    {"read 1,000 attachments / GMime", "package/read/1000", "package/gmime/1000", 0.15},
    {"index a 1000 x 1000 array / vector", "index/compact", "index/vector", 4.0},
};

/// The time of one value in a small and in a large message of the same make.
struct Growth {
    const char* what;
    const char* small;
    int smallValues;
    const char* large;
    int largeValues;
    double most;
};

constexpr Growth Growths[] = {
    {"read T per value, 100 to 100,000", "read/T/tzsoap/100", 100, "read/T/tzsoap/100000", 100000,
     1.3},
    {"read W per member, 1,000 to 100,000", "read/W/tzsoap/1000", 1000, "read/W/tzsoap/100000",
     100000, 1.5},
    {"read X per member, 1,000 to 100,000", "read/X/tzsoap/1000", 1000, "read/X/tzsoap/100000",
     100000, 1.5},
    {"read per part, 10 to 10,000", "package/read/10", 10, "package/read/10000", 10000, 1.3},
    {"write per part, 10 to 10,000", "package/write/10", 10, "package/write/10000", 10000, 1.3},
};

bool printLine(const char* what, double value, double most, const char* unit, double aim = 0) {
    std::printf("%-44s %10.2f %-12s", what, value, unit);
    if (most > 0) {
        std::printf(" at most %8.2f", most);
    }
    if (aim > 0) {
        std::printf(", aim %6.2f", aim);
    }
    if (most > 0) {
        std::printf("  %s", value > most ? "MISSED" : value <= aim ? "ok, as aimed" : "ok");
    }
    std::printf("\n");
    return most <= 0 || value <= most;
}

/// Prints how much more two threads read than one, of what Expat gains by the second one. Judged by
/// the time of the processors, which says what the threads cost each other; the elapsed time, which
/// other programs on the machine take part in, is shown.
bool printThreads(const MedianReporter& measured) {
    const std::string name("threads/read/S/");
    const auto gain = [&](const char* who, const char* time) {
        return measured.median(name + who + "/1" + time) /
               measured.median(name + who + "/2" + time);
    };
    printLine("two threads reading S / one, Expat no-op", gain("expat", ""), 0, "times");
    printLine("the same by the clock", gain("expat", "/elapsed"), 0, "times");
    printLine("two threads reading S / one", gain("tzsoap", ""), 0, "times");
    printLine("the same by the clock", gain("tzsoap", "/elapsed"), 0, "times");
    // The gain is to be 0.97 of Expat's at least: printed the other way round.
    return printLine("Expat's gain by a second thread / ours",
                     gain("expat", "") / gain("tzsoap", ""), 1 / 0.97, "times", 1.0);
}

bool printRatios(const MedianReporter& measured) {
    bool met = true;
    for (const Ratio& ratio : Ratios) {
        if (measured.has(ratio.ours) && measured.has(ratio.baseline)) {
            met &=
                printLine(ratio.what, measured.median(ratio.ours) / measured.median(ratio.baseline),
                          ratio.most, "times", ratio.aim);
        }
    }
    if (measured.has("threads/read/S/expat/1")) {
        met &= printThreads(measured);
    }
    for (const Growth& growth : Growths) {
        if (measured.has(growth.small) && measured.has(growth.large)) {
            met &= printLine(growth.what,
                             measured.median(growth.large) / growth.largeValues /
                                 (measured.median(growth.small) / growth.smallValues),
                             growth.most, "times");
        }
    }
    return met;
}

/// The most that a value may take, what is aimed at, and the most allocations.
struct HeapLimits {
    double bytes;
    double aim;
    double allocations;
};

/// Prints what a message that was read keeps on the heap for each of its values.
bool printHeap(const char* what, const std::string& text, int values, const HeapLimits& most) {
    TzSpares::dropOfThisThread();
    HeapCount::start();
    const HeapCount before = HeapCount::now();
    TzSoapMessage message;
    message.extract(text);
    TzSpares::dropOfThisThread();
    const HeapCount kept = HeapCount::now() - before;
    const std::string bytes = std::string("heap bytes kept per ") + what;
    const std::string allocations = std::string("allocations kept per ") + what;
    bool met = printLine(bytes.c_str(), static_cast<double>(kept.bytes) / values, most.bytes,
                         "bytes", most.aim);
    met &= printLine(allocations.c_str(), static_cast<double>(kept.allocations) / values,
                     most.allocations, "");
    return met;
}

} // namespace

void MedianReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.aggregate_name == "median") {
            medians_[run.run_name.function_name] =
                run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
        }
    }
}

double MedianReporter::median(const std::string& name) const {
    const auto found = medians_.find(name);
    if (found == medians_.end()) {
        std::fprintf(stderr, "no benchmark named %s\n", name.c_str());
        std::exit(1);
    }
    return found->second;
}

bool printTable(const MedianReporter& measured) {
    std::printf("\n");
    bool met = printRatios(measured);
    constexpr int Structs = 10000;
    constexpr int Items = 1000000;
    met &= printHeap("value of T", workloads::textOf(workloads::structs(Structs)),
                     workloads::valuesOf(Structs), {170, 150, 1.3});
    met &=
        printHeap("item of U", workloads::textOf(workloads::intArray(Items)), Items, {130, 110, 0});
    met &= printLine("peak of reading 64 MiB above the text", packages::peakOfReading(), 1.1,
                     "of the text");
    return met;
}
