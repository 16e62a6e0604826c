// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "xml/TzXmlPieces.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace {

constexpr std::size_t KiB = 1024;

/// A text whose bytes do not exist; nothing reads it.
std::string_view imagined(std::size_t size) {
    static const char begin = 'x';
    return {&begin, size};
}

} // namespace

TEST(TzXmlPieces, OfAnEmptyTextIsOneEmptyPiece) {
    TzXmlPieces pieces("");
    EXPECT_EQ(pieces.next(0).size(), 0U);
    EXPECT_TRUE(pieces.done());
}

TEST(TzXmlPieces, StaySmallWhileThereAreEvents) {
    const std::string_view text = imagined(600 * KiB);
    TzXmlPieces pieces(text);
    EXPECT_EQ(pieces.next(0).data(), text.data());
    EXPECT_FALSE(pieces.done());
    const std::string_view second = pieces.next(5);
    EXPECT_EQ(second.data(), text.data() + 256 * KiB);
    EXPECT_EQ(second.size(), 256 * KiB);
    EXPECT_EQ(pieces.next(6).size(), 88 * KiB);
    EXPECT_TRUE(pieces.done());
}

TEST(TzXmlPieces, DoubleWithoutEventsAndShrinkWithThem) {
    TzXmlPieces pieces(imagined(100'000 * KiB));
    EXPECT_EQ(pieces.next(0).size(), 256 * KiB);
    EXPECT_EQ(pieces.next(0).size(), 512 * KiB);
    EXPECT_EQ(pieces.next(0).size(), 1024 * KiB);
    EXPECT_EQ(pieces.next(1).size(), 256 * KiB);
    EXPECT_EQ(pieces.next(1).size(), 512 * KiB);
}

TEST(TzXmlPieces, NeverExceedWhatASourceCanCount) {
    TzXmlPieces pieces(imagined(std::size_t{1} << 40));
    std::size_t largest = 0;
    for (int i = 0; i < 40; ++i) {
        largest = std::max(largest, pieces.next(0).size());
    }
    EXPECT_EQ(largest, std::size_t{512} * KiB * KiB);
}

// A source reads an unfinished token from its beginning each time.
TEST(TzXmlPieces, KeepTheWorkLinearForHugeTokens) {
    for (const std::size_t token : {3'000 * KiB, 30'000 * KiB, 300'000 * KiB}) {
        TzXmlPieces pieces(imagined(3 * token));
        std::size_t fed = 0;
        std::size_t looked = 0;
        std::size_t events = 0;
        while (!pieces.done()) {
            fed += pieces.next(events).size();
            looked += fed - events * token;
            events = fed / token;
        }
        EXPECT_EQ(events, 3U);
        EXPECT_LT(looked / (3 * token), 6U);
    }
}
