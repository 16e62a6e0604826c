// SPDX-License-Identifier: MIT
//
// The tool's command "call", run as its users run it.
#include "http/CannedService.h"
#include "http/EchoServer.h"
#include "http/RawService.h"
#include "tool/RunTool.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapFaultMessage.h>

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string operation = "<m:echoIt xmlns:m='urn:m'><a xsi:type='c:string'>x</a></m:echoIt>";

std::string answerText() { return envelope(TzSoapVersion::V1_1, "<done/>"); }

/// Calls a service with a file of this text; fails the test unless it ends well.
void callWith(const CannedService& service, const std::string& text,
              const std::vector<std::string>& options = {}) {
    const ToolDirectory here;
    here.write("m.xml", text);
    std::vector<std::string> arguments = {"call", service.url(), "m.xml"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const ToolRun run = here.run(arguments);
    EXPECT_EQ(run.status, 0) << run.error;
}

/// What a call tells about an answer, without the URL before it; its status has to be 1.
std::string failure(const CannedService& service) {
    const ToolDirectory here;
    const ToolRun run = here.run({"call", service.url(), "-"}, answerText());
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.error.starts_with(service.url())) << run.error;
    return run.error.substr(service.url().size());
}

} // namespace

TEST(Call, PrintsTheAnswer) {
    const EchoServer server;
    const ToolDirectory here;
    for (const TzSoapVersion::Version version : BothVersions) {
        const ToolRun run = here.run({"call", server.url(), "-"}, envelope(version, operation));
        EXPECT_EQ(run.status, 0) << run.error;
        EXPECT_EQ(run.error, "");
        expectGolden(run.out, version == TzSoapVersion::V1_1 ? "call11.txt" : "call12.txt");
    }
}

TEST(Call, AFaultHasAStatusOfItsOwn) {
    const EchoServer server;
    const ToolDirectory here;
    const ToolRun run =
        here.run({"call", server.url(), "-"}, envelope(TzSoapVersion::V1_2, "<unknown/>"));
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.error, "");
    expectGolden(run.out, "call_fault12.txt");
}

TEST(Call, AFaultWithoutACodeIsAFault) {
    const CannedService service(
        500, "text/xml",
        envelope(TzSoapVersion::V1_1,
                 "<e:Fault><faultcode/><faultstring>out of money</faultstring></e:Fault>"));
    const ToolDirectory here;
    const ToolRun run = here.run({"call", service.url(), "-"}, answerText());
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.error, service.url() +
                             ": warning: a Fault without a code is left out, its reason "
                             "is \"out of money\"\n");
}

TEST(Call, SendsTheFileAsItStands) {
    const CannedService service(200, "text/xml", answerText());
    const std::string first = "<?xml version='1.0' encoding='ISO-8859-1'?><!-- \xE9 -->\n" +
                              envelope(TzSoapVersion::V1_1, operation) + "\n\n";
    callWith(service, first, {"--action", "urn:do"});
    EXPECT_EQ(service.body(), first);
    EXPECT_EQ(service.header("Content-Type"), "text/xml; charset=ISO-8859-1");
    EXPECT_EQ(service.header("SOAPAction"), "\"urn:do\"");

    const std::string second = envelope(TzSoapVersion::V1_2, operation);
    callWith(service, second, {"--action", "urn:do"});
    EXPECT_EQ(service.body(), second);
    EXPECT_EQ(service.header("Content-Type"),
              "application/soap+xml; charset=UTF-8; action=\"urn:do\"");
    EXPECT_EQ(service.header("SOAPAction"), "");

    callWith(service, answerText());
    EXPECT_EQ(service.header("SOAPAction"), "\"\"");
}

TEST(Call, ThePathGoesAlong) {
    const CannedService service(200, "text/xml", answerText());
    for (const std::string path : {"", "/", "/a/b?c=d", "?c=d", "/a#b"}) {
        const ToolDirectory here;
        EXPECT_EQ(here.run({"call", service.url() + path, "-"}, answerText()).status, 0);
        const std::string expected = path.substr(0, path.find('#'));
        EXPECT_EQ(service.target(), expected.starts_with('/') ? expected : '/' + expected);
    }
}

TEST(Call, AttachmentsTravelInAPackage) {
    const EchoServer server;
    const CannedService service(200, "text/xml", answerText());
    const ToolDirectory here;
    here.write("m.xml", envelope(TzSoapVersion::V1_1,
                                 "<echoIt><a href='cid:x'/><b href='cid:b.txt'/></echoIt>"));
    here.write("a.bin", std::string(100, '\0'));
    here.write("b.txt", "text");
    const std::vector<std::string> rest = {"m.xml", "--attach", "x=a.bin", "--attach", "b.txt"};
    std::vector<std::string> arguments = {"call", server.url()};
    arguments.insert(arguments.end(), rest.begin(), rest.end());
    const ToolRun run = here.run(arguments);
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_NE(run.out.find("100 bytes"), std::string::npos) << run.out;

    arguments[1] = service.url();
    EXPECT_EQ(here.run(arguments).status, 0);
    EXPECT_EQ(service.header("Content-Type"),
              "multipart/related; boundary=\"MIME_boundary\"; type=\"text/xml\"; "
              "start=\"<soap.xml@mime.representation>\"");
    EXPECT_TRUE(service.body().starts_with("--MIME_boundary\r\n"));
    EXPECT_EQ(countOf("\r\nContent-ID: <x>\r\n", service.body()), 1U);
    EXPECT_EQ(countOf("\r\nContent-ID: <b.txt>\r\n\r\ntext\r\n--", service.body()), 1U);
}

TEST(Call, APackageIsSentWithItsContentType) {
    const CannedService service(200, "text/xml", answerText());
    const std::string parts = "--b\r\n\r\n" + answerText() + "\r\n--b--\r\n";
    callWith(service, "Content-Type: multipart/related; boundary=b\r\n\r\n" + parts);
    EXPECT_EQ(service.header("Content-Type"), "multipart/related; boundary=b");
    EXPECT_EQ(service.body(), parts);
}

TEST(Call, WhatCannotBeSentIsAFailure) {
    const CannedService service(200, "text/xml", answerText());
    const ToolDirectory here;
    const auto error = [&](const std::vector<std::string>& options, const std::string& text) {
        std::vector<std::string> arguments = {"call", service.url(), "-"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ToolRun run = here.run(arguments, text);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "");
        return run.error;
    };
    EXPECT_EQ(error({}, "<a>"),
              "standard input:1:1: [NO_SOAP_ENVELOPE][Soap message must have a Envelope "
              "element] (the element is \"a\" in no namespace)\n");
    EXPECT_EQ(error({"--action", "a\nb"}, answerText()),
              "standard input: [INVALID_HTTP_HEADER][Http header is invalid]\n");
    EXPECT_EQ(error({"--attach", "x=none"}, answerText()),
              "standard input: No such file or directory\n");
    EXPECT_EQ(here.run({"call", "ftp://x", "-"}, answerText()).error,
              "ftp://x: is no URL of http or https\n");
    EXPECT_GT(here.run({"call", service.url()}).status, 100);
}

TEST(Call, NoAnswerIsAFailure) {
    std::string gone;
    {
        const CannedService service(200, "", "");
        gone = service.url();
    }
    const ToolDirectory here;
    const ToolRun run = here.run({"call", gone, "-"}, answerText());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, gone + ": no answer: Connection\n");
}

TEST(Call, ACutAnswerIsNone) {
    const RawService service("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n<a/>", "");
    const ToolDirectory here;
    const ToolRun run = here.run({"call", service.url(), "-"}, answerText());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, service.url() + ": no answer: Read\n");
}

TEST(Call, ARedirectIsNotFollowed) {
    const CannedService target(200, "text/xml", answerText());
    const RawService service(
        "HTTP/1.1 302 Found\r\nLocation: " + target.url() + "/\r\nContent-Length: 0\r\n\r\n", "");
    const ToolDirectory here;
    const ToolRun run = here.run({"call", service.url(), "-"}, answerText());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, service.url() + ": the answer with status 302 is a redirect to \"" +
                             target.url() + "/\", which is not followed\n");
    EXPECT_EQ(target.target(), "");
}

TEST(Call, AnAnswerThatIsNoMessageIsAFailure) {
    EXPECT_EQ(failure({200, "text/html", "<html/>"}),
              ": [INVALID_CONTENT_TYPE][Content-Type is invalid] (Content-Type is "
              "\"text/html\")\n");
    EXPECT_EQ(failure({404, "text/html", "<html/>"}),
              ": [INVALID_CONTENT_TYPE][Content-Type is invalid] (Content-Type is "
              "\"text/html\"; HTTP status 404)\n");
    EXPECT_EQ(failure({200, "text/xml", "<a>\n</b>"}),
              ":1:1: [NO_SOAP_ENVELOPE][Soap message must have a Envelope element] (the element is "
              "\"a\" in no namespace)\n");
    EXPECT_TRUE(
        failure({500, "text/xml", "<?xml version='1.0'?>\n<"}).ends_with("(HTTP status 500)\n"));
    EXPECT_EQ(failure({200, "text/xml", "<?xml version='1.0'?>\n<"}).substr(0, 3), ":2:");
}

TEST(Call, AnAnswerWithoutMessageIsNone) {
    const CannedService service(202, "", "");
    const ToolDirectory here;
    const ToolRun run = here.run({"call", service.url(), "-"}, answerText());
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "(status 202, no message)\n");
}
