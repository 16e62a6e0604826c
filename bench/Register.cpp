// SPDX-License-Identifier: MIT
#include "Register.h"

#include <tz/thread/TzTSpares.h>

void bench::addReading(const std::string& name, const SharedSubject& subject, Heap heap) {
    add(name, [subject, heap](benchmark::State& state) {
        const std::string& text = subject->text();
        std::unique_ptr<TzSoapMessage> message;
        for (auto _ : state) {
            unmeasured(state, [&] {
                message.reset();
                if (heap == Heap::Fresh) {
                    TzSpares::dropOfThisThread();
                    malloc_trim(0);
                }
            });
            message = std::make_unique<TzSoapMessage>();
            message->extract(text);
        }
        state.SetBytesProcessed(static_cast<int64_t>(text.size()) * state.iterations());
    });
}

void bench::addReadingAndDropping(const std::string& name, const SharedSubject& subject) {
    addOnText(name, subject, [](const std::string& text) {
        TzSoapMessage message;
        message.extract(text);
        benchmark::DoNotOptimize(message);
    });
}

void bench::addDropping(const std::string& name, const SharedSubject& subject) {
    add(name, [subject](benchmark::State& state) {
        const std::string& text = subject->text();
        std::unique_ptr<TzSoapMessage> message;
        for (auto _ : state) {
            unmeasured(state, [&] {
                message = std::make_unique<TzSoapMessage>();
                message->extract(text);
            });
            message.reset();
        }
    });
}

void bench::addRawWriting(const std::string& name, const SharedSubject& subject) {
    // Read, as the peer's document is.
    add(name + "/tzsoap", [subject](benchmark::State& state) {
        TzSoapMessage message;
        message.extract(subject->text());
        std::string text;
        for (auto _ : state) {
            text.clear();
            message.writeTo(text, TzSoapLayout::Compact);
            benchmark::DoNotOptimize(text.data());
        }
    });
    add(name + "/pugixml", [subject](benchmark::State& state) {
        const peers::PugixmlDocument& document = subject->pugixmlDocument();
        std::string text;
        for (auto _ : state) {
            peers::pugixmlWrite(document, text);
            benchmark::DoNotOptimize(text.data());
        }
    });
}
