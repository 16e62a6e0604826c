// SPDX-License-Identifier: MIT
//
// Messages rewritten from and to SOAP 1.2 of 2003.
#include "output/Wire12Rec.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapVersionConverter.h>

#include "support/AllocationFailure.h"

#include <gtest/gtest.h>

#include <map>
#include <new>

namespace {

using Losses = std::vector<TzCString>;
constexpr TzSoapVersion::Version Rec = TzSoapVersion::V1_2Rec;

/// The text of `message` rewritten for `version`; expects these losses.
std::string converted(TzSoapMessage message, TzSoapVersion::Version version,
                      const Losses& expected = {}) {
    EXPECT_EQ(TzSoapVersionConverter(version).convert(message), expected);
    EXPECT_EQ(message.getVersion(), version);
    return wire(message);
}

TzSoapMessage read(const std::string& text) { return readRec(text); }

/// An envelope of SOAP 1.1 whose body holds `lines`.
std::string first(const std::string& lines) {
    return R"(<env:Envelope xmlns:env="http://schemas.xmlsoap.org/soap/envelope/")"
           R"( xmlns:enc="http://schemas.xmlsoap.org/soap/encoding/">
  <env:Body>
)" + lines +
           "  </env:Body>\n</env:Envelope>\n";
}

/// The same of SOAP 1.2 of 2002.
std::string second(const std::string& lines) {
    return R"(<env:Envelope xmlns:env="http://www.w3.org/2002/06/soap-envelope")"
           R"( xmlns:enc="http://www.w3.org/2002/06/soap-encoding">
  <env:Body>
)" + lines +
           "  </env:Body>\n</env:Envelope>\n";
}

const std::string Style11 = R"( env:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/")";
const std::string Style12 = R"( env:encodingStyle="http://www.w3.org/2002/06/soap-encoding")";

/// An entry with an array of two ints, a reference and its target, as each version writes it.
std::string entry(const std::string& style, const std::string& list, const std::string& id,
                  const std::string& ref) {
    return "    <e" + style + ">\n      <list " + list + R"(>
        <i>1</i>
        <i>2</i>
      </list>
      <a )" +
           id + R"(="t">5</a>
      <b )" +
           ref + "/>\n    </e>\n";
}
std::string entry11() {
    return entry(Style11, R"(enc:arrayType="xsd:int[2]")", "id", R"(href="#t")");
}
std::string entry12() {
    return entry(Style12, R"(enc:itemType="xsd:int" enc:arraySize="2")", "id", R"(ref="#t")");
}
std::string entryRec() {
    return entry(EncodedRec, R"(enc:itemType="xsd:int" enc:arraySize="2")", "enc:id",
                 R"(enc:ref="t")");
}

} // namespace

TEST(Soap12RecConversion, BetweenAllVersionsWithoutLosses) {
    using V = TzSoapVersion;
    const std::map<V::Version, std::string> texts = {
        {V::V1_1, first(entry11())}, {V::V1_2, second(entry12())}, {Rec, bodyRec(entryRec())}};
    for (const auto& [from, source] : texts) {
        for (const auto& [to, target] : texts) {
            EXPECT_EQ(converted(read(source), to), target) << from << " to " << to;
        }
    }
}

TEST(Soap12RecConversion, TargetsInTheBodyMoveToTheirReferences) {
    EXPECT_EQ(converted(read(first("    <e" + Style11 + R"(>
      <a href="#t"/>
      <b href="#t"/>
    </e>
    <multiRef id="t" enc:root="0")" +
                                   Style11 +
                                   R"(>5</multiRef>
)")),
                        Rec, {"attribute SOAP-ENC:root of multiRef: left out"}),
              bodyRec("    <e" + EncodedRec + ">\n      <a" + EncodedRec +
                      " enc:id=\"t\">5</a>\n      <b enc:ref=\"t\"/>\n    </e>\n"));
}

TEST(Soap12RecConversion, AnEntryThatOnlyItselfRefersToStays) {
    const std::string text = converted(read(first("    <e" + Style11 + ">1</e>\n    <s id=\"s\"" +
                                                  Style11 + "><again href=\"#s\"/></s>\n")),
                                       Rec);
    EXPECT_NE(text.find("<again enc:ref=\"s\"/>"), std::string::npos) << text;
}

TEST(Soap12RecConversion, AnEntryThatNothingRefersToStays) {
    const std::string text = converted(
        read(first("    <e" + Style11 + ">1</e>\n    <f id=\"f\"" + Style11 + ">2</f>\n")), Rec);
    EXPECT_NE(text.find(" id=\"f\""), std::string::npos) << text;
}

TEST(Soap12RecConversion, GapsOfArraysAreToldAsLosses) {
    const std::string text =
        converted(read(first("    <e" + Style11 + R"(>
      <list enc:arrayType="xsd:int[3]">
        <i enc:position="[2]">1</i>
      </list>
    </e>
)")),
                  Rec, {"positions without an item of list: become nil items"});
    EXPECT_EQ(text.find("position"), std::string::npos) << text;
    EXPECT_NE(text.find("xsi:nil=\"1\""), std::string::npos) << text;
}

TEST(Soap12RecConversion, AnOffsetIsToldAsALoss) {
    converted(read(first("    <e" + Style11 + R"(>
      <list enc:arrayType="xsd:int[3]" enc:offset="[1]">
        <i>1</i>
      </list>
    </e>
)")),
              Rec, {"positions without an item of list: become nil items"});
}

TEST(Soap12RecConversion, AReferenceWithoutTargetKeepsItsText) {
    const std::string text = converted(
        read(bodyRec("    <e" + EncodedRec + "><a enc:ref=\"no\"/></e>\n")), TzSoapVersion::V1_1);
    EXPECT_NE(text.find("<a href=\"#no\"/>"), std::string::npos) << text;
    const std::string back =
        converted(read(first("    <e" + Style11 + "><a href=\"#no\"/></e>\n")), Rec);
    EXPECT_NE(back.find("<a enc:ref=\"no\"/>"), std::string::npos) << back;
}

TEST(Soap12RecConversion, APlainIdBeginsToMeanNothing) {
    const std::string text = converted(
        read(bodyRec("    <e" + EncodedRec + "><a id=\"x\" ref=\"y\">5</a></e>\n")),
        TzSoapVersion::V1_2, {"attribute id of a: became id1", "attribute ref of a: became ref1"});
    EXPECT_NE(text.find("<a id1=\"x\" ref1=\"y\">5</a>"), std::string::npos) << text;
}

TEST(Soap12RecConversion, AnIdThatAProgramSetStays) {
    TzSoapSimpleType shared = intValue("shared", 5);
    shared.setIdAttribute("i");
    TzSoapCompositeType entry{TzXmlName("e")};
    entry.appendChild(TzSoapReferenceType(TzXmlName("a"), shared));
    const std::string text = converted(messageRec({entry}), TzSoapVersion::V1_1);
    EXPECT_NE(text.find("<a href=\"#i\"/>"), std::string::npos) << text;
    EXPECT_NE(text.find("id=\"i\""), std::string::npos) << text;
}

TEST(Soap12RecConversion, RelayIsOfTheFinalVersionOnly) {
    const std::string text =
        envelopeRec("<env:Header><h env:relay='true' env:role='http://www.w3.org/2003/05/"
                    "soap-envelope/role/next'>1</h></env:Header><env:Body/>");
    const std::string written =
        converted(read(text), TzSoapVersion::V1_2, {"attribute env:relay of h: left out"});
    EXPECT_NE(written.find("role=\"http://www.w3.org/2002/06/soap-envelope/role/next\""),
              std::string::npos)
        << written;
}

TEST(Soap12RecConversion, ReportsChangeTheirSpelling) {
    TzSoapMessage message = readRec(second(""));
    message.getSoapHeader().appendHeaderEntry(TzSoapMisunderstoodType(nameIn("T", "t", "urn:t")),
                                              false);
    const std::string text = converted(message, Rec);
    EXPECT_NE(text.find("<env:NotUnderstood xmlns:t=\"urn:t\" qname=\"t:T\"/>"), std::string::npos)
        << text;
    const std::string back = converted(readRec(text), TzSoapVersion::V1_2);
    EXPECT_NE(back.find("f:Misunderstood"), std::string::npos) << back;
    EXPECT_EQ(
        converted(readRec(text), TzSoapVersion::V1_1, {"header entry f:Misunderstood: left out"})
            .find("nderstood"),
        std::string::npos);
}

TEST(Soap12RecConversion, FaultsChangeCodesAndSubcodes) {
    TzSoapMessage message(TzSoapVersion::V1_2);
    const TzSoapVersion& names = message.getSoapVersion();
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(names.getFaultCode(TzSoapVersion::Client));
    fault.addSubcode(names.getSubFaultCode(TzSoapVersion::UnTypedValue));
    fault.addSubcode(names.getSubFaultCode(TzSoapVersion::BadArguments));
    EXPECT_TRUE(TzSoapVersionConverter(Rec).convert(message).empty());
    EXPECT_EQ(fault.getCode(), nameIn("Sender", "env", EnvUri12Rec));
    EXPECT_EQ(fault.getSubcode(0), nameIn("UntypedValue", "enc", EncUri12Rec));
    EXPECT_EQ(fault.getSubcode(1),
              nameIn("BadArguments", "rpc", "http://www.w3.org/2003/05/soap-rpc"));
    EXPECT_TRUE(TzSoapVersionConverter(TzSoapVersion::V1_2).convert(message).empty());
    EXPECT_EQ(fault.getSubcode(0), names.getSubFaultCode(TzSoapVersion::UnTypedValue));
}

TEST(Soap12RecConversion, ACodeThatTheVersionLacksBecomesASubcode) {
    TzSoapMessage message(TzSoapVersion::V1_2);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::DTDNotSupported));
    EXPECT_EQ(TzSoapVersionConverter(Rec).convert(message),
              Losses{"fault code env:DTDNotSupported: became a subcode of env:Sender"});
}

TEST(Soap12RecConversion, FurtherReasonsAreLosses) {
    TzSoapMessage message(Rec);
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.setCode(message.getSoapVersion().getFaultCode(TzSoapVersion::Client));
    fault.addReason("No", "en");
    fault.addReason("Nein", "de");
    const std::string text =
        converted(message, TzSoapVersion::V1_1, {"fault reason in \"de\": left out"});
    EXPECT_NE(text.find("<faultcode>SOAP-ENV:Client</faultcode>"), std::string::npos) << text;
    EXPECT_NE(text.find("<faultstring>No</faultstring>"), std::string::npos) << text;
}

namespace {

/// A literal message whose header has text around a report, which SOAP 1.1 cannot have.
TzSoapMessage literalReport() {
    TzSoapMessage message;
    message.setStyle(TzSoapStyle::Literal);
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(TzCString(
        R"(<env:Envelope xmlns:env="http://www.w3.org/2003/05/soap-envelope"><env:Header>)"
        R"(a text before the only report<env:NotUnderstood xmlns:t="urn:t" qname="t:Transaction"/>)"
        R"(and a text after the report</env:Header><env:Body><a/></env:Body></env:Envelope>)"));
    return message;
}

} // namespace

TEST(Soap12RecConversion, TheTextBeforeAReportIsLeftOutWithIt) {
    TzSoapMessage message = literalReport();
    EXPECT_EQ(TzSoapVersionConverter(TzSoapVersion::V1_1).convert(message),
              (Losses{"header entry env:NotUnderstood: left out",
                      "text before header entry env:NotUnderstood: left out"}));
    const std::string text = message.asString();
    EXPECT_EQ(text.find("before the only report"), std::string::npos) << text;
    EXPECT_NE(text.find(">and a text after the report</env:Header>"), std::string::npos) << text;
}

TEST(Soap12RecConversion, WithoutMemoryAMessageWithTextStaysAsItWas) {
    const std::string before = literalReport().asString();
    bool failed = true;
    for (std::size_t nth = 1; failed; ++nth) {
        TzSoapMessage message = literalReport();
        {
            const AllocationFailure failure(nth, OutOfMemory::FromThenOn);
            try {
                TzSoapVersionConverter(TzSoapVersion::V1_1).convert(message);
            } catch (const std::bad_alloc&) {
                EXPECT_TRUE(failure.happened());
            }
            failed = failure.happened();
        }
        EXPECT_EQ(message.asString() == before, failed) << "allocation " << nth;
    }
}
