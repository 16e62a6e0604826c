// SPDX-License-Identifier: MIT
//
// Which declarations are in force while a message is written.
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapWriter.h>

#include "output/WireText.h"
#include "support/AllocationFailure.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

TzXmlName named(const std::string& local, const std::string& prefix) {
    return {local, TzXmlNamespace(prefix, "urn:" + prefix)};
}

TzSoapSimpleType valueIn(const std::string& prefix) {
    return {named("v", prefix), 1, TzSoapType::xsdInt, false};
}

std::string serialized(const TzSoapMessage& message) {
    TzSoapSerializer serializer;
    serializer.setCompact(true);
    message.acceptVisitor(serializer);
    return std::move(serializer).getSerializedString();
}

/// What stands in the body of `text`.
std::string contentOf(const std::string& text) {
    const std::size_t start = text.find("Body>") + 5;
    return text.substr(start, text.find("</SOAP-ENV:Body>") - start);
}

/// The content of the body in both texts of a message that holds `entry`, expected to be the same.
std::string content(const TzSoapType& entry) {
    const TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {entry});
    const std::string written = contentOf(message.asText(TzSoapLayout::Compact));
    EXPECT_EQ(contentOf(serialized(message)), written);
    return written;
}

std::string declared(const std::string& prefix) {
    return " xmlns:" + prefix + "=\"urn:" + prefix + '"';
}

/// An element with so many declarations, p0, p1 ..., and children that use and replace p5.
TzSoapCompositeType manyDeclarations(int count) {
    TzSoapCompositeType all{TzXmlName("all")};
    for (int i = 0; i < count; ++i) {
        const std::string prefix = "p" + std::to_string(i);
        all.addNamespaceAttribute(TzXmlNamespace(prefix, "urn:" + prefix));
    }
    TzSoapCompositeType other{TzXmlName("other")};
    other.addNamespaceAttribute(TzXmlNamespace("p5", "urn:other"));
    other.appendChild(
        TzSoapSimpleType(nameIn("v", "p5", "urn:other"), 1, TzSoapType::xsdInt, false));
    all.appendChild(valueIn("p5"));
    all.appendChild(other);
    all.appendChild(other);
    all.appendChild(valueIn("p5"));
    all.appendChild(valueIn("q"));
    all.appendChild(valueIn("q"));
    return all;
}

} // namespace

TEST(Declarations, TellPrefixesApartThatBeginAlike) {
    const std::string prefixes[] = {"a",       "b",        "ab",        "ac",        "abc",
                                    "adc",     "abcd",     "abce",      "abcdc",     "abcdcd",
                                    "abcdefg", "abcdefgh", "abcdefgh1", "abcdefgh2", "abcdefgh12"};
    for (const std::string& outer : prefixes) {
        for (const std::string& inner : prefixes) {
            TzSoapCompositeType holder(named("h", outer));
            holder.appendChild(valueIn(inner));
            const std::string own = inner == outer ? "" : declared(inner);
            EXPECT_EQ(content(holder), "<" + outer + ":h" + declared(outer) + "><" + inner + ":v" +
                                           own + ">1</" + inner + ":v></" + outer + ":h>");
        }
    }
}

TEST(Declarations, AreInForceUntilTheirElementEnds) {
    for (const int count : {6, 31, 32, 33, 100}) {
        const std::string text =
            serialized(encodedMessage(TzSoapVersion::V1_1, {manyDeclarations(count)}));
        const std::string five = "<p5:v>1</p5:v>";
        const std::string other = "<other xmlns:p5=\"urn:other\">" + five + "</other>";
        const std::string q = "<q:v" + declared("q") + ">1</q:v>";
        const std::string last = declared("p" + std::to_string(count - 1));
        EXPECT_NE(text.find(last + '>' + five + other + other + five + q + q + "</all>"),
                  std::string::npos)
            << count << ": " << text;
    }
}

TEST(Declarations, GiveEverythingBackWhenMemoryIsShort) {
    const TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {manyDeclarations(100)});
    failEachAllocation([&] { serialized(message); });
    failEachAllocation([&] { message.asText(TzSoapLayout::Compact); });
}

TEST(Declarations, OfAWriterLastAsLongAsThoseWithin) {
    TzXmlStringWriter text;
    auto around = std::make_unique<TzSoapWriter>(&text, nullptr);
    around->setVersion(TzSoapVersion::V1_1);
    TzSoapWriter within(around.get());
    around.reset();
    TzSoapType(named("t", "p")).acceptVisitor(within);
    EXPECT_EQ(text.getString(), "<p:t xmlns:p=\"urn:p\">\n</p:t>\n");
}

TEST(Declarations, OfAWriterThatTakesOthersOverLastForThoseWithin) {
    TzXmlStringWriter text;
    const TzSoapWriter first(&text, nullptr);
    TzSoapWriter around(first);
    TzSoapWriter within(&around);
    around = first;
    TzSoapType(named("t", "p")).acceptVisitor(within);
    EXPECT_EQ(text.getString(), "<p:t xmlns:p=\"urn:p\">\n</p:t>\n");
}
