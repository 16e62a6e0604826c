// SPDX-License-Identifier: MIT
// Any bytes, as a text of records: in chunks there are the same records as in one piece.
#include "FuzzTarget.h"

#include <soap/TzSoapEntryReader.h>

#include <optional>
#include <string_view>
#include <vector>

namespace {

struct Record {
    std::optional<double> number;
    std::vector<Record> records;
};

} // namespace

template <> struct TzSoapFields<Record> {
    static constexpr auto fields =
        tzFields(tzField("n", &Record::number), tzField("r", &Record::records));
};

namespace {

/// The texts of all records that come before the text ends or an error ends it.
class Records {
public:
    explicit Records(TzSoapStyle style)
        : reader_([this](const TzSoapView& record) { return take(record); }) {
        reader_.setStyle(style);
        reader_.setReadLimits({.soap12Recommendation = true});
    }

    std::vector<std::string> readWhole(std::string_view text) {
        accepted([&] { reader_.read(text); });
        return std::move(texts_);
    }
    std::vector<std::string> readChunks(std::string_view text, std::size_t chunk) {
        accepted([&] {
            for (; !text.empty(); text.remove_prefix(std::min(chunk, text.size()))) {
                reader_.feed(text.substr(0, chunk));
            }
            reader_.finish();
        });
        return std::move(texts_);
    }

private:
    bool take(const TzSoapView& record) {
        accepted([&] { static_cast<void>(record.as<Record>()); });
        texts_.push_back(record.getPath());
        accepted([&] { texts_.back() += record.getValue().getName().asString(); });
        return true;
    }

    TzSoapEntryReader reader_;
    std::vector<std::string> texts_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    for (const TzSoapStyle style : Styles) {
        const std::vector<std::string> whole = Records(style).readWhole(text);
        for (const std::size_t chunk : {std::size_t{1}, std::size_t{7}, std::size_t{300}}) {
            if (Records(style).readChunks(text, chunk) != whole) {
                report("chunks make other records", text);
            }
        }
    }
    return 0;
}
