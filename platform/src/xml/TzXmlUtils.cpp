// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlUtils.h>

#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzTextTools.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "tools/TzDigits.h"
#include "tools/TzTextReader.h"

#include <algorithm>

namespace {

[[noreturn]] void refuse(TzCString text) { throw TzXmlBadArgError(TzMessage(std::move(text))); }

void appendDate(TzCString& text, const TzDate& date) {
    TzDigits::appendPadded(text, static_cast<unsigned>(date.getYear()), 4);
    text += '-';
    TzDigits::appendPadded(text, date.getMonth(), 2);
    text += '-';
    TzDigits::appendPadded(text, date.getDay(), 2);
}

void appendSeconds(TzCString& text, const TzDateTime& time) {
    TzDigits::appendPadded(text, time.getSecond(), 2);
    TzDigits::appendBillionths(text, time.getNanosecond());
}

void appendTime(TzCString& text, const TzDateTime& time) {
    TzDigits::appendPadded(text, time.getHour(), 2);
    text += ':';
    TzDigits::appendPadded(text, time.getMinute(), 2);
    text += ':';
    appendSeconds(text, time);
}

void appendDirective(TzCString& text, const TzDateTime& time, char directive) {
    switch (directive) {
    case 'Y':
        return TzDigits::appendPadded(text, static_cast<unsigned>(time.getYear()), 4);
    case 'm':
        return TzDigits::appendPadded(text, time.getMonth(), 2);
    case 'd':
        return TzDigits::appendPadded(text, time.getDay(), 2);
    case 'H':
        return TzDigits::appendPadded(text, time.getHour(), 2);
    case 'M':
        return TzDigits::appendPadded(text, time.getMinute(), 2);
    case 'S':
        return appendSeconds(text, time);
    case 'F':
        return appendDate(text, time.getDate());
    case 'T':
    case 'X':
        return appendTime(text, time);
    case '%':
        text += '%';
        return;
    default:
        refuse(tzQuoted(TzCString{'%', directive}) + " is not a directive of a date format");
    }
}

std::chrono::year_month_day readDay(TzTextReader& reader) {
    const unsigned year = reader.number(4);
    reader.expect('-');
    const unsigned month = reader.number(2);
    reader.expect('-');
    return TzDate(static_cast<int>(year), month, reader.number(2)).getCalendarDay();
}

std::optional<TzUtcOffset> readOffset(TzTextReader& reader) {
    if (reader.take('Z')) {
        return TzUtcOffset();
    }
    const bool isNegative = reader.take('-');
    if (!isNegative && !reader.take('+')) {
        return {};
    }
    const std::chrono::hours hours(reader.number(2));
    reader.expect(':');
    const std::chrono::minutes minutes(reader.number(2));
    if (minutes >= std::chrono::hours(1)) {
        reader.fail();
    }
    return TzUtcOffset(isNegative ? -(hours + minutes) : hours + minutes);
}

/// The time of day and the offset that come next; 24:00:00 is the midnight that ends `day`.
TzDateTime readTime(TzTextReader& reader, std::chrono::year_month_day day) {
    unsigned hour = reader.number(2);
    reader.expect(':');
    const unsigned minute = reader.number(2);
    reader.expect(':');
    const unsigned second = reader.number(2);
    const unsigned nanosecond = reader.take('.') ? reader.billionths() : 0;
    if (hour == 24 && minute == 0 && second == 0 && nanosecond == 0 && TzDate(day).isValid()) {
        hour = 0;
        day = std::chrono::sys_days(day) + std::chrono::days(1);
    }
    return {TzDate(day, readOffset(reader)), hour, minute, second, nanosecond};
}

/// Whether the text begins with a time of day: two digits and ':'.
bool beginsWithTime(std::string_view text) { return text.size() > 2 && text[2] == ':'; }

} // namespace

std::string_view TzXmlUtils::trim(std::string_view text) noexcept {
    text.remove_prefix(std::min(text.find_first_not_of(WhiteSpace), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(WhiteSpace) + 1));
    return text;
}

std::string_view TzXmlUtils::requireText(const char* text) {
    if (text == nullptr) {
        refuse("a null pointer is not a text");
    }
    return text;
}

void TzXmlUtils::getPrefixAndLocalName(std::string_view text, TzCString& prefix,
                                       TzCString& localName) {
    const TzTextTools::SplitName name = TzTextTools::splitName(text);
    prefix = name.prefix;
    localName = name.localName;
}

TzCString TzXmlUtils::convertDateToISOString(const TzDate& date) {
    return convertDateTimeToISOString(TzDateTime(date, 0, 0, 0), "%F");
}

TzCString TzXmlUtils::convertDateTimeToISOString(const TzDateTime& dateTime,
                                                 std::string_view format) {
    if (!dateTime.isValid()) {
        refuse("a date or time that does not exist cannot be written");
    }
    TzCString text;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            text += format[i];
        } else {
            ++i;
            appendDirective(text, dateTime, i < format.size() ? format[i] : ' ');
        }
    }
    if (dateTime.getOffset()) {
        text += dateTime.getOffset()->asString();
    }
    return text;
}

TzDate TzXmlUtils::convertISODateStringToDate(std::string_view text) {
    TzTextReader reader(text);
    const std::chrono::year_month_day day = readDay(reader);
    const TzDate date(day, readOffset(reader));
    if (!reader.complete() || !date.isValid()) {
        refuse(tzQuoted(text) + " is not a date of the form YYYY-MM-DD");
    }
    return date;
}

TzDateTime TzXmlUtils::convertISODateStringToDateTime(std::string_view text) {
    TzTextReader reader(text);
    std::chrono::year_month_day day = TzDate().getCalendarDay();
    if (!reader.take('T') && !beginsWithTime(text)) {
        day = readDay(reader);
        reader.expect('T');
    }
    const TzDateTime time = readTime(reader, day);
    if (!reader.complete() || !time.isValid()) {
        refuse(tzQuoted(text) + " is not a date and time of the form YYYY-MM-DDThh:mm:ss");
    }
    return time;
}
