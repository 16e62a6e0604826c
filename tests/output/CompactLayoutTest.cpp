// SPDX-License-Identifier: MIT
//
// Writing without line ends and indentation, and how deep lines are indented otherwise.
#include <soap/TzSoapBody.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapSparseArrayType.h>
#include <tz/xml/TzXmlProlog.h>

#include "output/WireText.h"

#include <gtest/gtest.h>

namespace {

template <typename Element> std::string compactWire(const Element& element) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    writer.setCompact(true);
    element.acceptVisitor(writer);
    return text.getString();
}

template <typename Element> std::string compactSerialized(const Element& element) {
    TzSoapSerializer serializer;
    serializer.setCompact(true);
    element.acceptVisitor(serializer);
    return serializer.getSerializedString();
}

TEST(CompactLayout, MessagesHaveNoWhiteSpaceBetweenTags) {
    TzSoapCompositeType struct_("s");
    struct_.appendChild(intValue("a", 1));
    struct_.appendChild(TzSoapSimpleType("b", " x\n y ", TzSoapType::xsdString, false));
    TzSoapMessage message = encodedMessage(TzSoapVersion::V1_2, {struct_});
    message.setProlog(TzXmlProlog());
    message.getSoapHeader().appendHeaderEntry(intValue("h", 2), false);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    fault.addFaultCodeQualifier("q");
    fault.setReason("why");
    const std::string rest =
        R"( env:encodingStyle="http://www.w3.org/2002/06/soap-encoding"><env:Header><h>2</h></env:Header>)"
        R"(<env:Body><env:Fault><env:Code><env:Value>env:Sender</env:Value><env:Subcode>)"
        R"(<env:Value>q</env:Value></env:Subcode></env:Code><env:Reason>why</env:Reason></env:Fault>)"
        "<s><a>1</a><b> x\n y </b></s></env:Body></env:Envelope>";
    EXPECT_EQ(
        compactWire(message),
        R"(<?xml version="1.0" encoding="UTF-8"?><env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xsd="http://www.w3.org/2001/XMLSchema")" +
            rest);
    EXPECT_EQ(
        compactSerialized(message),
        R"(<?xml version="1.0" encoding="UTF-8"?><env:Envelope xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xsd="http://www.w3.org/2001/XMLSchema" xmlns:env="http://www.w3.org/2002/06/soap-envelope")" +
            rest);
}

TEST(CompactLayout, TextOfTheDetailStandsNextToItsEntries) {
    TzSoapFault fault;
    fault.setDetailText("why");
    fault.addDetailEntry("d", intValue("x", 5));
    EXPECT_NE(compactWire(fault).find(">why<d>5</d></env:Detail>"), std::string::npos)
        << compactWire(fault);
}

TEST(CompactLayout, ValuesThatHoldNothingAreEmpty) {
    TzSoapCompositeType nil("n");
    nil.setNull(true);
    const TzSoapMessage message = encodedMessage(
        TzSoapVersion::V1_1,
        {TzSoapCompositeType("c"), TzSoapCompactArrayType(TzXmlName("a"), "xsd:int", 0, 0),
         TzSoapSparseArrayType(TzXmlName("b"), "xsd:int", 2), TzSoapType("g"), nil});
    const std::string body =
        R"(<SOAP-ENV:Body><c></c><a xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENC:arrayType="xsd:int[]"></a>)"
        R"(<b xmlns:SOAP-ENC="http://schemas.xmlsoap.org/soap/encoding/" SOAP-ENC:arrayType="xsd:int[2]"></b>)"
        R"(<g></g><n xsi:nil="1"></n></SOAP-ENV:Body></SOAP-ENV:Envelope>)";
    for (const std::string& text : {compactWire(message), compactSerialized(message)}) {
        EXPECT_EQ(text.substr(text.find("<SOAP-ENV:Body>")), body);
    }
    EXPECT_EQ(compactWire(TzSoapType("g")), "<g></g>");
}

TEST(CompactLayout, IsThatOfTheXmlWriterUnlessSet) {
    const TzSoapType value("g");
    TzXmlStringWriter compact;
    compact.setCompact(true);
    TzXmlStringWriter other;
    TzSoapWriter writer(&compact, nullptr);
    value.acceptVisitor(writer);
    writer.setWriter(&other);
    value.acceptVisitor(writer);
    EXPECT_EQ(compact.getString(), "<g></g>");
    EXPECT_EQ(other.getString(), "<g>\n</g>\n");
}

TEST(CompactLayout, StaysWithTheWriterUntilItIsSetAgain) {
    const TzSoapType value("g");
    TzXmlStringWriter first;
    TzXmlStringWriter second;
    TzSoapWriter writer(&first, nullptr);
    writer.setCompact(true);
    writer.setWriter(&second);
    TzSoapWriter child(&writer);
    value.acceptVisitor(child);
    EXPECT_EQ(second.getString(), "<g></g>");
    writer.setCompact(false);
    value.acceptVisitor(writer);
    EXPECT_EQ(second.getString(), "<g></g><g>\n</g>\n");
}

TEST(CompactLayout, CopiesOfASerializerKeepIt) {
    const TzSoapType value("g");
    TzSoapSerializer serializer;
    serializer.setCompact(true);
    TzSoapSerializer copy(serializer);
    TzSoapSerializer assigned;
    assigned = serializer;
    value.acceptVisitor(copy);
    value.acceptVisitor(assigned);
    EXPECT_EQ(copy.getSerializedString(), "<g></g>");
    EXPECT_EQ(assigned.getSerializedString(), "<g></g>");
    serializer.setCompact(false);
    value.acceptVisitor(serializer);
    EXPECT_EQ(serializer.getSerializedString(), "<g>\n</g>\n");
}

/// `levels` composites within each other.
TzSoapType nested(unsigned int levels) {
    TzSoapType value = intValue("i", 1);
    for (unsigned int level = 1; level < levels; ++level) {
        TzSoapCompositeType outer("c");
        outer.appendChild(value);
        value = outer;
    }
    return value;
}

TEST(CompactLayout, DeepLinesAreIndentedByThirtyTwoStepsAtMost) {
    const TzSoapMessage message = encodedMessage(TzSoapVersion::V1_1, {nested(1900)});
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    for (const std::string& text : {wire(message), serializer.getSerializedString()}) {
        const std::size_t leaf = text.find("<i>");
        EXPECT_EQ(leaf - text.rfind('\n', leaf), 65U);
        // Of what indentation adds to each tag, no more than 64 blanks and a line end.
        EXPECT_LT(text.size(), 2 * 1900 * (4 + 65) + 500);
    }
    EXPECT_EQ(wire(message).find("\n" + std::string(65, ' ')), std::string::npos);
}

} // namespace
