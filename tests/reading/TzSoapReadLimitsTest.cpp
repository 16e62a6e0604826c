// SPDX-License-Identifier: MIT
#include "support/AllocationFailure.h"
#include "support/CataloguedError.h"
#include "support/ReadValues.h"

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapDefaultType.h>
#include <tz/xml/TzXmlBoundsError.h>
#include <tz/xml/TzXmlParseError.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using V = TzSoapVersion;

class TzSoapReadLimitsReading : public ReadingBothVersions {
protected:
    TzSoapMessage read(const std::string& text, const TzSoapReadLimits& limits = {}) const {
        TzSoapMessage message;
        message.setReadLimits(limits);
        message.extract(text);
        return message;
    }
    std::string array(const std::string& size, const std::string& members = {},
                      const std::string& attributes = {}) const {
        return "<a " + wire.array("xsd:int", size) + " " + attributes + ">" + members + "</a>";
    }
    std::string axes(const std::string& rows, const std::string& columns) const {
        return rows + (GetParam() == V::V1_1 ? "," : " ") + columns;
    }
};

TzSoapReadLimits positions(std::size_t count) {
    TzSoapReadLimits limits;
    limits.unfilledArrayPositions = count;
    return limits;
}

template <typename Action>
void expectOutOfBounds(const Action& action, const char* location, const char* value) {
    expectCatalogued<TzXmlBoundsError>(
        action, tzsoap_BAD_INDEX_VECTOR()->id,
        std::string("[BAD_INDEX_VECTOR][Illegal SOAP array vector. Entry at location ") + location +
            " has value " + value + "]");
}

template <typename Action>
void expectTooLarge(const Action& action, const char* location, const char* value) {
    const std::size_t before = askedBytes();
    expectOutOfBounds(action, location, value);
    EXPECT_LT(askedBytes() - before, 200000U) << "refused before memory is taken";
}

const char* const tooDeep = "elements are nested too deeply";

void expectRefused(const std::string& text, const TzSoapReadLimits& limits,
                   const std::string& refusal, std::size_t line, std::size_t column) {
    TzSoapMessage message;
    message.setReadLimits(limits);
    EXPECT_EQ(textThrown<TzXmlParseError>([&] { message.extract(text); }),
              refusal + ", line " + std::to_string(line) + ", column " + std::to_string(column));
}

} // namespace

TZSOAP_BOTH_VERSIONS(TzSoapReadLimitsReading);

TEST(TzSoapReadLimits, AreGenerousUnlessSet) {
    const TzSoapReadLimits limits = TzSoapMessage().getReadLimits();
    EXPECT_EQ(limits.depth, 1000U);
    EXPECT_EQ(limits.attributes, 200000U);
    EXPECT_EQ(limits.unfilledArrayPositions, 1048576U);
    EXPECT_EQ(limits.uriLength, 2048U);
    EXPECT_EQ(limits.prefixLength, 128U);
}

TEST(TzSoapReadLimits, TravelWithCopiesOfAMessage) {
    TzSoapMessage message;
    message.setReadLimits(positions(7));
    EXPECT_EQ(message.copy().getReadLimits().unfilledArrayPositions, 7U);
}

TEST_P(TzSoapReadLimitsReading, ElementsNestAsDeepAsTheLimit) {
    TzSoapReadLimits limits;
    limits.depth = 4; // Envelope, Body, a, b
    EXPECT_NO_THROW(read(wire.body("<a><b/></a>"), limits));
    expectRefused(wire.body("\n<a><b><c/></b></a>"), limits, tooDeep, 2, 7);
    EXPECT_NO_THROW(read(wire.body("\n" + repeated("<a>", 998) + repeated("</a>", 998))));
    expectRefused(wire.body("\n" + repeated("<a>", 999) + repeated("</a>", 999)), {}, tooDeep, 2,
                  998 * 3 + 1);
}

TEST_P(TzSoapReadLimitsReading, DepthCountsWhateverHoldsTheElements) {
    const std::string deep = repeated("<b>", 999) + repeated("</b>", 999);
    expectRefused(wire.message("\n" + deep, ""), {}, tooDeep, 2, 998 * 3 + 1);
    expectRefused(wire.body("<a e:encodingStyle=\"urn:f\">\n" + deep + "</a>"), {}, tooDeep, 2,
                  997 * 3 + 1);
    const std::string start = "<a " + wire.array("xsd:int", "1") + ">";
    expectRefused(wire.body("\n" + repeated(start, 999) + repeated("</a>", 999)), {}, tooDeep, 2,
                  998 * start.size() + 1);
}

TEST_P(TzSoapReadLimitsReading, AnElementHasAsManyAttributesAsTheLimit) {
    TzSoapReadLimits limits;
    limits.attributes = 5;
    EXPECT_NO_THROW(read(wire.body("<a b=\"\" c=\"\" d=\"\" xmlns:e1=\"\" f=\"\"/>"), limits));
    expectRefused(wire.body("\n<a b=\"\" c=\"\" d=\"\" xmlns:e1=\"\" f=\"\" g=\"\"/>"), limits,
                  "an element has too many attributes", 2, 1);
}

TEST_P(TzSoapReadLimitsReading, LimitsHoldForTheNextTextEachTime) {
    TzSoapMessage message;
    TzSoapReadLimits limits;
    limits.depth = 3;
    const std::string text = wire.body("\n<a><b/></a>");
    const auto refusal = [&] {
        return textThrown<TzXmlParseError>([&] { message.extract(text); });
    };
    message.setReadLimits(limits);
    EXPECT_EQ(refusal(), "elements are nested too deeply, line 2, column 4");
    message.setReadLimits({});
    EXPECT_NO_THROW(message.extract(text));
    message.setReadLimits(limits);
    EXPECT_EQ(refusal(), "elements are nested too deeply, line 2, column 4");
}

TEST_P(TzSoapReadLimitsReading, TheUriOfANamespaceIsAsLongAsTheLimit) {
    const std::string uri(2048, 'u');
    for (const char* name : {"xmlns", "xmlns:p"}) {
        const std::string declaration = std::string(name) + "=\"" + uri;
        EXPECT_NO_THROW(read(wire.body("<a " + declaration + "\"/>")));
        expectRefused(wire.body("\n<a " + declaration + "x\"/>"), {},
                      "the URI of a namespace is too long", 2, 1);
    }
    TzSoapReadLimits limits;
    limits.uriLength = 5000;
    EXPECT_NO_THROW(read(wire.body("<a xmlns:p=\"" + std::string(5000, 'u') + "\"/>"), limits));
    // Other attributes are as long as they like.
    EXPECT_NO_THROW(read(wire.body("<a k=\"" + std::string(5000, 'u') + "\"/>")));
}

TEST_P(TzSoapReadLimitsReading, ThePrefixOfANamespaceIsAsLongAsTheLimit) {
    const auto text = [this](std::size_t length) {
        return wire.body("\n<a xmlns:" + std::string(length, 'p') + "='urn:p'/>");
    };
    EXPECT_NO_THROW(read(text(128)));
    EXPECT_EQ(textThrown<TzXmlParseError>([&] { read(text(129)); }),
              "the prefix of a namespace is too long, line 2, column 1");
    TzSoapReadLimits limits;
    limits.prefixLength = 1000;
    EXPECT_NO_THROW(read(text(1000), limits));
}

TEST_P(TzSoapReadLimitsReading, AnEncodingStyleIsAsLongAsTheLimit) {
    TzSoapReadLimits limits;
    limits.uriLength = 100;
    for (const std::size_t length : {std::size_t{100}, std::size_t{101}}) {
        const std::string style = "e:encodingStyle=\"urn:" + std::string(length - 4, 'u') + "\"";
        const std::pair<std::string, std::size_t> texts[] = {
            {wire.envelope("", style), 1},
            {wire.envelope("\n<e:Header " + style + "/>"), 2},
            {wire.envelope("\n<e:Body " + style + "/>"), 2},
            {wire.body("\n<a " + style + "/>"), 2},
            {wire.body("<a>\n<b " + style + "/></a>"), 2},
        };
        for (const auto& [text, line] : texts) {
            if (length == 100) {
                EXPECT_NO_THROW(read(text, limits));
            } else {
                expectRefused(text, limits, "an encoding style is too long", line, 1);
            }
        }
    }
}

// Arrays.

TEST_P(TzSoapReadLimitsReading, ADeclaredSizeIsRefusedBeforeItIsTaken) {
    const char* member = "<i>1</i>";
    expectTooLarge([&] { read(wire.body(array("2147483647", member))); }, "0", "2147483647");
    expectTooLarge([&] { read(wire.body(array("4294967295", member))); }, "0", "4294967295");
    expectTooLarge([&] { read(wire.body(array(axes("2", "2147483647"), member))); }, "1",
                   "2147483647");
    expectTooLarge([&] { read(wire.body(array(axes("2000", "3000"), member))); }, "1", "3000");
}

TEST_P(TzSoapReadLimitsReading, ADeclaredSizeWithoutMembersTakesNothing) {
    const std::string text = wire.body(repeated(array("2147483647"), 1000));
    const std::size_t empty = askedBytes();
    read(wire.body(repeated(array("0"), 1000)));
    const std::size_t before = askedBytes();
    read(text, positions(0));
    EXPECT_LT(askedBytes() - before, before - empty + 200000);
}

TEST_P(TzSoapReadLimitsReading, ASizeBeyond32BitsIsRefusedWhateverTheLimit) {
    for (const char* members : {"", "<i>1</i>", "<i c:position=\"[1,1]\">1</i>"}) {
        for (const std::size_t limit : {std::size_t{1048576}, static_cast<std::size_t>(-1)}) {
            expectTooLarge(
                [&] { read(wire.body(array(axes("65536", "65536"), members)), positions(limit)); },
                "0", "65536");
            expectTooLarge(
                [&] {
                    read(wire.body(array(axes("4294967295", "4294967295"), members)),
                         positions(limit));
                },
                "0", "4294967295");
        }
    }
}

TEST_P(TzSoapReadLimitsReading, AnOffsetFarAwayIsRefusedBeforeItIsReached) {
    expectTooLarge([&] { read(wire.body(array("", "<i>1</i>", wire.offset("4294967294")))); }, "0",
                   "4294967294");
    expectTooLarge([&] { read(wire.body(array("5", "<i>1</i>", wire.offset("2000000000")))); }, "0",
                   "2000000000");
    expectTooLarge(
        [&] { read(wire.body(array("2000000000", "<i>1</i>", wire.offset("1999999999")))); }, "0",
        "2000000000");
}

TEST_P(TzSoapReadLimitsReading, AnOffsetAtTheEndOfTheNumbersIsRefusedWhateverTheLimit) {
    expectTooLarge(
        [&] {
            read(wire.body(array("", "<i>1</i><i>2</i>", wire.offset("4294967295"))),
                 positions(static_cast<std::size_t>(-1)));
        },
        "0", "4294967295");
}

TEST_P(TzSoapReadLimitsReading, AllArraysOfATextShareTheLimit) {
    const std::string text = wire.body(repeated(array("500000", "<i/>"), 3));
    expectOutOfBounds([&] { read(text); }, "0", "500000");
    EXPECT_NO_THROW(read(wire.body(array("1000000", "<i/>"))));
    EXPECT_NO_THROW(read(wire.body(repeated(array("1000", "<i/>"), 1000))));
}

TEST_P(TzSoapReadLimitsReading, EveryByteOfTheTextPaysForAPosition) {
    std::string text = wire.body(array("1000", "<i/>"));
    const std::string size = std::to_string(10 + text.size());
    ASSERT_EQ(size.size(), 3U) << "as long as the largest that is tried";
    text = wire.body(array("0" + size, "<i/>"));
    EXPECT_NO_THROW(read(text, positions(10)));
    expectTooLarge([&] { read(text, positions(9)); }, "0", size.c_str());
}

TEST_P(TzSoapReadLimitsReading, FilledPositionsDoNotCount) {
    const std::string text = wire.body(repeated(array("1000", repeated("<i/>", 1000)), 10));
    EXPECT_NO_THROW(read(text, positions(1000)));
    const std::string grown = wire.body(array("", repeated("<i/>", 10000)));
    EXPECT_NO_THROW(read(grown, positions(0)));
}

TEST_P(TzSoapReadLimitsReading, ARaisedLimitAcceptsDeclaredSizesCheaply) {
    const auto unlimited = positions(static_cast<std::size_t>(-1));
    for (const auto& [text, entries] :
         {std::pair(array("2147483647"), 2147483647U),
          std::pair(array("2147483647", "<i>1</i>"), 2147483647U),
          std::pair(array("4294967295", "<i>1</i>"), 4294967295U),
          std::pair(array(axes("65535", "65537"), "<i>1</i>"), 4294967295U),
          std::pair(array("", "<i>1</i>", wire.offset("4294967294")), 4294967295U),
          std::pair(array("4294967295", "<i>1</i>", wire.offset("4294967294")), 4294967295U)}) {
        const std::size_t before = askedBytes();
        const TzSoapMessage message = read(wire.body(text), unlimited);
        EXPECT_EQ(compact(bodyEntry(message)).entries(), entries) << text;
        EXPECT_LT(askedBytes() - before, 200000U) << text;
    }
    // Arrays of one block take the memory of all their positions, and touch none without need.
    const std::size_t before = askedBytes();
    read(wire.body(repeated(array("1000000", "<i>1</i>"), 10)), unlimited);
    EXPECT_LT(askedBytes() - before, 10 * 1000000 * sizeof(TzSoapDefaultType) + 200000);
}

TEST_P(TzSoapReadLimitsReading, ALargeArrayIsStillCheapWhenReferencesPointAtIt) {
    const std::string text =
        wire.body("<r " + wire.ref("x") + "/>" +
                  array("2147483647", "<i " + wire.ref("x") + "/>", "id=\"x\""));
    const std::size_t before = askedBytes();
    const TzSoapMessage message = read(text, positions(static_cast<std::size_t>(-1)));
    EXPECT_TRUE(sameValue(reference(bodyEntry(message)).getSoapReference(), bodyEntry(message, 1)));
    EXPECT_LT(askedBytes() - before, 200000U);
}

TEST_P(TzSoapReadLimitsReading, ALargeArrayIsWrittenAndCopiedCheaply) {
    const TzSoapMessage message =
        read(wire.body(array("2147483647", "<i>1</i>")), positions(static_cast<std::size_t>(-1)));
    const std::size_t before = askedBytes();
    EXPECT_NE(message.asString().find("2147483647"), std::string::npos);
    EXPECT_NE(message.copy().asString().find("2147483647"), std::string::npos);
    EXPECT_LT(askedBytes() - before, 200000U);
}

TEST_P(TzSoapReadLimitsReading, ASparseArrayCostsItsMembersOnly) {
    const std::size_t before = askedBytes();
    const TzSoapMessage message =
        read(wire.body(array("4294967295", "<i " + wire.position("4294967294") + ">1</i>")));
    EXPECT_EQ(sparse(bodyEntry(message)).entries(), 1U);
    EXPECT_LT(askedBytes() - before, 200000U);
}

TEST_P(TzSoapReadLimitsReading, TheLimitStartsAnewWithEachText) {
    TzSoapMessage message;
    for (int i = 0; i < 5; ++i) {
        EXPECT_NO_THROW(message.extract(wire.body(array("1000000", "<i/>"))));
    }
    expectTooLarge([&] { message.extract(wire.body(array("2000000", "<i/>"))); }, "0", "2000000");
    EXPECT_NO_THROW(message.extract(wire.body(array("1000000", "<i/>"))));
}
