// SPDX-License-Identifier: MIT
#pragma once

#include "http/ChildProcess.h"

#include <soap/TzSoapMessage.h>

#include <httplib.h>

#include <string>

/// What came back over HTTP.
struct HttpAnswer {
    int status = 0; ///< 0: nothing came.
    std::string contentType;
    std::string body;
};

/// The echo service of the examples, running on a free port.
class EchoServer {
public:
    /// Starts one that takes requests of up to `largestRequest` bytes.
    explicit EchoServer(const std::string& largestRequest = "1048576");

    /// Where it listens.
    const std::string& url() const noexcept { return url_; }
    /// The port it listens on.
    int port() const noexcept { return port_; }
    /// The process.
    ChildProcess& process() noexcept { return process_; }
    /// Asks it to end with the signal `number` and waits: the exit status.
    int stop(int number);

    /// A connection for requests; answers are waited for as long as it takes.
    httplib::Client client() const;
    /// What it answers to a body.
    HttpAnswer post(const std::string& contentType, const std::string& body) const;
    /// What it answers to a message, read. Fails the test unless that is a message in the version
    /// of the request.
    TzSoapMessage call(const TzSoapMessage& request) const;

private:
    ChildProcess process_;
    std::string url_;
    int port_ = 0;
};

/// The message in an answer; fails the test without one.
TzSoapMessage messageIn(const HttpAnswer& answer);

/// Local name of the code of the fault that the answer has to hold.
std::string faultCodeIn(const HttpAnswer& answer);
