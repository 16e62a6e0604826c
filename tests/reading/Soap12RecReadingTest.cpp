// SPDX-License-Identifier: MIT
//
// What is read from messages of SOAP 1.2 of 2003.
#include "output/Wire12Rec.h"

#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <tz/xml/TzXmlParseError.h>

#include "support/CataloguedError.h"

#include <gtest/gtest.h>

namespace {

/// The entry "e" of a message of 2003 that holds `children`.
TzSoapType entryWith(const std::string& children) {
    return readRec(bodyRec("<e" + EncodedRec + ">" + children + "</e>"))
        .getSoapBody()
        .getFirstEntry();
}

} // namespace

TEST(Soap12RecReading, NeedsTheConsentOfTheMessage) {
    TzSoapMessage message;
    expectCatalogued<TzXmlParseError>([&] { message.extract(bodyRec("")); }, 0x7011,
                                      "[UNKNOWN_VERSION][SOAP Version specified by URI "
                                      "\"http://www.w3.org/2003/05/soap-envelope\" is unknown ]");
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(bodyRec(""));
    EXPECT_EQ(message.getVersion(), TzSoapVersion::V1_2Rec);
}

TEST(Soap12RecReading, OtherVersionsAreReadAsEver) {
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2}) {
        EXPECT_EQ(readRec(wire(TzSoapMessage(version))).getVersion(), version);
    }
}

TEST(Soap12RecReading, ANamespaceThatIsSpeltDifferentlyIsUnknown) {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    expectCatalogued<TzXmlParseError>(
        [&] {
            message.extract(R"(<e:Envelope xmlns:e="http://www.w3.org/2003/05/soap-envelope/"/>)");
        },
        0x7011,
        "[UNKNOWN_VERSION][SOAP Version specified by URI "
        "\"http://www.w3.org/2003/05/soap-envelope/\" is unknown ]");
}

TEST(Soap12RecReading, ReferencesFindTheirTargets) {
    const TzSoapType entry = entryWith("<a enc:id='i'>5</a><b enc:ref='i'/><c enc:ref='#i'/>");
    for (const char* name : {"b", "c"}) {
        auto reference = tzSoapAs<TzSoapReferenceType>(entry.getChild(name));
        ASSERT_TRUE(reference.hasReference()) << name;
        EXPECT_EQ(reference.getSoapReference().getName().getLocalName(), "a");
    }
}

TEST(Soap12RecReading, ATargetMayComeLater) {
    const TzSoapType entry = entryWith("<b enc:ref='i'/><a enc:id='i'>5</a>");
    EXPECT_TRUE(tzSoapAs<TzSoapReferenceType>(entry.getChild("b")).hasReference());
}

TEST(Soap12RecReading, APlainIdIsNoTarget) {
    const TzSoapType entry = entryWith("<a id='i'>5</a><b enc:ref='i'/>");
    EXPECT_FALSE(tzSoapAs<TzSoapReferenceType>(entry.getChild("b")).hasReference());
}

TEST(Soap12RecReading, AnEncodedIdOfAnotherVersionIsNoTarget) {
    const std::string entry =
        R"(<b href="#i"/><a xmlns:enc=")" + std::string(EncUri12Rec) + R"(" enc:id="i">5</a>)";
    TzSoapMessage message;
    message.extract(envelope11(entry));
    EXPECT_FALSE(
        tzSoapAs<TzSoapReferenceType>(message.getSoapBody().getFirstEntry()).hasReference());
}

TEST(Soap12RecReading, PlainAttributesStayWhatTheyAre) {
    const std::string lines = "    <e" + EncodedRec + R"(>
      <a id="1" ref="x" root="0" position="[1]">5</a>
      <b enc:id="i" id="2">6</b>
      <c enc:ref="i" ref="y"/>
    </e>
)";
    EXPECT_EQ(wire(readRec(bodyRec(lines))), bodyRec(lines));
}

TEST(Soap12RecReading, APlainIdThatEqualsAnEncodedOneStaysPlain) {
    const std::string lines = "    <e" + EncodedRec + R"(>
      <a id="i">5</a>
      <b enc:id="i" id="i">6</b>
      <c enc:ref="i"/>
    </e>
)";
    EXPECT_EQ(wire(readRec(bodyRec(lines))), bodyRec(lines));
}

TEST(Soap12RecReading, AnIdThatNothingRefersToStaysEncoded) {
    const std::string lines = "    <e" + EncodedRec + " enc:id=\"i\">5</e>\n";
    EXPECT_EQ(wire(readRec(bodyRec(lines))), bodyRec(lines));
}

TEST(Soap12RecReading, ArraysHaveItemTypeAndSize) {
    const TzSoapType entry =
        entryWith("<list enc:itemType='xsd:int' enc:arraySize='* 2'><i>1</i><i>2</i></list>");
    const auto list = tzSoapAs<TzSoapCompactArrayType>(entry.getChild("list"));
    EXPECT_EQ(list.getElementType(), "xsd:int");
    EXPECT_EQ(list.getBounds(), (std::vector<unsigned int>{0, 2}));
    EXPECT_EQ(list.entries(), 2U);
}

TEST(Soap12RecReading, AttributesThatTheVersionLacksHaveNoMeaning) {
    const std::string lines = "    <e" + EncodedRec + R"(>
      <list enc:offset="1" enc:root="1" enc:itemType="xsd:int" enc:arraySize="2">
        <i enc:position="1">1</i>
      </list>
    </e>
)";
    const TzSoapMessage message = readRec(bodyRec(lines));
    const auto list =
        tzSoapAs<TzSoapCompactArrayType>(message.getSoapBody().getFirstEntry().getChild("list"));
    EXPECT_EQ(list.assignedPositions(), (std::vector<unsigned int>{0}));
    EXPECT_EQ(wire(message), bodyRec(lines));
}

TEST(Soap12RecReading, MustUnderstandAndRelayHaveTwoSpellings) {
    for (const auto& [text, expected] : {std::pair("true", true), std::pair("1", true),
                                         std::pair("false", false), std::pair("0", false)}) {
        const TzSoapMessage message =
            readRec(envelopeRec("<env:Header><h env:mustUnderstand='" + std::string(text) +
                                "' env:relay='" + text + "'/></env:Header><env:Body/>"));
        ASSERT_EQ(message.getSoapHeader().entryCount(), 1U);
        const TzSoapType entry = *message.getSoapHeader().entriesBegin();
        EXPECT_EQ(entry.getMustUnderstand(), expected) << text;
        EXPECT_EQ(TzSoap12RecVersion::isRelayed(entry), expected) << text;
    }
}

TEST(Soap12RecReading, WithoutRelayAnEntryIsNotRelayed) {
    EXPECT_FALSE(TzSoap12RecVersion::isRelayed(intValue("h", 1)));
}

TEST(Soap12RecReading, RolesAreKept) {
    const std::string text =
        envelopeRec("  <env:Header>\n    <h" + EncodedRec +
                    " env:role=\"http://www.w3.org/2003/05/soap-envelope/role/next\" "
                    "env:relay=\"true\">1</h>\n  </env:Header>\n  <env:Body>\n  </env:Body>\n");
    const std::string written = wire(readRec(text));
    EXPECT_NE(written.find("env:role=\"http://www.w3.org/2003/05/soap-envelope/role/next\""),
              std::string::npos)
        << written;
    EXPECT_NE(written.find("env:relay=\"true\""), std::string::npos) << written;
}

TEST(Soap12RecReading, AReportKeepsItsNameInTheModel) {
    const TzSoapMessage message =
        readRec(envelopeRec("<env:Header><env:NotUnderstood qname='t:T' xmlns:t='urn:t'/>"
                            "</env:Header><env:Body/>"));
    ASSERT_EQ(message.getSoapHeader().entryCount(), 1U);
    const auto report = tzSoapAs<TzSoapMisunderstoodType>(*message.getSoapHeader().entriesBegin());
    EXPECT_EQ(report.getName().getQualifiedName(), "f:Misunderstood");
    EXPECT_EQ(report.getQualifiedName(), nameIn("T", "t", "urn:t"));
}

TEST(Soap12RecReading, TheStyleOfTheEnvelopeIsUnderstood) {
    const TzSoapMessage message =
        readRec(R"(<env:Envelope xmlns:env="http://www.w3.org/2003/05/soap-envelope")" +
                EncodedRec + R"(><env:Body><e><a>1</a></e></env:Body></env:Envelope>)");
    EXPECT_EQ(message.getEncodingStyleAttribute(), EncUri12Rec);
    EXPECT_EQ(message.getSoapBody().getFirstEntry().getSoapTypeId(), TzSoapType::Composite);
}

TEST(Soap12RecReading, UnderTheStyleNoneValuesAreRead) {
    const std::string lines = "    <e env:encodingStyle=\"" + std::string(EnvUri12Rec) +
                              "/encoding/none\">\n      <a>1</a>\n    </e>\n";
    const TzSoapMessage message = readRec(bodyRec(lines));
    EXPECT_EQ(message.getSoapBody().getFirstEntry().getSoapTypeId(), TzSoapType::Composite);
    EXPECT_EQ(wire(message), bodyRec(lines));
}

TEST(Soap12RecReading, ItsStyleIsThatOfAnApplicationInOtherVersions) {
    const std::string entry =
        R"(<e SOAP-ENV:encodingStyle=")" + std::string(EncUri12Rec) + R"("><a>1</a></e>)";
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(envelope11(entry));
    EXPECT_EQ(message.getSoapBody().getFirstEntry().getSoapTypeId(), TzSoapType::UserDefined);
}

TEST(Soap12RecReading, AMessageMayReadVersionsInTurn) {
    TzSoapMessage message;
    message.setReadLimits({.soap12Recommendation = true});
    message.extract(bodyRec("<e" + EncodedRec + "><a enc:id='i'>5</a><b enc:ref='i'/></e>"));
    message.extract(envelope11("<b href='#i'/><a id='i'>5</a>"));
    EXPECT_TRUE(
        tzSoapAs<TzSoapReferenceType>(message.getSoapBody().getFirstEntry()).hasReference());
}

TEST(Soap12RecReading, TheReturnValueIsTheMemberThatResultNames) {
    using Version = TzSoap12RecVersion;
    const std::string result = "<r:result xmlns:r='http://www.w3.org/2003/05/soap-rpc'>";
    const auto named = Version::findReturnValue(
        entryWith("<out>1</out>" + result + " return </r:result><return>5</return>"));
    ASSERT_TRUE(named.has_value());
    EXPECT_EQ(named->getName().getLocalName(), "return");
    EXPECT_FALSE(Version::findReturnValue(entryWith(result + "no</r:result><a>5</a>")).has_value());
    const auto first = Version::findReturnValue(entryWith("<a>5</a><b>6</b>"));
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(first->getName().getLocalName(), "a");
    EXPECT_FALSE(Version::findReturnValue(entryWith("")).has_value());
}

TEST(Soap12RecReading, ANodeTypeMakesAnArrayOfAnElementWithoutShape) {
    const std::string lines = "    <e" + EncodedRec + R"(>
      <list enc:nodeType="array" enc:arraySize="*">
        <i>1</i>
        <i>2</i>
      </list>
      <none enc:nodeType="array" enc:arraySize="*">
      </none>
    </e>
)";
    const TzSoapMessage message =
        readRec(bodyRec("<e" + EncodedRec +
                        "><list enc:nodeType='array'><i>1</i><i>2</i></list>"
                        "<none enc:nodeType='array'/></e>"));
    const TzSoapType entry = message.getSoapBody().getFirstEntry();
    EXPECT_EQ(tzSoapAs<TzSoapCompactArrayType>(entry.getChild("list")).entries(), 2U);
    EXPECT_EQ(tzSoapAs<TzSoapCompactArrayType>(entry.getChild("none")).entries(), 0U);
    EXPECT_EQ(wire(message), bodyRec(lines));
}

TEST(Soap12RecReading, ANodeTypeTellsAnEmptyStructFromAnEmptyText) {
    const std::string lines = "    <e" + EncodedRec + R"(>
      <a enc:nodeType="struct"></a>
      <b enc:nodeType="simple"></b>
      <c></c>
    </e>
)";
    const TzSoapMessage message = readRec(bodyRec(lines));
    const TzSoapType entry = message.getSoapBody().getFirstEntry();
    EXPECT_EQ(entry.getChild("a").getSoapTypeId(), TzSoapType::Composite);
    EXPECT_EQ(entry.getChild("b").getSoapTypeId(), TzSoapType::Simple);
    EXPECT_EQ(entry.getChild("c").getSoapTypeId(), TzSoapType::Simple);
}

// What the element holds says more than its nodeType does.
TEST(Soap12RecReading, ANodeTypeThatContradictsTheElementHasNoMeaning) {
    const TzSoapType entry = entryWith("<a enc:nodeType='struct'>text</a>"
                                       "<b enc:nodeType='simple'><i/></b>"
                                       "<c enc:nodeType='struct' enc:arraySize='1'><i/></c>"
                                       "<d enc:nodeType='list'/>");
    EXPECT_EQ(entry.getChild("a").getSoapTypeId(), TzSoapType::Simple);
    EXPECT_EQ(entry.getChild("b").getSoapTypeId(), TzSoapType::Composite);
    EXPECT_EQ(entry.getChild("c").getSoapTypeId(), TzSoapType::Array);
    EXPECT_EQ(entry.getChild("d").getSoapTypeId(), TzSoapType::Simple);
}

TEST(Soap12RecReading, ANodeTypeOfAnotherVersionHasNoMeaning) {
    TzSoapMessage message;
    message.extract(envelope12("<e xmlns:n='http://www.w3.org/2002/06/soap-encoding'>"
                               "<a n:nodeType='array'/></e>"));
    EXPECT_EQ(message.getSoapBody().getFirstEntry().getChild("a").getSoapTypeId(),
              TzSoapType::Simple);
}

TEST(Soap12RecReading, AnArrayOfAnythingStatesNoItemType) {
    const std::string lines = "    <list" + EncodedRec + R"( enc:arraySize="2">
      <i>1</i>
      <i>2</i>
    </list>
)";
    EXPECT_EQ(wire(readRec(bodyRec(lines))), bodyRec(lines));
}
