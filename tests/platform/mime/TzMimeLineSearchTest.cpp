// SPDX-License-Identifier: MIT
//
// The search for delimiter lines, of each kind, and what is kept of it.
#include "mime/TzMimeLineSearch.h"

#include <tz/mime/TzMimeMultipart.h>

#include "platform/mime/MimeTexts.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace {

template <typename Search> class TzMimeLineSearches : public testing::Test {};

#if defined(__SSE2__)
using Searches = testing::Types<TzMimeLineSearch, TzMimeSseLineSearch>;
#else
using Searches = testing::Types<TzMimeLineSearch>;
#endif
TYPED_TEST_SUITE(TzMimeLineSearches, Searches);

constexpr std::size_t None = std::string_view::npos;

template <typename Search, TzMimeLineRest Rest>
std::size_t found(std::string_view text, std::string_view line) {
    const char* const at =
        Search::template find<Rest>(text.data(), text.data() + text.size(), line);
    return at == nullptr ? None : static_cast<std::size_t>(at - text.data());
}

std::size_t naive(std::string_view text, std::string_view line) {
    for (std::size_t at = 0; at + line.size() < text.size(); ++at) {
        if ((text[at] == '\n' || text[at] == '\r') && text.substr(at + 1).starts_with(line)) {
            return at;
        }
    }
    return None;
}

} // namespace

TYPED_TEST(TzMimeLineSearches, FindALineAtEveryPlace) {
    for (const std::string_view line : {"--b", "--------", "--MIME_boundary"}) {
        for (std::size_t before = 0; before < 70; ++before) {
            for (const std::size_t after : {0U, 1U, 15U, 16U, 17U, 40U}) {
                for (const char end : {'\n', '\r'}) {
                    const std::string text = std::string(before, '-') + end + std::string(line) +
                                             std::string(after, ' ');
                    ASSERT_EQ((found<TypeParam, TzMimeLineRest::Any>(text, line)), before) << text;
                    ASSERT_EQ((found<TypeParam, TzMimeLineRest::OfDelimiter>(text, line)), before)
                        << text;
                    ASSERT_EQ((found<TypeParam, TzMimeLineRest::Any>(
                                  std::string_view(text).substr(0, before + line.size()), line)),
                              None)
                        << text;
                }
            }
        }
    }
}

TYPED_TEST(TzMimeLineSearches, FindALineFarBehindNearMisses) {
    for (const std::string_view miss : {"x--b", "\n-xb", ""}) {
        for (std::size_t between = 0; between < 3000; between += 7) {
            const std::string text =
                std::string(40, 'x') + std::string(miss) + std::string(between, 'y') + "\n--b ";
            const std::string padded = text + std::string(200, 'z');
            ASSERT_EQ((found<TypeParam, TzMimeLineRest::Any>(padded, "--b")), text.size() - 5)
                << between;
            ASSERT_EQ((found<TypeParam, TzMimeLineRest::OfDelimiter>(padded, "--b")),
                      text.size() - 5)
                << between;
        }
    }
}

TYPED_TEST(TzMimeLineSearches, FindWhatByteAfterByteFinds) {
    constexpr std::string_view Letters = "\n\r--bx";
    std::mt19937 random(13);
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 100, ' ');
        for (char& letter : text) {
            letter = Letters[random() % Letters.size()];
        }
        for (const std::string_view line : {"--b", "---", "--bb", "--x-b"}) {
            ASSERT_EQ((found<TypeParam, TzMimeLineRest::Any>(text, line)), naive(text, line))
                << text;
        }
    }
}

TYPED_TEST(TzMimeLineSearches, MissNoDelimiterAmongLinesLikeIt) {
    for (const char* const rest : {"--", "", " ", "\t", "\r\n", "\n", "--\r\n"}) {
        for (int lines = 0; lines < 10; ++lines) {
            std::string text;
            for (int i = 0; i < lines; ++i) {
                text += "\n--bx";
            }
            const std::size_t place = text.size();
            text += std::string("\n--b") + rest;
            const char* from = text.data();
            const char* const end = from + text.size();
            const char* at = nullptr;
            // Lines of the other kind may be found near the end of a text only.
            do {
                at = TypeParam::template find<TzMimeLineRest::OfDelimiter>(from, end, "--b");
                ASSERT_NE(at, nullptr) << text;
                from = at + 1;
            } while (static_cast<std::size_t>(at - text.data()) < place);
            ASSERT_EQ(static_cast<std::size_t>(at - text.data()), place);
        }
    }
}

TEST(TzMimeKeptSearch, ForcesBase64WhereALineBeginsLikeADelimiter) {
    for (const std::string body : {"--bx", "a\r\n--bx", "a\n--b-", "a\r--b", "a\r--bx\r\n--by"}) {
        const TzMimeMultipart read = MimeTexts::package(
            MimeTexts::packageHead + "--b\r\nX: y\r\n\r\n" + body + "\r\n--b--\r\n");
        ASSERT_EQ(read.getPartCount(), 1U) << body;
        EXPECT_EQ(read.getPart(0).getBody(), body);
        EXPECT_NE(read.asString().find("base64"), std::string::npos) << body;
        EXPECT_EQ(MimeTexts::package(read.asString()).getPart(0).getBody(), body);
    }
}

TEST(TzMimeKeptSearch, LeavesOtherBodiesAsTheyWere) {
    for (const std::string body : {"", "--", "a--b", "x--bx\r\n-b", "\r\n\r\n--a"}) {
        const std::string text = MimeTexts::packageHead + "--b\r\nX: y\r\n\r\n" + body;
        const TzMimeMultipart read = MimeTexts::package(text + "\r\n--b--\r\n");
        ASSERT_EQ(read.getPartCount(), 1U) << body;
        EXPECT_EQ(read.asString(),
                  "Content-Type: multipart/related; boundary=\"b\"\r\n\r\n--b\r\nX: y\r\n\r\n" +
                      body + "\r\n--b--\r\n");
    }
}

TEST(TzMimeKeptSearch, EndsWithTheBody) {
    TzMimeMultipart read =
        MimeTexts::package(MimeTexts::packageHead + "--b\r\nX: y\r\n\r\na\r\n--b--\r\n");
    read.getPart(0).setBody("a\r\n--b\r\n");
    EXPECT_NE(read.asString().find("base64"), std::string::npos);
}

TEST(TzMimeKeptSearch, IsOfOneBoundary) {
    const TzMimeMultipart read =
        MimeTexts::package(MimeTexts::packageHead + "--b\r\nX: y\r\n\r\na\r\n--c\r\n\r\n--b--\r\n");
    TzMimeMultipart other = MimeTexts::withBoundary("c");
    other.insertPart(read.getPart(0));
    EXPECT_NE(other.asString().find("base64"), std::string::npos);
    EXPECT_EQ(MimeTexts::package(other.asString()).getPart(0).getBody(), "a\r\n--c\r\n");
}
