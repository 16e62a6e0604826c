// SPDX-License-Identifier: MIT
#include "ws/WsMessages.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapWsSecurity.h>
#include <soap/TzSoapWsService.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using Wsa = TzSoapWsAddressing;

std::optional<TzCString> passwordOf(const TzCString& user) {
    return user == "ann" ? std::optional<TzCString>("s3cret") : std::nullopt;
}

/// A service with the operation "a", which counts its runs.
class TzSoapWsServiceRun : public testing::Test {
protected:
    TzSoapWsServiceRun() {
        service_.add(TzXmlName("a"), [this](const TzSoapType&) {
            ++runs_;
            return TzSoapCompositeType(TzXmlName("b"));
        });
        service_.add(TzXmlName("fails"), [](const TzSoapType&) -> TzSoapType {
            throw TzSoapFaultError(TzSoapVersion::Client, "no");
        });
        service_.add(TzXmlName("tells"), [this](const TzSoapType&) { ++runs_; });
    }

    TzSoapHttpAnswer send(const TzSoapMessage& message, const TzCString& action = {}) const {
        TzSoapHttpTransportContext headers;
        const TzCString body = TzSoapHttpBinding::pack(message, headers);
        return service_.answer({"text/xml", action, body});
    }
    TzSoapHttpAnswer send(const std::string& header, const TzCString& action = {}) const {
        return send(messageWithHeader(TzSoapVersion::V1_1, header), action);
    }
    static TzSoapMessage messageIn(const TzSoapHttpAnswer& answer) {
        return readMessage(answer.body);
    }
    static std::string faultIn(const TzSoapHttpAnswer& answer) {
        const TzSoapMessage message = messageIn(answer);
        return message.getSoapBody().hasSoapFault()
                   ? message.getSoapBody().getSoapFault().getCode().getUniqueName()
                   : "";
    }

    TzSoapDispatcher service_;
    int runs_ = 0;
};

const std::string Asked = "<wsa:Action env:mustUnderstand='1'>urn:get</wsa:Action>"
                          "<wsa:MessageID>urn:uuid:1</wsa:MessageID>";

std::string goingTo(const char* entry, const char* address) {
    return std::string("<wsa:") + entry + "><wsa:Address>" + address +
           "</wsa:Address></wsa:" + entry + ">";
}

} // namespace

TEST_F(TzSoapWsServiceRun, AnswersByTheAddressOfTheRequest) {
    TzSoapWsService::addAddressing(service_);
    const TzSoapHttpAnswer answer = send(Asked, "\"urn:get\"");
    EXPECT_EQ(answer.status, 200);
    const Wsa properties = Wsa::read(messageIn(answer));
    EXPECT_EQ(properties.to, TzSoapWsEndpoint::Anonymous);
    EXPECT_EQ(properties.action, "urn:getResponse");
    ASSERT_EQ(properties.relatesTo.size(), 1U);
    EXPECT_EQ(properties.relatesTo[0].messageId, "urn:uuid:1");
}

TEST_F(TzSoapWsServiceRun, WithoutAddressingAnswersAsEver) {
    EXPECT_EQ(faultIn(send(Asked)), TzSoapVersion::getSoapVersion(TzSoapVersion::V1_1)
                                        .getFaultCode(TzSoapVersion::SoapFaultCode::MustUnderstand)
                                        .getUniqueName());
    TzSoapWsService::addAddressing(service_);
    const TzSoapHttpAnswer answer = send("");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(messageIn(answer).getSoapHeader().entryCount(), 0U);
}

TEST_F(TzSoapWsServiceRun, AddressingCanBeDemanded) {
    TzSoapWsService::addAddressing(service_, {.required = true});
    const TzSoapHttpAnswer answer = send("");
    EXPECT_EQ(faultIn(answer),
              faultOf(TzSoapVersion::V1_1, {"MessageAddressingHeaderRequired"}, Wsa::Namespace));
    EXPECT_EQ(Wsa::read(messageIn(answer)).action, Wsa::FaultAction);
    EXPECT_EQ(runs_, 0);
}

TEST_F(TzSoapWsServiceRun, TheProgramNamesTheActionOfAnswers) {
    TzSoapWsService::addAddressing(service_,
                                   {.answerAction = [](const Wsa& request, const TzSoapMessage&) {
                                       return request.action + "!";
                                   }});
    EXPECT_EQ(Wsa::read(messageIn(send(Asked))).action, "urn:get!");
}

TEST_F(TzSoapWsServiceRun, FaultsAreAddressedToo) {
    TzSoapWsService::addAddressing(service_);
    TzSoapMessage request = messageWithHeader(TzSoapVersion::V1_1, Asked);
    request.getSoapBody().clearEntries();
    request.getSoapBody().appendEntry(TzSoapCompositeType(TzXmlName("fails")));
    const TzSoapHttpAnswer answer = send(request);
    EXPECT_EQ(answer.status, 500);
    const Wsa properties = Wsa::read(messageIn(answer));
    EXPECT_EQ(properties.action, Wsa::SoapFaultAction);
    ASSERT_EQ(properties.relatesTo.size(), 1U);
    EXPECT_EQ(properties.relatesTo[0].messageId, "urn:uuid:1");
}

TEST_F(TzSoapWsServiceRun, FailuresAreAddressedToo) {
    TzSoapWsService::addAddressing(service_);
    service_.add(TzXmlName("a"),
                 [](const TzSoapType&) -> TzSoapType { throw std::runtime_error("the secret"); });
    const TzSoapHttpAnswer answer = send(Asked);
    EXPECT_EQ(answer.status, 500);
    EXPECT_EQ(messageIn(answer).getSoapBody().getSoapFault().getReason(), "The operation failed");
    const Wsa properties = Wsa::read(messageIn(answer));
    EXPECT_EQ(properties.action, Wsa::SoapFaultAction);
    ASSERT_EQ(properties.relatesTo.size(), 1U);
    EXPECT_EQ(properties.relatesTo[0].messageId, "urn:uuid:1");
}

TEST_F(TzSoapWsServiceRun, WhatNobodyWaitsForIsNotSent) {
    TzSoapWsService::addAddressing(service_);
    const TzSoapHttpAnswer answer = send(Asked + goingTo("ReplyTo", TzSoapWsEndpoint::None));
    EXPECT_EQ(answer.status, 202);
    EXPECT_EQ(answer.body, "");
    EXPECT_EQ(runs_, 1);
    TzSoapMessage request =
        messageWithHeader(TzSoapVersion::V1_1, Asked + goingTo("FaultTo", TzSoapWsEndpoint::None));
    request.getSoapBody().clearEntries();
    request.getSoapBody().appendEntry(TzSoapCompositeType(TzXmlName("fails")));
    EXPECT_EQ(send(request).status, 202);
}

TEST_F(TzSoapWsServiceRun, OneWayOperationsStayWithoutAnswer) {
    TzSoapWsService::addAddressing(service_);
    TzSoapMessage request = messageWithHeader(TzSoapVersion::V1_1, Asked);
    request.getSoapBody().clearEntries();
    request.getSoapBody().appendEntry(TzSoapCompositeType(TzXmlName("tells")));
    EXPECT_EQ(send(request).status, 202);
    EXPECT_EQ(runs_, 1);
}

TEST_F(TzSoapWsServiceRun, AnAnswerElsewhereIsRefusedBeforeAnythingRuns) {
    TzSoapWsService::addAddressing(service_);
    for (const char* entry : {"ReplyTo", "FaultTo"}) {
        const TzSoapHttpAnswer answer = send(Asked + goingTo(entry, "http://victim/"));
        EXPECT_EQ(faultIn(answer),
                  faultOf(TzSoapVersion::V1_1,
                          {"InvalidAddressingHeader", "OnlyAnonymousAddressSupported"},
                          Wsa::Namespace));
        const Wsa properties = Wsa::read(messageIn(answer));
        EXPECT_EQ(properties.to, TzSoapWsEndpoint::Anonymous);
        EXPECT_EQ(properties.action, Wsa::FaultAction);
    }
    EXPECT_EQ(runs_, 0);
}

TEST_F(TzSoapWsServiceRun, AnotherHttpActionIsRefused) {
    TzSoapWsService::addAddressing(service_);
    EXPECT_EQ(faultIn(send(Asked, "\"urn:other\"")),
              faultOf(TzSoapVersion::V1_1, {"ActionMismatch"}, Wsa::Namespace));
    EXPECT_EQ(runs_, 0);
}

TEST_F(TzSoapWsServiceRun, DemandsAUser) {
    TzSoapWsService::addAddressing(service_);
    const auto verifier = std::make_shared<const TzSoapWsVerifier>(passwordOf);
    TzSoapWsService::addSecurity(service_, verifier);
    const TzSoapHttpAnswer refused = send(Asked);
    EXPECT_EQ(faultIn(refused),
              faultOf(TzSoapVersion::V1_1, {"FailedAuthentication"}, TzSoapWsSecurity::Namespace));
    EXPECT_EQ(Wsa::read(messageIn(refused)).action, Wsa::SoapFaultAction);
    EXPECT_EQ(runs_, 0);
    TzSoapMessage request = messageWithHeader(TzSoapVersion::V1_1, Asked);
    TzSoapWsSecurity().addPasswordDigest("ann", "s3cret").write(request);
    EXPECT_EQ(send(request).status, 200);
    EXPECT_EQ(runs_, 1);
    EXPECT_EQ(faultIn(send(request)),
              faultOf(TzSoapVersion::V1_1, {"FailedAuthentication"}, TzSoapWsSecurity::Namespace))
        << "the same digest again";
}

TEST_F(TzSoapWsServiceRun, TheUserIsTheOneThatWasVerified) {
    const TzSoapWsVerifier verifier(passwordOf);
    TzSoapMessage request = messageWithHeader(
        TzSoapVersion::V1_1,
        "<wsse:Security env:actor='urn:other'><wsse:UsernameToken><wsse:Username>root"
        "</wsse:Username></wsse:UsernameToken></wsse:Security>");
    TzSoapWsSecurity().addPasswordDigest("ann", "s3cret").write(request);
    EXPECT_EQ(request.getSoapHeader().entryCount(), 2U);
    EXPECT_EQ(verifier.verify(request), "ann");
    EXPECT_EQ(verifier.userOf(request), "ann");
    EXPECT_EQ(verifier.userOf(messageWithHeader(TzSoapVersion::V1_1, "")), "");
}

TEST_F(TzSoapWsServiceRun, SecurityNeedsAVerifier) {
    EXPECT_THROW(TzSoapWsService::addSecurity(service_, nullptr), std::invalid_argument);
}
