// SPDX-License-Identifier: MIT
#include "reading/TzSoapReadBudget.h"

#include <gtest/gtest.h>

#include <cstddef>

TEST(TzSoapReadBudget, UnfilledPositionsAreLimitedByLimitAndText) {
    TzSoapReadLimits limits;
    limits.unfilledArrayPositions = 10;
    TzSoapReadBudget budget(limits, 5);
    EXPECT_FALSE(budget.takeUnfilledPositions(16));
    EXPECT_TRUE(budget.takeUnfilledPositions(10));
    EXPECT_TRUE(budget.takeUnfilledPositions(5));
    EXPECT_FALSE(budget.takeUnfilledPositions(1));
    EXPECT_TRUE(budget.takeUnfilledPositions(0));
    budget.returnUnfilledPositions(2);
    EXPECT_FALSE(budget.takeUnfilledPositions(3));
    EXPECT_TRUE(budget.takeUnfilledPositions(2));
}

TEST(TzSoapReadBudget, ALimitOfAllPositionsDoesNotOverflow) {
    constexpr std::size_t Most = static_cast<std::size_t>(-1);
    TzSoapReadLimits limits;
    limits.unfilledArrayPositions = Most;
    EXPECT_TRUE(TzSoapReadBudget(limits, 5).takeUnfilledPositions(Most));
}

TEST(TzSoapReadBudget, HasTheDefaultLimitsWithoutAText) {
    EXPECT_TRUE(TzSoapReadBudget().takeUnfilledPositions(1048576));
    EXPECT_FALSE(TzSoapReadBudget().takeUnfilledPositions(1048577));
    EXPECT_EQ(TzSoapReadBudget().uriLength(), 2048U);
}
