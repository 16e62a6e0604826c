// SPDX-License-Identifier: MIT
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <tz/xml/TzXmlParseError.h>

#include "model/TzSoapAccess.h"
#include "support/AllocationFailure.h"
#include "values/ArrayTesting.h"
#include "values/EnvelopeTesting.h"

#include <gtest/gtest.h>

namespace {

/// A reference element, as its version spells it.
std::string refer(TzSoapVersion::Version version, const std::string& name, const std::string& text,
                  const std::string& content = "") {
    const char* attribute = version == TzSoapVersion::V1_1 ? "href" : "ref";
    return "<" + name + " " + attribute + "=\"" + text + "\">" + content + "</" + name + ">";
}

std::string value(const std::string& id, const std::string& text) {
    return "<v id=\"" + id + "\">" + text + "</v>";
}

class ReferenceReading : public testing::TestWithParam<TzSoapVersion::Version> {
protected:
    static TzSoapVersion::Version version() { return GetParam(); }
    static std::string ref(const std::string& text) { return refer(version(), "r", text); }
    static TzSoapMessage read(const std::string& body, const std::string& header = "") {
        return messageOf(envelope(version(), body, header));
    }
};

INSTANTIATE_TEST_SUITE_P(BothVersions, ReferenceReading, testing::ValuesIn(BothVersions),
                         [](const auto& tested) { return "V" + std::to_string(tested.param); });

bool refersTo(const TzSoapType& reference, const TzSoapType& target) {
    const auto found = tzSoapCast<TzSoapReferenceType>(reference).value();
    return found.hasReference() && TzSoapAccess::sameBody(found.getSoapReference(), target);
}

TEST_P(ReferenceReading, TargetBeforeAndBehind) {
    const TzSoapMessage message = read(ref("#a") + value("a", "text") + ref("#a"));
    const auto& target = *std::next(message.getSoapBody().entriesBegin());
    EXPECT_TRUE(refersTo(*message.getSoapBody().entriesBegin(), target));
    EXPECT_TRUE(refersTo(entryAs<TzSoapReferenceType>(message, 2), target));
    const auto reference = entryAs<TzSoapReferenceType>(message);
    EXPECT_EQ(reference.getName(), TzXmlName("r"));
    EXPECT_FALSE(reference.isMimeReference());
    ASSERT_EQ(reference.attributeCount(), 1U);
    EXPECT_EQ(reference.attributesBegin()->getName(), TzXmlName("ref"));
    EXPECT_EQ(reference.attributesBegin()->getValue(), "#a");
}

TEST_P(ReferenceReading, WritesOneReferenceAttribute) {
    TzSoapMessage message = read(ref("#a") + value("a", "text") + ref("#nothing"));
    const std::string text = message.asString();
    const bool old = version() == TzSoapVersion::V1_1;
    EXPECT_EQ(countOf(" href=", text), old ? 2U : 0U) << text;
    EXPECT_EQ(countOf(" ref=", text), old ? 0U : 2U) << text;
}

TEST(ReferenceReading, LatestVersionNeedsNoHash) {
    const TzSoapMessage message =
        messageOf(envelope(TzSoapVersion::V1_2, "<r ref=\"a\"/>" + value("a", "text")));
    EXPECT_TRUE(refersTo(entryAs<TzSoapReferenceType>(message),
                         *std::next(message.getSoapBody().entriesBegin())));
}

TEST_P(ReferenceReading, WithoutTarget) {
    const TzSoapMessage message = read(ref("#nothing"));
    const auto reference = entryAs<TzSoapReferenceType>(message);
    EXPECT_FALSE(reference.hasReference());
    EXPECT_FALSE(reference.isMimeReference());
    EXPECT_EQ(reference.attributesBegin()->getValue(), "#nothing");
}

TEST(ReferenceReading, OtherTextsReferToParts) {
    for (const char* text : {"cid:x", "file.bin", "a", ""}) {
        for (const TzSoapVersion::Version version : BothVersions) {
            const TzSoapMessage message =
                messageOf(envelope(version, std::string("<r href=\"") + text + "\"/>"));
            const auto reference = entryAs<TzSoapReferenceType>(message);
            EXPECT_TRUE(reference.isMimeReference());
            EXPECT_FALSE(reference.hasReference());
            EXPECT_EQ(reference.attributesBegin()->getValue(), text);
        }
    }
}

TEST_P(ReferenceReading, TextWithinIsDropped) {
    const TzSoapMessage message =
        read(refer(version(), "r", "#a", " some text <!-- and a comment --> ") + value("a", "b"));
    EXPECT_TRUE(entryAs<TzSoapReferenceType>(message).hasReference());
    EXPECT_EQ(countOf("some text", message.asString()), 0U);
}

TEST_P(ReferenceReading, ChildIsRefusedWhereItStands) {
    const std::string body = "\n  " + refer(version(), "r", "#a", "\n  <child/>");
    try {
        read(body);
        FAIL() << "accepted";
    } catch (const TzXmlParseError& error) {
        EXPECT_EQ(error.getMessage().getId(), 0x7016U);
        EXPECT_EQ(error.getLine(), 3U);
        EXPECT_EQ(error.getColumn(), 3U);
    }
}

TEST_P(ReferenceReading, OwnDeclarationsServeItsType) {
    const char* attribute = version() == TzSoapVersion::V1_1 ? "href" : "ref";
    const TzSoapMessage message = read(std::string("<r xmlns:own=\"urn:own\" xsi:type=\"own:t\" ") +
                                       attribute + "=\"#a\"/>" + value("a", "b"));
    const auto reference = entryAs<TzSoapReferenceType>(message);
    EXPECT_EQ(reference.getType(), TzXmlName("t", TzXmlNamespace("own", "urn:own")));
}

TEST_P(ReferenceReading, ReferencesThroughArraysAndStructs) {
    const std::string type = version() == TzSoapVersion::V1_1
                                 ? "c:arrayType=\"x[3]\""
                                 : "c:itemType=\"x\" c:arraySize=\"3\"";
    const std::string body = "<s>" + ref("#a") + value("b", "2") + "</s><l " + type + ">" +
                             ref("#b") + value("a", "1") + ref("#a") + "</l>";
    const TzSoapMessage message = read(body);
    const auto composite = entryAs<TzSoapCompositeType>(message);
    const auto array = entryAs<TzSoapCompactArrayType>(message, 1);
    EXPECT_TRUE(refersTo(*composite.childrenBegin(), array[1]));
    EXPECT_TRUE(refersTo(array[0], *std::next(composite.childrenBegin())));
    EXPECT_TRUE(refersTo(array[2], array[1]));
}

TEST_P(ReferenceReading, HeaderAndBodyShareTargets) {
    const TzSoapMessage message =
        read(ref("#h") + value("b", "2") + ref("#b"),
             refer(version(), "h1", "#b") + value("h", "1") + refer(version(), "h2", "#h"));
    const auto& header = message.getSoapHeader();
    const auto& body = message.getSoapBody();
    EXPECT_TRUE(refersTo(*body.entriesBegin(), *std::next(header.entriesBegin())));
    EXPECT_TRUE(refersTo(*header.entriesBegin(), *std::next(body.entriesBegin())));
    EXPECT_TRUE(refersTo(*std::next(header.entriesBegin(), 2), *std::next(header.entriesBegin())));
}

TEST_P(ReferenceReading, FirstOfEqualIdsIsMeant) {
    const TzSoapMessage message = read(ref("#a") + value("a", "first") + value("a", "second"));
    const auto reference = entryAs<TzSoapReferenceType>(message);
    EXPECT_EQ(itemText(reference.getSoapReference()), "first");
}

TEST_P(ReferenceReading, ReplacedMemberOfASparseArrayDoesNoHarm) {
    const std::string type = version() == TzSoapVersion::V1_1
                                 ? "c:arrayType=\"x[3]\""
                                 : "c:itemType=\"x\" c:arraySize=\"3\"";
    const char* attribute = version() == TzSoapVersion::V1_1 ? "href" : "ref";
    const std::string first = std::string("<r c:position=\"[1]\" ") + attribute + "=\"#a\"/>";
    const TzSoapMessage message = read("<l " + type + ">" + first +
                                       "<v c:position=\"[1]\" id=\"a\">text</v></l>" + ref("#a"));
    const auto array = entryAs<TzSoapSparseArrayType>(message);
    EXPECT_EQ(array.entries(), 1U);
    EXPECT_EQ(itemText(array[1]), "text");
    EXPECT_TRUE(refersTo(entryAs<TzSoapReferenceType>(message, 1), array[1]));
}

/// Reads, looks at and writes a message that holds a ring; it must leave nothing behind.
template <typename Look>
void expectRing(TzSoapVersion::Version version, const std::string& body, const std::string& header,
                const Look& look) {
    const std::string text = envelope(version, body, header);
    messageOf(text).asString(); // what the first use makes stays
    const std::ptrdiff_t before = liveAllocations();
    {
        TzSoapMessage message = messageOf(text);
        look(message);
        const std::string written = message.asString();
        message.extract(text); // reading anew drops the old ring
        look(message);
        EXPECT_EQ(messageOf(written).asString(), written);
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST_P(ReferenceReading, RingOfAValueThatRefersToItself) {
    expectRing(version(), "<s id=\"s\">" + ref("#s") + "</s>", "", [](TzSoapMessage& message) {
        const auto composite = entryAs<TzSoapCompositeType>(message);
        EXPECT_TRUE(refersTo(*composite.childrenBegin(), composite));
        EXPECT_EQ(countOf("id=\"s\"", message.asString()), 1U);
    });
}

TEST_P(ReferenceReading, RingThroughAnArray) {
    const std::string type = version() == TzSoapVersion::V1_1
                                 ? "c:arrayType=\"x[2]\""
                                 : "c:itemType=\"x\" c:arraySize=\"2\"";
    expectRing(version(), "<l id=\"l\" " + type + "><s>" + ref("#l") + "</s></l>", "",
               [](TzSoapMessage& message) {
                   const auto array = entryAs<TzSoapCompactArrayType>(message);
                   const auto composite = tzSoapCast<TzSoapCompositeType>(array[0]).value();
                   EXPECT_TRUE(refersTo(*composite.childrenBegin(), array));
                   EXPECT_EQ(countOf("id=\"l\"", message.asString()), 1U);
               });
}

TEST_P(ReferenceReading, RingOfTwo) {
    expectRing(version(), "<s id=\"a\">" + ref("#b") + "</s><s id=\"b\">" + ref("#a") + "</s>", "",
               [](TzSoapMessage& message) {
                   const auto first = entryAs<TzSoapCompositeType>(message);
                   const auto second = entryAs<TzSoapCompositeType>(message, 1);
                   EXPECT_TRUE(refersTo(*first.childrenBegin(), second));
                   EXPECT_TRUE(refersTo(*second.childrenBegin(), first));
                   EXPECT_EQ(countOf("id=\"a\"", message.asString()), 1U);
                   EXPECT_EQ(countOf("id=\"b\"", message.asString()), 1U);
               });
}

TEST_P(ReferenceReading, RingThroughHeaderAndBody) {
    expectRing(
        version(), "<s id=\"b\">" + ref("#h") + "</s>", "<s id=\"h\">" + ref("#b") + "</s>",
        [](TzSoapMessage& message) {
            const auto inBody = entryAs<TzSoapCompositeType>(message);
            const auto inHeader =
                tzSoapCast<TzSoapCompositeType>(*message.getSoapHeader().entriesBegin()).value();
            EXPECT_TRUE(refersTo(*inBody.childrenBegin(), inHeader));
            EXPECT_TRUE(refersTo(*inHeader.childrenBegin(), inBody));
        });
}

TEST_P(ReferenceReading, RingOfReferencesAlone) {
    const char* attribute = version() == TzSoapVersion::V1_1 ? "href" : "ref";
    const auto linked = [attribute](const std::string& id, const std::string& to) {
        return "<r id=\"" + id + "\" " + attribute + "=\"#" + to + "\"/>";
    };
    expectRing(version(), linked("a", "b") + linked("b", "a") + linked("c", "c"), "",
               [](TzSoapMessage& message) {
                   const auto first = entryAs<TzSoapReferenceType>(message);
                   const auto second = entryAs<TzSoapReferenceType>(message, 1);
                   const auto third = entryAs<TzSoapReferenceType>(message, 2);
                   EXPECT_TRUE(refersTo(first, second));
                   EXPECT_TRUE(refersTo(second, first));
                   EXPECT_TRUE(refersTo(third, third));
                   for (const char* id : {"id=\"a\"", "id=\"b\"", "id=\"c\""}) {
                       EXPECT_EQ(countOf(id, message.asString()), 1U) << id;
                   }
               });
}

} // namespace
