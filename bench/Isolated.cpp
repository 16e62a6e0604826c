// SPDX-License-Identifier: MIT
#include "Isolated.h"

#include "Register.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <utility>

namespace {

/// Writes every median to the descriptor `out`, a line for each.
void sendTo(int out, const MedianReporter& measured) {
    std::FILE* const file = fdopen(out, "w");
    for (const auto& [name, seconds] : measured.all()) {
        std::fprintf(file, "%.17g %s\n", seconds, name.c_str());
    }
    std::fclose(file);
}

void receiveFrom(int in, MedianReporter& measured) {
    std::FILE* const file = fdopen(in, "r");
    double seconds = 0;
    char name[200];
    while (std::fscanf(file, "%lg %199s", &seconds, name) == 2) {
        measured.note(name, seconds);
    }
    std::fclose(file);
}

} // namespace

bool isolated::run(MedianReporter& measured, const std::function<void(MedianReporter&)>& measure) {
    int ends[2];
    if (pipe(ends) != 0) {
        return false;
    }
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        MedianReporter own;
        measure(own);
        sendTo(ends[1], own);
        std::fflush(nullptr);
        _exit(0);
    }
    close(ends[1]);
    receiveFrom(ends[0], measured);
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && status == 0;
}

void isolated::measureFresh(MedianReporter& measured) {
    const std::pair<const char*, SharedSubject> all[] = {
        {"T", subjects::structs(10000)}, {"U", subjects::numbers()}, {"V", subjects::orders()}};
    for (const auto& [letter, subject] : all) {
        const std::string name = std::string("fresh/read/") + letter;
        bench::addReading(name + "/tzsoap", subject, bench::Heap::Fresh);
        bench::addOnText(name + "/expat", subject, peers::expatNoOp, bench::Heap::Fresh);
    }
    benchmark::RunSpecifiedBenchmarks(&measured);
}
