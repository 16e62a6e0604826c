// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/mime/MimeTexts.h"
#include "support/GMimeOracle.h"

#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimeVersionHeader.h>

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Headers = std::vector<std::pair<std::string, std::string>>;

constexpr char encodingLabel[] = "Content-Transfer-Encoding";

/// A part as it was made up.
struct Part {
    Headers headers;
    std::string body;
};

/// Makes up packages, equal ones on every machine.
class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t bound) { return random_() % bound; }

    template <typename List> const auto& oneOf(const List& list) {
        return list[below(std::size(list))];
    }

    std::string boundary() {
        constexpr std::string_view letters = "abcXYZ019'()+_,-./:=? ";
        std::string text;
        for (std::size_t size = 1 + below(below(2) == 0 ? 4 : 70); text.size() < size;) {
            text.push_back(letters[below(letters.size())]);
        }
        text.back() = text.back() == ' ' ? '_' : text.back();
        return text;
    }

    Part part(const std::string& boundary) {
        Part made;
        for (std::size_t count = below(5); count > 0; --count) {
            made.headers.push_back(header());
        }
        constexpr std::array<const char*, 6> encodings = {nullptr,  "binary",           "8bit",
                                                          "base64", "quoted-printable", "BASE64"};
        if (const char* const encoding = oneOf(encodings)) {
            made.headers.emplace_back(encodingLabel, encoding);
        }
        made.body = body(boundary);
        return made;
    }

private:
    std::pair<std::string, std::string> header() {
        constexpr std::array<const char*, 5> labels = {"X-Tag", "Content-ID", "Content-Location",
                                                       "Content-Description", "x"};
        constexpr std::array<const char*, 8> pieces = {"a",   " ", "\"q \\\" q\"", "(c)",
                                                       "<i@", ">", "; p=v",        "\xC3\xA4"};
        std::string value = "v";
        for (std::size_t count = below(below(8) == 0 ? 200 : 6); count > 0; --count) {
            value += oneOf(pieces);
        }
        return {oneOf(labels), value + "v"};
    }

    std::string body(const std::string& boundary) {
        constexpr std::array<std::size_t, 22> sizes = {
            0,   1,   2,   3,    4,    56,   57,   58,   75,   76,   77,
            255, 256, 257, 1023, 1024, 1025, 4095, 4096, 4097, 8192, 65537};
        const std::size_t size = oneOf(sizes);
        const std::size_t kind = below(4);
        std::string bytes;
        while (bytes.size() < size) {
            bytes +=
                kind == 0 ? std::string(1, static_cast<char>(below(256))) : piece(boundary, kind);
        }
        bytes.resize(size);
        return withEdges(std::move(bytes));
    }

    std::string piece(const std::string& boundary, std::size_t kind) {
        constexpr std::array<const char*, 10> lines = {"\r", "\n", "\r\n", "\n\r",     "-",
                                                       "--", "x",  " ",    "\r\n\r\n", "=\r\n"};
        if (kind == 1 && below(3) == 0) {
            return boundary.substr(0, below(boundary.size() + 1));
        }
        // Whole delimiter lines, which force an encoding, are tried too.
        return kind == 2 && below(8) == 0 ? "--" + boundary : oneOf(lines);
    }

    std::string withEdges(std::string bytes) {
        constexpr std::array<const char*, 6> edges = {"", "", "\r", "\n", "\r\n", "\r\r\n"};
        return oneOf(edges) + std::move(bytes) + oneOf(edges);
    }

    std::mt19937 random_;
};

TzMimeMultipart assemble(const std::string& boundary, const std::vector<Part>& parts) {
    TzMimeMultipart package = MimeTexts::withBoundary(boundary);
    package.insertHeader(TzMimeVersionHeader());
    for (const Part& part : parts) {
        package.insertPart(MimeTexts::withBody(part.body, part.headers));
    }
    return package;
}

Headers withoutEncoding(Headers headers) {
    std::erase_if(headers, [](const auto& header) { return header.first == encodingLabel; });
    return headers;
}

void expectSame(const TzMimeMultipart& read, const std::vector<Part>& parts) {
    ASSERT_EQ(read.getPartCount(), parts.size());
    for (std::size_t at = 0; at < parts.size(); ++at) {
        const TzMimePart part = read.getPart(at);
        EXPECT_EQ(part.getBody(), parts[at].body);
        EXPECT_EQ(withoutEncoding(MimeTexts::headers(part)), withoutEncoding(parts[at].headers));
    }
}

void expectSame(const GMimeOracle::Package& other, const TzMimeMultipart& read) {
    EXPECT_EQ(other.boundary, MimeTexts::boundary(read));
    ASSERT_EQ(other.parts.size(), read.getPartCount());
    for (std::size_t at = 0; at < other.parts.size(); ++at) {
        const TzMimePart part = read.getPart(at);
        EXPECT_EQ(other.parts[at].body, part.getBody());
        EXPECT_EQ(other.parts[at].headers, MimeTexts::headers(part));
    }
}

} // namespace

class TzMimeProperty : public testing::TestWithParam<unsigned> {};

TEST_P(TzMimeProperty, WhatIsWrittenReadsBack) {
    Generator generator(GetParam());
    for (int round = 0; round < 100 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const std::string boundary = generator.boundary();
        std::vector<Part> parts(generator.below(9));
        for (Part& part : parts) {
            part = generator.part(boundary);
        }
        const std::string text = assemble(boundary, parts).asString();
        const TzMimeMultipart read = MimeTexts::package(text);
        expectSame(read, parts);
        EXPECT_EQ(read.asString(), text);
        if (!parts.empty()) {
            expectSame(GMimeOracle::read(text), read);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TzMimeProperty, testing::Range(1U, 9U));
