// SPDX-License-Identifier: MIT
#include "http/CannedService.h"
#include "http/EchoServer.h"

#include <soap/TzSoapFaultMessage.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
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
    const std::string file = TZSOAP_SAMPLES_DIR "/php/multiref.xml";
    const Finished run = runClient({server.url(), "1.1", file});
    EXPECT_EQ(run.status, 0);
    const std::string size = std::to_string(std::filesystem::file_size(file));
    EXPECT_TRUE(run.output.ends_with(Order + ("document of " + size + " bytes\n"))) << run.output;
}

TEST(EchoClientTest, AFaultIsStatus2AndOtherFailuresStatus1) {
    const TzSoapMessage fault =
        TzSoapFaultMessage::make(TzSoapVersion::V1_1, TzSoapVersion::Server, "out of paper");
    const CannedService faulty(500, "text/xml", fault.asString());
    EXPECT_EQ(runClient({faulty.url()}).status, 2);
    std::string gone;
    {
        const EchoServer server;
        gone = server.url();
    }
    EXPECT_EQ(runClient({gone}).status, 1);
    EXPECT_EQ(runClient({}).status, 1);
    EXPECT_EQ(runClient({gone, "1.1", "/no/such/file"}).status, 1);
}
