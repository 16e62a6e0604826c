// SPDX-License-Identifier: MIT
#include "property/Description.h"
#include "property/Generator.h"

#include <gtest/gtest.h>

namespace {

constexpr std::uint32_t Messages = 1500;

TEST(RoundTripProperty, AMessageReadFromItsTextIsTheSameMessageWithTheSameText) {
    for (std::uint32_t seed = 1; seed <= Messages; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const TzSoapMessage written = Generator(seed).message();
        const std::string text = written.asString();
        // The prefix of the encoding namespace is that of the version a message is made for.
        TzSoapMessage read(written.getVersion());
        read.extract(text);
        ASSERT_EQ(describe(read), describe(written)) << text;
        ASSERT_EQ(read.asString(), text);
    }
}

TEST(RoundTripProperty, OneMessageObjectReadsOneTextAfterTheOther) {
    TzSoapMessage reused;
    for (std::uint32_t seed = 1; seed <= Messages / 10; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const TzSoapMessage written = Generator(seed).message();
        const std::string text = written.asString();
        reused.setSoapEncodingPrefix(written.getSoapEncodingPrefix());
        reused.extract(text);
        ASSERT_EQ(reused.asString(), text);
    }
}

TEST(RoundTripProperty, ACopyIsWrittenLikeTheOriginal) {
    for (std::uint32_t seed = 1; seed <= Messages / 10; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        TzSoapMessage message = Generator(seed).message();
        // Subcodes do not travel with copies.
        message.getSoapBody().getSoapFault().clearSubcodes();
        ASSERT_EQ(message.copy().asString(), message.asString());
    }
}

} // namespace
