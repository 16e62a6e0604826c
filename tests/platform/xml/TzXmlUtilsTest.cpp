// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlUtils.h>

#include <gtest/gtest.h>

#include <tz/tools/TzDateTime.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "support/ForeignLocale.h"
#include "support/Throws.h"

using std::chrono::hours;
using std::chrono::minutes;

namespace {

/// A date-time text read and written again.
TzCString again(std::string_view text) {
    return TzXmlUtils::convertDateTimeToISOString(TzXmlUtils::convertISODateStringToDateTime(text));
}

/// A date text read and written again.
TzCString dateAgain(std::string_view text) {
    return TzXmlUtils::convertDateToISOString(TzXmlUtils::convertISODateStringToDate(text));
}

void expectNoDateTime(const TzCString& text) {
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>([&] { TzXmlUtils::convertISODateStringToDateTime(text); }),
        '"' + text + "\" is not a date and time of the form YYYY-MM-DDThh:mm:ss");
}

void expectNoDate(const TzCString& text) {
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzXmlUtils::convertISODateStringToDate(text); }),
              '"' + text + "\" is not a date of the form YYYY-MM-DD");
}

} // namespace

TEST(TzXmlUtils, HasItsConstants) {
    EXPECT_EQ(TzXmlUtils::BlankUtf8, ' ');
    EXPECT_EQ(TzXmlUtils::NewlineUtf8, '\n');
    EXPECT_EQ(TzXmlUtils::TabUtf8, '\t');
    EXPECT_EQ(TzXmlUtils::WhiteSpace, " \n\t\r");
    EXPECT_EQ(TzXmlUtils::ISO8601Format, "%Y-%m-%dT%X");
}

TEST(TzXmlUtils, SplitsAtTheFirstColon) {
    const auto split = [](std::string_view text) {
        TzCString prefix = "old";
        TzCString local = "old";
        TzXmlUtils::getPrefixAndLocalName(text, prefix, local);
        return prefix + '|' + local;
    };
    EXPECT_EQ(split("xsd:int"), "xsd|int");
    EXPECT_EQ(split("int"), "|int");
    EXPECT_EQ(split("a:b:c"), "a|b:c");
    EXPECT_EQ(split(":b"), "|b");
    EXPECT_EQ(split("a:"), "a|");
    EXPECT_EQ(split(""), "|");
    EXPECT_EQ(split(" a : b "), " a | b ");
}

TEST(TzXmlUtils, WritesDates) {
    EXPECT_EQ(TzXmlUtils::convertDateToISOString(TzDate(2001, 2, 3)), "2001-02-03");
    EXPECT_EQ(TzXmlUtils::convertDateToISOString(TzDate(1, 12, 31)), "0001-12-31");
    EXPECT_EQ(TzXmlUtils::convertDateToISOString(TzDate(2001, 2, 3, TzUtcOffset())), "2001-02-03Z");
    EXPECT_EQ(TzXmlUtils::convertDateToISOString(TzDate(2001, 2, 3, TzUtcOffset(hours(-5)))),
              "2001-02-03-05:00");
}

TEST(TzXmlUtils, WritesDateTimes) {
    EXPECT_EQ(TzXmlUtils::convertDateTimeToISOString(TzDateTime(2001, 2, 3, 14, 5, 6)),
              "2001-02-03T14:05:06");
    EXPECT_EQ(TzXmlUtils::convertDateTimeToISOString(
                  TzDateTime(2001, 2, 3, 14, 5, 6, 120'000'000, TzUtcOffset(minutes(330)))),
              "2001-02-03T14:05:06.12+05:30");
    EXPECT_EQ(
        TzXmlUtils::convertDateTimeToISOString(TzDateTime(2001, 2, 3, 0, 0, 0, 1, TzUtcOffset())),
        "2001-02-03T00:00:00.000000001Z");
}

TEST(TzXmlUtils, WritesDateTimesInAFormat) {
    const TzDateTime time(2001, 2, 3, 14, 5, 6, 500'000'000, TzUtcOffset());
    const auto as = [&](std::string_view format) {
        return TzXmlUtils::convertDateTimeToISOString(time, format);
    };
    EXPECT_EQ(as("%Y-%m-%d"), "2001-02-03Z");
    EXPECT_EQ(as("T%X"), "T14:05:06.5Z");
    EXPECT_EQ(as("%T"), "14:05:06.5Z");
    EXPECT_EQ(as("%F"), "2001-02-03Z");
    EXPECT_EQ(as("%d.%m.%Y %H:%M"), "03.02.2001 14:05Z");
    EXPECT_EQ(as("%S s"), "06.5 sZ");
    EXPECT_EQ(as("100%%"), "100%Z");
    EXPECT_EQ(as(""), "Z");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { as("%Y %q"); }),
              "\"%q\" is not a directive of a date format");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { as("%"); }),
              "\"% \" is not a directive of a date format");
}

TEST(TzXmlUtils, RefusesToWriteWhatDoesNotExist) {
    const TzCString text = "a date or time that does not exist cannot be written";
    EXPECT_EQ(textThrown<TzXmlBadArgError>(
                  [] { TzXmlUtils::convertDateToISOString(TzDate(2001, 2, 29)); }),
              text);
    EXPECT_EQ(textThrown<TzXmlBadArgError>(
                  [] { TzXmlUtils::convertDateTimeToISOString(TzDateTime(2001, 2, 3, 24, 0, 0)); }),
              text);
}

TEST(TzXmlUtils, ReadsDates) {
    const TzDate date = TzXmlUtils::convertISODateStringToDate("2001-02-03");
    EXPECT_EQ(date, TzDate(2001, 2, 3));
    EXPECT_FALSE(date.getOffset());
    EXPECT_EQ(TzXmlUtils::convertISODateStringToDate("2001-02-03+02:00").getOffset(),
              TzUtcOffset(hours(2)));
    for (const char* text : {"0001-01-01", "9999-12-31", "2000-02-29", "2001-02-03Z",
                             "2001-02-03+14:00", "2001-02-03-00:30", "2001-02-03+00:00"}) {
        EXPECT_EQ(dateAgain(text), text);
    }
}

TEST(TzXmlUtils, RefusesOtherDates) {
    for (const char* text : {"",
                             "2001",
                             "2001-02",
                             "2001-2-3",
                             "01-02-03",
                             "2001-02-30",
                             "2001-13-01",
                             "2001-00-01",
                             "2001-01-00",
                             "0000-01-01",
                             "-2001-02-03",
                             "12001-02-03",
                             " 2001-02-03",
                             "2001-02-03 ",
                             "2001/02/03",
                             "2001-02-03T",
                             "2001-02-03T00:00:00",
                             "2001-02-03z",
                             "2001-02-03+2:00",
                             "2001-02-03+02",
                             "2001-02-03+0200",
                             "2001-02-03+14:01",
                             "2001-02-03+02:60",
                             "2001-02-03+99:00",
                             "2001-02-03ZZ",
                             "2001-02-0a",
                             "+001-02-03",
                             "20010203"}) {
        expectNoDate(text);
    }
    expectNoDate(TzCString("2001-02-03\0", 11));
}

TEST(TzXmlUtils, ReadsDateTimes) {
    const TzDateTime time = TzXmlUtils::convertISODateStringToDateTime("2001-02-03T14:05:06");
    EXPECT_EQ(time, TzDateTime(2001, 2, 3, 14, 5, 6));
    EXPECT_FALSE(time.getOffset());
    const TzDateTime full =
        TzXmlUtils::convertISODateStringToDateTime("2001-02-03T14:05:06.5-03:30");
    EXPECT_EQ(full.getNanosecond(), 500'000'000U);
    EXPECT_EQ(full.getOffset(), TzUtcOffset(minutes(-210)));
}

TEST(TzXmlUtils, WritesAgainWhatWasRead) {
    for (const char* text :
         {"2001-02-03T14:05:06", "2001-02-03T14:05:06Z", "2001-02-03T14:05:06+00:00",
          "2001-02-03T14:05:06.123456789Z", "2001-02-03T14:05:06.000000001-14:00",
          "0001-01-01T00:00:00", "9999-12-31T23:59:59.999999999", "2001-02-03T14:05:06.1234567"}) {
        EXPECT_EQ(again(text), text);
    }
}

TEST(TzXmlUtils, ShortensFractions) {
    EXPECT_EQ(again("2001-02-03T14:05:06.500"), "2001-02-03T14:05:06.5");
    EXPECT_EQ(again("2001-02-03T14:05:06.000Z"), "2001-02-03T14:05:06Z");
    EXPECT_EQ(again("2001-02-03T14:05:06.1234567891234"), "2001-02-03T14:05:06.123456789");
}

TEST(TzXmlUtils, Reads24HoursAsTheNextMidnight) {
    EXPECT_EQ(again("2001-02-28T24:00:00"), "2001-03-01T00:00:00");
    EXPECT_EQ(again("2000-12-31T24:00:00.000Z"), "2001-01-01T00:00:00Z");
    EXPECT_EQ(again("24:00:00"), "1970-01-02T00:00:00");
    for (const char* text : {"2001-02-03T24:00:01", "2001-02-03T24:01:00", "2001-02-03T24:00:00.1",
                             "2001-02-30T24:00:00", "9999-12-31T24:00:00", "0000-12-31T24:00:00"}) {
        expectNoDateTime(text);
    }
}

TEST(TzXmlUtils, ReadsBareTimes) {
    EXPECT_EQ(again("14:05:06"), "1970-01-01T14:05:06");
    EXPECT_EQ(again("T14:05:06"), "1970-01-01T14:05:06");
    EXPECT_EQ(again("14:05:06.25+01:00"), "1970-01-01T14:05:06.25+01:00");
    EXPECT_EQ(again("T00:00:00Z"), "1970-01-01T00:00:00Z");
}

TEST(TzXmlUtils, RefusesOtherDateTimes) {
    for (const char* text : {"",
                             "T",
                             "2001-02-03",
                             "2001-02-03T",
                             "2001-02-03 14:05:06",
                             "2001-02-03t14:05:06",
                             "2001-02-03T14:05",
                             "2001-02-03T1:05:06",
                             "2001-02-03T14:5:06",
                             "2001-02-03T14:05:6",
                             "2001-02-03T25:00:00",
                             "2001-02-03T14:60:00",
                             "2001-02-03T14:05:60",
                             "TT14:05:06",
                             "2001-02-03T14:05:06.",
                             "2001-02-03T14:05:06.Z",
                             "2001-02-03T14:05:06,5",
                             "2001-02-03T14:05:06 Z",
                             "2001-02-03T14:05:06z",
                             "2001-02-03T14:05:06+1:00",
                             "2001-02-03T14:05:06+15:00",
                             "2001-02-03T14:05:06+01:00x",
                             "2001-02-29T00:00:00",
                             "14:05",
                             "14:05:06x",
                             "-2001-02-03T14:05:06",
                             " 2001-02-03T14:05:06",
                             "20010203T140506",
                             "2001-02-03T-1:05:06",
                             "2001-02-03T14:05:06--1:00"}) {
        expectNoDateTime(text);
    }
}

TEST(TzXmlUtils, RefusesEveryCutOfADateTime) {
    const TzCString text = "2001-02-03T14:05:06.5+01:30";
    for (std::size_t length = 0; length < text.size(); ++length) {
        if (length != 19 && length != 21) {
            expectNoDateTime(text.substr(0, length));
        }
    }
    EXPECT_EQ(again(text), text);
}

TEST(TzXmlUtils, IgnoresTheLocale) {
    const ForeignLocale locale;
    EXPECT_EQ(again("2001-02-03T14:05:06.5"), "2001-02-03T14:05:06.5");
    EXPECT_EQ(dateAgain("2001-02-03"), "2001-02-03");
}
