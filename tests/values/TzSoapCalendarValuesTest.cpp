// SPDX-License-Identifier: MIT
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/tools/TzBadValueError.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "support/Throws.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace {

using Simple = TzSoapSimpleType;
using namespace std::chrono;

constexpr year_month_day NewYearsEve = 2026y / December / 31;
constexpr sys_time<milliseconds> Noon = sys_days(NewYearsEve) + 12h + 250ms;

template <typename Time> std::string written(const Time& time, Simple::SchemaType type) {
    return Simple("n", time, type, false).getString();
}

Simple holding(const std::string& text) { return {"n", text, Simple::xsdDateTime, false}; }

} // namespace

TEST(TzSoapCalendarValues, DatesAreMadeFromTheCalendar) {
    EXPECT_EQ(written(NewYearsEve, Simple::xsdDate), "2026-12-31");
    EXPECT_EQ(written(sys_days(NewYearsEve), Simple::xsdDate), "2026-12-31");
    EXPECT_EQ(written(2026y / December / last, Simple::xsdDate), "2026-12-31");
}

TEST(TzSoapCalendarValues, TimesAreMadeFromInstants) {
    EXPECT_EQ(written(Noon, Simple::xsdDateTime), "2026-12-31T12:00:00.25Z");
    EXPECT_EQ(written(sys_seconds(-1s), Simple::xsdDateTime), "1969-12-31T23:59:59Z");
    EXPECT_EQ(
        written(time_point_cast<nanoseconds>(system_clock::time_point()), Simple::xsdDateTime),
        "1970-01-01T00:00:00Z");
}

TEST(TzSoapCalendarValues, SettersTakeTheCalendar) {
    Simple value;
    value.setDate(NewYearsEve, Simple::xsdDate);
    EXPECT_EQ(value.getString(), "2026-12-31");
    value.setDate(sys_days(NewYearsEve) + days(1), Simple::xsdDate);
    EXPECT_EQ(value.getString(), "2027-01-01");
    EXPECT_EQ(value.getType(), Simple::xsdDate);
    value.setDateTime(Noon, Simple::xsdDateTime);
    EXPECT_EQ(value.getString(), "2026-12-31T12:00:00.25Z");
    EXPECT_EQ(value.getType(), Simple::xsdDateTime);
}

TEST(TzSoapCalendarValues, ADateThatDoesNotExistIsRefused) {
    Simple value;
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>(
            [&] { value.setDate(2026y / February / 30, Simple::xsdDate); }),
        textThrown<TzXmlBadArgError>([&] { value.setDate(TzDate(2026, 2, 30), Simple::xsdDate); }));
    EXPECT_EQ(textThrown<TzXmlBadArgError>(
                  [] { written(sys_seconds(sys_days(year(20000) / 1 / 1)), Simple::xsdDateTime); }),
              textThrown<TzXmlBadArgError>(
                  [] { written(TzDateTime(0, 0, 0, 0, 0, 0), Simple::xsdDateTime); }));
    for (const sys_days day : {sys_days::max(), sys_days::min()}) {
        EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { written(day, Simple::xsdDate); }),
                  textThrown<TzXmlBadArgError>([] { written(TzDate(0, 0, 0), Simple::xsdDate); }));
    }
}

TEST(TzSoapCalendarValues, DateAndInstantAreReadBack) {
    EXPECT_EQ(holding("2026-12-31").getSysDays(), sys_days(NewYearsEve));
    EXPECT_EQ(holding("2026-12-31T12:00:00.25Z").getSysTime(), Noon);
    EXPECT_EQ(holding("2026-12-31T12:00:00.25").getSysTime(), Noon);
    EXPECT_EQ(holding("2026-12-31T14:30:00.25+02:30").getSysTime(), Noon);
}

TEST(TzSoapCalendarValues, AnInstantBeyondTheNanosecondsIsAnError) {
    EXPECT_EQ(textThrown<TzBadValueError>([] { holding("2300-01-01T00:00:00Z").getSysTime(); }),
              "64 bits of nanoseconds do not reach the year 2300");
}

TEST(TzSoapCalendarValues, AReaderTakesEveryForm) {
    EXPECT_EQ(TzSoapValueReader(holding(" 2026-12-31+14:00 ")).getSysDays(), sys_days(NewYearsEve));
    EXPECT_EQ(TzSoapValueReader(holding("2026-12-31T23:00:00-05:00")).getSysDays(),
              sys_days(NewYearsEve));
    EXPECT_EQ(TzSoapValueReader(holding(" 2026-12-31T12:00:00.250Z ")).getSysTime(), Noon);
    EXPECT_EQ(TzSoapValueReader(holding("2026-12-31")).getSysTime(), sys_days(NewYearsEve));
}

TEST(TzSoapCalendarValues, AReaderRefusesInItsOwnWords) {
    EXPECT_EQ(
        textThrown<TzXmlBadArgError>([] { TzSoapValueReader(holding("2300-01-01")).getSysTime(); }),
        "element \"n\": \"2300-01-01\" is not a date and time from 1678 to 2261");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([] { TzSoapValueReader(holding("soon")).getSysDays(); }),
              "element \"n\": \"soon\" is not a date");
}
