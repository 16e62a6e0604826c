// SPDX-License-Identifier: MIT
//
// Bodies that are full of what nearly is a delimiter line cost little more than others.
#include "growth/Building.h"
#include "growth/Operations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace growth {

namespace {

constexpr std::size_t Size = 100'000;

/// A package with the usual boundary and one attachment of repeated `unit`.
std::string packageOf(const std::string& unit) {
    return package(
        {.envelope = soap11("<a href='cid:q'/>"),
         .parts = "--MIME_boundary\r\nContent-ID: <q>\r\n\r\n" + fill(Size, unit) + "\r\n",
         .boundary = "MIME_boundary"});
}

Measured reading(const std::string& text) {
    const std::vector<Operation> all = operations();
    const auto read = std::find_if(all.begin(), all.end(), [](const Operation& operation) {
        return std::string(operation.name) == "Read";
    });
    EXPECT_NE(read, all.end());
    return read->run(text);
}

} // namespace

TEST(GrowthOfNearMisses, IsAtMostTwiceThatOfOtherBodies) {
    const double plain = reading(packageOf("plain text ")).workPerByte();
    const std::pair<const char*, const char*> bodies[] = {
        {"cut by a letter", "\r\n--MIME_boundar "},
        {"of another letter", "\r\n--MIME_boundarx"},
        {"within a line", "x--MIME_boundary"},
        {"one hyphen short", "\r\n-MIME_boundary"},
        {"longer", "\r\n--MIME_boundaryx"},
        {"after a return alone", "\r--MIME_boundaryx"},
        {"line ends", "\r\n"},
        {"line feeds", "\n"},
        {"hyphens", "-"},
        {"lines of hyphens", "\r\n--"}};
    for (const auto& [what, unit] : bodies) {
        EXPECT_LE(reading(packageOf(unit)).workPerByte(), 2 * plain) << what;
    }
}

} // namespace growth
