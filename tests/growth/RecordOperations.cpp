// SPDX-License-Identifier: MIT
//
// What programs do with lists of records: views, structs, one record after the other.
#include "growth/Operations.h"

#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapEntryReader.h>
#include <soap/TzSoapFields.h>
#include <soap/TzSoapMessage.h>
#include <tz/tools/Tzxmsg.h>

#include <algorithm>
#include <optional>
#include <sstream>
#include <string_view>

namespace {

struct Line {
    std::string article;
    int amount = 0;
};

struct Record {
    int id = 0;
    std::string name;
    int number = 0;
    std::optional<double> price;
    std::vector<std::string> tags;
    std::vector<Line> lines;
};

struct List {
    std::vector<Record> records;
};

} // namespace

template <> struct TzSoapFields<Line> {
    static constexpr auto fields =
        tzFields(tzField("article", &Line::article), tzField("amount", &Line::amount));
};

template <> struct TzSoapFields<Record> {
    static constexpr auto fields =
        tzFields(tzAttribute("id", &Record::id), tzField("name", &Record::name),
                 tzField("number", &Record::number), tzField("price", &Record::price),
                 tzField("tag", &Record::tags), tzField("line", &Record::lines));
};

template <> struct TzSoapFields<List> {
    static constexpr auto fields = tzFields(tzField("r", &List::records));
};

namespace growth {

namespace {

TzSoapMessage messageOf(const std::string& text, TzSoapStyle style) {
    TzSoapMessage message;
    message.setStyle(style);
    message.extract(std::string_view(text));
    return message;
}

/// Does what a text may be wrong for: an error is a result as well.
template <typename Work> void attempt(const Work& work) {
    try {
        work();
    } catch (const Tzxmsg&) {
    }
}

/// Does `work` with each record, those that are wrong included.
template <typename Work> Measured viewing(const std::string& text, TzSoapStyle style, Work work) {
    Measured measured{.text = text.size()};
    const TzSoapMessage message = messageOf(text, style);
    startCounting();
    for (const TzSoapView& entry : TzSoapView(message).all()) {
        for (const TzSoapView& record : entry.all()) {
            attempt([&] { work(record); });
        }
    }
    measured.count = counted();
    return measured;
}

template <TzSoapStyle Style> Measured readingRecords(const std::string& text) {
    return viewing(text, Style, [](const TzSoapView& record) { record.as<Record>(); });
}

Measured readingMembers(const std::string& text) {
    return viewing(text, TzSoapStyle::Literal, [](const TzSoapView& record) {
        record.attribute<int>("id");
        record.optional<double>("price");
        record["number"].as<int>();
    });
}

template <TzSoapStyle Style> Measured readingList(const std::string& text) {
    Measured measured{.text = text.size()};
    const TzSoapMessage message = messageOf(text, Style);
    startCounting();
    attempt([&] { TzSoapView(message)["list"].as<List>(); });
    measured.count = counted();
    return measured;
}

Measured makingList(const std::string& text) {
    Measured measured{.text = text.size()};
    List list;
    attempt([&] { list = TzSoapView(messageOf(text, TzSoapStyle::Literal))["list"].as<List>(); });
    startCounting();
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(tzSoapValue(list, TzXmlName("list"), TzSoapStyle::Encoded));
    measured.written = message.asText(TzSoapLayout::Compact).size();
    measured.count = counted();
    return measured;
}

/// Reads `text` record by record with `read`.
template <typename Read> Measured reading(const std::string& text, Read read) {
    Measured measured{.text = text.size()};
    startCounting();
    TzSoapEntryReader reader([](const TzSoapView& record) {
        attempt([&] { record.as<Record>(); });
        return true;
    });
    attempt([&] { read(reader); });
    measured.count = counted();
    return measured;
}

Measured readingText(const std::string& text) {
    return reading(text, [&](TzSoapEntryReader& reader) { reader.read(text); });
}

Measured readingStream(const std::string& text) {
    std::istringstream stream(text);
    return reading(text, [&](TzSoapEntryReader& reader) { reader.read(stream); });
}

/// Chunks of up to `Most` bytes, which cut every tag, name and character somewhere.
template <std::size_t Most> Measured readingChunks(const std::string& text) {
    return reading(text, [&](TzSoapEntryReader& reader) {
        std::string_view rest = text;
        for (std::size_t i = 0; !rest.empty(); ++i) {
            const std::string_view chunk = rest.substr(0, 1 + i * 7 % Most);
            rest.remove_prefix(chunk.size());
            reader.feed(chunk);
        }
        reader.finish();
    });
}

template <TzSoapStyle Style> Measured answering(const std::string& text) {
    Measured measured{.text = text.size()};
    TzSoapDispatcher service(Style);
    service.add("list", [](const List& list) { return list; });
    startCounting();
    const TzSoapHttpAnswer answer = service.answer({"text/xml", "", text});
    measured.written = answer.body.size();
    measured.count = counted();
    return measured;
}

} // namespace

// Twice the largest that was counted.
std::vector<Operation> recordOperations() {
    constexpr std::size_t Tiny = 1;
    constexpr std::size_t Small = 24;
    constexpr std::size_t Large = 5'000;
    return {
        {"Records", readingRecords<TzSoapStyle::Literal>, 3000, 30},
        {"EncodedRecords", readingRecords<TzSoapStyle::Encoded>, 3000, 30},
        {"Members", readingMembers, 750, 30},
        {"List", readingList<TzSoapStyle::Literal>, 120, 15},
        {"EncodedList", readingList<TzSoapStyle::Encoded>, 160, 15},
        {"MakeList", makingList, 180, 15},
        {"EntriesOfText", readingText, 3400, 100},
        {"EntriesOfStream", readingStream, 3400, 100},
        {"EntriesOfBytes", readingChunks<Tiny>, 4700, 100},
        {"EntriesOfSmallChunks", readingChunks<Small>, 3500, 100},
        {"EntriesOfLargeChunks", readingChunks<Large>, 3400, 100},
        {"AnswerList", answering<TzSoapStyle::Literal>, 3400, 100},
        {"AnswerEncodedList", answering<TzSoapStyle::Encoded>, 3500, 100},
    };
}

} // namespace growth
