// SPDX-License-Identifier: MIT
#pragma once

#include <httplib.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>

/// A service within the test that answers with a function, over TLS if it has a certificate.
class TestService {
public:
    using Handler = std::function<void(const httplib::Request&, httplib::Response&)>;

    explicit TestService(Handler handler);
    /// With the certificate and the key in these files; with the certificate of an authority it
    /// wants its clients to have one too.
    TestService(Handler handler, const std::string& certificate, const std::string& key,
                const std::string& clientAuthority = "");
    ~TestService();
    TestService(const TestService&) = delete;
    TestService& operator=(const TestService&) = delete;

    /// Where it listens, under the name "localhost".
    std::string url() const { return scheme_ + "localhost:" + std::to_string(port_) + "/"; }
    /// The same under the address of the machine.
    std::string urlByAddress() const {
        return scheme_ + "127.0.0.1:" + std::to_string(port_) + "/";
    }
    /// The port it listens on.
    int port() const noexcept { return port_; }

private:
    void start(Handler handler);

    std::string scheme_ = "http://";
    std::unique_ptr<httplib::Server> server_;
    int port_ = 0;
    std::thread thread_;
};

/// Certificates that openssl makes once for a run of the tests, in files.
struct TestCertificates {
    std::string authority;
    std::string server; ///< For localhost.
    std::string serverKey;
    std::string client;
    std::string clientKey;
    std::string pin; ///< Of the server's public key, as sha256 and Base64.

    static const TestCertificates& get();
};
