// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlSchemaUtils.h>

#include <gtest/gtest.h>

#include "support/ForeignLocale.h"

#include <cstdint>
#include <limits>

TEST(TzXmlSchemaUtils, WritesNumbersInDecimal) {
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(0), "0");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(-12), "-12");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(4294967295U), "4294967295");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(std::size_t{7}), "7");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(std::numeric_limits<std::int64_t>::min()),
              "-9223372036854775808");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(std::numeric_limits<std::uint64_t>::max()),
              "18446744073709551615");
}

TEST(TzXmlSchemaUtils, WritesNumbersWithAPointExactly) {
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(0.1F), "0.1");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(12345678.0), "12345678");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(0.1L), "0.1");
}

TEST(TzXmlSchemaUtils, SpellsWhatIsNoFiniteNumber) {
    using Limits = std::numeric_limits<double>;
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(Limits::infinity()), "INF");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(-Limits::infinity()), "-INF");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(Limits::quiet_NaN()), "NaN");
}

TEST(TzXmlSchemaUtils, IgnoresTheLocale) {
    const ForeignLocale locale;
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(1234567), "1234567");
    EXPECT_EQ(TzXmlSchemaUtils::ConvertTypeToString(1234567.5), "1234567.5");
}
