// SPDX-License-Identifier: MIT
#include <soap/TzSoapCast.h>

#include "support/ReadValues.h"
#include "support/Throws.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapMisunderstoodType.h>
#include <tz/thread/TzTHRInvalidPointer.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <gtest/gtest.h>

#include <utility>

namespace {

TzSoapType text() { return TzSoapSimpleType("m:t", "x", TzSoapContentBase::xsdString, false); }

template <typename Handle> std::string refused(const TzSoapType& value) {
    return textThrown<TzXmlBadArgError>([&] { tzSoapAs<Handle>(value); });
}

} // namespace

TEST(TzSoapCast, AnotherKindIsAnErrorWithNameAndKind) {
    EXPECT_EQ(refused<TzSoapCompositeType>(text()),
              "element \"m:t\" is not a composite but of kind \"Simple\"");
    EXPECT_EQ(refused<TzSoapArrayType>(text()),
              "element \"m:t\" is not an array but of kind \"Simple\"");
    EXPECT_EQ(refused<TzSoapCompactArrayType>(text()),
              "element \"m:t\" is not a compact array but of kind \"Simple\"");
    EXPECT_EQ(refused<TzSoapSparseArrayType>(text()),
              "element \"m:t\" is not a sparse array but of kind \"Simple\"");
    EXPECT_EQ(refused<TzSoapReferenceType>(text()),
              "element \"m:t\" is not a reference but of kind \"Simple\"");
    EXPECT_EQ(refused<TzSoapUserDefinedType>(text()),
              "element \"m:t\" is not a user-defined value but of kind \"Simple\"");
    EXPECT_EQ(refused<TzSoapMisunderstoodType>(text()),
              "element \"m:t\" is not a misunderstood entry but of kind \"Simple\"");
    EXPECT_EQ(refused<TzSoapSimpleType>(TzSoapCompositeType("c")),
              "element \"c\" is not a simple value but of kind \"Composite\"");
}

TEST(TzSoapCast, APositionWithoutItemIsNamedSo) {
    EXPECT_EQ(refused<TzSoapSimpleType>(TzSoapDefaultType()),
              "an array position without item is not a simple value but of kind \"Default\"");
}

TEST(TzSoapCast, TheHandleSharesTheBody) {
    const TzSoapType value = text();
    tzSoapAs<TzSoapSimpleType>(value).setInt(5);
    EXPECT_EQ(textOf(value), "5");
}

TEST(TzSoapCast, AReferenceStandsForItsValueUnlessItIsAskedFor) {
    const TzSoapMessage message =
        messageOf(envelope(TzSoapVersion::V1_1, "<r href='#b'/><b id='b'><x/></b>"));
    const TzSoapType reference = message.getSoapBody().getFirstEntry();
    EXPECT_EQ(tzSoapAs<TzSoapCompositeType>(reference).childCount(), 1U);
    EXPECT_TRUE(tzSoapAs<TzSoapReferenceType>(reference).hasReference());
}

TEST(TzSoapCast, AHandleWithoutBodyIsRefused) {
    TzSoapType moved = text();
    const TzSoapType taken(std::move(moved));
    // NOLINTNEXTLINE(bugprone-use-after-move): that is what this is about
    EXPECT_EQ(textThrown<TzTHRInvalidPointer>([&] { tzSoapAs<TzSoapSimpleType>(moved); }),
              "Invalid pointer");
}
