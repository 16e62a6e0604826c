// SPDX-License-Identifier: MIT
//
// SOAP 1.2 of 2003 on its way: HTTP, packages, receivers, refusals.
#include "output/Wire12Rec.h"

#include <soap/TzSoapCast.h>
#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapNode.h>
#include <soap/TzSoapReferenceType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlParseError.h>

#include "support/AttachedValue.h"
#include "support/CataloguedError.h"
#include "support/HttpContext.h"

#include <gtest/gtest.h>

namespace {

constexpr TzSoapVersion::Version Rec = TzSoapVersion::V1_2Rec;

int statusOf(TzSoapVersion::Version version, TzSoapVersion::SoapFaultCode code) {
    return TzSoapHttpBinding::getStatus(TzSoapFaultMessage::make(version, code, "no"));
}

/// The Content-Type lines of a package: its own, and that of its root part.
std::pair<std::string, std::string> typesOf(const TzMimeMultipart& package) {
    const TzMimePart root = package.getPart(package.findRootPart());
    return {package.getHeader(package.findHeader("Content-Type")).getValue(),
            root.getHeader(root.findHeader("Content-Type")).getValue()};
}

} // namespace

TEST(Soap12RecBinding, SharesTheContentTypeOfTheOtherSoap12) {
    for (const auto version : {Rec, TzSoapVersion::V1_2}) {
        TzSoapHttpTransportContext context;
        context.setSoapAction("urn:act");
        TzSoapHttpBinding::pack(TzSoapMessage(version), context);
        EXPECT_EQ(context.asString(),
                  "Content-Type:application/soap+xml; charset=utf-8; action=\"urn:act\"\n");
    }
}

TEST(Soap12RecBinding, TheEnvelopeDecides) {
    TzSoapMessage message;
    for (const auto version : {Rec, TzSoapVersion::V1_2, Rec}) {
        TzSoapHttpBinding::unpack(contextOf("application/soap+xml"), wire(TzSoapMessage(version)),
                                  message);
        EXPECT_EQ(message.getVersion(), version);
    }
}

TEST(Soap12RecBinding, TheLimitsOfTheMessageStay) {
    TzSoapMessage message;
    TzSoapHttpBinding::unpack(contextOf("application/soap+xml"), wire(TzSoapMessage(Rec)), message);
    EXPECT_FALSE(message.getReadLimits().soap12Recommendation);
    EXPECT_THROW(TzSoapHttpBinding::unpack(contextOf("application/soap+xml"), "<x/>", message),
                 TzXmlParseError);
    EXPECT_FALSE(message.getReadLimits().soap12Recommendation);
}

TEST(Soap12RecBinding, ATextThatCannotBeReadStillNamesItsVersion) {
    const TzSoapHttpTransportContext context = contextOf("application/soap+xml");
    EXPECT_EQ(TzSoapHttpBinding::getVersion(context), TzSoapVersion::V1_2);
    EXPECT_EQ(TzSoapHttpBinding::getVersion(context, wire(TzSoapMessage(Rec)).substr(0, 70)), Rec);
    EXPECT_EQ(TzSoapHttpBinding::getVersion(context, "<broken"), TzSoapVersion::V1_2);
    EXPECT_EQ(TzSoapHttpBinding::getVersion(contextOf("text/xml"), "<broken"), TzSoapVersion::V1_1);
}

TEST(Soap12RecBinding, AFaultOfTheSenderHasStatus400) {
    EXPECT_EQ(statusOf(Rec, TzSoapVersion::Client), 400);
    EXPECT_EQ(statusOf(Rec, TzSoapVersion::Server), 500);
    EXPECT_EQ(statusOf(Rec, TzSoapVersion::SoapFaultCode::MustUnderstand), 500);
    EXPECT_EQ(statusOf(TzSoapVersion::V1_2, TzSoapVersion::Client), 500);
    EXPECT_EQ(statusOf(TzSoapVersion::V1_1, TzSoapVersion::Client), 500);
    EXPECT_EQ(TzSoapHttpBinding::getStatus(TzSoapMessage(Rec)), 200);
}

TEST(Soap12RecPackage, IsOfTheTypeOfItsEnvelope) {
    EXPECT_EQ(
        typesOf(messageWithAttachment(Rec).asPackage()),
        std::pair(
            std::string("multipart/related; boundary=\"MIME_boundary\"; "
                        "type=\"application/soap+xml\"; start=\"<soap.xml@mime.representation>\""),
            std::string("application/soap+xml; charset=\"UTF-8\"")));
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2}) {
        const auto [package, root] = typesOf(messageWithAttachment(version).asPackage());
        EXPECT_NE(package.find("type=\"text/xml\""), std::string::npos) << package;
        EXPECT_EQ(root, "text/xml; charset=\"UTF-8\"");
    }
}

TEST(Soap12RecPackage, IsRead) {
    TzSoapHttpTransportContext context;
    const TzCString body = TzSoapHttpBinding::pack(messageWithAttachment(Rec), context);
    TzSoapMessage message;
    TzSoapHttpBinding::unpack(context, body, message);
    EXPECT_EQ(message.getVersion(), Rec);
    TzSoapReferenceType reference =
        tzSoapAs<TzSoapReferenceType>(message.getSoapBody().getFirstEntry());
    ASSERT_TRUE(reference.hasReference());
    EXPECT_EQ(reference.getMimeReference().getBody(), "the bytes");
}

TEST(Soap12RecNode, ActsForTheRolesOfTheVersion) {
    const TzSoapVersion& names = TzSoapVersion::getSoapVersion(Rec);
    const auto isTarget = [](const TzCString& role) {
        TzSoapSimpleType entry = intValue("h", 1);
        entry.setActor(role);
        return TzSoapNode().isTargetOf(entry);
    };
    EXPECT_TRUE(isTarget(names.getSoapRole(TzSoapVersion::Next)));
    EXPECT_TRUE(isTarget(names.getSoapRole(TzSoapVersion::UltimateReceiver)));
    EXPECT_FALSE(isTarget(names.getSoapRole(TzSoapVersion::None)));
}

TEST(Soap12RecNode, FindsWhatWasNotUnderstood) {
    const TzSoapMessage message =
        readRec(envelopeRec("<env:Header><t:T xmlns:t='urn:t' env:mustUnderstand='1'/></env:Header>"
                            "<env:Body/>"));
    EXPECT_EQ(TzSoapNode().findMisunderstood(message),
              std::vector<TzXmlName>{nameIn("T", "t", "urn:t")});
}

TEST(Soap12RecFaultMessage, NamesEntriesThatWereNotUnderstood) {
    const TzSoapMessage message =
        TzSoapFaultMessage::makeMustUnderstand(Rec, {nameIn("T", "env", "urn:t")});
    EXPECT_NE(message.asString().find("<env:NotUnderstood xmlns:env1=\"urn:t\" qname=\"env1:T\"/>"),
              std::string::npos)
        << message.asString();
}

TEST(Soap12RecFaultMessage, SubcodesAreOfTheVersion) {
    const TzSoapMessage message = TzSoapFaultMessage::make(
        Rec, TzSoapVersion::Client, TzSoapVersion::ProcedureNotPresent, "no");
    EXPECT_EQ(message.getSoapBody().getSoapFault().getSubcode(0),
              nameIn("ProcedureNotPresent", "rpc", "http://www.w3.org/2003/05/soap-rpc"));
}

TEST(Soap12RecFaultMessage, ACodeThatTheVersionLacksIsTheSenders) {
    EXPECT_EQ(TzSoapFaultMessage::make(Rec, TzSoapVersion::DTDNotSupported, "no")
                  .getSoapBody()
                  .getSoapFault()
                  .getCode(),
              nameIn("Sender", "env", EnvUri12Rec));
}

TEST(Soap12RecFaultMessage, ListsSupportedEnvelopes) {
    const TzSoapMessage message = TzSoapFaultMessage::makeVersionMismatch(
        Rec, {Rec, TzSoapVersion::V1_1}, "Unknown envelope");
    EXPECT_EQ(message.asString(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              R"(<env:Envelope xmlns:env="http://www.w3.org/2003/05/soap-envelope">
  <env:Header>
    <env:Upgrade>
      <env:SupportedEnvelope xmlns:ns1="http://www.w3.org/2003/05/soap-envelope" qname="ns1:Envelope"></env:SupportedEnvelope>
      <env:SupportedEnvelope xmlns:ns2="http://schemas.xmlsoap.org/soap/envelope/" qname="ns2:Envelope"></env:SupportedEnvelope>
    </env:Upgrade>
  </env:Header>
  <env:Body>
    <env:Fault>
      <env:Code>
        <env:Value>env:VersionMismatch</env:Value>
      </env:Code>
      <env:Reason>
        <env:Text xml:lang="en">Unknown envelope</env:Text>
      </env:Reason>
    </env:Fault>
  </env:Body>
</env:Envelope>
)");
    const std::vector<TzXmlName> expected = {nameIn("Envelope", "ns1", EnvUri12Rec),
                                             nameIn("Envelope", "ns2", EnvUri11)};
    EXPECT_EQ(TzSoapFaultMessage::getSupportedEnvelopes(message), expected);
    EXPECT_EQ(TzSoapFaultMessage::getSupportedEnvelopes(readRec(message.asString())), expected);
}

TEST(Soap12RecFaultMessage, PrefixesOfSupportedEnvelopesMayBeDeclaredAnywhere) {
    const TzSoapMessage message = readRec(
        envelopeRec("<env:Header xmlns:h='urn:h'><env:Upgrade xmlns:u='urn:u'>"
                    "<env:SupportedEnvelope qname='env:E'/><env:SupportedEnvelope qname='h:E'/>"
                    "<env:SupportedEnvelope qname='u:E'/><env:SupportedEnvelope qname='no:E'/>"
                    "</env:Upgrade></env:Header><env:Body/>"));
    EXPECT_EQ(TzSoapFaultMessage::getSupportedEnvelopes(message),
              (std::vector<TzXmlName>{nameIn("E", "env", EnvUri12Rec), nameIn("E", "h", "urn:h"),
                                      nameIn("E", "u", "urn:u"), nameIn("E", "no", "")}));
}

TEST(Soap12RecFaultMessage, VersionsWithoutUpgradeListNothing) {
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2}) {
        const TzSoapMessage message =
            TzSoapFaultMessage::makeVersionMismatch(version, {version}, "no");
        EXPECT_EQ(message.getSoapHeader().entryCount(), 0U);
        EXPECT_TRUE(TzSoapFaultMessage::getSupportedEnvelopes(message).empty());
    }
}
