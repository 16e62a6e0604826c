// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"

#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr char Base64[] = "base64";
constexpr char QuotedPrintable[] = "quoted-printable";
constexpr char Binary[] = "binary";

std::string header(std::string_view encoding) {
    return "Content-Transfer-Encoding: " + std::string(encoding) + "\r\n\r\n";
}

/// What the body of a part is written as.
std::string encoded(std::string_view encoding, std::string_view bytes) {
    const TzMimePart made = MimeTexts::withBody(
        std::string(bytes), {{"Content-Transfer-Encoding", std::string(encoding)}});
    return made.asString().substr(header(encoding).size());
}

/// What a body is read as.
std::string decoded(std::string_view encoding, std::string_view text) {
    return MimeTexts::part(header(encoding).append(text)).getBody();
}

} // namespace

TEST(TzMimeTransferEncoding, KnowsItsNames) {
    for (const char* const name : {"base64", "BASE64 (letters)", "(c) Base64"}) {
        EXPECT_EQ(decoded(name, "PTQx"), "=41") << name;
    }
    for (const char* const name : {"quoted-printable", "Quoted-Printable;"}) {
        EXPECT_EQ(decoded(name, "=41PTQx"), "APTQx") << name;
    }
    for (const char* const name : {"7bit", "8bit", "binary", "", "base", "base644", "x-uuencode"}) {
        EXPECT_EQ(decoded(name, "=41PTQx"), "=41PTQx") << name;
    }
}

TEST(TzMimeTransferEncoding, WritesBase64) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"f", "Zg=="},
        {"fo", "Zm8="},
        {"foo", "Zm9v"},
        {"foob", "Zm9vYg=="},
        {"fooba", "Zm9vYmE="},
        {"foobar", "Zm9vYmFy"},
        {"\xFB\xFF\xFE", "+//+"},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(encoded(Base64, bytes), text);
        EXPECT_EQ(decoded(Base64, text), bytes);
    }
}

TEST(TzMimeTransferEncoding, BreaksBase64After76Letters) {
    const std::string line = MimeTexts::repeated("AAAA", 19);
    EXPECT_EQ(encoded(Base64, std::string(57, '\0')), line);
    EXPECT_EQ(encoded(Base64, std::string(58, '\0')), line + "\r\nAA==");
    EXPECT_EQ(encoded(Base64, std::string(114, '\0')), line + "\r\n" + line);
    for (std::size_t size = 0; size < 400; ++size) {
        const std::size_t lineEnds = size == 0 ? 0 : (size - 1) / 57;
        EXPECT_EQ(encoded(Base64, std::string(size, 'x')).size(),
                  (size + 2) / 3 * 4 + 2 * lineEnds);
    }
}

TEST(TzMimeTransferEncoding, SkipsWhatIsNoBase64) {
    const std::pair<const char*, const char*> cases[] = {
        {"Z\r\nm 9\tv", "foo"}, {"!Zm9v*-_", "foo"}, {"Zm9vYg", "foob"},
        {"Zm9vYmE", "fooba"},   {"Zm9vY", "foo"},    {"=Zm9v", "foo"},
        {"Z=m9v", "foo"},       {"Zg==Zm9v", "f"},   {"Zm8=!!!!", "fo"},
        {"Zg=", "f"},           {"====", ""},        {"Zm9v\xC3\xA4YmFy", "foobar"},
    };
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(decoded(Base64, text), bytes) << text;
    }
    EXPECT_EQ(decoded(Base64, std::string_view("Zm\0009v", 5)), "foo");
}

TEST(TzMimeTransferEncoding, WritesQuotedPrintable) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", ""},
        {"a=b", "a=3Db"},
        {"\xC3\xA4", "=C3=A4"},
        {std::string_view("\0\x7F", 2), "=00=7F"},
        {"a b\tc", "a b\tc"},
        {"a ", "a=20"},
        {"a \r\nb\t\r\n", "a=20\r\nb=09\r\n"},
        {"a\nb\rc\r\r\n", "a=0Ab=0Dc=0D\r\n"},
        {"a \rb", "a=20=0Db"},
        {"\r\n\r\n", "\r\n\r\n"},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(encoded(QuotedPrintable, bytes), text);
        EXPECT_EQ(decoded(QuotedPrintable, text), bytes);
    }
}

TEST(TzMimeTransferEncoding, KeepsQuotedPrintableLinesShort) {
    EXPECT_EQ(encoded(QuotedPrintable, std::string(76, 'x')), std::string(75, 'x') + "=\r\nx");
    EXPECT_EQ(encoded(QuotedPrintable, std::string(73, 'x') + "=y"),
              std::string(73, 'x') + "=\r\n=3Dy");
    EXPECT_EQ(encoded(QuotedPrintable, std::string(75, 'x') + "\r\ny"),
              std::string(75, 'x') + "\r\ny");
}

TEST(TzMimeTransferEncoding, ReadsQuotedPrintable) {
    const std::pair<const char*, const char*> cases[] = {
        {"a=\r\nb", "ab"},
        {"a=\nb", "ab"},
        {"a= \t\r\nb", "ab"},
        {"a \t\r\nb", "a\r\nb"},
        {"a=3d=3D", "a=="},
        {"a=zz", "a=zz"},
        {"a=4", "a=4"},
        {"a=", "a"},
        {"a==41", "a=A"},
        {"a\nb", "a\nb"},
        {"=C3=\r\n=A4", "\xC3\xA4"},
        {"a \t", "a"},
        {"\xC3\xA4", "\xC3\xA4"},
        {"a=4\r\n1", "a=4\r\n1"},
    };
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(decoded(QuotedPrintable, text), bytes) << text;
    }
}

TEST(TzMimeTransferEncoding, LeavesOtherBodiesAlone) {
    const std::string bytes("a=3D\0\r\n ", 8);
    EXPECT_EQ(encoded(Binary, bytes), bytes);
    EXPECT_EQ(decoded(Binary, bytes), bytes);
}

TEST(TzMimeTransferEncoding, GivesEveryByteBack) {
    std::mt19937 random(20240501);
    constexpr std::string_view likely = "\r\n \t=-a\xFF";
    for (std::size_t size = 0; size < 600; ++size) {
        std::string bytes;
        for (std::size_t at = 0; at < size; ++at) {
            const auto value = random();
            bytes.push_back(value % 2 == 0 ? likely[value / 2 % likely.size()]
                                           : static_cast<char>(value >> 8U & 0xFFU));
        }
        for (const char* const encoding : {Base64, QuotedPrintable, Binary}) {
            EXPECT_EQ(decoded(encoding, encoded(encoding, bytes)), bytes);
        }
    }
}
