// SPDX-License-Identifier: MIT
//
// Work, memory and output stay linear in what came in, whatever its shape. Counted, not timed.
#include "growth/Families.h"
#include "growth/Operations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace growth {

namespace {

constexpr std::size_t Small = 8'000;
constexpr std::size_t Large = 4 * Small;

/// For four times the text, so much more may be done for each byte: that leaves room for a
/// logarithm and for tables that double, and none for a square.
constexpr double MostGrowth = 1.5;

void expectLinear(const Operation& operation, const Family& family) {
    SCOPED_TRACE(operation.name);
    const Measured small = operation.run(family.text(Small));
    const Measured large = operation.run(family.text(Large));
    EXPECT_LE(large.workPerByte(), MostGrowth * small.workPerByte())
        << "work per byte grows from " << small.text << " to " << large.text << " bytes";
    EXPECT_LE(large.workPerLargerByte(), operation.work) << "work per byte";
    EXPECT_LE(large.peakPerLargerByte(), operation.peak) << "memory per byte";
}

void expectLinear(const std::vector<Operation>& operations, const Family& family) {
    for (const Operation& operation : operations) {
        expectLinear(operation, family);
    }
}

class Growth : public testing::TestWithParam<Family> {};

TEST_P(Growth, IsLinear) { expectLinear(operations(), GetParam()); }

TEST_P(Growth, OverHttpIsLinear) { expectLinear(httpOperations(), GetParam()); }

TEST_P(Growth, OfCompactOutputIsBounded) {
    const std::string text = GetParam().text(Large);
    EXPECT_LE(compact(text).size(), mostCompact(text));
}

class GrowthOfRefusal : public testing::TestWithParam<Family> {};

TEST_P(GrowthOfRefusal, IsLinear) { expectLinear(refusal(), GetParam()); }

TEST_P(GrowthOfRefusal, OverHttpIsLinear) { expectLinear(httpOperations(), GetParam()); }

class GrowthOfRecords : public testing::TestWithParam<Family> {};

TEST_P(GrowthOfRecords, IsLinear) { expectLinear(recordOperations(), GetParam()); }

std::string nameOf(const testing::TestParamInfo<Family>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Of, Growth, testing::ValuesIn(accepted()), nameOf);
INSTANTIATE_TEST_SUITE_P(Of, GrowthOfRefusal, testing::ValuesIn(refused()), nameOf);
INSTANTIATE_TEST_SUITE_P(Of, GrowthOfRecords, testing::ValuesIn(records()), nameOf);

/// Prints what an operation costs, small and large, or why it cannot.
void print(const Operation& operation, const Family& family) {
    std::fflush(stdout);
    try {
        const std::string text = family.text(Large);
        const Measured small = operation.run(family.text(Small));
        const Measured large = operation.run(text);
        std::printf("%s\t%s\t%.1f\t%.2f\t%.1f\t%.1f\t%.2f\n", family.name, operation.name,
                    large.workPerByte(), large.workPerByte() / small.workPerByte(),
                    large.workPerLargerByte(), large.peakPerLargerByte(),
                    double(large.written) / double(large.text));
    } catch (const std::exception& error) {
        std::printf("%s\t%s\t%s\n", family.name, operation.name, error.what());
    }
}

/// Whether `name` begins like one of `beginnings`; true when `beginnings` is empty.
bool isAsked(const char* name, const std::vector<std::string>& beginnings) {
    const auto fits = [&](const std::string& beginning) {
        return std::string_view(name).starts_with(beginning);
    };
    return beginnings.empty() || std::any_of(beginnings.begin(), beginnings.end(), fits);
}

/// The table that the ceilings of `operations` come from.
void printAll(const std::vector<std::string>& beginnings) {
    std::puts("family\toperation\twork/byte\tgrowth\tof larger\tpeak/byte\twritten/byte");
    const auto printEach = [&](const Families& families, const std::vector<Operation>& operations) {
        for (const Family& family : families) {
            for (const Operation& operation : operations) {
                if (isAsked(family.name, beginnings) || isAsked(operation.name, beginnings)) {
                    print(operation, family);
                }
            }
        }
    };
    for (const Families& families : {accepted(), untested()}) {
        printEach(families, operations());
        printEach(families, httpOperations());
    }
    printEach(records(), recordOperations());
    printEach(refused(), {refusal()});
    printEach(refused(), httpOperations());
}

} // namespace

} // namespace growth

// With --measure: prints what is counted, of all families and operations or of those whose names
// begin like one of the other arguments.
int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    if (count >= 2 && std::string_view(arguments[1]) == "--measure") {
        growth::printAll({arguments + 2, arguments + count});
        return 0;
    }
    return RUN_ALL_TESTS();
}
