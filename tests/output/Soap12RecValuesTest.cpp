// SPDX-License-Identifier: MIT
//
// How values are written in SOAP 1.2 of 2003: styles, header entries, arrays.
#include "output/Wire12Rec.h"

#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapSerializer.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapWriter.h>
#include <tz/xml/TzXmlDomainError.h>
#include <tz/xml/TzXmlStringWriter.h>

#include "support/Throws.h"

#include <gtest/gtest.h>

namespace {

TzSoapCompositeType composite(const char* name, const std::vector<TzSoapType>& children) {
    TzSoapCompositeType made{TzXmlName(name)};
    for (const TzSoapType& child : children) {
        made.appendChild(child);
    }
    return made;
}

/// The lines of an entry "a" with one array "list" of items "i".
std::string arrayLines(const std::string& attributes, const std::string& items) {
    return "    <a" + EncodedRec + ">\n      <list " + attributes + ">\n" + items +
           "      </list>\n    </a>\n";
}

const std::string NilItem =
    "        <tznone:unnamed xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    "xmlns:tznone=\"urn:tz-soap:unnamed\" xsi:nil=\"1\"></tznone:unnamed>\n";

/// The error of an array with too many gaps.
std::string refusedGaps(int items, unsigned int gaps, unsigned int inAll) {
    return "An array of " + std::to_string(items) + " items with " + std::to_string(gaps) +
           " positions without one before them is not written: this version of SOAP has neither "
           "positions nor offsets, and the message would get " +
           std::to_string(inAll) + " nil items in their place";
}

} // namespace

TEST(Soap12RecValues, EntriesStateTheStyleAndNothingAroundThemDoes) {
    TzSoapMessage message = messageRec({composite("a", {intValue("b", 1)}), intValue("c", 2)});
    message.setEncodingStyle(EncUri12Rec);
    message.getSoapBody().setEncodingStyle("urn:style");
    message.getSoapHeader().setEncodingStyle(EncUri12Rec);
    message.getSoapHeader().appendHeaderEntry(intValue("h", 3), true);
    EXPECT_EQ(wire(message), envelopeRec("  <env:Header>\n    <h" + EncodedRec +
                                         " env:mustUnderstand=\"true\">3</h>\n"
                                         "  </env:Header>\n  <env:Body>\n    <a" +
                                         EncodedRec + ">\n      <b>1</b>\n    </a>\n    <c" +
                                         EncodedRec + ">2</c>\n  </env:Body>\n"));
}

TEST(Soap12RecValues, TheSerializerStatesNoStyleAroundEntriesEither) {
    TzSoapMessage message = messageRec({intValue("c", 2)});
    message.setEncodingStyle(EncUri12Rec);
    TzSoapSerializer serializer;
    message.acceptVisitor(serializer);
    const std::string text = serializer.getSerializedString();
    EXPECT_EQ(text.find("encodingStyle"), text.find("encodingStyle=\"", text.find("<c"))) << text;
    EXPECT_EQ(text.find("encodingStyle"), text.rfind("encodingStyle")) << text;
}

TEST(Soap12RecValues, ABodyOnItsOwnIsOfItsVersion) {
    EXPECT_EQ(wire(messageRec({intValue("c", 2)}).getSoapBody()),
              "<env:Body xmlns:env=\"http://www.w3.org/2003/05/soap-envelope\">\n  <c" +
                  EncodedRec + ">2</c>\n</env:Body>\n");
}

TEST(Soap12RecValues, NothingUnderTheStyleNoneStatesAnother) {
    TzSoapCompositeType plain = composite("a", {intValue("b", 1)});
    plain.setEncodingStyle(TzSoap12RecVersion::getNoEncodingStyle());
    EXPECT_EQ(wireRec({plain}), bodyRec("    <a env:encodingStyle=\"" + std::string(EnvUri12Rec) +
                                        "/encoding/none\">\n      <b>1</b>\n    </a>\n"));
}

TEST(Soap12RecValues, RootIsLeftOut) {
    TzSoapSimpleType value = intValue("c", 2);
    value.setRoot(true);
    EXPECT_EQ(wireRec({value}), bodyRec("    <c" + EncodedRec + ">2</c>\n"));
    EXPECT_NE(wire12({value}).find("root=\"1\""), std::string::npos);
}

TEST(Soap12RecValues, AnArrayStatesItemTypeAndSize) {
    TzSoapCompactArrayType list(TzXmlName("list"), "xsd:int", 2U, 0U);
    list[0] = intValue("i", 1);
    list[1] = intValue("i", 2);
    EXPECT_EQ(wireRec({composite("a", {list})}),
              bodyRec(arrayLines("enc:itemType=\"xsd:int\" enc:arraySize=\"2\"",
                                 "        <i>1</i>\n        <i>2</i>\n")));
}

TEST(Soap12RecValues, AnOffsetBecomesNilItems) {
    TzSoapCompactArrayType list(TzXmlName("list"), "xsd:int", 4U, 0U);
    list[2] = intValue("i", 3);
    list.setOffset(std::vector<unsigned int>{2});
    EXPECT_EQ(wireRec({composite("a", {list})}),
              bodyRec(arrayLines("enc:itemType=\"xsd:int\" enc:arraySize=\"4\"",
                                 NilItem + NilItem + "        <i>3</i>\n")));
}

TEST(Soap12RecValues, GapsOfASparseArrayBecomeNilItemsInOrder) {
    TzSoapSparseArrayType list(TzXmlName("list"), "xsd:int", "2 3");
    list["[1,1]"] = intValue("i", 5);
    list["[0,1]"] = intValue("i", 2);
    EXPECT_EQ(wireRec({composite("a", {list})}),
              bodyRec(arrayLines("enc:itemType=\"xsd:int\" enc:arraySize=\"2 3\"",
                                 NilItem + "        <i>2</i>\n" + NilItem + NilItem +
                                     "        <i>5</i>\n")));
}

TEST(Soap12RecValues, AnArrayThatIsNearlyAllGapsIsRefused) {
    TzSoapSparseArrayType list(TzXmlName("list"), "xsd:int", 4000000000U);
    list[3999999999U] = intValue("i", 5);
    EXPECT_EQ(textThrown<TzXmlDomainError>([&] { wireRec({list}); }),
              refusedGaps(1, 3999999999, 3999999999));
    EXPECT_NE(wire12({list}).find("position=\"3999999999\""), std::string::npos);
    TzSoapCompactArrayType late(TzXmlName("list"), "xsd:int", 4U, 0U);
    late.setOffset(std::vector<unsigned int>{2000});
    EXPECT_EQ(textThrown<TzXmlDomainError>([&] { wireRec({late}); }), refusedGaps(0, 2000, 2000));
}

/// A message with `count` arrays whose first 500 positions are left out.
TzSoapMessage withLateArrays(int count) {
    TzSoapMessage message = messageRec({});
    for (int i = 0; i < count; ++i) {
        TzSoapCompactArrayType late(TzXmlName("list"), "xsd:int", 504U, 0U);
        late.setOffset(std::vector<unsigned int>{500});
        message.getSoapBody().appendEntry(late);
    }
    return message;
}

TEST(Soap12RecValues, TheGapsOfAllArraysOfAMessageAreLimitedTogether) {
    TzSoapMessage three = withLateArrays(3);
    EXPECT_EQ(textThrown<TzXmlDomainError>([&] { wire(three); }), refusedGaps(0, 500, 1500));
}

TEST(Soap12RecValues, TheNextMessageOfAWriterMayHaveGapsAgain) {
    TzXmlStringWriter text;
    TzSoapWriter writer(&text, nullptr);
    const TzSoapMessage two = withLateArrays(2);
    two.acceptVisitor(writer);
    two.acceptVisitor(writer);
    const std::string written = text.getString();
    std::size_t items = 0;
    for (std::size_t at = 0; (at = written.find(" xsi:nil=\"1\"", at)) != std::string::npos; ++at) {
        ++items;
    }
    EXPECT_EQ(items, 2000u);
}

TEST(Soap12RecValues, AReportIsCalledNotUnderstood) {
    TzSoapMessage message = messageRec({});
    const TzSoapMisunderstoodType report(nameIn("Transaction", "t", "urn:t"));
    message.getSoapHeader().appendHeaderEntry(report, false);
    EXPECT_EQ(wire(message), envelopeRec("  <env:Header>\n    <env:NotUnderstood xmlns:t=\"urn:t\" "
                                         "qname=\"t:Transaction\"/>\n  </env:Header>\n"
                                         "  <env:Body>\n  </env:Body>\n"));
    EXPECT_EQ(report.getName().getQualifiedName(), "f:Misunderstood");
}

TEST(Soap12RecValues, AReportTakesThePrefixOfTheEnvelope) {
    TzSoapMessage message = readRec(
        R"(<s:Envelope xmlns:s="http://www.w3.org/2003/05/soap-envelope"><s:Header><s:NotUnderstood qname="t:T" xmlns:t="urn:t"/></s:Header><s:Body/></s:Envelope>)");
    EXPECT_EQ(wire(message.getSoapHeader()).find("<f:"), std::string::npos);
    EXPECT_NE(wire(message).find("<s:NotUnderstood xmlns:t=\"urn:t\" qname=\"t:T\"/>"),
              std::string::npos);
}
