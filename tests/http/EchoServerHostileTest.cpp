// SPDX-License-Identifier: MIT
#include "http/EchoServer.h"
#include "http/HostileRequests.h"
#include "http/RawConnection.h"
#include "values/EnvelopeTesting.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>
#include <string>

namespace {

constexpr char GoodRequest[] = "<echoIt><a>1</a></echoIt>";

void expectAlive(const EchoServer& server) {
    EXPECT_EQ(server.post("text/xml", envelope(TzSoapVersion::V1_1, GoodRequest)).status, 200);
}

} // namespace

TEST(EchoServerHostile, BadRequestsAreTheSendersFault) {
    EchoServer server;
    for (const HostileRequest& request : hostileRequests()) {
        const HttpAnswer answer = server.post(request.contentType, request.body);
        expectRefused(request, answer);
    }
    expectAlive(server);
    EXPECT_EQ(server.stop(SIGTERM), 0);
}

TEST(EchoServerHostile, ATruncatedRequestIsAnsweredInItsVersion) {
    const EchoServer server;
    for (const TzSoapVersion::Version version : BothVersions) {
        const std::string whole = envelope(version, GoodRequest);
        const HttpAnswer answer = server.post("text/xml", whole.substr(0, whole.size() - 9));
        EXPECT_EQ(messageIn(answer).getVersion(), version);
    }
}

TEST(EchoServerHostile, LargeRequestsAreRefused) {
    const EchoServer server("4096");
    const std::string large =
        envelope(TzSoapVersion::V1_1, "<echoIt><a>" + std::string(4096, 'x') + "</a></echoIt>");
    EXPECT_EQ(server.post("text/xml", large).status, 413);

    // In pieces, so that no length is stated.
    httplib::Client http = server.client();
    const auto inPieces = [&](std::size_t offset, httplib::DataSink& sink) {
        sink.write(large.data() + offset, std::min<std::size_t>(512, large.size() - offset));
        if (offset + 512 >= large.size()) {
            sink.done();
        }
        return true;
    };
    const httplib::Result pieces = http.Post("/", inPieces, "text/xml");
    ASSERT_TRUE(pieces);
    EXPECT_EQ(pieces->status, 413);

    // Small until it is unzipped.
    httplib::Client zipping = server.client();
    zipping.set_compress(true);
    const httplib::Result zipped = zipping.Post(
        "/", envelope(TzSoapVersion::V1_1, std::string(1000000, ' ') + GoodRequest), "text/xml");
    ASSERT_TRUE(zipped);
    EXPECT_EQ(zipped->status, 413);
    expectAlive(server);
}

TEST(EchoServerHostile, WhatIsLeftOfABodyIsNoRequest) {
    const EchoServer server("1000");
    const std::string hidden = "POST / HTTP/1.1\r\nContent-Length: 0\r\n\r\n";
    const std::string head = "POST / HTTP/1.1\r\nContent-Type: ";
    const auto chunk = [](const std::string& text) {
        std::ostringstream size;
        size << std::hex << text.size();
        return size.str() + "\r\n" + text + "\r\n";
    };
    for (const std::string& request :
         {head + "multipart/form-data; boundary=b\r\nContent-Length: " +
              std::to_string(hidden.size()) + "\r\n\r\n" + hidden,
          head + "text/xml\r\nTransfer-Encoding: chunked\r\n\r\n" + chunk(std::string(5000, ' ')) +
              chunk(hidden) + "0\r\n\r\n"}) {
        const RawConnection connection(server.port());
        connection.send(request + hidden);
        EXPECT_LE(countOf("HTTP/1.1 ", connection.readAll()), 1U);
    }
    expectAlive(server);
}

TEST(EchoServerHostile, ZippedRequestsAreServed) {
    const EchoServer server;
    httplib::Client http = server.client();
    http.set_compress(true);
    const httplib::Result answer =
        http.Post("/", envelope(TzSoapVersion::V1_1, GoodRequest), "text/xml");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 200);
}

TEST(EchoServerHostile, WhatIsNotHttpGetsABadRequestOrNothing) {
    EchoServer server;
    for (const std::string& text : brokenHttp()) {
        RawConnection connection(server.port());
        connection.send(text);
        connection.finishSending();
        const std::string answer = connection.readAll();
        EXPECT_TRUE(answer.empty() || answer.starts_with("HTTP/1.1 4") ||
                    answer.starts_with("HTTP/1.1 500"))
            << text.substr(0, 100) << "\n"
            << answer;
    }
    expectAlive(server);
    EXPECT_EQ(server.stop(SIGTERM), 0);
}

TEST(EchoServerHostile, HalfOpenConnectionsDoNotKeepItFromEnding) {
    EchoServer server;
    RawConnection silent(server.port());
    RawConnection halfway(server.port());
    halfway.send("POST / HTTP/1.1\r\nContent-Type: text/xml\r\nContent-Length: 1000\r\n\r\n<e:");
    expectAlive(server);
    EXPECT_EQ(server.stop(SIGTERM), 0);
}
