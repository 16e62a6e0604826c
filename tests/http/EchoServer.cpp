// SPDX-License-Identifier: MIT
#include "http/EchoServer.h"

#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <tz/tools/Tzxmsg.h>

#include <gtest/gtest.h>

EchoServer::EchoServer(const std::string& largestRequest)
    : process_({TZSOAP_ECHO_SERVER, "0", largestRequest}) {
    const std::string line = process_.readLine();
    const std::string before = "listening on ";
    EXPECT_TRUE(line.starts_with(before)) << line;
    url_ = line.substr(std::min(before.size(), line.size()));
    port_ = std::stoi(url_.substr(url_.rfind(':') + 1));
}

int EchoServer::stop(int number) {
    process_.signal(number);
    return process_.wait();
}

httplib::Client EchoServer::client() const {
    httplib::Client client("127.0.0.1", port_);
    client.set_read_timeout(300);
    client.set_write_timeout(300);
    client.set_tcp_nodelay(true);
    return client;
}

HttpAnswer EchoServer::post(const std::string& contentType, const std::string& body) const {
    httplib::Client http = client();
    const httplib::Result result = http.Post("/", body, contentType);
    if (!result) {
        ADD_FAILURE() << httplib::to_string(result.error());
        return {};
    }
    return {result->status, result->get_header_value("Content-Type"), result->body};
}

TzSoapMessage EchoServer::call(const TzSoapMessage& request) const {
    TzSoapHttpTransportContext context;
    const std::string body = TzSoapHttpBinding::pack(request, context);
    const TzSoapMessage answer =
        messageIn(post(context.find(TzSoapHttpBinding::getContentTypeLabel())->second, body));
    EXPECT_EQ(answer.getVersion(), request.getVersion());
    return answer;
}

TzSoapMessage messageIn(const HttpAnswer& answer) {
    TzSoapHttpTransportContext context;
    context.add(TzSoapHttpBinding::getContentTypeLabel(), answer.contentType);
    TzSoapMessage message;
    try {
        TzSoapHttpBinding::unpack(context, answer.body, message);
        EXPECT_EQ(answer.status, TzSoapHttpBinding::getStatus(message));
    } catch (const Tzxmsg& error) {
        ADD_FAILURE() << answer.status << ' ' << answer.contentType << ": " << error.what() << '\n'
                      << answer.body;
    }
    return message;
}

std::string faultCodeIn(const HttpAnswer& answer) {
    return messageIn(answer).getSoapBody().getSoapFault().getCode().getLocalName();
}
