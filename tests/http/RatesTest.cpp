// SPDX-License-Identifier: MIT
#include "http/CannedService.h"
#include "http/ChildProcess.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

namespace {

/// The service of rates, and what the client prints when it asks that.
class Rates : public testing::Test {
protected:
    std::string ask(const std::string& from, const std::string& to) {
        ChildProcess client(
            {"/bin/sh", "-c", "exec \"$0\" \"$@\" 2>&1", TZSOAP_RATES_CLIENT, url_, from, to});
        std::string output = client.readAll();
        status_ = client.wait();
        return output;
    }

    ChildProcess server_{{TZSOAP_RATES_SERVER}};
    std::string line_ = server_.readLine();
    std::string url_ = line_.substr(line_.rfind(' ') + 1);
    int status_ = 0;
};

} // namespace

TEST_F(Rates, AreAnswered) {
    EXPECT_EQ(ask("EUR", "USD"), "1.25 (example)\n");
    EXPECT_EQ(status_, 0);
    EXPECT_EQ(ask("USD", "JPY"), "150.5 (example)\n");
}

TEST_F(Rates, ThatAreNotThereAreAFault) {
    EXPECT_EQ(ask("EUR", "<&>"),
              "rates_client: fault SOAP-ENV:Client: There is no rate of EUR in <&>\n");
    EXPECT_EQ(status_, 1);
}

TEST_F(Rates, TravelLiterally) {
    httplib::Client http(url_.substr(0, url_.size() - 1));
    const httplib::Result answer = http.Post(
        "/",
        "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\"><e:Body>"
        "<GetRate xmlns=\"urn:example:rates\"><from>EUR</from><to>USD</to></GetRate></e:Body>"
        "</e:Envelope>",
        "text/xml");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->body,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?><SOAP-ENV:Envelope "
              "xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\"><SOAP-ENV:Body>"
              "<GetRateResponse xmlns=\"urn:example:rates\"><rate>1.25</rate>"
              "<source>example</source></GetRateResponse></SOAP-ENV:Body></SOAP-ENV:Envelope>");
}

TEST_F(Rates, ParametersThatAreMissingAreTheSendersFault) {
    httplib::Client http(url_.substr(0, url_.size() - 1));
    const httplib::Result answer =
        http.Post("/",
                  "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\"><e:Body>"
                  "<GetRate xmlns=\"urn:example:rates\"><from>EUR</from></GetRate></e:Body>"
                  "</e:Envelope>",
                  "text/xml");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 500);
    EXPECT_NE(answer->body.find("GetRate/to in namespace \"urn:example:rates\" is missing"),
              std::string::npos)
        << answer->body;
}

TEST_F(Rates, EndOnSignals) {
    server_.signal(SIGTERM);
    EXPECT_EQ(server_.wait(), 0);
}
