// SPDX-License-Identifier: MIT
#include "http/EchoServer.h"
#include "support/ReadValues.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapLenientValue.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>

#include <gtest/gtest.h>

#include <csignal>
#include <string>

namespace {

const TzXmlNamespace service("m", "urn:example:echo");

const char* contentTypeOf(TzSoapVersion::Version version) {
    return version == TzSoapVersion::V1_1 ? "text/xml; charset=utf-8"
                                          : "application/soap+xml; charset=utf-8";
}

TzSoapMessage echoRequest(TzSoapVersion::Version version, const TzSoapType& parameter) {
    TzSoapMessage message(version);
    TzSoapCompositeType operation(TzXmlName("echoIt", service));
    operation.appendChild(parameter);
    message.getSoapBody().appendEntry(operation);
    return message;
}

TzSoapSimpleType text(const char* name, const std::string& value) {
    return {TzXmlName(name), value, TzSoapContentBase::xsdString, true};
}

/// One server for all tests of a case that does not end it.
class EchoServerRequests : public testing::Test {
protected:
    EchoServer server_;

    HttpAnswer post(TzSoapVersion::Version version, const std::string& body,
                    const std::string& header = "") const {
        return server_.post(contentTypeOf(version), envelope(version, body, header));
    }
};

constexpr char Operation[] = "<m:echoIt xmlns:m='urn:example:echo'><a>1</a></m:echoIt>";

} // namespace

TEST_F(EchoServerRequests, AnswersTheParameterInTheVersionAskedIn) {
    for (const TzSoapVersion::Version version : BothVersions) {
        const TzSoapMessage answer =
            server_.call(echoRequest(version, text("a", " Zoë & <b>\n\U0001F600 ")));
        const TzSoapType& response = *answer.getSoapBody().entriesBegin();
        EXPECT_EQ(response.getName(), TzXmlName("echoItResponse", service));
        EXPECT_EQ(textOf(child(response, "a")), " Zoë & <b>\n\U0001F600 ");
        EXPECT_EQ(child(response, "a").getTypeAttribute(), "xsd:string");
    }
}

TEST_F(EchoServerRequests, TheContentTypeIsThatOfTheVersion) {
    for (const TzSoapVersion::Version version : BothVersions) {
        EXPECT_EQ(post(version, Operation).contentType, contentTypeOf(version));
        EXPECT_EQ(post(version, "").contentType, contentTypeOf(version));
    }
}

TEST_F(EchoServerRequests, ValuesKeepWhatTheyReferTo) {
    const HttpAnswer answer = post(
        TzSoapVersion::V1_1, "<m:echoIt xmlns:m='urn:m' xmlns:own='urn:own'>"
                             "<a href='#x'/><b href='#x'/><c c:arrayType='own:T[1]'><i>1</i></c>"
                             "</m:echoIt><r id='x' c:root='0'><n>5</n></r>");
    const TzSoapMessage message = messageIn(answer);
    const TzSoapType& response = *message.getSoapBody().entriesBegin();
    const TzSoapType first = reference(child(response, "a")).getSoapReference();
    EXPECT_EQ(TzSoapLenientValue(child(first, "n")).getInt(), 5);
    EXPECT_EQ(textOf(child(reference(child(response, "b")).getSoapReference(), "n")), "5");
    EXPECT_EQ(countOf("<n>5</n>", answer.body), 1U);
    EXPECT_EQ(countOf("=\"urn:own\"", answer.body), 1U);
}

TEST_F(EchoServerRequests, AttachmentsAreEchoed) {
    TzMimePart part;
    part.insertHeader(TzMimeContentIdHeader("<data>"));
    const std::string bytes("\0\r\n\xFF--MIME_boundary\n", 20);
    part.setBody(bytes);
    for (const TzSoapVersion::Version version : BothVersions) {
        const TzSoapMessage answer =
            server_.call(echoRequest(version, TzSoapReferenceType(TzXmlName("data"), part)));
        const TzSoapType value = child(*answer.getSoapBody().entriesBegin(), "data");
        EXPECT_EQ(reference(value).getMimeReference().getBody(), bytes);
    }
}

TEST_F(EchoServerRequests, HeaderEntriesThatAreUnderstoodAreAnswered) {
    const HttpAnswer answer =
        post(TzSoapVersion::V1_1, Operation,
             "<echo xmlns='urn:example:echo' e:mustUnderstand='1' e:actor='urn:example:echo'>hi"
             "</echo><other/><echo xmlns='urn:example:echo' e:actor='urn:other'>no</echo>");
    const TzSoapMessage message = messageIn(answer);
    ASSERT_EQ(message.getSoapHeader().entryCount(), 1U);
    const TzSoapType& entry = *message.getSoapHeader().entriesBegin();
    EXPECT_EQ(textOf(entry), "hi");
    EXPECT_EQ(entry.getActorAttribute(), "");
    EXPECT_EQ(entry.getMustUnderstandAttribute(), "");
}

TEST_F(EchoServerRequests, MandatoryEntriesThatAreNotUnderstoodAreAFault) {
    const std::string entry = "<t xmlns='urn:t' e:mustUnderstand='1'/>";
    const HttpAnswer first = post(TzSoapVersion::V1_1, Operation, entry);
    EXPECT_EQ(first.status, 500);
    EXPECT_EQ(faultCodeIn(first), "MustUnderstand");
    EXPECT_EQ(messageIn(first).getSoapHeader().entryCount(), 0U);

    const TzSoapMessage second = messageIn(post(TzSoapVersion::V1_2, Operation, entry));
    EXPECT_EQ(second.getSoapBody().getSoapFault().getCode().getLocalName(), "MustUnderstand");
    ASSERT_EQ(second.getSoapHeader().entryCount(), 1U);
    EXPECT_EQ(tzSoapCast<TzSoapMisunderstoodType>(*second.getSoapHeader().entriesBegin())
                  .value()
                  .getQualifiedName(),
              TzXmlName("t", TzXmlNamespace("", "urn:t")));
}

TEST_F(EchoServerRequests, ActorAndRoleAreHonoured) {
    const auto status = [&](TzSoapVersion::Version version, const std::string& target) {
        return post(version, Operation, "<t xmlns='urn:t' e:mustUnderstand='1' " + target + "/>")
            .status;
    };
    EXPECT_EQ(status(TzSoapVersion::V1_1, "e:actor='urn:other'"), 200);
    EXPECT_EQ(status(TzSoapVersion::V1_1, "e:actor='urn:example:echo'"), 500);
    EXPECT_EQ(status(TzSoapVersion::V1_1, "e:actor='http://schemas.xmlsoap.org/soap/actor/next'"),
              500);
    const std::string role = "e:role='http://www.w3.org/2002/06/soap-envelope/role/";
    EXPECT_EQ(status(TzSoapVersion::V1_2, role + "none'"), 200);
    EXPECT_EQ(status(TzSoapVersion::V1_2, role + "next'"), 500);
    EXPECT_EQ(status(TzSoapVersion::V1_2, role + "ultimateReceiver'"), 500);
    EXPECT_EQ(status(TzSoapVersion::V1_2, "e:role='urn:other'"), 200);
}

TEST_F(EchoServerRequests, AnUnknownEnvelopeIsAVersionMismatch) {
    const std::string later = "<e:Envelope xmlns:e='urn:example:later'><e:Body/></e:Envelope>";
    for (const char* type : {"text/xml", "application/soap+xml"}) {
        const HttpAnswer answer = server_.post(type, later);
        EXPECT_EQ(answer.status, 500);
        EXPECT_EQ(faultCodeIn(answer), "VersionMismatch");
        EXPECT_TRUE(answer.contentType.starts_with(type)) << answer.contentType;
    }
}

TEST_F(EchoServerRequests, OtherOperationsAreTheClientsFault) {
    for (const char* body :
         {"<m:add xmlns:m='urn:m'><a>1</a></m:add>", "", "<a href='#b'/>",
          "<e:Fault><faultcode>e:Client</faultcode></e:Fault>", "<r c:root='0'>1</r>"}) {
        const HttpAnswer answer = post(TzSoapVersion::V1_1, body);
        EXPECT_EQ(answer.status, 500) << body;
        EXPECT_EQ(faultCodeIn(answer), "Client") << body;
    }
    const TzSoapMessage second = messageIn(post(TzSoapVersion::V1_2, "<add/>"));
    const TzSoapFault& fault = second.getSoapBody().getSoapFault();
    EXPECT_EQ(fault.getCode().getQualifiedName(), "env:Sender");
    ASSERT_EQ(fault.getSubcodeCount(), 1U);
    EXPECT_EQ(fault.getSubcode(0).getLocalName(), "ProcedureNotPresent");
    EXPECT_EQ(fault.getReason(), "There is no operation add");
}

TEST_F(EchoServerRequests, ValuesInAnotherEncodingAreNotEchoedAsMarkup) {
    const std::string foreign =
        "<echoIt><a e:encodingStyle='urn:own'>&lt;/a>&lt;forged/></a></echoIt>";
    EXPECT_EQ(faultCodeIn(post(TzSoapVersion::V1_1, foreign)), "Client");
    EXPECT_EQ(faultCodeIn(post(TzSoapVersion::V1_2, foreign)), "DataEncodingUnknown");
    EXPECT_EQ(faultCodeIn(post(TzSoapVersion::V1_1, Operation,
                               "<echo xmlns='urn:example:echo' e:encodingStyle='urn:own'/>")),
              "Client");
}

TEST_F(EchoServerRequests, OperationsWithoutParameters) {
    const TzSoapMessage answer = messageIn(post(TzSoapVersion::V1_1, "<echoNothing/>"));
    EXPECT_EQ(answer.getSoapBody().entriesBegin()->getName(), TzXmlName("echoNothingResponse"));
}

TEST(EchoServerEnd, EndsOnSignals) {
    for (const int number : {SIGTERM, SIGINT}) {
        EchoServer server;
        httplib::Client client = server.client();
        client.set_keep_alive(true);
        ASSERT_TRUE(client.Post("/", envelope(TzSoapVersion::V1_1, Operation), "text/xml"));
        EXPECT_EQ(server.stop(number), 0);
        EXPECT_FALSE(server.client().Post("/", "", "text/xml"));
    }
}

TEST(EchoServerEnd, EndsRightAfterItBegan) {
    for (int i = 0; i < 20; ++i) {
        EchoServer server;
        EXPECT_EQ(server.stop(SIGTERM), 0);
    }
}

TEST(EchoServerEnd, RefusesAPortThatIsTaken) {
    const EchoServer first;
    ChildProcess second({TZSOAP_ECHO_SERVER, std::to_string(first.port())});
    EXPECT_EQ(second.readAll(), "");
    EXPECT_EQ(second.wait(), 1);
}
