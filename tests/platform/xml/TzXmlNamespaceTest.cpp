// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlNamespace.h>

#include "support/Throws.h"

#include <tz/xml/TzXmlBadArgError.h>

#include <gtest/gtest.h>

#include "support/AllocationFailure.h"

namespace {

// Longer than what a string keeps inside itself, so that every copy of the text would allocate.
constexpr const char* LongUri = "http://example.org/a/uri/that/does/not/fit/into/a/short/string";

} // namespace

TEST(TzXmlNamespace, HasPrefixAndUri) {
    const TzXmlNamespace space("p", "urn:a");
    EXPECT_EQ(space.getPrefix(), "p");
    EXPECT_EQ(space.getUri(), "urn:a");
    EXPECT_FALSE(space.isEmpty());
}

TEST(TzXmlNamespace, IsEmptyByDefault) {
    const TzXmlNamespace space;
    EXPECT_EQ(space.getPrefix(), "");
    EXPECT_EQ(space.getUri(), "");
    EXPECT_TRUE(space.isEmpty());
    EXPECT_EQ(space, TzXmlNamespace::getEmptyNamespace());
    EXPECT_EQ(space, TzXmlNamespace("", ""));
    EXPECT_FALSE(TzXmlNamespace("p", "").isEmpty());
    EXPECT_FALSE(TzXmlNamespace("", "u").isEmpty());
}

TEST(TzXmlNamespace, CopiesAllocateNothing) {
    const TzXmlNamespace space("p", LongUri);
    const std::size_t made = madeAllocations();
    const TzXmlNamespace copy(space);
    TzXmlNamespace assigned;
    assigned = space;
    const TzXmlNamespace moved(std::move(assigned));
    EXPECT_EQ(madeAllocations(), made);
    EXPECT_EQ(&copy.getUri(), &space.getUri());
    EXPECT_EQ(&moved.getUri(), &space.getUri());
}

TEST(TzXmlNamespace, ChangesDoNotReachCopies) {
    const TzXmlNamespace space("p", "urn:a");
    TzXmlNamespace copy(space);
    copy.setPrefix("q");
    EXPECT_EQ(copy, TzXmlNamespace("q", "urn:a"));
    copy.setUri("urn:b");
    EXPECT_EQ(copy, TzXmlNamespace("q", "urn:b"));
    EXPECT_EQ(space, TzXmlNamespace("p", "urn:a"));
}

TEST(TzXmlNamespace, TakesItsOwnTexts) {
    TzXmlNamespace space("p", "urn:a");
    space.setPrefix(space.getUri());
    EXPECT_EQ(space, TzXmlNamespace("urn:a", "urn:a"));
    space.setUri(space.getPrefix());
    EXPECT_EQ(space, TzXmlNamespace("urn:a", "urn:a"));
}

TEST(TzXmlNamespace, SurvivesSelfAssignment) {
    TzXmlNamespace space("p", "urn:a");
    TzXmlNamespace& same = space;
    space = same;
    EXPECT_EQ(space, TzXmlNamespace("p", "urn:a"));
    space = std::move(same);
    EXPECT_EQ(space, TzXmlNamespace("p", "urn:a"));
}

TEST(TzXmlNamespace, EqualityLooksAtBoth) {
    EXPECT_EQ(TzXmlNamespace("p", "urn:a"), TzXmlNamespace("p", "urn:a"));
    EXPECT_FALSE(TzXmlNamespace("p", "urn:a") == TzXmlNamespace("q", "urn:a"));
    EXPECT_FALSE(TzXmlNamespace("p", "urn:a") == TzXmlNamespace("p", "urn:b"));
    EXPECT_FALSE(TzXmlNamespace("p", "urn:a") == TzXmlNamespace("p", "URN:A"));
}

TEST(TzXmlNamespace, SameUriIgnoresThePrefix) {
    EXPECT_TRUE(TzXmlNamespace("p", "urn:a").sameUri({"q", "urn:a"}));
    EXPECT_FALSE(TzXmlNamespace("p", "urn:a").sameUri({"p", "urn:b"}));
    EXPECT_TRUE(TzXmlNamespace().sameUri({"p", ""}));
}

TEST(TzXmlNamespace, KnowsTheNamespacesOfXml) {
    EXPECT_EQ(TzXmlNamespace::getEmptyNamespace(), TzXmlNamespace("", ""));
    EXPECT_EQ(TzXmlNamespace::getXmlns(), TzXmlNamespace("xmlns", "http://www.w3.org/2000/xmlns/"));
    EXPECT_EQ(TzXmlNamespace::getXml(),
              TzXmlNamespace("xml", "http://www.w3.org/XML/1998/namespace"));
    EXPECT_EQ(TzXmlNamespace::getXsi(),
              TzXmlNamespace("xsi", "http://www.w3.org/2001/XMLSchema-instance"));
    EXPECT_EQ(TzXmlNamespace::getXsd(), TzXmlNamespace("xsd", "http://www.w3.org/2001/XMLSchema"));
}

TEST(TzXmlNamespace, MatchesTheInstanceNamespacesOfAllDrafts) {
    EXPECT_TRUE(TzXmlNamespace::matchXsi(TzXmlNamespace::getXsi()));
    EXPECT_TRUE(TzXmlNamespace::matchXsi({"i", "http://www.w3.org/2001/XMLSchema-instance"}));
    EXPECT_TRUE(TzXmlNamespace::matchXsi({"", "http://www.w3.org/2000/10/XMLSchema-instance"}));
    EXPECT_TRUE(TzXmlNamespace::matchXsi({"xsd", "http://www.w3.org/1999/XMLSchema-instance"}));
    EXPECT_FALSE(TzXmlNamespace::matchXsi({"xsi", "http://www.w3.org/2001/XMLSchema"}));
    EXPECT_FALSE(TzXmlNamespace::matchXsi({"xsi", ""}));
    EXPECT_FALSE(TzXmlNamespace::matchXsi(TzXmlNamespace()));
}

TEST(TzXmlNamespace, FailedAllocationsLeaveNothingBehind) {
    const TzXmlNamespace original("a prefix of more than fifteen characters", LongUri);
    EXPECT_GE(failEachAllocation([&] {
                  TzXmlNamespace copy(original);
                  copy.setPrefix("another prefix of more than fifteen characters");
                  copy.setUri("another URI of more than fifteen characters");
              }),
              6U);
    EXPECT_EQ(original.getUri(), LongUri);
}

TEST(TzXmlNamespace, AFailedChangeChangesNothing) {
    TzXmlNamespace space("p", LongUri);
    for (std::size_t nth = 1; nth <= 2; ++nth) {
        const AllocationFailure failure(nth);
        EXPECT_THROW(space.setPrefix("q"), std::bad_alloc);
    }
    EXPECT_EQ(space, TzXmlNamespace("p", LongUri));
}

TEST(TzXmlNamespace, RefusesANullPointer) {
    const char* const null = nullptr;
    const std::string text = "a null pointer is not a text";
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzXmlNamespace name(null, "u"); }), text);
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzXmlNamespace name("p", null); }), text);
}

TEST(TzXmlNamespace, BracesAreTheEmptyText) {
    EXPECT_EQ(TzXmlNamespace({}, "urn:u"), TzXmlNamespace("", "urn:u"));
    EXPECT_EQ(TzXmlNamespace({}, {}), TzXmlNamespace());
}
