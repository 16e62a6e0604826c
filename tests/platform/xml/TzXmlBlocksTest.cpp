// SPDX-License-Identifier: MIT
//
// Escaping, with each kind of block that texts are looked at in.
#include "xml/TzXmlBlocks.h"

#include <tz/xml/TzXmlBadArgError.h>

#include "support/Throws.h"
#include "xml/TzXmlEscape.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace std::string_literals;

template <typename Block> class TzXmlBlocks : public testing::Test {};

#if defined(__SSE2__)
using Blocks = testing::Types<TzXmlWordBlock, TzXmlSseBlock>;
#else
using Blocks = testing::Types<TzXmlWordBlock>;
#endif
TYPED_TEST_SUITE(TzXmlBlocks, Blocks);

bool needsLook(unsigned char byte) {
    return byte < 0x20 || byte >= 0x80 || byte == '"' || byte == '&' || byte == '<' || byte == '>';
}

/// What `text`, which is ASCII without controls, becomes in `context`.
std::string naive(std::string_view text, TzXmlEscape::Context context) {
    const bool isValue = context == TzXmlEscape::Context::AttributeValue;
    std::string out;
    for (const char byte : text) {
        switch (byte) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '\r':
            out += "&#13;";
            break;
        case '"':
            out += isValue ? "&quot;" : "\"";
            break;
        case '\t':
            out += isValue ? "&#9;" : "\t";
            break;
        case '\n':
            out += isValue ? "&#10;" : "\n";
            break;
        default:
            out += byte;
        }
    }
    return out;
}

/// What `escapeSome` makes of `text` with so much room at a time; fails when it writes beyond.
template <typename Block>
std::string escaped(std::string_view text, TzXmlEscape::Context context,
                    std::size_t roomAtOnce = 200) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        std::string room(roomAtOnce + 1, '#');
        char* to = room.data();
        const std::size_t next = TzXmlEscape::escapeSome<Block>(
            text, at, text.size(), TzXmlEscape::tableFor(context), to, to + roomAtOnce);
        EXPECT_GT(next, at);
        EXPECT_EQ(room.back(), '#') << "wrote beyond the room";
        out.append(room.data(), to);
        at = next;
    }
    return out;
}

} // namespace

TYPED_TEST(TzXmlBlocks, FindEveryByteAtEveryPlace) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (std::size_t at = 0; at < TypeParam::Size; ++at) {
            // Beside bytes that are as close to being found as possible.
            for (const char around : {' ', '\x7F', '!', '=', '?', '%', '#', '\''}) {
                std::string block(TypeParam::Size, around);
                block[at] = static_cast<char>(byte);
                auto flags = TypeParam::flags(block.data());
                ASSERT_EQ(flags.any(), needsLook(static_cast<unsigned char>(byte)))
                    << byte << " at " << at;
                if (flags.any()) {
                    ASSERT_EQ(flags.first(), at) << byte;
                    flags.drop();
                    ASSERT_FALSE(flags.any()) << byte << " at " << at;
                }
            }
        }
    }
}

TYPED_TEST(TzXmlBlocks, FindAllOfSeveralBytes) {
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        std::string block(TypeParam::Size, '\0');
        std::vector<std::size_t> expected;
        for (std::size_t at = 0; at < block.size(); ++at) {
            block[at] = static_cast<char>(random() % 256);
            if (needsLook(static_cast<unsigned char>(block[at]))) {
                expected.push_back(at);
            }
        }
        std::vector<std::size_t> found;
        for (auto flags = TypeParam::flags(block.data()); flags.any(); flags.drop()) {
            found.push_back(flags.first());
        }
        ASSERT_EQ(found, expected);
    }
}

TYPED_TEST(TzXmlBlocks, ForgetPositionsBeforeAPlace) {
    const std::string block(TypeParam::Size, '&');
    for (std::size_t at = 0; at < TypeParam::Size + 3; ++at) {
        auto flags = TypeParam::flags(block.data());
        flags.dropBefore(at);
        ASSERT_EQ(flags.any(), at < TypeParam::Size);
        ASSERT_TRUE(!flags.any() || flags.first() == at);
    }
}

TYPED_TEST(TzXmlBlocks, CopyPlainTextsOfEveryLength) {
    for (std::size_t size = 0; size < 70; ++size) {
        std::string text(size, 'a');
        std::string to(size + TypeParam::Size, '\0');
        ASSERT_TRUE(TzXmlEscape::copyPlain<TypeParam>(to.data(), text)) << size;
        ASSERT_EQ(to.substr(0, size), text);
        for (std::size_t at = 0; at < size; ++at) {
            for (const char odd : {'&', '<', '>', '"', '\r', '\n', '\t', '\x01', '\x80', '\xFF'}) {
                text[at] = odd;
                ASSERT_FALSE(TzXmlEscape::copyPlain<TypeParam>(to.data(), text))
                    << size << " at " << at;
            }
            text[at] = 'a';
        }
    }
}

TYPED_TEST(TzXmlBlocks, EscapeLikeByteAfterByte) {
    constexpr std::string_view Letters = "ab &<>\r\"\t\n'";
    std::mt19937 random(11);
    for (int round = 0; round < 5000; ++round) {
        std::string text(random() % 120, ' ');
        const std::size_t kinds = 1 + random() % Letters.size();
        for (char& letter : text) {
            letter = Letters[random() % kinds];
        }
        for (const auto context :
             {TzXmlEscape::Context::Content, TzXmlEscape::Context::AttributeValue}) {
            ASSERT_EQ(escaped<TypeParam>(text, context, TzXmlEscape::LeastRoom + random() % 100),
                      naive(text, context));
        }
    }
}

TYPED_TEST(TzXmlBlocks, KeepCharactersOfSeveralBytesWhole) {
    for (std::size_t before = 0; before < 40; ++before) {
        const std::string text = std::string(before, 'x') + "\u00E9\u20AC\U0001F600&" +
                                 std::string(40, 'y') + "\U0001F600";
        const std::string expected = std::string(before, 'x') + "\u00E9\u20AC\U0001F600&amp;" +
                                     std::string(40, 'y') + "\U0001F600";
        ASSERT_EQ(escaped<TypeParam>(text, TzXmlEscape::Context::Content), expected);
    }
}

TYPED_TEST(TzXmlBlocks, RefuseAtEveryPlace) {
    const auto refusal = [](std::string_view text) {
        return textThrown<TzXmlBadArgError>(
            [text] { escaped<TypeParam>(text, TzXmlEscape::Context::Content); });
    };
    for (std::size_t at = 0; at < 60; ++at) {
        const std::string place = " at offset " + std::to_string(at);
        const std::string begin(at, 'x');
        const std::string rest(60 - at, 'y');
        ASSERT_EQ(refusal(begin + "\x01" + rest),
                  "the character U+0001" + place + " cannot stand in XML");
        ASSERT_EQ(refusal(begin + "\xEF\xBF\xBE" + rest),
                  "the character U+FFFE" + place + " cannot stand in XML");
        ASSERT_EQ(refusal(begin + "\xC3" + rest), "the byte 0xC3" + place + " is not UTF-8");
        ASSERT_EQ(refusal(begin + "\xC3"), "the byte 0xC3" + place + " is not UTF-8");
    }
}
