// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlDuration.h>

#include <tz/xml/TzXmlBadArgError.h>

#include "tools/TzDigits.h"
#include "tools/TzTextReader.h"

#include <algorithm>
#include <span>

namespace {

using Parts = TzXmlDuration::Parts;

/// A part and the letter after its number.
struct Designator {
    char letter;
    std::uint64_t Parts::*part;
};

constexpr Designator DateParts[] = {
    {'Y', &Parts::years}, {'M', &Parts::months}, {'D', &Parts::days}};
constexpr Designator TimeParts[] = {
    {'H', &Parts::hours}, {'M', &Parts::minutes}, {'S', &Parts::seconds}};

/// Reads the parts that come next, which keep the order of `designators`; fails when no
/// part comes.
void readParts(TzTextReader& reader, std::span<const Designator> designators, Parts& parts) {
    do {
        const std::uint64_t number = reader.number();
        const bool point = reader.take('.');
        parts.nanoseconds = point ? reader.billionths() : 0;
        const char letter = reader.takeAny();
        const auto found =
            std::find_if(designators.begin(), designators.end(),
                         [&](const Designator& each) { return each.letter == letter; });
        if (found == designators.end() || (point && letter != 'S')) {
            reader.fail();
            return;
        }
        parts.*found->part = number;
        designators =
            designators.subspan(static_cast<std::size_t>(found - designators.begin()) + 1);
    } while (reader.atDigit());
}

void appendPart(TzCString& text, const Parts& parts, const Designator& designator) {
    const std::uint64_t number = parts.*designator.part;
    const std::uint32_t fraction = designator.letter == 'S' ? parts.nanoseconds : 0;
    if (number != 0 || fraction != 0) {
        text += std::to_string(number);
        TzDigits::appendBillionths(text, fraction);
        text += designator.letter;
    }
}

} // namespace

TzXmlDuration::TzXmlDuration(const Parts& parts, bool negative)
    : parts_(parts), negative_(negative && parts != Parts()) {
    if (parts.nanoseconds >= 1'000'000'000) {
        throw TzXmlBadArgError(TzMessage("the fraction of a duration must be below one second"));
    }
}

TzXmlDuration::TzXmlDuration(std::string_view text) {
    TzTextReader reader(text);
    const bool negative = reader.take('-');
    reader.expect('P');
    bool time = reader.take('T');
    if (!time) {
        readParts(reader, DateParts, parts_);
        time = reader.take('T');
    }
    if (time) {
        readParts(reader, TimeParts, parts_);
    }
    if (!reader.complete()) {
        throw TzXmlBadArgError(
            TzMessage(tzQuoted(text) + " is not a duration of the form PnYnMnDTnHnMnS"));
    }
    negative_ = negative && parts_ != Parts();
}

TzCString TzXmlDuration::asString() const {
    TzCString date;
    for (const Designator& designator : DateParts) {
        appendPart(date, parts_, designator);
    }
    TzCString time;
    for (const Designator& designator : TimeParts) {
        appendPart(time, parts_, designator);
    }
    if (date.empty() && time.empty()) {
        return "PT0S";
    }
    return (negative_ ? "-P" : "P") + date + (time.empty() ? "" : "T") + time;
}
