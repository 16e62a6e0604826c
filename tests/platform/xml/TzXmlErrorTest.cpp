// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlError.h>

#include <gtest/gtest.h>

#include <tz/xml/TzThrow.h>

#include "support/Throws.h"

#include <type_traits>

namespace {

constexpr TzCatMsg Entry = {"test", 42, "bad %s"};

/// Throws a copy of `error` through TzThrow and returns what arrives, as `Error` itself.
template <typename Error> void expectThrown(const Error& error) {
    EXPECT_EQ(textThrown<Error>([&] { TzThrow(error); }), "bad thing");
    try {
        TzThrow(error);
    } catch (const TzXmlError& caught) {
        EXPECT_STREQ(caught.getMessage().getDomain(), "test");
        EXPECT_EQ(caught.getMessage().getId(), 42U);
        EXPECT_EQ(caught.getMessage().asString(), "bad thing");
        EXPECT_STREQ(caught.what(), "bad thing");
    }
}

} // namespace

TEST(TzXmlError, SaysItsMessage) {
    const TzXmlError error(TzMessage(&Entry, "thing"));
    EXPECT_STREQ(error.what(), "bad thing");
    EXPECT_EQ(error.getMessage().getId(), 42U);
}

TEST(TzXmlError, IsMadeFromText) {
    const TzXmlError error("wrong type");
    EXPECT_EQ(error.asString(), "wrong type");
    EXPECT_EQ(error.getMessage().asString(), "wrong type");
    EXPECT_EQ(error.getMessage().getId(), 0U);
    EXPECT_STREQ(error.getMessage().getDomain(), "");
}

TEST(TzThrow, ThrowsTheStaticClass) {
    const TzMessage message(&Entry, "thing");
    expectThrown(TzXmlError(message));
    expectThrown(TzXmlInternalError(message));
    expectThrown(TzXmlBadArgError(message));
    expectThrown(TzXmlDomainError(message));
    expectThrown(TzXmlBoundsError(message));
    expectThrown(TzXmlParseError(message, "file", 1, 2));
}

TEST(TzThrow, KeepsThePlaceOfParseErrors) {
    try {
        TzThrow(TzXmlParseError(TzMessage(&Entry, "thing"), "file.xml", 3, 17));
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.getSource(), "file.xml");
        EXPECT_EQ(error.getLine(), 3U);
        EXPECT_EQ(error.getColumn(), 17U);
    }
}

TEST(TzThrow, ThrowsTheStaticClassOfABaseReference) {
    const TzXmlBadArgError derived(TzMessage(&Entry, "thing"));
    const TzXmlError& base = derived;
    EXPECT_EQ(textThrown<TzXmlError>([&] { TzThrow(base); }), "bad thing");
}

TEST(TzXmlError, OneCatchHandlesAll) {
    static_assert(std::is_base_of_v<Tzxmsg, TzXmlError>);
    static_assert(std::is_base_of_v<TzXmlError, TzXmlParseError>);
    static_assert(std::is_base_of_v<TzXmlError, TzXmlInternalError>);
    static_assert(std::is_base_of_v<TzXmlError, TzXmlBadArgError>);
    static_assert(std::is_base_of_v<TzXmlError, TzXmlDomainError>);
    static_assert(std::is_base_of_v<TzXmlError, TzXmlBoundsError>);
    try {
        TzThrow(TzXmlDomainError(TzMessage(&Entry, "thing")));
    } catch (const Tzxmsg& error) {
        EXPECT_EQ(error.asString(), "bad thing");
        return;
    }
    FAIL() << "nothing was thrown";
}

TEST(TzXmlParseError, TextWithoutCatalogueEntryEndsWithItsPlace) {
    const TzXmlParseError error = TzXmlParseError::at("mismatched tag", 3, 9);
    EXPECT_STREQ(error.what(), "mismatched tag, line 3, column 9");
    EXPECT_EQ(error.describe(), "mismatched tag, line 3, column 9");
    EXPECT_EQ(error.getMessage().asString(), "mismatched tag");
    EXPECT_EQ(error.getMessage().getId(), 0U);
    EXPECT_EQ(error.getLine(), 3U);
    EXPECT_EQ(error.getColumn(), 9U);
}

TEST(TzXmlParseError, DescribesSourceAndPlaceAndDetail) {
    TzXmlParseError error(TzMessage(&Entry, "thing"), "file.xml", 3, 17);
    EXPECT_STREQ(error.what(), "bad thing");
    EXPECT_EQ(error.describe(), "file.xml: bad thing, line 3, column 17");
    error.addDetail("why");
    EXPECT_EQ(error.describe(), "file.xml: bad thing, line 3, column 17 (why)");
    EXPECT_EQ(TzXmlParseError(TzMessage(&Entry), "", 0, 0).describe(), "bad ");
}
