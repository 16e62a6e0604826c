// SPDX-License-Identifier: MIT
#include <tz/mime/TzMimeBase64.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

/// Bytes and their text.
struct Case {
    std::string bytes;
    std::string text;
};

const Case cases[] = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"\xFB\xFF", "+/8="},
    {std::string(3, '\0'), "AAAA"},
};

} // namespace

TEST(TzMimeBase64, BytesBecomeTextAndComeBack) {
    for (const Case& entry : cases) {
        EXPECT_EQ(TzMimeBase64::encode(entry.bytes), entry.text);
        EXPECT_EQ(TzMimeBase64::decode(entry.text), entry.bytes) << entry.text;
    }
}

TEST(TzMimeBase64, LongTextsHaveNoLineBreaks) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i) {
        bytes += static_cast<char>(i);
    }
    const std::string text = TzMimeBase64::encode(bytes);
    EXPECT_EQ(text.size(), 1336U);
    EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos);
    EXPECT_EQ(TzMimeBase64::decode(text), bytes);
}

TEST(TzMimeBase64, WhiteSpaceIsSkipped) {
    EXPECT_EQ(TzMimeBase64::decode(" Z\tm9\r\nvYg = =\n"), "foob");
    EXPECT_EQ(TzMimeBase64::decode(" \n"), "");
}

TEST(TzMimeBase64, OtherTextsAreRefused) {
    for (const char* text : {"Z", "Zg", "Zg=", "Zm9", "Zg==Zg==", "Z===", "====", "=", "Zg=a",
                             "Zm9*", "Zm9-", "Zm9_", "Zm9v\x0B"}) {
        EXPECT_EQ(TzMimeBase64::decode(text), std::nullopt) << text;
    }
}
