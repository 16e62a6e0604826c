// SPDX-License-Identifier: MIT
#include <soap/TzSoapSerializer.h>

#include "property/Description.h"
#include "property/Generator.h"

#include <gtest/gtest.h>

namespace {

std::string serialized(const TzSoapMessage& message) {
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    return serializer.getSerializedString();
}

/// What is read from `text`.
TzSoapMessage read(const std::string& text, TzSoapVersion::Version version) {
    TzSoapMessage message(version);
    message.extract(text);
    return message;
}

TEST(TzSoapSerializerProperty, BothPathsWriteTheSameModel) {
    for (std::uint32_t seed = 1; seed <= 1000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const TzSoapMessage message = Generator(seed).message();
        const std::string text = serialized(message);
        const TzSoapMessage fromSerializer = read(text, message.getVersion());
        ASSERT_EQ(describe(fromSerializer),
                  describe(read(message.asString(), message.getVersion())))
            << text;
        // What a value was given by the first text it states from then on.
        const std::string again = serialized(fromSerializer);
        ASSERT_EQ(serialized(read(again, message.getVersion())), again);
    }
}

} // namespace
