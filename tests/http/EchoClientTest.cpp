// SPDX-License-Identifier: MIT
#include "http/EchoServer.h"

#include <soap/TzSoapFaultMessage.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

/// What the client of the examples printed, and its exit status.
struct Finished {
    std::string output;
    int status = 0;
};

Finished runClient(const std::vector<std::string>& arguments) {
    std::vector<std::string> command = {TZSOAP_ECHO_CLIENT};
    command.insert(command.end(), arguments.begin(), arguments.end());
    ChildProcess client(command);
    std::string output = client.readAll();
    return {std::move(output), client.wait()};
}

constexpr char Order[] = "--- the order in the answer ---\n"
                         "customer Jürgen & Zoë <Ltd>\n"
                         "amount 200, price 17.25, express\n"
                         "until 2026-12-31T23:59:59+01:00\n"
                         "seal of 3 bytes, no remark\n"
                         "sizes 0 1 4\n";

/// A service that answers everything with a fault.
class FaultyServer {
public:
    FaultyServer() : port_(server_.bind_to_any_port("127.0.0.1")) {
        server_.Post("/", [](const httplib::Request&, httplib::Response& response) {
            response.status = 500;
            response.set_content(
                TzSoapFaultMessage::make(TzSoapVersion::V1_1, TzSoapVersion::Server, "out of paper")
                    .asString(),
                "text/xml");
        });
        thread_ = std::thread([this] { server_.listen_after_bind(); });
        while (!server_.is_running()) {
            std::this_thread::yield();
        }
    }
    ~FaultyServer() {
        server_.stop();
        thread_.join();
    }
    FaultyServer(const FaultyServer&) = delete;
    FaultyServer& operator=(const FaultyServer&) = delete;

    std::string url() const { return "http://127.0.0.1:" + std::to_string(port_); }

private:
    httplib::Server server_;
    int port_;
    std::thread thread_;
};

} // namespace

TEST(EchoClientTest, ShowsBothEnvelopesAndTheValues) {
    const EchoServer server;
    for (const char* version : {"1.1", "1.2"}) {
        const Finished run = runClient({server.url(), version});
        EXPECT_EQ(run.status, 0);
        EXPECT_TRUE(run.output.starts_with("--- request ---\nContent-Type:")) << run.output;
        EXPECT_NE(run.output.find("\n--- answer, status 200 ---\nContent-Type:"),
                  std::string::npos);
        EXPECT_TRUE(run.output.ends_with(Order)) << run.output;
    }
}

TEST(EchoClientTest, SendsAnAttachment) {
    const EchoServer server;
    const Finished run = runClient({server.url(), "1.1", TZSOAP_ECHO_SERVER});
    EXPECT_EQ(run.status, 0);
    const std::size_t document = run.output.rfind("document of ");
    ASSERT_NE(document, std::string::npos);
    EXPECT_GT(std::stoul(run.output.substr(document + 12)), 10000U);
}

TEST(EchoClientTest, AFaultIsStatus2AndOtherFailuresStatus1) {
    EXPECT_EQ(runClient({FaultyServer().url()}).status, 2);
    std::string gone;
    {
        const EchoServer server;
        gone = server.url();
    }
    EXPECT_EQ(runClient({gone}).status, 1);
    EXPECT_EQ(runClient({}).status, 1);
    EXPECT_EQ(runClient({gone, "1.1", "/no/such/file"}).status, 1);
}
