// SPDX-License-Identifier: MIT
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

/// A message that is measured: made when its first benchmark runs, kept for the others.
class Subject {
public:
    explicit Subject(std::function<TzSoapMessage()> make) : make_(std::move(make)) {}

    TzSoapMessage& message() {
        if (message_ == nullptr) {
            message_ = std::make_unique<TzSoapMessage>(make_());
            text_ = workloads::textOf(*message_);
        }
        return *message_;
    }
    const std::string& text() {
        message();
        return text_;
    }
    const peers::Document& document() {
        if (document_ == nullptr) {
            document_ = peers::libxmlRead(text());
        }
        return document_;
    }

private:
    std::function<TzSoapMessage()> make_;
    std::unique_ptr<TzSoapMessage> message_;
    std::string text_;
    peers::Document document_;
};

using SharedSubject = std::shared_ptr<Subject>;

using bench::add;
using bench::suffixOf;

/// Measures `work`, called with the text of the subject.
template <typename Work>
void addOnText(const std::string& name, const SharedSubject& subject, Work work) {
    add(name, [subject, work](benchmark::State& state) {
        const std::string& text = subject->text();
        for (auto _ : state) {
            work(text);
        }
        state.SetBytesProcessed(static_cast<int64_t>(text.size()) * state.iterations());
    });
}

void readAndDrop(const std::string& text) {
    TzSoapMessage message;
    message.extract(text);
    benchmark::DoNotOptimize(message);
}

/// Reading alone: the message that was read goes outside the measured time.
void addReading(const std::string& name, const SharedSubject& subject) {
    add(name, [subject](benchmark::State& state) {
        const std::string& text = subject->text();
        for (auto _ : state) {
            auto message = std::make_unique<TzSoapMessage>();
            message->extract(text);
            state.PauseTiming();
            message.reset();
            state.ResumeTiming();
        }
        state.SetBytesProcessed(static_cast<int64_t>(text.size()) * state.iterations());
    });
}

/// Small messages: the clock would cost more than the message, so what was read is dropped in the
/// measured time.
void addSmallReading(const std::string& name, const SharedSubject& subject) {
    addOnText(name, subject, readAndDrop);
}

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
        const peers::Document& document = subject->document();
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
        const auto subject =
            std::make_shared<Subject>([structs] { return workloads::structs(structs); });
        const std::string suffix = suffixOf(structs);
        addReading("read/T/tzsoap" + suffix, subject);
        if (structs == 10000) {
            addOnText("read/T/expat" + suffix, subject, peers::expatNoOp);
            addOnText("read/T/libxml2" + suffix, subject, peers::libxmlRead);
            addOnText("read/T/pugixml" + suffix, subject, peers::pugixmlRead);
            addOnText("readDrop/T/tzsoap" + suffix, subject, readAndDrop);
            addWriting("write/T", suffix, subject);
            addSerializing("serialize/T", subject);
            addPeerWriting("write/T", suffix, subject);
            records::addBenchmarks(suffix,
                                   [subject]() -> const std::string& { return subject->text(); });
        }
    }
}

void addRequest() {
    const auto subject = std::make_shared<Subject>(workloads::request);
    addSmallReading("read/S/tzsoap", subject);
    addOnText("read/S/expat", subject, peers::expatNoOp);
    addWriting("write/S", "", subject);
    addPeerWriting("write/S", "", subject);
}

void addArrays() {
    const auto numbers = std::make_shared<Subject>([] { return workloads::intArray(1000000); });
    const auto orders = std::make_shared<Subject>([] { return workloads::structArray(10000); });
    const std::pair<const char*, SharedSubject> arrays[] = {{"U", numbers}, {"V", orders}};
    for (const auto& [name, subject] : arrays) {
        addReading(std::string("read/") + name + "/tzsoap", subject);
        addOnText(std::string("read/") + name + "/expat", subject, peers::expatNoOp);
        addWriting(std::string("write/") + name, "", subject);
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
    // Memory that was freed stays with the program, so that page faults do not count.
    mallopt(M_TRIM_THRESHOLD, -1);
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    benchmark::Initialize(&argc, argv);
    addStructs();
    addRequest();
    addArrays();
    addIndexing();
    packages::addBenchmarks();
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return printTable(reporter) ? 0 : 2;
}
