// SPDX-License-Identifier: MIT
#include "reading/TzSoapStylesInForce.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string Soap = "http://schemas.xmlsoap.org/soap/encoding/";

} // namespace

TEST(TzSoapStylesInForce, WithoutAStyleValuesAreSoapEncoded) {
    TzSoapStylesInForce styles;
    EXPECT_TRUE(styles.inForce().soapEncoding);
    EXPECT_EQ(styles.inForce().first, "");
}

TEST(TzSoapStylesInForce, TheFirstUriOfTheInnermostTextDecides) {
    TzSoapStylesInForce styles;
    styles.push(" urn:a\n" + Soap);
    EXPECT_FALSE(styles.inForce().soapEncoding);
    EXPECT_EQ(styles.inForce().first, "urn:a");
    styles.push(Soap + " urn:a");
    EXPECT_TRUE(styles.inForce().soapEncoding);
    EXPECT_EQ(styles.inForce().first, Soap);
    styles.push("");
    EXPECT_TRUE(styles.inForce().soapEncoding);
    EXPECT_EQ(styles.inForce().first, "");
    styles.pop();
    styles.pop();
    EXPECT_EQ(styles.inForce().first, "urn:a");
}

TEST(TzSoapStylesInForce, ATextReplacedByHandIsSeen) {
    TzSoapStylesInForce styles;
    TzSoapStylesInForce::Texts& texts = styles.expose();
    texts.push("urn:a");
    EXPECT_EQ(styles.inForce().first, "urn:a");
    texts.top() = "urn:b";
    EXPECT_EQ(styles.inForce().first, "urn:b");
    texts.pop();
    texts.push("urn:c");
    EXPECT_EQ(styles.inForce().first, "urn:c");
    texts.push("urn:d");
    texts.push("urn:e");
    texts.pop();
    EXPECT_EQ(styles.inForce().first, "urn:d");
}

TEST(TzSoapStylesInForce, TextsByHandAndOthersGoTogether) {
    TzSoapStylesInForce styles;
    styles.push("urn:a");
    EXPECT_EQ(styles.inForce().first, "urn:a");
    styles.expose().push("urn:b");
    EXPECT_EQ(styles.inForce().first, "urn:b");
    styles.push("urn:c");
    EXPECT_EQ(styles.expose().top(), "urn:c");
    styles.pop();
    styles.pop();
    EXPECT_EQ(styles.inForce().first, "urn:a");
}

TEST(TzSoapStylesInForce, ValuesUnderOneStyleShareItsRecord) {
    TzSoapStylesInForce styles;
    styles.push("urn:a urn:b");
    const auto first = styles.share("urn:a");
    EXPECT_EQ(*first, "urn:a");
    // A style within, and its end, change nothing about it.
    styles.push("urn:c");
    EXPECT_EQ(*styles.share("urn:c"), "urn:c");
    styles.pop();
    EXPECT_TRUE(styles.share("urn:a").isSame(first));
    EXPECT_EQ(*styles.share("urn:z"), "urn:z");
}

TEST(TzSoapStylesInForce, ClearEndsAllScopes) {
    TzSoapStylesInForce styles;
    styles.push("urn:a");
    styles.push("urn:b");
    styles.clear();
    EXPECT_TRUE(styles.expose().empty());
    EXPECT_TRUE(styles.inForce().soapEncoding);
}
