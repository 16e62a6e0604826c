// SPDX-License-Identifier: MIT
#include "http/CannedService.h"
#include "http/HttpClientTesting.h"

#include "support/Throws.h"

namespace {

constexpr int Statuses[] = {301, 302, 303, 307, 308};

/// A service that sends on to `target` with `status`.
TestService::Handler redirectTo(const std::string& target, int status) {
    return [target, status](const auto&, auto& response) {
        response.status = status;
        response.set_header("Location", target);
    };
}

TzSoapHttpOptions following(unsigned int redirects) {
    TzSoapHttpOptions options;
    options.redirects = redirects;
    return options;
}

std::string failureAt(const std::string& url, const TzSoapHttpOptions& options) {
    return textThrown<TzSoapTransportError>(
        [&] { TzSoapHttpClient(url, options).call(requestOf("a")); });
}

} // namespace

TEST(TzSoapHttpClientRedirect, IsNotFollowedUnlessAsked) {
    const CannedService target(200, "text/xml", goodAnswer());
    for (const int status : Statuses) {
        const TestService service(redirectTo(target.url(), status));
        EXPECT_EQ(failureAt(service.url(), {}),
                  service.url() + ": the answer with status " + std::to_string(status) +
                      " is a redirect to \"" + target.url() + "\", which is not followed");
    }
    EXPECT_EQ(target.target(), "");
}

TEST(TzSoapHttpClientRedirect, StaysAPost) {
    const TestService target(echo);
    for (const int status : Statuses) {
        const TestService service(redirectTo(target.url(), status));
        const TzSoapHttpClient client(service.url(), following(1));
        EXPECT_EQ(textIn(client.call(requestOf("the same"), "urn:act")), "the same") << status;
    }
}

TEST(TzSoapHttpClientRedirect, MayBeRelative) {
    const TestService service([](const auto& request, auto& response) {
        if (request.path != "/b/d") {
            response.status = 307;
            response.set_header("Location", request.path == "/b/c" ? "d" : "/b/c");
            return;
        }
        echo(request, response);
    });
    EXPECT_EQ(textIn(TzSoapHttpClient(service.url(), following(2)).call(requestOf("a"))), "a");
}

TEST(TzSoapHttpClientRedirect, ManyAreTooMany) {
    const TestService service(redirectTo("/", 302));
    EXPECT_EQ(failureAt(service.url(), following(3)),
              service.url() + ": the answer with status 302 is a redirect to \"/\", which is not "
                              "followed after 3 others");
}

TEST(TzSoapHttpClientRedirect, OtherSchemesAreRefused) {
    for (const std::string target : {"file:///etc/passwd", "ftp://localhost/",
                                     "gopher://localhost/", "http://", "http://a b/"}) {
        const TestService service(redirectTo(target, 302));
        EXPECT_EQ(failureAt(service.url(), following(1)),
                  service.url() + ": the answer with status 302 is a redirect to \"" + target +
                      "\", which is not a URL of http or https");
    }
}

TEST(TzSoapHttpClientRedirect, ErrorsShowNoPassword) {
    const TestService service(redirectTo("ftp://joe:s3cret@a/", 307));
    EXPECT_EQ(failureAt(service.url(), following(1)),
              service.url() + ": the answer with status 307 is a redirect to \"ftp://***@a/\", "
                              "which is not a URL of http or https");
}

TEST(TzSoapHttpClientRedirect, NeverLeavesTls) {
    const TestCertificates& made = TestCertificates::get();
    const CannedService target(200, "text/xml", goodAnswer());
    const TestService service(redirectTo(target.url(), 307), made.server, made.serverKey);
    TzSoapHttpOptions options = following(1);
    options.caFile = made.authority;
    EXPECT_EQ(failureAt(service.url(), options),
              service.url() + ": the answer with status 307 is a redirect to \"" + target.url() +
                  "\", which is not encrypted");
    EXPECT_EQ(target.target(), "");
}

TEST(TzSoapHttpClientRedirect, CarriesNoSecretsToAnotherHost) {
    const CannedService target(200, "text/xml", goodAnswer());
    const TestService service(redirectTo(target.url(), 307));
    TzSoapHttpOptions options = following(1);
    options.credentials = {"me", "secret"};
    options.cookies = true;
    options.headers = {{"X-Key", "secret"}, {"Cookie", "a=b"}, {"Authorization", "secret"}};
    TzSoapHttpClient(service.url(), options).call(requestOf("a"), "urn:act");
    EXPECT_EQ(target.header("SOAPAction"), "\"urn:act\"");
    EXPECT_EQ(target.header("Authorization"), "");
    EXPECT_EQ(target.header("Cookie"), "");
    EXPECT_EQ(target.header("X-Key"), "");
}

TEST(TzSoapHttpClientRedirect, CarriesCredentialsWithinTheHost) {
    std::string shown;
    const TestService service([&shown](const auto& request, auto& response) {
        if (request.path == "/") {
            response.status = 307;
            response.set_header("Location", "/there");
            return;
        }
        shown = request.get_header_value("Authorization");
        echo(request, response);
    });
    TzSoapHttpOptions options = following(1);
    options.credentials = {"me", "secret"};
    TzSoapHttpClient(service.url(), options).call(requestOf("a"));
    EXPECT_EQ(shown, "Basic bWU6c2VjcmV0");
}

TEST(TzSoapHttpClientRedirect, CarriesNoWsSecurityHeaderToAnotherHost) {
    const CannedService target(200, "text/xml", goodAnswer());
    const TestService service(redirectTo(target.url(), 307));
    TzSoapMessage request = requestOf("a");
    request.getSoapHeader().appendHeaderEntry(
        TzSoapSimpleType(
            TzXmlName("Security",
                      TzXmlNamespace("wsse", "http://docs.oasis-open.org/wss/2004/01/"
                                             "oasis-200401-wss-wssecurity-secext-1.0.xsd")),
            "", TzSoapType::xsdUnknown, false),
        false);
    const TzSoapHttpClient client(service.url(), following(1));
    const std::string text = textThrown<TzSoapTransportError>([&] { client.call(request); });
    EXPECT_TRUE(
        text.ends_with("another host, which must not see the WS-Security header of the request"))
        << text;
    EXPECT_EQ(target.target(), "");
}
