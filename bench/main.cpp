// SPDX-License-Identifier: MIT
#include "Isolated.h"
#include "Packages.h"
#include "Peers.h"
#include "Records.h"
#include "Register.h"
#include "Table.h"
#include "Workloads.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapSimpleType.h>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using bench::add;
using bench::addOnText;
using bench::addReading;
using bench::suffixOf;

void addWriting(const std::string& name, const std::string& suffix, const SharedSubject& subject) {
    add(name + "/tzsoap" + suffix, [subject](benchmark::State& state) {
        TzSoapMessage& message = subject->message();
        for (auto _ : state) {
            benchmark::DoNotOptimize(message.asString());
        }
    });
}

void addPeerWriting(const std::string& name, const std::string& suffix,
                    const SharedSubject& subject) {
    add(name + "/libxml2" + suffix, [subject](benchmark::State& state) {
        const peers::LibxmlDocument& document = subject->libxmlDocument();
        for (auto _ : state) {
            benchmark::DoNotOptimize(peers::libxmlWrite(document));
        }
    });
}

/// The application's own output path.
void addSerializing(const std::string& name, const SharedSubject& subject) {
    add(name, [subject](benchmark::State& state) {
        const TzSoapMessage& message = subject->message();
        for (auto _ : state) {
            TzSoapSerializer serializer;
            message.acceptVisitor(serializer);
            benchmark::DoNotOptimize(std::move(serializer).getSerializedString());
        }
    });
}

void addStructs() {
    for (const int structs : {100, 1000, 10000, 100000}) {
        const SharedSubject subject = subjects::structs(structs);
        const std::string suffix = suffixOf(structs);
        addReading("read/T/tzsoap" + suffix, subject);
        if (structs == 10000) {
            addOnText("read/T/expat" + suffix, subject, peers::expatNoOp);
            addOnText("read/T/libxml2" + suffix, subject, peers::libxmlRead);
            addOnText("read/T/pugixml" + suffix, subject, peers::pugixmlRead);
            bench::addReadingAndDropping("readDrop/T/tzsoap" + suffix, subject);
            bench::addDropping("drop/T/tzsoap", subject);
            bench::addRawWriting("raw/T", subject);
            addWriting("write/T", suffix, subject);
            addSerializing("serialize/T", subject);
            addPeerWriting("write/T", suffix, subject);
            records::addBenchmarks(suffix,
                                   [subject]() -> const std::string& { return subject->text(); });
        }
    }
}

void addRequest() {
    const SharedSubject subject = subjects::request();
    bench::addReadingAndDropping("read/S/tzsoap", subject);
    addOnText("read/S/expat", subject, peers::expatNoOp);
    addWriting("write/S", "", subject);
    addPeerWriting("write/S", "", subject);
    bench::addRawWriting("raw/S", subject);
}

void addTexts() {
    const std::pair<const char*, SharedSubject> texts[] = {{"Y", subjects::references()},
                                                           {"Z", subjects::escapes()}};
    for (const auto& [letter, subject] : texts) {
        addReading(std::string("read/") + letter + "/tzsoap", subject);
        addOnText(std::string("read/") + letter + "/expat", subject, peers::expatNoOp);
        bench::addRawWriting(std::string("raw/") + letter, subject);
    }
}

void addArrays() {
    const std::pair<const char*, SharedSubject> arrays[] = {{"U", subjects::numbers()},
                                                            {"V", subjects::orders()}};
    for (const auto& [name, subject] : arrays) {
        addReading(std::string("read/") + name + "/tzsoap", subject);
        addOnText(std::string("read/") + name + "/expat", subject, peers::expatNoOp);
        addWriting(std::string("write/") + name, "", subject);
        bench::addRawWriting(std::string("raw/") + name, subject);
        addSerializing(std::string("serialize/") + name, subject);
        // Last, because the peer's document stays.
        addPeerWriting(std::string("write/") + name, "", subject);
    }
    for (const int members : {1000, 10000, 100000}) {
        const std::string suffix = suffixOf(members);
        addReading("read/W/tzsoap" + suffix, std::make_shared<Subject>([members] {
                       return workloads::sparseArray(members);
                   }));
        addReading("read/X/tzsoap" + suffix,
                   std::make_shared<Subject>([members] { return workloads::references(members); }));
    }
}

/// Visits every item of a 1000 x 1000 array by its index vector.
template <typename Access> void visitGrid(benchmark::State& state, Access access) {
    constexpr unsigned int Side = 1000;
    std::vector<unsigned int> index(2);
    for (auto _ : state) {
        for (index[0] = 0; index[0] < Side; ++index[0]) {
            for (index[1] = 0; index[1] < Side; ++index[1]) {
                benchmark::DoNotOptimize(&access(index));
            }
        }
    }
}

void addIndexing() {
    add("index/compact", [](benchmark::State& state) {
        TzSoapCompactArrayType grid("xsd:int", std::vector<unsigned int>{1000, 1000},
                                    std::vector<unsigned int>{0, 0});
        visitGrid(state, [&grid](const std::vector<unsigned int>& index) -> TzSoapType& {
            return grid(index);
        });
    });
    add("index/vector", [](benchmark::State& state) {
        std::vector<TzSoapType> grid(1000000);
        visitGrid(state, [&grid](const std::vector<unsigned int>& index) -> TzSoapType& {
            return grid[index[0] * 1000 + index[1]];
        });
    });
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    const bool complete = isolated::run(reporter, isolated::measureThreads) &&
                          isolated::run(reporter, isolated::measureFresh);
    // From now on memory that was freed stays with the program, so that page faults do not count.
    mallopt(M_TRIM_THRESHOLD, -1);
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    addStructs();
    addRequest();
    addTexts();
    addArrays();
    addIndexing();
    packages::addBenchmarks();
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return printTable(reporter) && complete ? 0 : 2;
}
