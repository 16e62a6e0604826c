// SPDX-License-Identifier: MIT
#include <soap/TzSoapSimpleTypeImp.h>

#include "support/ForeignLocale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <string>

namespace {

/// How a simple value writes a number.
template <typename Number> std::string written(Number number) {
    return TzSoapSimpleTypeImp("n", number, TzSoapContentBase::xsdUnknown, false).text();
}

/// How a simple value reads a whole number.
long integerOf(const std::string& text) {
    return TzSoapSimpleTypeImp("n", text, TzSoapContentBase::xsdUnknown, false).getLong();
}

/// How a simple value reads a number.
double realOf(const std::string& text) {
    return TzSoapSimpleTypeImp("n", text, TzSoapContentBase::xsdUnknown, false).getDouble();
}

/// What a default stream of the classic locale makes of a number.
template <typename Number> std::string streamed(Number number) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << number;
    return stream.str();
}

template <typename Number> void expectStreamed(Number number) {
    EXPECT_EQ(written(number), streamed(number));
}

template <typename Number> void expectSpecialValuesStreamed() {
    using Limits = std::numeric_limits<Number>;
    for (const Number number :
         {Number(0), Number(-0.0), Limits::max(), Limits::lowest(), Limits::min(),
          Limits::denorm_min(), Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
          Number(0.0001), Number(0.00001), Number(999999.4), Number(999999.6), Number(123456)}) {
        expectStreamed(number);
    }
}

} // namespace

TEST(TzSoapNumberText, WholeNumbersAreWrittenInFull) {
    EXPECT_EQ(written(0), "0");
    EXPECT_EQ(written(std::numeric_limits<int>::min()), "-2147483648");
    EXPECT_EQ(written(std::numeric_limits<unsigned int>::max()), "4294967295");
    EXPECT_EQ(written(std::numeric_limits<short>::min()), "-32768");
    EXPECT_EQ(written(std::numeric_limits<unsigned short>::max()), "65535");
    EXPECT_EQ(written(std::numeric_limits<long>::min()), "-9223372036854775808");
    EXPECT_EQ(written(std::numeric_limits<unsigned long>::max()), "18446744073709551615");
}

TEST(TzSoapNumberText, RealNumbersHaveSixDigits) {
    EXPECT_EQ(written(0.1), "0.1");
    EXPECT_EQ(written(0.1F), "0.1");
    EXPECT_EQ(written(100000.0), "100000");
    EXPECT_EQ(written(1000000.0), "1e+06");
    EXPECT_EQ(written(1234567.0), "1.23457e+06");
    EXPECT_EQ(written(1.0 / 3), "0.333333");
    EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(written(-std::numeric_limits<float>::infinity()), "-inf");
    EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(TzSoapNumberText, RealNumbersAreWrittenAsAStreamWritesThem) {
    expectSpecialValuesStreamed<float>();
    expectSpecialValuesStreamed<double>();
    std::mt19937_64 random(7);
    for (int i = 0; i < 5000; ++i) {
        const double number =
            std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 200) - 150);
        expectStreamed(number);
        expectStreamed(static_cast<float>(number));
    }
}

TEST(TzSoapNumberText, WholeNumbersAreReadFromTheBeginning) {
    EXPECT_EQ(integerOf("42"), 42);
    EXPECT_EQ(integerOf("-42"), -42);
    EXPECT_EQ(integerOf("+42"), 42);
    EXPECT_EQ(integerOf(" \t\n\v\f\r7"), 7);
    EXPECT_EQ(integerOf("7 8"), 7);
    EXPECT_EQ(integerOf("3.9e5"), 3);
    EXPECT_EQ(integerOf("0x10"), 0);
    EXPECT_EQ(integerOf("007"), 7);
    EXPECT_EQ(integerOf(std::string("1\0002", 3)), 1);
}

TEST(TzSoapNumberText, WithoutDigitsAWholeNumberIs0) {
    for (const char* text : {"", " ", "-", "+", "x1", "- 1", "--1", "+-1", "-+1", "++1", "true"}) {
        EXPECT_EQ(integerOf(text), 0) << text;
    }
}

TEST(TzSoapNumberText, WholeNumbersStopAtTheLimits) {
    using Limits = std::numeric_limits<long>;
    EXPECT_EQ(integerOf("9223372036854775807"), Limits::max());
    EXPECT_EQ(integerOf("9223372036854775808"), Limits::max());
    EXPECT_EQ(integerOf("99999999999999999999999"), Limits::max());
    EXPECT_EQ(integerOf("-9223372036854775807"), Limits::min() + 1);
    EXPECT_EQ(integerOf("-9223372036854775808"), Limits::min());
    EXPECT_EQ(integerOf("-9223372036854775809"), Limits::min());
    EXPECT_EQ(integerOf("-99999999999999999999999"), Limits::min());
}

TEST(TzSoapNumberText, RealNumbersAreReadFromTheBeginning) {
    EXPECT_EQ(realOf("1.5"), 1.5);
    EXPECT_EQ(realOf("\v -1.5"), -1.5);
    EXPECT_EQ(realOf("+.5"), 0.5);
    EXPECT_EQ(realOf("5."), 5);
    EXPECT_EQ(realOf("1e3x"), 1000);
    EXPECT_EQ(realOf("1e"), 1);
    EXPECT_EQ(realOf("1,5"), 1);
    EXPECT_EQ(realOf("0x1.8p1"), 3);
    EXPECT_EQ(realOf("-0X.8"), -0.5);
    EXPECT_EQ(realOf("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(realOf("4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(TzSoapNumberText, WithoutDigitsARealNumberIs0) {
    for (const char* text :
         {"", " ", "-", "+", ".", "-.", "e5", "--1", "+-1", "x", "-x", "-- .5"}) {
        EXPECT_EQ(realOf(text), 0) << text;
        EXPECT_FALSE(std::signbit(realOf(text))) << text;
    }
}

TEST(TzSoapNumberText, ZeroKeepsItsSign) {
    for (const char* text : {"-0", "-0.0", "-0e5", "-0x", "-0xg", "-1e-999"}) {
        EXPECT_EQ(realOf(text), 0) << text;
        EXPECT_TRUE(std::signbit(realOf(text))) << text;
    }
    EXPECT_FALSE(std::signbit(realOf("0x")));
}

TEST(TzSoapNumberText, NamesOfNumbersAreRead) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(realOf("inf"), infinity);
    EXPECT_EQ(realOf("-INF"), -infinity);
    EXPECT_EQ(realOf("Infinity"), infinity);
    EXPECT_TRUE(std::isnan(realOf("nan")));
    EXPECT_TRUE(std::isnan(realOf("NaN")));
    EXPECT_EQ(realOf("0xinf"), 0);
}

TEST(TzSoapNumberText, RealNumbersTooLargeAreInfinite) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(realOf("1e309"), infinity);
    EXPECT_EQ(realOf("-1e999999999999999999999"), -infinity);
    EXPECT_EQ(realOf("1" + std::string(400, '0')), infinity);
    EXPECT_EQ(realOf("0.1e400"), infinity);
    EXPECT_EQ(realOf("000" + std::string(300, '7') + "e10"), infinity);
    EXPECT_EQ(realOf("0x1p1024"), infinity);
    EXPECT_EQ(realOf("0x1" + std::string(300, '0')), infinity);
    EXPECT_EQ(realOf("0x1" + std::string(400, '0') + "p-500"), infinity);
}

TEST(TzSoapNumberText, RealNumbersTooSmallAre0) {
    EXPECT_EQ(realOf("1e-400"), 0);
    EXPECT_EQ(realOf("1e-999999999999999999999"), 0);
    EXPECT_EQ(realOf("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(realOf("123456789e-400"), 0);
    EXPECT_EQ(realOf("0x1p-1200"), 0);
}

TEST(TzSoapNumberText, LongDigitsAndExponentsBalance) {
    EXPECT_EQ(realOf("1" + std::string(500, '0') + "e-500"), 1);
    EXPECT_EQ(realOf("0." + std::string(499, '0') + "1e500"), 1);
}

TEST(TzSoapNumberText, TheGlobalLocaleDoesNotMatter) {
    const ForeignLocale foreign;
    EXPECT_EQ(written(1234567), "1234567");
    EXPECT_EQ(written(1234567L), "1234567");
    EXPECT_EQ(written(0.5), "0.5");
    EXPECT_EQ(written(123456.0F), "123456");
    EXPECT_EQ(realOf("0.5"), 0.5);
    EXPECT_EQ(realOf("1.234"), 1.234);
}
