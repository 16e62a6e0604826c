// SPDX-License-Identifier: MIT
#include "http/ChildProcess.h"
#include "http/HttpClientTesting.h"
#include "http/RawConnection.h"

#include "support/Throws.h"

#include <system_error>

namespace {

using Error = TzSoapTransportError;

class TzSoapHttpClientTls : public testing::Test {
protected:
    const TestCertificates& made_ = TestCertificates::get();
    const TestService service_{echo, made_.server, made_.serverKey};

    TzSoapHttpOptions trusting() const {
        TzSoapHttpOptions options;
        options.caFile = made_.authority;
        return options;
    }
};

/// The phase of the failure of a call.
Error::Phase phaseAt(const std::string& url, const TzSoapHttpOptions& options) {
    const TzSoapHttpResult result = TzSoapHttpClient(url, options).tryCall(requestOf("a"));
    if (result.findFailure() == nullptr) {
        ADD_FAILURE() << "no failure";
        return Error::Resolve;
    }
    return result.findFailure()->getPhase();
}

std::string echoedBy(const std::string& url, const TzSoapHttpOptions& options) {
    return textIn(TzSoapHttpClient(url, options).call(requestOf("a")));
}

/// nghttp2's server, which sends back what it is sent, on a port that was free a moment ago.
class Http2Server {
public:
    explicit Http2Server(const std::vector<std::string>& arguments) {
        { port_ = TestService(echo).port(); }
        std::vector<std::string> command = {TZSOAP_NGHTTPD, "--echo-upload"};
        command.push_back(std::to_string(port_));
        command.insert(command.end(), arguments.begin(), arguments.end());
        process_ = std::make_unique<ChildProcess>(command);
        for (bool listens = false; !listens;) {
            try {
                const RawConnection connection(port_);
                listens = true;
            } catch (const std::system_error&) {
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
        }
    }
    int port() const noexcept { return port_; }

private:
    int port_ = 0;
    std::unique_ptr<ChildProcess> process_;
};

} // namespace

TEST_F(TzSoapHttpClientTls, TrustsTheAuthorityOfTheOptions) {
    EXPECT_EQ(echoedBy(service_.url(), trusting()), "a");
}

TEST_F(TzSoapHttpClientTls, TrustsNoOtherAuthority) {
    EXPECT_EQ(phaseAt(service_.url(), {}), Error::Tls);
    TzSoapHttpOptions options;
    options.caFile = made_.client;
    EXPECT_EQ(phaseAt(service_.url(), options), Error::Tls);
    options.caFile = "/no/such/file";
    EXPECT_EQ(phaseAt(service_.url(), options), Error::Tls);
}

TEST_F(TzSoapHttpClientTls, TheEnvironmentNamesNoAuthority) {
    setenv("SSL_CERT_FILE", made_.authority.c_str(), 1);
    setenv("CURL_CA_BUNDLE", made_.authority.c_str(), 1);
    EXPECT_EQ(phaseAt(service_.url(), {}), Error::Tls);
    unsetenv("SSL_CERT_FILE");
    unsetenv("CURL_CA_BUNDLE");
}

TEST_F(TzSoapHttpClientTls, ChecksTheNameOfTheServer) {
    EXPECT_EQ(phaseAt(service_.urlByAddress(), trusting()), Error::Tls);
}

TEST_F(TzSoapHttpClientTls, ChecksNothingWhenItIsInsecure) {
    TzSoapHttpOptions options;
    options.insecure = true;
    EXPECT_EQ(echoedBy(service_.urlByAddress(), options), "a");
}

TEST_F(TzSoapHttpClientTls, ChecksThePinnedKey) {
    TzSoapHttpOptions options = trusting();
    options.pinnedKey = "sha256//" + made_.pin;
    EXPECT_EQ(echoedBy(service_.url(), options), "a");
    options.pinnedKey = "sha256//AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA=";
    EXPECT_EQ(phaseAt(service_.url(), options), Error::Tls);
}

TEST_F(TzSoapHttpClientTls, ShowsItsCertificate) {
    const TestService strict(echo, made_.server, made_.serverKey, made_.authority);
    TzSoapHttpOptions options = trusting();
    EXPECT_NE(TzSoapHttpClient(strict.url(), options).tryCall(requestOf("a")).findFailure(),
              nullptr);
    options.certificateFile = made_.client;
    options.keyFile = made_.clientKey;
    EXPECT_EQ(echoedBy(strict.url(), options), "a");
}

TEST_F(TzSoapHttpClientTls, AServerWithoutTlsFails) {
    const TestService plain(echo);
    std::string url = plain.url();
    EXPECT_EQ(phaseAt(url.insert(4, "s"), trusting()), Error::Tls);
}

TEST_F(TzSoapHttpClientTls, Http2IsAgreedOn) {
    const Http2Server server({made_.serverKey, made_.server});
    TzSoapHttpOptions options = trusting();
    const std::string url = "https://localhost:" + std::to_string(server.port()) + "/";
    bool lowerCase = false;
    options.watch = [&lowerCase](const TzSoapHttpText& text) {
        // Only HTTP/2 spells all names in lower case.
        lowerCase = text.isAnswer && text.headers.find("server") != text.headers.end();
    };
    const TzSoapHttpClient client(url, options);
    for (const char* text : {"a", "b"}) {
        EXPECT_EQ(textIn(client.call(requestOf(text))), text);
        EXPECT_TRUE(lowerCase);
    }
}

TEST_F(TzSoapHttpClientTls, Http2WithoutUpgrade) {
    const Http2Server server({"--no-tls"});
    TzSoapHttpOptions options;
    options.httpVersion = TzSoapHttpOptions::Http2WithoutUpgrade;
    const TzSoapHttpClient client("http://localhost:" + std::to_string(server.port()) + "/",
                                  options);
    EXPECT_EQ(textIn(client.call(requestOf("a"))), "a");
    EXPECT_EQ(textIn(client.call(requestOf("b"))), "b");
}
