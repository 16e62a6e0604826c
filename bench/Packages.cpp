// SPDX-License-Identifier: MIT
#include "Packages.h"

#include "HeapCount.h"
#include "Peers.h"
#include "Register.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapReferenceType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>

#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr std::size_t LargeSize = std::size_t{64} << 20;
constexpr std::size_t SmallSize = 1024;

/// Bytes of every value, equal in every run.
std::string bytes(std::size_t size, std::mt19937_64& random) {
    std::string made(size, '\0');
    for (char& byte : made) {
        byte = static_cast<char>(random() >> 56);
    }
    return made;
}

TzMimePart part(int number, std::string body) {
    TzMimePart made;
    made.insertHeader(TzMimeHeader("Content-Type", "application/octet-stream"));
    made.insertHeader(TzMimeHeader("Content-Transfer-Encoding", "binary"));
    made.insertHeader(TzMimeContentIdHeader(std::to_string(number).append("@example")));
    made.setBody(std::move(body));
    return made;
}

/// A message and its text, made when the first benchmark asks for them.
class Package {
public:
    Package(int parts, std::size_t size) : parts_(parts), size_(size) {}

    const TzSoapMessage& message() {
        if (message_ == nullptr) {
            message_ = std::make_unique<TzSoapMessage>(packages::message(parts_, size_));
            text_ = message_->asString();
        }
        return *message_;
    }
    const std::string& text() {
        message();
        return text_;
    }

private:
    int parts_;
    std::size_t size_;
    std::unique_ptr<TzSoapMessage> message_;
    std::string text_;
};

using SharedPackage = std::shared_ptr<Package>;

void addReading(const std::string& name, const SharedPackage& package) {
    bench::add(name, [package](benchmark::State& state) {
        const std::string& text = package->text();
        for (auto _ : state) {
            TzSoapMessage message;
            message.extract(text);
            benchmark::DoNotOptimize(message);
        }
    });
}

/// The text is handed over; the copy that is handed over is made outside the measured time.
void addReadingOver(const std::string& name, const SharedPackage& package) {
    bench::add(name, [package](benchmark::State& state) {
        const std::string& text = package->text();
        std::string handed;
        std::unique_ptr<TzSoapMessage> message;
        for (auto _ : state) {
            bench::unmeasured(state, [&] {
                message.reset();
                handed = text;
            });
            message = std::make_unique<TzSoapMessage>();
            message->extract(std::move(handed));
        }
    });
}

/// Writing to a sink that only counts: a package that a program made, or one that was read.
void addCounting(const std::string& name, const SharedPackage& package, bool isRead) {
    bench::add(name, [package, isRead](benchmark::State& state) {
        TzSoapMessage message = package->message();
        if (isRead) {
            message = TzSoapMessage();
            message.extract(package->text());
        }
        for (auto _ : state) {
            std::size_t size = 0;
            message.writeTo([&size](std::string_view piece) { size += piece.size(); });
            benchmark::DoNotOptimize(size);
        }
    });
}

void addWriting(const std::string& name, const SharedPackage& package) {
    bench::add(name, [package](benchmark::State& state) {
        const TzSoapMessage& message = package->message();
        for (auto _ : state) {
            benchmark::DoNotOptimize(message.asString());
        }
    });
}

} // namespace

TzSoapMessage packages::message(int parts, std::size_t size) {
    std::mt19937_64 random(17);
    TzSoapCompositeType files{TzXmlName("files")};
    for (int number = 0; number < parts; ++number) {
        files.appendChild(
            TzSoapReferenceType(TzXmlName("file"), part(number, bytes(size, random))));
    }
    TzSoapMessage made(TzSoapVersion::V1_1);
    made.getSoapBody().appendEntry(files);
    return made;
}

void packages::addBenchmarks() {
    const auto large = std::make_shared<Package>(1, LargeSize);
    addReading("package/large/read", large);
    addWriting("package/large/write", large);
    bench::add("package/large/copy", [large](benchmark::State& state) {
        const std::string& text = large->text();
        for (auto _ : state) {
            std::string copy(text);
            benchmark::DoNotOptimize(copy.data());
        }
    });
    addReadingOver("package/large/readOver", large);
    addCounting("package/large/count", large, false);
    addCounting("package/large/countRead", large, true);
    bench::add("package/large/memmem", [large](benchmark::State& state) {
        const std::string& text = large->text();
        for (auto _ : state) {
            benchmark::DoNotOptimize(peers::memmemCount(text, "\r\n--MIME_boundary"));
        }
    });
    for (const int parts : {10, 1000, 10000}) {
        const auto package = std::make_shared<Package>(parts, SmallSize);
        const std::string suffix = bench::suffixOf(parts);
        addReading("package/read" + suffix, package);
        addWriting("package/write" + suffix, package);
        if (parts == 1000) {
            bench::add("package/gmime" + suffix, [package](benchmark::State& state) {
                const std::string& text = package->text();
                for (auto _ : state) {
                    peers::gmimeRead(text);
                }
            });
        }
    }
}

double packages::peakOfReading() {
    const std::string text = message(1, LargeSize).asString();
    HeapCount::startPeak();
    const std::size_t before = HeapCount::now().bytes;
    TzSoapMessage message;
    message.extract(text);
    return static_cast<double>(HeapCount::peakBytes() - before) / static_cast<double>(text.size());
}
