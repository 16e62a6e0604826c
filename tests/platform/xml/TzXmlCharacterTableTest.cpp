// SPDX-License-Identifier: MIT
#include "xml/TzXmlCharacterTable.h"
#include "xml/TzXmlSingleByteEncodings.h"

#include <gtest/gtest.h>

#include <iconv.h>

#include <array>
#include <string>
#include <vector>

namespace {

/// The characters of all bytes of `encoding`, as iconv knows them; empty when it does not.
std::vector<int> charactersByIconv(const std::string& encoding) {
    const iconv_t conversion = iconv_open("UTF-32BE", encoding.c_str());
    if (conversion == reinterpret_cast<iconv_t>(-1)) { // NOLINT(performance-no-int-to-ptr)
        return {};
    }
    std::vector<int> codes;
    for (int byte = 0; byte < 256; ++byte) {
        char in = static_cast<char>(byte);
        std::array<char, 8> out{};
        char* from = &in;
        char* to = out.data();
        std::size_t inLeft = 1;
        std::size_t outLeft = out.size();
        iconv(conversion, nullptr, nullptr, nullptr, nullptr);
        const bool known = iconv(conversion, &from, &inLeft, &to, &outLeft) == 0;
        // Some decoders keep a letter back until they know that no accent follows.
        iconv(conversion, nullptr, nullptr, &to, &outLeft);
        int code = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            code = code * 256 + static_cast<unsigned char>(out.at(i));
        }
        codes.push_back(known ? code : -1);
    }
    iconv_close(conversion);
    return codes;
}

std::vector<int> characters(std::string_view encoding) {
    int codes[256] = {};
    if (!TzXmlCharacterTable::fill(encoding, codes)) {
        return {};
    }
    return {std::begin(codes), std::end(codes)};
}

std::vector<std::string> namesOf(const TzXmlSingleByteEncoding& encoding) {
    std::vector<std::string> names(1);
    for (const char byte : encoding.names.substr(1)) {
        if (byte == ' ') {
            names.emplace_back();
        } else {
            names.back() += byte;
        }
    }
    names.pop_back();
    return names;
}

} // namespace

TEST(TzXmlCharacterTable, HasTheCharactersThatIconvHas) {
    for (const TzXmlSingleByteEncoding& encoding : TzXmlSingleByteEncoding::All) {
        const std::string name = namesOf(encoding).front();
        const std::vector<int> expected = charactersByIconv(name);
        ASSERT_EQ(expected.size(), 256U) << name;
        EXPECT_EQ(characters(name), expected) << name;
    }
}

TEST(TzXmlCharacterTable, KnowsTheEncodingsByAllTheirNamesInAnyCase) {
    for (const TzXmlSingleByteEncoding& encoding : TzXmlSingleByteEncoding::All) {
        const std::vector<std::string> names = namesOf(encoding);
        for (const std::string& name : names) {
            std::string lower;
            for (const char byte : name) {
                lower += static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte + 32 : byte);
            }
            EXPECT_EQ(characters(name), characters(names.front())) << name;
            EXPECT_EQ(characters(lower), characters(names.front())) << name;
        }
    }
}

// A name that iconv has as well means the same there.
TEST(TzXmlCharacterTable, NamesMeanWhatIconvTakesThemFor) {
    std::size_t compared = 0;
    for (const TzXmlSingleByteEncoding& encoding : TzXmlSingleByteEncoding::All) {
        for (const std::string& name : namesOf(encoding)) {
            const std::vector<int> expected = charactersByIconv(name);
            if (!expected.empty()) {
                EXPECT_EQ(characters(name), expected) << name;
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 100U);
}

TEST(TzXmlCharacterTable, DoesNotKnowOtherNames) {
    for (const char* name :
         {"", " ", "UTF-8", "ISO-8859", "ISO-8859-12", "ISO-8859-1 ", "ISO-8859-1 ISO_8859-1",
          "8859", "Shift_JIS", "windows-1259", "IBM037"}) {
        EXPECT_EQ(characters(name).size(), 0U) << name;
    }
}
