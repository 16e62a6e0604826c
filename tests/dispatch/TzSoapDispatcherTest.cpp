// SPDX-License-Identifier: MIT
#include "values/EnvelopeTesting.h"

#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapFields.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlError.h>

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Pair {
    int first = 0;
    int second = 0;
};

struct Sum {
    int sum = 0;
    std::string how;
};

} // namespace

template <> struct TzSoapFields<Pair> {
    static constexpr auto fields =
        tzFields(tzField("first", &Pair::first), tzField("second", &Pair::second));
};

template <> struct TzSoapFields<Sum> {
    static constexpr auto fields = tzFields(tzField("sum", &Sum::sum), tzField("how", &Sum::how));
};

namespace {

using Version = TzSoapVersion::Version;

constexpr Version AllVersions[] = {TzSoapVersion::V1_1, TzSoapVersion::V1_2,
                                   TzSoapVersion::V1_2Rec};
constexpr char Double[] = "<m:double xmlns:m='urn:m'><n>21</n></m:double>";

const TzXmlNamespace& space() {
    static const TzXmlNamespace instance("m", "urn:m");
    return instance;
}

const char* typeOf(Version version) {
    return version == TzSoapVersion::V1_1 ? "text/xml; charset=utf-8" : "application/soap+xml";
}

TzSoapHttpRequest requestOf(Version version, const std::string& body,
                            const std::string& header = "", const std::string& action = "") {
    return {typeOf(version), action, envelope(version, body, header)};
}

/// The message in an answer, read as clients read it.
TzSoapMessage messageIn(const TzSoapHttpAnswer& answer) {
    TzSoapMessage message;
    TzSoapHttpBinding::unpack(answer.headers, answer.body, message);
    EXPECT_EQ(TzSoapHttpBinding::getStatus(message), answer.status) << answer.body;
    return message;
}

TzSoapFault faultIn(const TzSoapHttpAnswer& answer) {
    return messageIn(answer).getSoapBody().getSoapFault();
}

/// Code, subcodes and reason of the fault in an answer, in a line.
std::string faultText(const TzSoapHttpAnswer& answer) {
    const TzSoapFault fault = faultIn(answer);
    std::string text = fault.getCodeValue().getQualifiedName();
    for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
        text += "/" + fault.getSubcodeValue(i).getQualifiedName();
    }
    return std::to_string(answer.status) + " " + text + ": " + fault.getReason();
}

TzSoapCompositeType result(const char* name, int number) {
    TzSoapCompositeType answer(TzXmlName(name, space()));
    answer.appendChild(TzSoapSimpleType("n", number, TzSoapType::xsdInt, true));
    return answer;
}

TzSoapType doubled(const TzSoapType& operation) {
    return result("doubleResponse", 2 * TzSoapValueReader(operation.getChild("n")).getInt());
}

int numberIn(const TzSoapHttpAnswer& answer) {
    return TzSoapValueReader(messageIn(answer).getSoapBody().getFirstEntry().getChild("n"))
        .getInt();
}

/// A service with the operation "double".
TzSoapDispatcher doubling() {
    TzSoapDispatcher service;
    service.add(TzXmlName("double", space()), doubled);
    return service;
}

/// A service whose only operation throws `error`.
template <typename Error> TzSoapDispatcher throwing(const Error& error) {
    TzSoapDispatcher service;
    service.add(TzXmlName("double", space()),
                [error](const TzSoapType&) -> TzSoapType { throw error; });
    return service;
}

} // namespace

TEST(TzSoapDispatcher, AnswersInTheVersionOfTheRequest) {
    for (const Version version : AllVersions) {
        const TzSoapHttpAnswer answer = doubling().answer(requestOf(version, Double));
        EXPECT_EQ(answer.status, 200);
        EXPECT_EQ(numberIn(answer), 42);
        EXPECT_EQ(messageIn(answer).getVersion(), version);
    }
}

TEST(TzSoapDispatcher, TheAnswerOfAValueIsThisText) {
    const TzSoapHttpAnswer answer = doubling().answer(requestOf(TzSoapVersion::V1_1, Double));
    EXPECT_EQ(answer.headers.asString(), "Content-Type:text/xml; charset=utf-8\n");
    EXPECT_EQ(answer.body, "<?xml version=\"1.0\" encoding=\"UTF-8\"?><SOAP-ENV:Envelope "
                           "xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
                           "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
                           "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"><SOAP-ENV:Body>"
                           "<m:doubleResponse xmlns:m=\"urn:m\" "
                           "SOAP-ENV:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\">"
                           "<n xsi:type=\"xsd:int\">42</n></m:doubleResponse></SOAP-ENV:Body>"
                           "</SOAP-ENV:Envelope>");
}

TEST(TzSoapDispatcher, PrefixesDoNotMatter) {
    EXPECT_EQ(numberIn(doubling().answer(
                  requestOf(TzSoapVersion::V1_1, "<x:double xmlns:x='urn:m'><n>1</n></x:double>"))),
              2);
}

TEST(TzSoapDispatcher, ALiteralServiceReadsAndWritesLiterally) {
    TzSoapDispatcher service(TzSoapStyle::Literal);
    service.add(TzXmlName("double", space()), doubled);
    const TzSoapHttpAnswer answer = service.answer(requestOf(TzSoapVersion::V1_1, Double));
    EXPECT_EQ(answer.body.find("encodingStyle"), std::string::npos) << answer.body;
    EXPECT_EQ(numberIn(answer), 42);
}

TEST(TzSoapDispatcher, AnOperationMayHaveAStyleOfItsOwn) {
    TzSoapDispatcher service(TzSoapStyle::Literal);
    std::vector<TzSoapStyle> styles;
    const auto note = [&styles](const TzSoapMessage& request) {
        styles.push_back(request.getStyle());
    };
    service.add(TzXmlName("double", space()), note, TzSoapStyle::Encoded);
    service.add(TzXmlName("other", space()), note);
    service.addForAction("urn:act", note, TzSoapStyle::Encoded);
    service.answer(requestOf(TzSoapVersion::V1_1, Double));
    service.answer(requestOf(TzSoapVersion::V1_1, "<other xmlns='urn:m'/>"));
    service.answer(requestOf(TzSoapVersion::V1_1, "<other xmlns='urn:m'/>", "", "\"urn:act\""));
    EXPECT_EQ(styles,
              (std::vector{TzSoapStyle::Encoded, TzSoapStyle::Literal, TzSoapStyle::Encoded}));
}

TEST(TzSoapDispatcher, NoOperationGetsARequestInTheOtherStyle) {
    TzSoapDispatcher service(TzSoapStyle::Literal);
    service.add(TzXmlName("double", space()), doubled, TzSoapStyle::Encoded);
    service.add(TzXmlName("other", space()), doubled);
    // Read as an encoded one, the request is one to the second entry.
    const TzSoapHttpAnswer answer = service.answer(
        requestOf(TzSoapVersion::V1_1, "<double xmlns='urn:m' c:root='0'/><other xmlns='urn:m'/>"));
    EXPECT_EQ(faultText(answer), "500 SOAP-ENV:Client: The request is to operations of two styles");
}

TEST(TzSoapDispatcher, AFaultNamesTheFirstEntriesThatWereNotUnderstood) {
    std::string header;
    for (int i = 1; i <= 17; ++i) {
        header += "<a" + std::to_string(i) + " e:mustUnderstand='1'/>";
    }
    const std::string text =
        faultText(doubling().answer(requestOf(TzSoapVersion::V1_1, Double, header)));
    EXPECT_TRUE(text.ends_with(" {}a15 {}a16")) << text;
}

TEST(TzSoapDispatcher, AnActionGoesBeforeAName) {
    TzSoapDispatcher service = doubling();
    service.addForAction("urn:act", [](const TzSoapType&) { return result("actResponse", 7); });
    EXPECT_EQ(numberIn(service.answer(requestOf(TzSoapVersion::V1_1, Double, "", "\"urn:act\""))),
              7);
    EXPECT_EQ(numberIn(service.answer(requestOf(TzSoapVersion::V1_1, Double, "", "urn:act"))), 7);
    EXPECT_EQ(numberIn(service.answer(requestOf(TzSoapVersion::V1_1, Double, "", "urn:other"))),
              42);
    TzSoapHttpRequest parameter = requestOf(TzSoapVersion::V1_2Rec, Double);
    parameter.contentType += "; action=\"urn:act\"";
    EXPECT_EQ(numberIn(service.answer(parameter)), 7);
}

TEST(TzSoapDispatcher, AnActionNeedsNoBodyEntry) {
    TzSoapDispatcher service;
    service.addForAction("urn:act", [](const TzSoapMessage& request) {
        TzSoapMessage answer(request.getVersion());
        answer.getSoapBody().appendEntry(result("actResponse", 7));
        return answer;
    });
    EXPECT_EQ(numberIn(service.answer(requestOf(TzSoapVersion::V1_1, "", "", "urn:act"))), 7);
}

TEST(TzSoapDispatcher, TheDefaultTakesWhatNoOtherTakes) {
    TzSoapDispatcher service = doubling();
    service.setDefault([](const TzSoapType&) { return result("otherResponse", 3); });
    EXPECT_EQ(numberIn(service.answer(requestOf(TzSoapVersion::V1_1, Double))), 42);
    EXPECT_EQ(numberIn(service.answer(requestOf(TzSoapVersion::V1_1, "<other/>"))), 3);
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_1, ""))),
              "500 SOAP-ENV:Client: The request holds no operation");
}

TEST(TzSoapDispatcher, ARequestChangedInPlaceIsAnAnswer) {
    TzSoapDispatcher service;
    service.setDefault([](TzSoapMessage& request) {
        request.addReceivedAttachments();
        return request;
    });
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.getSoapBody().appendEntry(
        TzSoapReferenceType("file", TzMimePart::make("bytes", "text/plain", "f")));
    TzSoapCompositeType operation("take");
    operation.appendChild(
        TzSoapReferenceType("file", TzMimePart::make("bytes", "text/plain", "f")));
    message.getSoapBody().clearEntries();
    message.getSoapBody().appendEntry(operation);
    TzSoapHttpTransportContext context;
    const std::string body = TzSoapHttpBinding::pack(message, context);
    const TzSoapMessage answer = messageIn(
        service.answer({context.find("Content-Type")->second, context.getSoapAction(), body}));
    EXPECT_EQ(tzSoapAs<TzSoapReferenceType>(answer.getSoapBody().getChild("take/file"))
                  .getMimeReference()
                  .getBody(),
              "bytes");
}

TEST(TzSoapDispatcher, AnAnswerInAnotherVersionIsConverted) {
    TzSoapDispatcher service;
    TzSoapMessage made(TzSoapVersion::V1_1);
    made.getSoapBody().appendEntry(result("doubleResponse", 9));
    service.add(TzXmlName("double", space()), [made](const TzSoapMessage&) { return made; });
    const TzSoapHttpAnswer answer = service.answer(requestOf(TzSoapVersion::V1_2Rec, Double));
    EXPECT_EQ(messageIn(answer).getVersion(), TzSoapVersion::V1_2Rec);
    EXPECT_EQ(numberIn(answer), 9);
    EXPECT_EQ(made.getVersion(), TzSoapVersion::V1_1);
}

TEST(TzSoapDispatcher, OneWayOperationsAreAccepted) {
    TzSoapDispatcher service;
    int taken = 0;
    service.add(TzXmlName("double", space()), [&taken](const TzSoapMessage&) { ++taken; });
    service.add(TzXmlName("other", space()), [&taken](const TzSoapType&) { ++taken; });
    for (const char* body : {Double, "<other xmlns='urn:m'/>"}) {
        const TzSoapHttpAnswer answer = service.answer(requestOf(TzSoapVersion::V1_2Rec, body));
        EXPECT_EQ(answer.status, 202);
        EXPECT_EQ(answer.headers.asString(), "");
        EXPECT_EQ(answer.body, "");
    }
    EXPECT_EQ(taken, 2);
}

TEST(TzSoapDispatcher, AnUnknownOperationIsTheSendersFault) {
    const std::string body = "<x:no xmlns:x='urn:x'/>";
    EXPECT_EQ(faultText(doubling().answer(requestOf(TzSoapVersion::V1_1, body))),
              "500 SOAP-ENV:Client: There is no operation no");
    EXPECT_EQ(faultText(doubling().answer(requestOf(TzSoapVersion::V1_2, body))),
              "500 env:Sender/rpc:ProcedureNotPresent: There is no operation no");
    EXPECT_EQ(faultText(doubling().answer(requestOf(TzSoapVersion::V1_2Rec, body))),
              "400 env:Sender/rpc:ProcedureNotPresent: There is no operation no");
}

TEST(TzSoapDispatcher, TheSameNameInAnotherNamespaceIsUnknown) {
    EXPECT_EQ(faultText(doubling().answer(requestOf(TzSoapVersion::V1_1, "<double/>"))),
              "500 SOAP-ENV:Client: There is no operation double");
}

TEST(TzSoapDispatcher, TargetsOfReferencesAreNoOperations) {
    EXPECT_EQ(numberIn(doubling().answer(requestOf(
                  TzSoapVersion::V1_1,
                  std::string("<m:double xmlns:m='urn:m' id='a' c:root='0'/>") + Double))),
              42);
}

TEST(TzSoapDispatcher, WhatHoldsNoOperationIsTheSendersFault) {
    for (const char* body : {"", "<e:Fault><faultcode>e:Client</faultcode></e:Fault>", "<e:Fault/>",
                             "<r c:root='0'>1</r>"}) {
        EXPECT_EQ(faultText(doubling().answer(requestOf(TzSoapVersion::V1_1, body))),
                  "500 SOAP-ENV:Client: The request holds no operation")
            << body;
    }
    for (const char* body :
         {"<m:double xmlns:m='urn:m' href='#b'/>",
          "<m:double xmlns:m='urn:m' c:arrayType='c:int[1]'><i>1</i></m:double>"}) {
        EXPECT_EQ(faultText(doubling().answer(requestOf(TzSoapVersion::V1_1, body))),
                  "500 SOAP-ENV:Client: There is no operation double")
            << body;
    }
}

TEST(TzSoapDispatcher, AnOperationOfAnotherKindHasBadArguments) {
    TzSoapDispatcher service;
    service.add(TzXmlName("double", space()),
                [](const TzSoapCompositeType& operation) { return operation; });
    EXPECT_EQ(service.answer(requestOf(TzSoapVersion::V1_1, Double)).status, 200);
    const std::string text = faultText(service.answer(
        requestOf(TzSoapVersion::V1_2Rec, "<m:double xmlns:m='urn:m'>text</m:double>")));
    EXPECT_TRUE(text.starts_with("400 env:Sender/rpc:BadArguments: ")) << text;
}

TEST(TzSoapDispatcher, EntriesThatMustBeUnderstoodAreAFault) {
    const std::string entry = "<t xmlns='urn:t' e:mustUnderstand='1'/>";
    TzSoapDispatcher service = doubling();
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_1, Double, entry))),
              "500 SOAP-ENV:MustUnderstand: Header entries not understood: {urn:t}t");
    EXPECT_EQ(messageIn(service.answer(requestOf(TzSoapVersion::V1_2Rec, Double, entry)))
                  .getSoapHeader()
                  .entryCount(),
              1U);
    service.getNode().addUnderstood(TzXmlName("t", TzXmlNamespace("", "urn:t")));
    EXPECT_EQ(service.answer(requestOf(TzSoapVersion::V1_1, Double, entry)).status, 200);
}

TEST(TzSoapDispatcher, EntriesForOthersDoNotMatter) {
    const std::string entry = "<t xmlns='urn:t' e:mustUnderstand='1' e:actor='urn:other'/>";
    TzSoapDispatcher service = doubling();
    EXPECT_EQ(service.answer(requestOf(TzSoapVersion::V1_1, Double, entry)).status, 200);
    service.getNode().addRole("urn:other");
    EXPECT_EQ(service.answer(requestOf(TzSoapVersion::V1_1, Double, entry)).status, 500);
}

TEST(TzSoapDispatcher, ARefusedRequestRunsNothing) {
    TzSoapDispatcher service;
    int runs = 0;
    service.setDefault([&runs](const TzSoapMessage&) { ++runs; });
    service.answer(requestOf(TzSoapVersion::V1_1, Double, "<t e:mustUnderstand='1'/>"));
    service.answer(requestOf(TzSoapVersion::V1_1, "<a e:encodingStyle='urn:own'/>"));
    service.answer({"text/xml", "", "<a/>"});
    EXPECT_EQ(runs, 0);
}

TEST(TzSoapDispatcher, ValuesInAnotherEncodingAreAFault) {
    const std::string body = "<m:double xmlns:m='urn:m'><n e:encodingStyle='urn:own'>1</n>"
                             "</m:double>";
    TzSoapDispatcher service = doubling();
    service.setDefault([](const TzSoapType&) { return result("r", 1); });
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_1, body))),
              "500 SOAP-ENV:Client: A value is in an encoding that is not known here");
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_2Rec, body))),
              "500 env:DataEncodingUnknown: A value is in an encoding that is not known here");
    service.setForeignEncodings(true);
    EXPECT_EQ(
        service.answer(requestOf(TzSoapVersion::V1_1, "<a e:encodingStyle='urn:own'/>")).status,
        200);
}

TEST(TzSoapDispatcher, AnUnknownEnvelopeIsAVersionMismatch) {
    const std::string later = "<e:Envelope xmlns:e='urn:later'><e:Body/></e:Envelope>";
    const TzSoapHttpAnswer first = doubling().answer({"text/xml", "", later});
    EXPECT_EQ(faultIn(first).getCodeValue().getQualifiedName(), "SOAP-ENV:VersionMismatch");
    const TzSoapHttpAnswer second = doubling().answer({"application/soap+xml", "", later});
    const TzSoapMessage message = messageIn(second);
    EXPECT_EQ(second.status, 500);
    EXPECT_EQ(message.getVersion(), TzSoapVersion::V1_2Rec);
    EXPECT_EQ(faultIn(second).getCodeValue().getQualifiedName(), "env:VersionMismatch");
    const std::vector<TzXmlName> supported = TzSoapFaultMessage::getSupportedEnvelopes(message);
    ASSERT_EQ(supported.size(), 3U);
    EXPECT_EQ(supported[0].getUri(), "http://www.w3.org/2003/05/soap-envelope");
    EXPECT_EQ(supported[1].getUri(), "http://schemas.xmlsoap.org/soap/envelope/");
}

TEST(TzSoapDispatcher, VersionsThatAreNotServedAreAMismatch) {
    TzSoapDispatcher service = doubling();
    service.setVersions({TzSoapVersion::V1_2Rec});
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_1, Double))),
              "500 SOAP-ENV:VersionMismatch: The version of the envelope is not served here");
    const TzSoapHttpAnswer other = service.answer(requestOf(TzSoapVersion::V1_2, Double));
    EXPECT_EQ(TzSoapFaultMessage::getSupportedEnvelopes(messageIn(other)).size(), 1U);
    EXPECT_EQ(service.answer(requestOf(TzSoapVersion::V1_2Rec, Double)).status, 200);
    service.setVersions({TzSoapVersion::V1_1});
    EXPECT_EQ(messageIn(service.answer(requestOf(TzSoapVersion::V1_2Rec, Double))).getVersion(),
              TzSoapVersion::V1_1);
}

TEST(TzSoapDispatcher, AWrongMediaTypeIs415) {
    for (const char* type : {"application/json", "text/html", "nonsense", "multipart/form-data"}) {
        const TzSoapHttpAnswer answer =
            doubling().answer({type, "", envelope(TzSoapVersion::V1_1, Double)});
        EXPECT_EQ(answer.status, 415) << type;
        EXPECT_EQ(answer.body, "") << type;
    }
    EXPECT_EQ(doubling().answer({"", "", envelope(TzSoapVersion::V1_1, Double)}).status, 200);
}

TEST(TzSoapDispatcher, WhatCannotBeReadIsTheSendersFault) {
    const std::string whole = envelope(TzSoapVersion::V1_2Rec, Double);
    const std::string text =
        faultText(doubling().answer({"text/xml", "", whole.substr(0, whole.size() - 9)}));
    EXPECT_TRUE(text.starts_with("400 env:Sender: line 1, column ")) << text;
    EXPECT_TRUE(
        faultText(doubling().answer({"text/xml", "", ""})).starts_with("500 SOAP-ENV:Client: "));
}

TEST(TzSoapDispatcher, DepthIsLimited) {
    std::string deep = Double;
    for (int i = 0; i < 100; ++i) {
        deep = "<a>" + deep + "</a>";
    }
    TzSoapDispatcher service = doubling();
    EXPECT_TRUE(faultText(service.answer(requestOf(TzSoapVersion::V1_1, deep)))
                    .starts_with("500 SOAP-ENV:Client: line 1"));
    service.setReadLimits({.depth = 200});
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_1, deep))),
              "500 SOAP-ENV:Client: There is no operation a");
}

TEST(TzSoapDispatcher, AFaultErrorBecomesTheFault) {
    TzSoapFaultError error(TzSoapVersion::Client, TzSoapVersion::BadArguments, "too small");
    error.addDetailEntry(TzSoapSimpleType("least", 5, TzSoapType::xsdInt, false));
    const TzSoapDispatcher service = throwing(error);
    for (const Version version : AllVersions) {
        const TzSoapHttpAnswer answer = service.answer(requestOf(version, Double));
        EXPECT_EQ(messageIn(answer).getVersion(), version);
        EXPECT_EQ(TzSoapValueReader(faultIn(answer).getDetails().getChild("least")).getInt(), 5);
    }
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_1, Double))),
              "500 SOAP-ENV:Client: too small");
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_2Rec, Double))),
              "400 env:Sender/rpc:BadArguments: too small");
}

TEST(TzSoapDispatcher, TheFaultOfAnotherServiceIsHidden) {
    const TzSoapMessage fault =
        TzSoapFaultMessage::make(TzSoapVersion::V1_1, TzSoapVersion::Client, "secret");
    TzSoapDispatcher service = throwing(TzSoapFaultError(fault, 500));
    std::string heard;
    service.setFailureHook([&heard](const std::exception_ptr& failure) {
        try {
            std::rethrow_exception(failure);
        } catch (const TzSoapFaultError& error) {
            heard = error.getReason();
        }
    });
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_2Rec, Double))),
              "500 env:Receiver: The operation failed");
    EXPECT_EQ(heard, "secret");
}

TEST(TzSoapDispatcher, TheFaultOfAnotherServiceIsPassedOnDeliberately) {
    const TzSoapMessage fault = TzSoapFaultMessage::make(
        TzSoapVersion::V1_2Rec, TzSoapVersion::Server, TzSoapVersion::BadArguments, "no paper");
    const TzSoapFaultError received(fault, 500);
    const TzSoapDispatcher service = throwing(TzSoapFaultError(received.getMessage()));
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_2Rec, Double))),
              "500 env:Receiver/rpc:BadArguments: no paper");
    EXPECT_EQ(faultIn(service.answer(requestOf(TzSoapVersion::V1_1, Double))).getReason(),
              "no paper");
    EXPECT_EQ(fault.getVersion(), TzSoapVersion::V1_2Rec);
}

TEST(TzSoapDispatcher, OtherExceptionsAreHidden) {
    for (const auto& service : {throwing(std::runtime_error("secret")),
                                throwing(TzXmlError(TzCString("secret"))), throwing(42)}) {
        EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_1, Double))),
                  "500 SOAP-ENV:Server: The operation failed");
        EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_2Rec, Double))),
                  "500 env:Receiver: The operation failed");
    }
}

TEST(TzSoapDispatcher, TheHookIsGivenTheException) {
    TzSoapDispatcher service = throwing(std::runtime_error("secret"));
    std::string heard;
    service.setFailureHook([&heard](const std::exception_ptr& failure) {
        try {
            std::rethrow_exception(failure);
        } catch (const std::runtime_error& error) {
            heard = error.what();
        }
    });
    service.answer(requestOf(TzSoapVersion::V1_1, Double));
    EXPECT_EQ(heard, "secret");
}

TEST(TzSoapDispatcher, WhatTheHookThrowsLeavesIt) {
    TzSoapDispatcher service = throwing(std::runtime_error("secret"));
    service.addInterceptor([](TzSoapMessage& request, const TzCString&,
                              const TzSoapDispatcher::Next& next) { return next(request); });
    int calls = 0;
    service.setFailureHook([&calls](const std::exception_ptr& failure) {
        ++calls;
        std::rethrow_exception(failure);
    });
    EXPECT_THROW(service.answer(requestOf(TzSoapVersion::V1_1, Double)), std::runtime_error);
    EXPECT_EQ(calls, 1);
}

TEST(TzSoapDispatcher, AnAnswerThatCannotBeWrittenIsAFailure) {
    TzSoapDispatcher service;
    service.setDefault([](const TzSoapType&) {
        return TzSoapSimpleType("r", std::string("\x01"), TzSoapType::xsdString, false);
    });
    int failures = 0;
    service.setFailureHook([&failures](const std::exception_ptr&) { ++failures; });
    EXPECT_EQ(faultText(service.answer(requestOf(TzSoapVersion::V1_1, Double))),
              "500 SOAP-ENV:Server: The operation failed");
    EXPECT_EQ(failures, 1);
}

TEST(TzSoapDispatcher, FaultsOfALiteralServiceStateNoEncoding) {
    TzSoapDispatcher service(TzSoapStyle::Literal);
    service.add(TzXmlName("double", space()), [](const TzSoapType&) -> TzSoapType {
        TzSoapFaultError error(TzSoapVersion::Client, "no");
        throw error.addDetailEntry(TzSoapSimpleType("a", 1, TzSoapType::xsdInt, false));
    });
    for (const char* body : {Double, "<a/>", "", "<a>"}) {
        const TzSoapHttpAnswer answer = service.answer(requestOf(TzSoapVersion::V1_1, body));
        EXPECT_EQ(answer.status, 500);
        EXPECT_EQ(answer.body.find("encodingStyle"), std::string::npos) << answer.body;
    }
}

TEST(TzSoapDispatcher, StructsAreTakenAndGiven) {
    const auto add = [](const Pair& pair) { return Sum{pair.first + pair.second, "added"}; };
    const std::string body = "<m:add xmlns:m='urn:m'><first>2</first><second>3</second></m:add>";
    for (const TzSoapStyle style : {TzSoapStyle::Encoded, TzSoapStyle::Literal}) {
        TzSoapDispatcher service(style);
        service.add(TzXmlName("add", space()), add);
        const TzSoapMessage answer =
            messageIn(service.answer(requestOf(TzSoapVersion::V1_1, body)));
        const TzSoapType entry = answer.getSoapBody().getFirstEntry();
        EXPECT_EQ(entry.getName(), TzXmlName("addResponse", space()));
        EXPECT_EQ(TzSoapView(entry).as<Sum>().sum, 5);
        service.add(TzXmlName("add", space()), {add, TzXmlName("Sum", space())});
        EXPECT_EQ(messageIn(service.answer(requestOf(TzSoapVersion::V1_1, body)))
                      .getSoapBody()
                      .getFirstEntry()
                      .getName(),
                  TzXmlName("Sum", space()));
    }
}

TEST(TzSoapDispatcher, ARequestThatIsNotTheStructHasBadArguments) {
    TzSoapDispatcher service;
    service.add(TzXmlName("add", space()), [](const Pair& pair) { return Sum{pair.first, ""}; });
    const auto answered = [&service](const std::string& members) {
        return faultText(service.answer(
            requestOf(TzSoapVersion::V1_2Rec, "<m:add xmlns:m='urn:m'>" + members + "</m:add>")));
    };
    EXPECT_EQ(answered("<first>2</first>"),
              "400 env:Sender/rpc:BadArguments: add/second is missing");
    EXPECT_EQ(answered("<first>x</first><second>3</second>"),
              "400 env:Sender/rpc:BadArguments: add/first: \"x\" is not an int");
}

TEST(TzSoapDispatcher, ManyThreadsAskAtOnce) {
    TzSoapDispatcher service = doubling();
    std::atomic<int> good = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&service, &good, i] {
            for (int k = 0; k < 50; ++k) {
                const std::string n = std::to_string(100 * i + k);
                const TzSoapHttpAnswer answer = service.answer(requestOf(
                    AllVersions[k % 3], "<m:double xmlns:m='urn:m'><n>" + n + "</n></m:double>"));
                good += answer.body.find('>' + std::to_string(2 * (100 * i + k)) + '<') !=
                        std::string::npos;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(good, 400);
}

TEST(TzSoapFaultError, SaysCodeAndReason) {
    EXPECT_STREQ(TzSoapFaultError(TzSoapVersion::Server, "out of paper").what(),
                 "fault env:Receiver: out of paper");
    const TzSoapFaultError received(
        TzSoapFaultMessage::make(TzSoapVersion::V1_1, TzSoapVersion::Server, "out of paper"), 500);
    EXPECT_EQ(received.describe(), "fault SOAP-ENV:Server: out of paper");
    EXPECT_EQ(received.getHttpStatus(), 500);
    EXPECT_EQ(received.getCode().getQualifiedName(), "SOAP-ENV:Server");
    EXPECT_TRUE(received.getSubcodes().empty());
}
