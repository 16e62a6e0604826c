// SPDX-License-Identifier: MIT
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapSimpleType.h>

#include "values/EnvelopeTesting.h"

#include <gtest/gtest.h>

namespace {

/// Attributes whose prefixes are bound to nothing, beside one without a prefix.
class UnboundPrefixes : public testing::TestWithParam<TzSoapVersion::Version> {
protected:
    static TzSoapMessage read(const std::string& attributes) {
        return messageOf(envelope(GetParam(), "<x " + attributes + ">t</x>"));
    }
    static std::string valueOf(const TzSoapType& value, const char* name) {
        const TzXmlAttribute* found = value.findAttribute(TzXmlName(name));
        return found == value.attributesEnd() ? "-" : found->getValue();
    }
};

INSTANTIATE_TEST_SUITE_P(BothVersions, UnboundPrefixes, testing::ValuesIn(BothVersions),
                         [](const auto& tested) { return "V" + std::to_string(tested.param); });

TEST_P(UnboundPrefixes, EachAttributeIsRead) {
    const TzSoapMessage message = read("p:a='1' q:a='2' a='3'");
    const TzSoapType value = *message.getSoapBody().entriesBegin();
    EXPECT_EQ(value.attributeCount(), 3U);
    EXPECT_EQ(valueOf(value, "p:a"), "1");
    EXPECT_EQ(valueOf(value, "q:a"), "2");
    EXPECT_EQ(valueOf(value, "a"), "3");
}

TEST_P(UnboundPrefixes, EachAttributeOfManyIsRead) {
    std::string attributes;
    for (int i = 0; i < 40; ++i) {
        attributes += "p" + std::to_string(i) + ":a='" + std::to_string(i) + "' ";
    }
    const TzSoapMessage message = read(attributes + "a='x'");
    const TzSoapType value = *message.getSoapBody().entriesBegin();
    EXPECT_EQ(value.attributeCount(), 41U);
    EXPECT_EQ(valueOf(value, "p7:a"), "7");
    EXPECT_EQ(valueOf(value, "a"), "x");
}

TEST_P(UnboundPrefixes, EachAttributeIsWrittenAndReadAgain) {
    const TzSoapMessage message = read("p:a='1' q:a='2' a='3'");
    const std::string text = message.asString();
    EXPECT_NE(text.find("p:a=\"1\" q:a=\"2\" a=\"3\""), std::string::npos) << text;
    const TzSoapMessage again = messageOf(text);
    EXPECT_EQ(again.asString(), text);
}

TEST_P(UnboundPrefixes, TheSerializerWritesEachAttribute) {
    TzSoapMessage message = read("p:a='1' q:a='2' a='3'");
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    const std::string text = serializer.getSerializedString();
    EXPECT_NE(text.find("p:a=\"1\" q:a=\"2\" a=\"3\""), std::string::npos) << text;
}

} // namespace
