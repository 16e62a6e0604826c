// SPDX-License-Identifier: MIT
//
// Prints what the texts of the growth tests cost, as a table for docs/reliability.md.
#include "HeapCount.h"
#include "growth/Families.h"

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapVersionConverter.h>
#include <soap/TzSoapWriter.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlStringWriter.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t Bytes = 100'000;
constexpr int Repetitions = 3;

double processorSeconds() {
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

/// The fastest of some runs, each after its own `prepare`.
template <typename Prepare, typename Work> double seconds(Prepare prepare, Work work) {
    double fastest = 1e9;
    for (int i = 0; i < Repetitions; ++i) {
        auto subject = prepare();
        const double start = processorSeconds();
        work(subject);
        fastest = std::min(fastest, processorSeconds() - start);
    }
    return fastest;
}

/// A message that reads every version.
TzSoapMessage reader() {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    return message;
}

TzSoapMessage messageOf(const std::string& text) {
    TzSoapMessage message = reader();
    message.extract(std::string_view(text));
    return message;
}

std::size_t compactSize(const TzSoapMessage& message) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    writer.setVersion(message.getVersion());
    writer.setCompact(true);
    message.acceptVisitor(writer);
    return text.getString().size();
}

void serialize(const TzSoapMessage& message) {
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
}

void convert(TzSoapMessage& message) {
    const bool latest = message.getVersion() == TzSoapVersion::getLatestVersion();
    TzSoapVersionConverter(latest ? TzSoapVersion::V1_1 : TzSoapVersion::V1_2).convert(message);
}

std::size_t peakOfReading(const std::string& text) {
    const std::size_t before = HeapCount::now().bytes;
    HeapCount::startPeak();
    messageOf(text);
    return HeapCount::peakBytes() - before;
}

void printRow(const growth::Family& family) {
    const std::string text = family.text(Bytes);
    const auto size = double(text.size());
    const auto nanoseconds = [&](const std::function<void(TzSoapMessage&)>& work) {
        return seconds([&] { return messageOf(text); }, work) * 1e9 / size;
    };
    const double read =
        seconds([] { return reader(); },
                [&](TzSoapMessage& message) { message.extract(std::string_view(text)); }) *
        1e9 / size;
    std::printf("| %s | %zu | %.1f | %.1f | %.1f | %.1f | %.1f | %.2f |\n", family.name,
                text.size(), read, nanoseconds([](TzSoapMessage& message) {
                    message.hasAttachments() ? message.asPackage().asString() : message.asString();
                }),
                nanoseconds([](TzSoapMessage& message) { serialize(message); }),
                nanoseconds([](TzSoapMessage& message) { convert(message); }),
                double(peakOfReading(text)) / size, double(compactSize(messageOf(text))) / size);
}

void printRefusal(const growth::Family& family) {
    const std::string text = family.text(Bytes);
    const auto refuse = [&](TzSoapMessage& message) {
        try {
            message.extract(std::string_view(text));
            std::fprintf(stderr, "%s was accepted\n", family.name);
        } catch (const Tzxmsg&) {
        }
    };
    const double size = double(text.size());
    const double read = seconds([] { return reader(); }, refuse) * 1e9 / size;
    TzSoapMessage message = reader();
    const std::size_t before = HeapCount::now().bytes;
    HeapCount::startPeak();
    refuse(message);
    std::printf("| %s | %zu | %.1f | | | | %.1f | |\n", family.name, text.size(), read,
                double(HeapCount::peakBytes() - before) / size);
}

} // namespace

int main() {
    std::puts(
        "| family | text, bytes | read | written | serialized | converted | heap | compact |");
    std::puts("|---|---|---|---|---|---|---|---|");
    int status = 0;
    for (const growth::Family& family : growth::accepted()) {
        try {
            printRow(family);
        } catch (const Tzxmsg& error) {
            std::fprintf(stderr, "%s: %s\n", family.name, error.describe().c_str());
            status = 1;
        }
    }
    for (const growth::Family& family : growth::refused()) {
        printRefusal(family);
    }
    return status;
}
