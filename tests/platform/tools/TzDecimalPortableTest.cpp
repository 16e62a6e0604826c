// SPDX-License-Identifier: MIT
#include <tz/tools/TzDecimalPortable.h>

#include <gtest/gtest.h>

#include <tz/tools/TzBadValueError.h>

#include "support/AllocationFailure.h"
#include "support/ForeignLocale.h"
#include "support/Throws.h"

#include <iomanip>
#include <sstream>

namespace {

TzCString normal(std::string_view text) { return TzDecimalPortable(text).asString(); }

TzCString refusal(std::string_view text) {
    return textThrown<TzBadValueError>([&] { TzDecimalPortable number(text); });
}

} // namespace

TEST(TzDecimalPortable, IsZeroByDefault) { EXPECT_EQ(TzDecimalPortable().asString(), "0"); }

TEST(TzDecimalPortable, KeepsTheDigitsGiven) {
    EXPECT_EQ(TzDecimalPortable("1.50").asString(), "1.50");
    EXPECT_EQ(normal("-12345678901234567890123.45678901234567890"),
              "-12345678901234567890123.45678901234567890");
    EXPECT_EQ(normal("0.000"), "0.000");
}

TEST(TzDecimalPortable, DropsPlusAndLeadingZeros) {
    EXPECT_EQ(normal("+007.50"), "7.50");
    EXPECT_EQ(normal("-007"), "-7");
    EXPECT_EQ(normal("000"), "0");
    EXPECT_EQ(normal("00.5"), "0.5");
}

TEST(TzDecimalPortable, CompletesThePoint) {
    EXPECT_EQ(normal(".5"), "0.5");
    EXPECT_EQ(normal("5."), "5");
    EXPECT_EQ(normal("-.5"), "-0.5");
}

TEST(TzDecimalPortable, ZeroHasNoSign) {
    EXPECT_EQ(normal("-0"), "0");
    EXPECT_EQ(normal("-0.00"), "0.00");
    EXPECT_EQ(normal("-0e5"), "0");
    EXPECT_EQ(normal("+0"), "0");
}

TEST(TzDecimalPortable, WritesExponentsOut) {
    EXPECT_EQ(normal("1.5e3"), "1500");
    EXPECT_EQ(normal("1.5E+1"), "15");
    EXPECT_EQ(normal("1.50e1"), "15.0");
    EXPECT_EQ(normal("15e-1"), "1.5");
    EXPECT_EQ(normal("15e-2"), "0.15");
    EXPECT_EQ(normal("15e-5"), "0.00015");
    EXPECT_EQ(normal("0.05e1"), "0.5");
    EXPECT_EQ(normal("0.05e2"), "5");
    EXPECT_EQ(normal("-1e0"), "-1");
    EXPECT_EQ(normal("0e3"), "0");
    EXPECT_EQ(normal("1e000000000000000000000000002"), "100");
}

TEST(TzDecimalPortable, RefusesMalformedTexts) {
    for (const char* text : {"",   " ",   "+",    "-",     ".",    "-.",    "e5",  ".e5",
                             "1e", "1e+", "1e-",  "--1",   "+-1",  "1.2.3", "1,5", " 1",
                             "1 ", "1a",  "0x10", "1e5.0", "1e5 ", "NaN",   "INF", "\xD9\xA1"}) {
        EXPECT_EQ(refusal(text), '"' + TzCString(text) + "\" is not a decimal number");
    }
    EXPECT_EQ(refusal(std::string_view("1\0", 2)),
              TzCString("\"1\0\" is not a decimal number", 28));
}

TEST(TzDecimalPortable, NamesTheBeginningOfLongTexts) {
    const TzCString text = "x" + TzCString(79, 'y') + TzCString(1000, 'z');
    EXPECT_EQ(refusal(text), "\"x" + TzCString(79, 'y') + "...\" is not a decimal number");
    // A character of two bytes at the cut is left out as a whole.
    EXPECT_EQ(refusal(TzCString(79, 'y') + "\xC3\xA4" + TzCString(9, 'z')),
              '"' + TzCString(79, 'y') + "...\" is not a decimal number");
    EXPECT_EQ(refusal(TzCString(80, 'y')), '"' + TzCString(80, 'y') + "\" is not a decimal number");
}

TEST(TzDecimalPortable, LimitsTheExponent) {
    EXPECT_EQ(normal("1e1000"), '1' + TzCString(1000, '0'));
    EXPECT_EQ(normal("1e-1000"), "0." + TzCString(999, '0') + '1');
    EXPECT_EQ(refusal("1e1001"), "\"1e1001\" has an exponent beyond 1000");
    EXPECT_EQ(refusal("1e-1001"), "\"1e-1001\" has an exponent beyond 1000");
    EXPECT_EQ(refusal("1e999999999"), "\"1e999999999\" has an exponent beyond 1000");
    EXPECT_EQ(refusal("1e-99999999999999999999999999"),
              "\"1e-99999999999999999999999999\" has an exponent beyond 1000");
    EXPECT_EQ(refusal("1e999999999x"), "\"1e999999999x\" is not a decimal number");
    EXPECT_EQ(refusal("e999999999"), "\"e999999999\" is not a decimal number");
}

TEST(TzDecimalPortable, WritesToStreamsWithoutWidthAndFill) {
    std::ostringstream stream;
    stream << std::setw(10) << std::setfill('*') << std::showpos << TzDecimalPortable("1.50") << '|'
           << 1;
    EXPECT_EQ(stream.str(), "1.50|+1");
}

TEST(TzDecimalPortable, WritesToStreamsWithoutTheirLocale) {
    const ForeignLocale locale;
    std::ostringstream stream;
    stream << TzDecimalPortable("1234567.50");
    EXPECT_EQ(stream.str(), "1234567.50");
    EXPECT_EQ(normal("1234.5"), "1234.5");
}

TEST(TzDecimalPortable, FailedAllocationsLeaveNothingBehind) {
    EXPECT_GT(failEachAllocation([] {
                  const TzDecimalPortable number("-1234567890123456789012345678901234567890e-30");
                  const TzDecimalPortable copy(number);
              }),
              2U);
}

TEST(TzDecimalPortable, RefusesANullPointer) {
    const char* const null = nullptr;
    EXPECT_EQ(textThrown<TzBadValueError>([&] { TzDecimalPortable number(null); }),
              "\"\" is not a decimal number");
}
