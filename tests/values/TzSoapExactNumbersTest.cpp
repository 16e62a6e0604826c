// SPDX-License-Identifier: MIT
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSimpleTypeImp.h>
#include <soap/TzSoapValueReader.h>

#include "support/ForeignLocale.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace {

using Simple = TzSoapSimpleType;

template <typename Number> Simple exact(Number number) {
    return Simple::exact("n", number, Simple::xsdDouble, true);
}

template <typename Number> Number readBack(const Simple& value) {
    const TzSoapValueReader reader(value);
    if constexpr (std::same_as<Number, float>) {
        return reader.getFloat();
    } else if constexpr (std::same_as<Number, double>) {
        return reader.getDouble();
    } else {
        return reader.getLongDouble();
    }
}

template <typename Number> void expectExtremesReadBack() {
    using Limits = std::numeric_limits<Number>;
    for (const Number number :
         {Limits::max(), Limits::lowest(), Limits::min(), Limits::epsilon(), Number(1) / 3,
          Number(0), Limits::infinity(), -Limits::infinity()}) {
        EXPECT_EQ(readBack<Number>(exact(number)), number) << exact(number).getString();
    }
    EXPECT_TRUE(std::signbit(readBack<Number>(exact(Number(-0.0)))));
    EXPECT_TRUE(std::isnan(readBack<Number>(exact(Limits::quiet_NaN()))));
}

} // namespace

TEST(TzSoapExactNumbers, AreTheShortestTextThatReadsBack) {
    EXPECT_EQ(exact(12345678.0).getString(), "12345678");
    EXPECT_EQ(exact(0.1).getString(), "0.1");
    EXPECT_EQ(exact(0.1F).getString(), "0.1");
    EXPECT_EQ(exact(0.1L).getString(), "0.1");
    EXPECT_EQ(exact(1.0 / 3).getString(), "0.3333333333333333");
    EXPECT_EQ(exact(1.0F / 3).getString(), "0.33333334");
    EXPECT_EQ(exact(1.0L / 3).getString(), "0.33333333333333333334");
    EXPECT_EQ(exact(1e300).getString(), "1e+300");
    EXPECT_EQ(exact(-0.0).getString(), "-0");
}

TEST(TzSoapExactNumbers, SpellWhatIsNoFiniteNumberAsSchemasDo) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(exact(infinity).getString(), "INF");
    EXPECT_EQ(exact(-infinity).getString(), "-INF");
    EXPECT_EQ(exact(std::nan("")).getString(), "NaN");
    EXPECT_EQ(exact(-std::nan("")).getString(), "NaN");
}

TEST(TzSoapExactNumbers, TheEndsOfEachTypeReadBack) {
    expectExtremesReadBack<float>();
    expectExtremesReadBack<double>();
    expectExtremesReadBack<long double>();
    constexpr double smallest = std::numeric_limits<double>::denorm_min();
    EXPECT_EQ(readBack<double>(exact(smallest)), smallest);
}

TEST(TzSoapExactNumbers, AnyBitsReadBack) {
    std::mt19937_64 random(20261122);
    for (int i = 0; i < 20000; ++i) {
        const auto number = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
        if (!std::isnan(number)) {
            ASSERT_EQ(readBack<double>(exact(number)), number) << exact(number).getString();
        }
    }
}

TEST(TzSoapExactNumbers, TypeAndFlagAreKeptAsGiven) {
    const Simple value = Simple::exact("p:n", 0.5F, Simple::xsdDecimal, true);
    EXPECT_EQ(value.getName().getQualifiedName(), "p:n");
    EXPECT_EQ(value.getType(), Simple::xsdDecimal);
    EXPECT_TRUE(value.getTypeShouldBeEncoded());
}

TEST(TzSoapExactNumbers, AreLabelledByTheirSetter) {
    Simple value;
    value.setExactFloat(16777217.0F);
    EXPECT_EQ(value.getString(), "16777216");
    EXPECT_EQ(value.getType(), Simple::xsdFloat);
    value.setExactDouble(12345678.0);
    EXPECT_EQ(value.getString(), "12345678");
    EXPECT_EQ(value.getType(), Simple::xsdDouble);
    value.setLongDouble(1.0L / 3);
    EXPECT_EQ(value.getString(), "0.33333333333333333334");
    EXPECT_EQ(value.getType(), Simple::xsdDouble);
}

TEST(TzSoapExactNumbers, TheGlobalLocaleDoesNotMatter) {
    const ForeignLocale locale;
    EXPECT_EQ(exact(1234567.5).getString(), "1234567.5");
    EXPECT_EQ(readBack<long double>(exact(1234567.5L)), 1234567.5L);
}
