// SPDX-License-Identifier: MIT
#include "http/CannedService.h"
#include "http/ChildProcess.h"
#include "http/EchoServer.h"
#include "http/RawService.h"
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapFaultMessage.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <future>
#include <string>
#include <utility>
#include <vector>

namespace {

/// What the client of the examples printed, and its exit status.
struct Finished {
    std::string output;
    int status = 0;
};

Finished run(std::vector<std::string> command) {
    ChildProcess client(command);
    std::string output = client.readAll();
    return {std::move(output), client.wait()};
}

Finished runClient(const std::vector<std::string>& arguments) {
    std::vector<std::string> command = {TZSOAP_ECHO_CLIENT};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run(command);
}

/// What the client says about the service at `url` when it fails: its last line.
std::string failureAt(const std::string& url) {
    const Finished client =
        run({"/bin/sh", "-c", "exec \"$0\" \"$1\" 2>&1", TZSOAP_ECHO_CLIENT, url});
    EXPECT_EQ(client.status, 1) << client.output;
    const std::size_t end = client.output.find_last_not_of('\n') + 1;
    const std::size_t begin = client.output.rfind('\n', end - 1) + 1;
    return client.output.substr(begin, end - begin);
}

std::string failure(int status, const std::string& type, const std::string& body) {
    const CannedService service(status, type, body);
    const std::string text = failureAt(service.url());
    const std::string url = service.url() + "/: ";
    const std::size_t at = text.find(url);
    return at == std::string::npos ? text : text.substr(0, at) + text.substr(at + url.size());
}

/// The failure that the body entries `entries` lead to.
std::string failureOf(const std::string& entries) {
    return failure(200, "text/xml", envelope(TzSoapVersion::V1_1, entries));
}

/// An answer whose order has these members in place of the usual ones, or besides them.
std::string orderWith(const std::string& name, const std::string& member) {
    const std::pair<const char*, const char*> members[] = {
        {"customer", "<customer>c</customer>"},
        {"amount", "<amount>1</amount>"},
        {"price", "<price>1</price>"},
        {"express", "<express>1</express>"},
        {"until", "<until>2026-12-31T00:00:00Z</until>"},
        {"seal", "<seal>AA==</seal>"},
        {"remark", "<remark xsi:nil='1'/>"},
        {"sizes", "<sizes c:arrayType='c:int[1]'><item>1</item></sizes>"},
        {"document", ""},
    };
    std::string order;
    for (const auto& [known, text] : members) {
        order += known == name ? member : text;
    }
    return "<m:echoOrderResponse xmlns:m='urn:example:echo'><order>" + order +
           "</order></m:echoOrderResponse>";
}

std::string failureWith(const std::string& name, const std::string& member) {
    return failureOf(orderWith(name, member));
}

constexpr char Order[] = "--- the order in the answer ---\n"
                         "customer Jürgen & Zoë <Ltd>\n"
                         "amount 200, price 17.25, express\n"
                         "until 2026-12-31T23:59:59Z\n"
                         "seal of 3 bytes, no remark\n"
                         "sizes 0 1 4\n";

} // namespace

TEST(EchoClient, ShowsBothEnvelopesAndTheValues) {
    const EchoServer server;
    for (const char* version : {"1.1", "1.2", "1.2-2002"}) {
        const Finished run = runClient({server.url(), version});
        EXPECT_EQ(run.status, 0);
        EXPECT_TRUE(run.output.starts_with("--- request ---\nContent-Type:")) << run.output;
        EXPECT_NE(run.output.find("\n--- answer, status 200 ---\n"), std::string::npos);
        EXPECT_TRUE(run.output.ends_with(Order)) << run.output;
    }
}

TEST(EchoClient, SendsAnAttachment) {
    const EchoServer server;
    const std::string file = TZSOAP_SAMPLES_DIR "/php/multiref.xml";
    const Finished run = runClient({server.url(), "1.1", file});
    EXPECT_EQ(run.status, 0);
    const std::string size = std::to_string(std::filesystem::file_size(file));
    EXPECT_TRUE(run.output.ends_with(Order + ("document of " + size + " bytes\n"))) << run.output;
}

TEST(EchoClient, AnAnswerOfOthersIsShown) {
    const CannedService service(200, "text/xml",
                                envelope(TzSoapVersion::V1_1, orderWith("none", "")));
    EXPECT_EQ(runClient({service.url()}).status, 0);
}

TEST(EchoClient, NoAnswerIsAFailure) {
    std::string gone;
    {
        const EchoServer server;
        gone = server.url();
    }
    const std::string text = failureAt(gone);
    EXPECT_TRUE(text.starts_with("echo_client: " + gone + ": no answer: Failed to connect"))
        << text;
    EXPECT_EQ(runClient({}).status, 1);
    EXPECT_EQ(runClient({"nonsense"}).status, 1);
    EXPECT_EQ(runClient({gone, "1.1", "/no/such/file"}).status, 1);
}

TEST(EchoClient, AFaultIsAFailure) {
    const TzSoapMessage fault =
        TzSoapFaultMessage::make(TzSoapVersion::V1_1, TzSoapVersion::Server, "out of paper");
    EXPECT_EQ(failure(500, "text/xml", fault.asString()),
              "echo_client: fault SOAP-ENV:Server: out of paper");
    EXPECT_EQ(failure(500, "text/xml",
                      envelope(TzSoapVersion::V1_1,
                               "<e:Fault><faultcode>\n e:Server\n</faultcode><faultstring>out of "
                               "paper</faultstring></e:Fault>")),
              "echo_client: fault e:Server: out of paper");
}

TEST(EchoClient, AnAnswerThatIsNoMessageIsAFailure) {
    const std::string good = envelope(TzSoapVersion::V1_1, orderWith("none", ""));
    const std::string head = "echo_client: the answer with status 200 is not a message: ";
    const auto wrongType = [](const std::string& type) {
        return "[INVALID_CONTENT_TYPE][Content-Type is invalid] (Content-Type is \"" + type + "\")";
    };
    const auto noEnvelope = [&](const std::string& detail) {
        return head +
               "[NO_SOAP_ENVELOPE][Soap message must have a Envelope element], line 1, "
               "column 1 (" +
               detail + ")";
    };
    EXPECT_EQ(failure(200, "text/html", "<html><body>Login</body></html>"),
              head + wrongType("text/html"));
    EXPECT_EQ(failure(200, "application/json", "{\"order\": 1}"),
              head + wrongType("application/json"));
    EXPECT_EQ(failure(200, "application/octet-stream", good),
              head + wrongType("application/octet-stream"));
    EXPECT_EQ(failure(200, "text/xml", ""), "echo_client: the answer is empty");
    EXPECT_EQ(failure(200, "", ""), "echo_client: the answer is empty");
    EXPECT_EQ(failure(200, "text/xml", "<html/>"),
              noEnvelope("the element is \"html\" in no namespace"));
    EXPECT_EQ(failure(500, "text/html", "<html>"),
              "echo_client: the answer with status 500 is not a message: " +
                  wrongType("text/html"));
    EXPECT_TRUE(failure(200, "text/xml", good.substr(0, good.size() / 2)).starts_with(head));
    EXPECT_EQ(failure(200, "multipart/related; boundary=b", "--b\r\n\r\n" + good + "\r\n--b\r\n"),
              head + "the package is cut short: it has no closing line");
    EXPECT_TRUE(failure(200, "text/xml", "<e:Envelope xmlns:e='urn:later'/>")
                    .starts_with(head + "[UNKNOWN_VERSION]"));
}

TEST(EchoClient, AnAnswerWithoutTheOrderIsAFailure) {
    for (const std::string entries :
         {"", "<m:other xmlns:m='urn:m'/>", "<a>text</a>", "<a><b/></a>", "<a><order/></a>",
          "<a><order>text</order></a>", "<a c:arrayType='c:int[0]'/>", "<a href='#b'/>",
          "<a href='cid:b'/>", "<e:Fault><faultcode/><faultstring>x</faultstring></e:Fault>"}) {
        EXPECT_TRUE(failureOf(entries).starts_with("echo_client: ")) << entries;
    }
    EXPECT_TRUE(
        failure(500, "text/xml", envelope(TzSoapVersion::V1_1, "")).starts_with("echo_client: "));
    EXPECT_TRUE(failure(200, "text/xml",
                        "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'/>")
                    .starts_with("echo_client: "));
}

TEST(EchoClient, AMemberThatIsMissingIsAFailure) {
    for (const char* name : {"customer", "amount", "price", "express", "until", "seal", "sizes"}) {
        EXPECT_NE(failureWith(name, "").find(std::string("/") + name + " is missing"),
                  std::string::npos)
            << name;
    }
}

TEST(EchoClient, AMemberOfAnotherKindIsAFailure) {
    const std::pair<const char*, const char*> members[] = {
        {"customer", "<customer><first>a</first></customer>"},
        {"customer", "<customer href='#none'/>"},
        {"amount", "<amount>many</amount>"},
        {"amount", "<amount>99999999999</amount>"},
        {"amount", "<amount xsi:nil='1'/>"},
        {"price", "<price/>"},
        {"express", "<express>perhaps</express>"},
        {"until", "<until>tomorrow</until>"},
        {"seal", "<seal>*</seal>"},
        {"remark", "<remark><a/></remark>"},
        {"sizes", "<sizes>1 2 3</sizes>"},
        {"sizes", "<sizes c:arrayType='c:int[1]'><item>x</item></sizes>"},
        {"document", "<document>text</document>"},
        {"document", "<document><a/></document>"},
        {"document", "<document href='cid:none'/>"},
        {"document", "<document href='#none'/>"},
    };
    for (const auto& [name, member] : members) {
        EXPECT_TRUE(failureWith(name, member).starts_with("echo_client: ")) << member;
    }
}

TEST(EchoClient, WhatIsNoHttpIsAFailure) {
    for (const std::string bytes : {"", "hello\r\n\r\n", "HTTP/1.1 200 OK\r\n",
                                    "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n<a/>"}) {
        const RawService service(bytes, "");
        EXPECT_TRUE(
            failureAt(service.url()).starts_with("echo_client: " + service.url() + ": no answer: "))
            << bytes;
    }
}

TEST(EchoClient, AnAnswerWithoutEndIsAFailure) {
    const RawService lines("HTTP/1.1 200 OK\r\n", "X: y\r\n");
    const RawService line("HTTP/1.1 200 OK\r\nX: ", "yyyy");
    const RawService body("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n\r\n", "<a/>");
    std::vector<std::future<std::string>> failures;
    for (const RawService* service : {&lines, &line, &body}) {
        failures.push_back(std::async(std::launch::async, failureAt, service->url()));
    }
    for (std::future<std::string>& failed : failures) {
        const std::string text = failed.get();
        EXPECT_TRUE(text.starts_with("echo_client: ")) << text;
    }
}
