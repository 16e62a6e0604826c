// SPDX-License-Identifier: MIT
#include "Records.h"

#include "Register.h"

#include <soap/TzSoapEntryReader.h>
#include <soap/TzSoapFields.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapView.h>

#include <chrono>
#include <string>
#include <vector>

namespace {

struct Item {
    std::string symbol;
    int amount = 0;
    double price = 0;
    bool urgent = false;
    std::chrono::sys_seconds placed;
};

} // namespace

template <> struct TzSoapFields<Item> {
    static constexpr auto fields =
        tzFields(tzField("symbol", &Item::symbol), tzField("amount", &Item::amount),
                 tzField("price", &Item::price), tzField("urgent", &Item::urgent),
                 tzField("placed", &Item::placed));
};

namespace {

std::vector<Item> itemsOf(const TzSoapMessage& message) {
    return TzSoapView(message).first().as<std::vector<Item>>();
}

TzSoapMessage read(const std::string& text) {
    TzSoapMessage message;
    message.extract(text);
    return message;
}

std::size_t readInStream(const std::string& text) {
    std::size_t urgent = 0;
    auto reader = TzSoapEntryReader::of<Item>(
        "orders/item", [&urgent](Item&& item) { urgent += item.urgent ? 1 : 0; });
    reader.read(text);
    return urgent;
}

} // namespace

void records::addBenchmarks(const std::string& suffix,
                            const std::function<const std::string&()>& text) {
    bench::add("structs/T/message" + suffix, [text](benchmark::State& state) {
        const TzSoapMessage message = read(text());
        for (auto _ : state) {
            benchmark::DoNotOptimize(itemsOf(message));
        }
    });
    bench::add("structs/T/text" + suffix, [text](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(itemsOf(read(text())));
        }
    });
    bench::add("structs/T/stream" + suffix, [text](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(readInStream(text()));
        }
    });
    bench::add("structs/T/make" + suffix, [text](benchmark::State& state) {
        const std::vector<Item> items = itemsOf(read(text()));
        for (auto _ : state) {
            benchmark::DoNotOptimize(tzSoapValue(items, TzXmlName("orders"), TzSoapStyle::Literal));
        }
    });
}
