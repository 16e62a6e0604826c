// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlDuration.h>

#include <gtest/gtest.h>

#include <tz/xml/TzXmlBadArgError.h>

#include "support/ForeignLocale.h"
#include "support/Throws.h"

namespace {

TzCString again(std::string_view text) { return TzXmlDuration(text).asString(); }

TzCString refusal(std::string_view text) {
    return textThrown<TzXmlBadArgError>([&] { TzXmlDuration duration(text); });
}

} // namespace

TEST(TzXmlDuration, IsZeroByDefault) {
    EXPECT_EQ(TzXmlDuration().asString(), "PT0S");
    EXPECT_FALSE(TzXmlDuration().isNegative());
    EXPECT_EQ(TzXmlDuration().getParts(), TzXmlDuration::Parts());
}

TEST(TzXmlDuration, ReadsAllParts) {
    const TzXmlDuration duration("P1Y2M3DT4H5M6.7S");
    EXPECT_FALSE(duration.isNegative());
    const TzXmlDuration::Parts& parts = duration.getParts();
    EXPECT_EQ(parts.years, 1U);
    EXPECT_EQ(parts.months, 2U);
    EXPECT_EQ(parts.days, 3U);
    EXPECT_EQ(parts.hours, 4U);
    EXPECT_EQ(parts.minutes, 5U);
    EXPECT_EQ(parts.seconds, 6U);
    EXPECT_EQ(parts.nanoseconds, 700'000'000U);
    EXPECT_EQ(duration.asString(), "P1Y2M3DT4H5M6.7S");
}

TEST(TzXmlDuration, TellsMonthsFromMinutes) {
    EXPECT_EQ(TzXmlDuration("P1M").getParts().months, 1U);
    EXPECT_EQ(TzXmlDuration("P1M").getParts().minutes, 0U);
    EXPECT_EQ(TzXmlDuration("PT1M").getParts().minutes, 1U);
    EXPECT_EQ(TzXmlDuration("PT1M").getParts().months, 0U);
}

TEST(TzXmlDuration, LeavesZeroPartsOut) {
    EXPECT_EQ(again("P0Y1D"), "P1D");
    EXPECT_EQ(again("P1DT0H"), "P1D");
    EXPECT_EQ(again("P0DT5M"), "PT5M");
    EXPECT_EQ(again("PT0.5S"), "PT0.5S");
    EXPECT_EQ(again("PT1.000S"), "PT1S");
    EXPECT_EQ(again("P007D"), "P7D");
}

TEST(TzXmlDuration, KeepsPartsAsGiven) {
    EXPECT_EQ(again("P24M"), "P24M");
    EXPECT_EQ(again("PT90M"), "PT90M");
    EXPECT_EQ(again("PT36H"), "PT36H");
    EXPECT_EQ(again("P1Y2M3DT4H5M6S"), "P1Y2M3DT4H5M6S");
}

TEST(TzXmlDuration, WritesZeroInOneWay) {
    EXPECT_EQ(again("P0D"), "PT0S");
    EXPECT_EQ(again("PT0S"), "PT0S");
    EXPECT_EQ(again("PT0.0S"), "PT0S");
    EXPECT_EQ(again("-P0Y0M"), "PT0S");
    EXPECT_FALSE(TzXmlDuration("-P0D").isNegative());
}

TEST(TzXmlDuration, KeepsTheSign) {
    EXPECT_TRUE(TzXmlDuration("-P1D").isNegative());
    EXPECT_EQ(again("-P1D"), "-P1D");
    EXPECT_EQ(again("-PT0.000000001S"), "-PT0.000000001S");
}

TEST(TzXmlDuration, DropsDigitsBehindTheNinth) {
    EXPECT_EQ(again("PT1.1234567899S"), "PT1.123456789S");
    EXPECT_EQ(again("PT0.0000000009S"), "PT0S");
}

TEST(TzXmlDuration, RefusesMalformedTexts) {
    for (const char* text :
         {"",        "P",     "-P",        "PT",    "P1",     "1D",     "P1DT",   "PT1",
          "P1S",     "PT1D",  "P1H",       "P1D2Y", "PT1S2M", "P1D1D",  "P-1D",   "+P1D",
          "--P1D",   "P1.5D", "P1.0D",     "PT.5S", "PT5.S",  "PT1.5H", "PT1.0M", "P1DT1HT1M",
          "P1D ",    " P1D",  "P1 D",      "p1d",   "PY",     "P1Y1",   "PT1,5S", "P1W",
          "P1YT1.5", "PT1.5", "P1Y2M3D4H", "PTS"}) {
        EXPECT_EQ(refusal(text),
                  '"' + TzCString(text) + "\" is not a duration of the form PnYnMnDTnHnMnS");
    }
}

TEST(TzXmlDuration, RefusesPartsThatOverflow) {
    EXPECT_EQ(again("P18446744073709551615D"), "P18446744073709551615D");
    EXPECT_EQ(refusal("P18446744073709551616D"),
              "\"P18446744073709551616D\" is not a duration of the form PnYnMnDTnHnMnS");
    EXPECT_EQ(refusal("PT99999999999999999999999S"),
              "\"PT99999999999999999999999S\" is not a duration of the form PnYnMnDTnHnMnS");
}

TEST(TzXmlDuration, IsMadeFromParts) {
    TzXmlDuration::Parts parts;
    parts.days = 1;
    parts.nanoseconds = 999'999'999;
    EXPECT_EQ(TzXmlDuration(parts).asString(), "P1DT0.999999999S");
    EXPECT_EQ(TzXmlDuration(parts, true).asString(), "-P1DT0.999999999S");
    EXPECT_FALSE(TzXmlDuration(TzXmlDuration::Parts(), true).isNegative());
    parts.nanoseconds = 1'000'000'000;
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzXmlDuration duration(parts); }),
              "the fraction of a duration must be below one second");
}

TEST(TzXmlDuration, EqualityLooksAtThePartsAsGiven) {
    EXPECT_EQ(TzXmlDuration("P1Y"), TzXmlDuration("P1Y0D"));
    EXPECT_FALSE(TzXmlDuration("P1Y") == TzXmlDuration("P12M"));
    EXPECT_FALSE(TzXmlDuration("P1Y") == TzXmlDuration("-P1Y"));
}

TEST(TzXmlDuration, IgnoresTheLocale) {
    const ForeignLocale locale;
    EXPECT_EQ(again("P1234567DT0.5S"), "P1234567DT0.5S");
}
