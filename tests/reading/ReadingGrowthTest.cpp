// SPDX-License-Identifier: MIT
#include <soap/TzSoapMessage.h>

#include <gtest/gtest.h>

#include "support/AllocationFailure.h"

#include <string>

// The memory of reading grows with the text: long texts that hold for many values are shared.

namespace {

const std::string Start = "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/' ";

std::string repeated(const std::string& text, std::size_t count) {
    std::string all;
    for (; count > 0; --count) {
        all += text;
    }
    return all;
}

/// Bytes that reading `text` asks for.
std::size_t bytesFor(const std::string& text) {
    TzSoapMessage message;
    const std::size_t before = askedBytes();
    message.extract(text);
    return askedBytes() - before;
}

/// Bytes that each more of the entries takes; `around` holds "$" where they stand.
std::size_t bytesPerEntry(const std::string& around, const std::string& entries) {
    constexpr std::size_t Few = 100;
    constexpr std::size_t Many = 1100;
    const auto text = [&](std::size_t count) {
        std::string all = around;
        return all.replace(all.find('$'), 1, repeated(entries, count));
    };
    return (bytesFor(text(Many)) - bytesFor(text(Few))) / (Many - Few);
}

} // namespace

TEST(ReadingGrowth, ValuesUnderOneEncodingStyleShareIt) {
    const std::string style = "urn:" + std::string(2000, 'x');
    const std::string onEnvelope =
        Start + "s:encodingStyle='" + style + "'><s:Body>$</s:Body></s:Envelope>";
    const std::string onBody =
        Start + "><s:Body s:encodingStyle='" + style + "'>$</s:Body></s:Envelope>";
    EXPECT_LT(bytesPerEntry(onEnvelope, "<a/>"), 1000U);
    EXPECT_LT(bytesPerEntry(onBody, "<a/>"), 1000U);
    // A style of a value's own changes nothing about the one around it.
    EXPECT_LT(bytesPerEntry(onBody, "<a/><b s:encodingStyle='urn:b'/>"), 2000U);
}
