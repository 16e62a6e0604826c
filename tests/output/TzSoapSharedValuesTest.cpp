// SPDX-License-Identifier: MIT
//
// Values that stand in several places, or within themselves: what writer and serializer make of
// them.
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapWriter.h>
#include <tz/xml/TzXmlDomainError.h>

#include "support/AllocationFailure.h"
#include "support/ReadValues.h"
#include "support/Throws.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

std::string written(const TzSoapMessage& message) { return message.asString(); }

std::string serialized(const TzSoapMessage& message) {
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    return std::move(serializer).getSerializedString();
}

/// Tests that run for the writer and for the serializer.
class TzSoapSharedValues : public testing::TestWithParam<std::string (*)(const TzSoapMessage&)> {
protected:
    static std::string write(const TzSoapMessage& message) { return GetParam()(message); }
    static std::string write(const TzSoapType& entry) {
        TzSoapMessage message;
        message.getSoapBody().appendEntry(entry);
        return write(message);
    }
    static std::string refusal(const TzSoapType& entry) {
        return textThrown<TzXmlDomainError>([&] { write(entry); });
    }
};

const char* const withinItself = "A value that stands within itself is not written";

INSTANTIATE_TEST_SUITE_P(Output, TzSoapSharedValues, testing::Values(&written, &serialized),
                         [](const auto& tested) {
                             return tested.index == 0 ? "Writer" : "Serializer";
                         });

std::size_t countOf(const std::string& part, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TzSoapCompositeType around(const TzSoapType& value) {
    TzSoapCompositeType composite(TzXmlName("a"));
    composite.appendChild(value);
    return composite;
}

} // namespace

TEST_P(TzSoapSharedValues, AreWrittenInEachPlace) {
    const TzSoapSimpleType leaf("leaf", "text", TzSoapContentBase::xsdString, false);
    TzSoapCompositeType pair = around(leaf);
    pair.appendChild(leaf);
    TzSoapCompositeType twice = around(pair);
    twice.appendChild(pair);
    TzSoapMessage message;
    message.getSoapHeader().appendHeaderEntry(pair, false);
    message.getSoapBody().appendEntry(twice);
    message.getSoapBody().appendEntry(twice);
    EXPECT_EQ(countOf(">text<", write(message)), 10U);
}

TEST_P(TzSoapSharedValues, ItemsAreWrittenInEachPosition) {
    const TzSoapSimpleType leaf("leaf", "text", TzSoapContentBase::xsdString, false);
    TzSoapCompactArrayType compact("x", 3, 0);
    TzSoapSparseArrayType sparse("x", 9);
    for (unsigned int i = 0; i < 3; ++i) {
        compact[i] = leaf;
        sparse[2 * i] = leaf;
    }
    TzSoapCompositeType both = around(compact);
    both.appendChild(sparse);
    EXPECT_EQ(countOf(">text<", write(both)), 6U);
}

TEST_P(TzSoapSharedValues, WithAnIdAreWrittenInEachPlaceToo) {
    TzSoapSimpleType leaf("leaf", "text", TzSoapContentBase::xsdString, false);
    leaf.setIdAttribute("i");
    TzSoapCompositeType value = around(leaf);
    value.appendChild(leaf);
    value.appendChild(TzSoapReferenceType(TzXmlName("r"), leaf));
    EXPECT_EQ(countOf(">text<", write(value)), 2U);
}

TEST_P(TzSoapSharedValues, AStructWithinItselfIsRefused) {
    TzSoapCompositeType value(TzXmlName("a"));
    value.appendChild(around(around(value)));
    EXPECT_EQ(refusal(value), withinItself);
    value.clearChildren();
}

TEST_P(TzSoapSharedValues, ArraysWithinThemselvesAreRefused) {
    TzSoapCompactArrayType compact("x", 2, 0);
    TzSoapSparseArrayType sparse("x", 9);
    compact[0] = sparse;
    sparse[3] = compact;
    EXPECT_EQ(refusal(compact), withinItself);
    compact[0] = TzSoapType(TzXmlName("end"));
}

TEST_P(TzSoapSharedValues, ANilStructWithinItselfIsWrittenWithoutContent) {
    TzSoapCompositeType value(TzXmlName("a"));
    value.appendChild(value);
    value.setNull(true);
    EXPECT_EQ(countOf("<a ", write(value)), 1U);
    value.clearChildren();
}

TEST_P(TzSoapSharedValues, AStructThatRefersToItselfIsWrittenOnce) {
    TzSoapCompositeType value(TzXmlName("a"));
    value.setIdAttribute("i");
    const TzSoapReferenceType reference(TzXmlName("r"), value);
    value.appendChild(reference);
    EXPECT_EQ(countOf("<a ", write(value)), 1U);
    EXPECT_EQ(countOf("<a ", write(reference)), 1U) << "the target of the reference";
    value.clearChildren();
}

TEST_P(TzSoapSharedValues, ARingThatLostItsIdsIsWrittenOnce) {
    const WireForm wire(TzSoapVersion::V1_1);
    const TzSoapMessage message = readMessage(wire.body(
        "<a id=\"1\"><r " + wire.ref("2") + "/></a><b id=\"2\"><r " + wire.ref("1") + "/></b>"));
    TzSoapType first = bodyEntry(message, 0);
    TzSoapType second = bodyEntry(message, 1);
    first.removeIdAttribute();
    second.removeIdAttribute();
    TzSoapMessage other(TzSoapVersion::V1_1);
    other.getSoapBody().appendEntry(reference(child(first, "r")));
    const std::string text = write(other);
    EXPECT_EQ(countOf("<a ", text), 1U) << text;
    EXPECT_EQ(countOf("<b ", text), 1U) << text;
}

// A large value within itself must not be unrolled until the elements are nested too deeply.
TEST_P(TzSoapSharedValues, AValueWithinItselfIsRefusedAtItsSecondStart) {
    TzSoapCompositeType value(TzXmlName("a"));
    for (int i = 0; i < 10000; ++i) {
        value.appendChild(TzSoapType(TzXmlName("b")));
    }
    value.appendChild(value);
    const std::size_t before = askedBytes();
    EXPECT_EQ(refusal(value), withinItself);
    EXPECT_LT(askedBytes() - before, 4000000U);
    value.clearChildren();
}
