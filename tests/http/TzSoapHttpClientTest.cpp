// SPDX-License-Identifier: MIT
#include "http/CannedService.h"
#include "http/HttpClientTesting.h"
#include "http/RawService.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFaultMessage.h>
#include <soap/TzSoapFields.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/mime/TzMimePart.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "support/Throws.h"

#include <cstdlib>

namespace {

struct Line {
    std::string article;
    int amount = 0;
};

/// What is said, details included, about a client of `url`; "" for a good one.
std::string refusalOf(const std::string& url) {
    try {
        const TzSoapHttpClient client(url);
    } catch (const TzXmlBadArgError& error) {
        return error.describe();
    }
    return {};
}

} // namespace

template <> struct TzSoapFields<Line> {
    static constexpr auto fields =
        tzFields(tzField("article", &Line::article), tzField("amount", &Line::amount));
};

namespace {

using Error = TzSoapTransportError;

} // namespace

TEST(TzSoapHttpClient, TheAnswerIsTheMessage) {
    const TestService service(echo);
    const TzSoapHttpClient client(service.url());
    for (const auto version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2, TzSoapVersion::V1_2Rec}) {
        const TzSoapMessage answer = client.call(requestOf("Zoë & <b>", version));
        EXPECT_EQ(answer.getVersion(), version);
        EXPECT_EQ(textIn(answer), "Zoë & <b>");
    }
}

TEST(TzSoapHttpClient, TheActionTravelsAsTheVersionWants) {
    const CannedService service(200, "text/xml", goodAnswer());
    const TzSoapHttpClient client(service.url());
    client.call(requestOf("a"), "urn:act");
    EXPECT_EQ(service.header("SOAPAction"), "\"urn:act\"");
    EXPECT_EQ(service.header("Content-Type"), "text/xml; charset=utf-8");
    client.call(requestOf("a"));
    EXPECT_EQ(service.header("SOAPAction"), "\"\"");
    client.call(requestOf("a", TzSoapVersion::V1_2Rec), "urn:act");
    EXPECT_EQ(service.header("SOAPAction"), "");
    EXPECT_EQ(service.header("Content-Type"),
              "application/soap+xml; charset=utf-8; action=\"urn:act\"");
}

TEST(TzSoapHttpClient, PathAndQueryAreAsked) {
    const CannedService service(200, "text/xml", goodAnswer());
    TzSoapHttpClient(service.url() + "/a%20b?c=d&e#f").call(requestOf("a"));
    EXPECT_EQ(service.target(), "/a%20b?c=d&e");
}

TEST(TzSoapHttpClient, TheStyleOfTheRequestIsThatOfTheAnswer) {
    const TestService service(echo);
    TzSoapMessage request = requestOf("a");
    EXPECT_EQ(TzSoapHttpClient(service.url()).call(request).getStyle(), TzSoapStyle::Encoded);
    request.setStyle(TzSoapStyle::Literal);
    EXPECT_EQ(TzSoapHttpClient(service.url()).call(request).getStyle(), TzSoapStyle::Literal);
}

TEST(TzSoapHttpClient, AValueIsCalledAndAnswered) {
    const TestService service(echo);
    TzSoapHttpOptions options;
    options.version = TzSoapVersion::V1_2Rec;
    const TzSoapType answer =
        TzSoapHttpClient(service.url(), options)
            .call(TzSoapSimpleType("a", "text", TzSoapType::xsdString, true), "urn:act");
    EXPECT_EQ(TzSoapValueReader(answer).getString(), "text");
}

TEST(TzSoapHttpClient, AStructIsCalledAndAnswered) {
    std::string body;
    const TestService service([&body](const auto& request, auto& response) {
        body = request.body;
        echo(request, response);
    });
    for (const TzSoapStyle style : {TzSoapStyle::Encoded, TzSoapStyle::Literal}) {
        TzSoapHttpOptions options;
        options.serviceNamespace = "urn:lines";
        options.style = style;
        const TzSoapHttpClient client(service.url(), options);
        EXPECT_EQ(client.call<Line>("take", Line{"nail", 5}).amount, 5);
        EXPECT_NE(body.find("<m:take"), std::string::npos) << body;
        EXPECT_NE(body.find("xmlns:m=\"urn:lines\""), std::string::npos) << body;
        EXPECT_EQ(client.call<Line>("take", Line{"nail", 5}, "urn:act").article, "nail");
    }
}

TEST(TzSoapHttpClient, ElementsOfAnswersHaveTheTypesOfTheOptions) {
    const CannedService service(200, "text/xml",
                                "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/"
                                "\"><e:Body><number>5</number></e:Body></e:Envelope>");
    const auto typeFor = [&service](const TzSoapHttpOptions& options) {
        const TzSoapMessage answer = TzSoapHttpClient(service.url(), options).call(requestOf("a"));
        return tzSoapAs<TzSoapSimpleType>(answer.getSoapBody().getFirstEntry()).getType();
    };
    TzSoapHttpOptions options;
    EXPECT_EQ(typeFor(options), TzSoapType::xsdUnknown);
    options.types.registerType(
        TzXmlName("number"),
        TzXmlName("int", TzXmlNamespace("xsd", "http://www.w3.org/2001/XMLSchema")));
    EXPECT_EQ(typeFor(options), TzSoapType::xsdInt);
}

TEST(TzSoapHttpClient, ElementsOfAnswersAreKeptAsMarkupWhereTheOptionsSaySo) {
    const CannedService service(200, "text/xml",
                                "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/"
                                "\"><e:Body><token a='1'>x<b/></token></e:Body></e:Envelope>");
    TzSoapHttpOptions options;
    options.markupElements = {TzXmlName("token")};
    const TzSoapMessage answer = TzSoapHttpClient(service.url(), options).call(requestOf("a"));
    EXPECT_EQ(tzSoapAs<TzSoapUserDefinedType>(answer.getSoapBody().getFirstEntry()).getMarkup(),
              "<token a='1'>x<b/></token>");
}

TEST(TzSoapHttpClient, AnAnswerThatIsNotTheStructSaysWhere) {
    const CannedService service(200, "text/xml", goodAnswer());
    const TzSoapHttpClient client(service.url());
    EXPECT_THROW(client.call<Line>("take", Line{}), TzXmlBadArgError);
    const CannedService other(200, "text/xml",
                              "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/"
                              "soap/envelope/\"><e:Body><r><article>a</article>"
                              "</r></e:Body></e:Envelope>");
    EXPECT_EQ(textThrown<TzSoapMissingError>(
                  [&] { TzSoapHttpClient(other.url()).call<Line>("take", Line{}); }),
              "r/amount is missing");
}

TEST(TzSoapHttpClient, AttachmentsComeWithTheAnswer) {
    const TestService service(echo);
    TzSoapMessage request = requestOf("a");
    const std::string bytes("\0\r\n\xFF", 4);
    request.getSoapBody().appendEntry(
        TzSoapReferenceType("file", TzMimePart::make(bytes, "application/octet-stream", "f")));
    const TzSoapMessage answer = TzSoapHttpClient(service.url()).call(request);
    EXPECT_EQ(tzSoapAs<TzSoapReferenceType>(answer.getSoapBody().getChild("file"))
                  .getMimeReference()
                  .getBody(),
              bytes);
    EXPECT_EQ(answer.getMimeMultipart().getPartCount(), 2U);
}

TEST(TzSoapHttpClient, AFaultIsThrown) {
    TzSoapMessage message = TzSoapFaultMessage::make(TzSoapVersion::V1_2Rec, TzSoapVersion::Client,
                                                     TzSoapVersion::BadArguments, "too small");
    TzSoapFault& fault = message.getSoapBody().getSoapFault();
    fault.addDetailEntry("least", TzSoapSimpleType("least", 5, TzSoapType::xsdInt, false));
    const CannedService service(400, "application/soap+xml", message.asString());
    try {
        TzSoapHttpClient(service.url()).call(requestOf("a"));
        ADD_FAILURE() << "no fault";
    } catch (const TzSoapFaultError& error) {
        EXPECT_STREQ(error.what(), "fault env:Sender: too small");
        EXPECT_EQ(error.getCode().getLocalName(), "Sender");
        ASSERT_EQ(error.getSubcodes().size(), 1U);
        EXPECT_EQ(error.getSubcodes()[0].getQualifiedName(), "rpc:BadArguments");
        EXPECT_EQ(error.getReason(), "too small");
        EXPECT_EQ(TzSoapValueReader(error.getDetail().getChild("least")).getInt(), 5);
        EXPECT_EQ(error.getHttpStatus(), 400);
        EXPECT_EQ(error.getMessage().getVersion(), TzSoapVersion::V1_2Rec);
    }
}

TEST(TzSoapHttpClient, FaultsAreFaultsWhateverTheStatus) {
    const std::string fault =
        TzSoapFaultMessage::make(TzSoapVersion::V1_1, TzSoapVersion::Server, "no").asString();
    for (const int status : {200, 202, 400, 404, 500, 503}) {
        const CannedService service(status, "text/xml", fault);
        EXPECT_EQ(textThrown<TzSoapFaultError>(
                      [&] { TzSoapHttpClient(service.url()).call(requestOf("a")); }),
                  "fault SOAP-ENV:Server: no");
    }
}

TEST(TzSoapHttpClient, TryCallReturnsAllThatCanHappen) {
    const CannedService good(200, "text/xml", goodAnswer());
    const TzSoapHttpResult answer = TzSoapHttpClient(good.url()).tryCall(requestOf("a"));
    EXPECT_TRUE(answer.hasAnswer());
    EXPECT_EQ(textIn(answer.getAnswer()), "good");

    const std::string fault =
        TzSoapFaultMessage::make(TzSoapVersion::V1_1, TzSoapVersion::Server, "no").asString();
    const CannedService bad(500, "text/xml", fault);
    const TzSoapHttpResult refused = TzSoapHttpClient(bad.url()).tryCall(requestOf("a"));
    EXPECT_FALSE(refused.hasAnswer());
    ASSERT_NE(refused.findFault(), nullptr);
    EXPECT_EQ(refused.findFault()->getReason(), "no");
    EXPECT_THROW(refused.getAnswer(), TzSoapFaultError);

    const TzSoapHttpResult failed = TzSoapHttpClient("http://localhost:1/").tryCall(requestOf("a"));
    ASSERT_NE(failed.findFailure(), nullptr);
    EXPECT_EQ(failed.findFailure()->getPhase(), Error::Connect);
    EXPECT_EQ(failed.findFault(), nullptr);
    EXPECT_THROW(failed.getAnswer(), TzSoapTransportError);
}

TEST(TzSoapHttpClient, AOneWayCallHasNoAnswer) {
    for (const int status : {200, 202, 204}) {
        const CannedService service(status, "", "");
        const TzSoapHttpClient client(service.url());
        const TzSoapHttpResult result = client.tryCall(requestOf("a"));
        EXPECT_TRUE(result.isEmpty());
        EXPECT_FALSE(result.hasAnswer());
        EXPECT_THROW(result.getAnswer(), TzSoapMissingError);
        EXPECT_EQ(textThrown<TzSoapTransportError>([&] { client.call(requestOf("a")); }),
                  service.url() + "/: the answer is empty");
    }
}

TEST(TzSoapHttpClient, UrlsOfOtherSchemesAreRefused) {
    for (const char* url :
         {"", "nonsense", "ftp://localhost/", "file:///etc/passwd", "ldap://localhost/", "http://",
          "localhost:80", "http://a b/", "http://a:99999/"}) {
        EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { TzSoapHttpClient client(url); }),
                  "The URL is not one of http or https")
            << url;
    }
}

TEST(TzSoapHttpClient, RefusedUrlsShowNoPassword) {
    for (const auto& [url, shown] : std::vector<std::pair<std::string, std::string>>{
             {"htps://joe:s3cret@a/?b", "htps://***@a/?b"},
             {"http://joe:s3/cr@et@a", "http://***@a"},
             {"joe:s3cret@a", "***@a"},
             {"nonsense", "nonsense"}}) {
        EXPECT_EQ(refusalOf(url), "The URL is not one of http or https (\"" + shown + "\")");
    }
}

TEST(TzSoapHttpClient, AnyNumberOfConnectionsMayBeKept) {
    const CannedService service(200, "text/xml", goodAnswer());
    TzSoapHttpOptions options;
    options.idleConnections = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(textIn(TzSoapHttpClient(service.url(), options).call(requestOf("a"))), "good");
}

TEST(TzSoapHttpClient, HeaderLinesThatNoRequestHasAreRefused) {
    for (const auto& [name, value] : std::vector<std::pair<std::string, std::string>>{
             {"X\r\nY", "a"}, {"X", "a\r\nY: b"}, {"X Y", "a"}, {"", "a"}, {"X:", "a"}}) {
        TzSoapHttpOptions options;
        options.headers = {{name, value}};
        EXPECT_EQ(textThrown<TzXmlBadArgError>(
                      [&] { TzSoapHttpClient client("http://localhost/", options); }),
                  "[INVALID_HTTP_HEADER][Http header is invalid]");
    }
    const TzSoapHttpClient client("http://localhost:1/");
    EXPECT_EQ(textThrown<TzXmlBadArgError>([&] { client.call(requestOf("a"), "a\r\nX: b"); }),
              "[INVALID_HTTP_HEADER][Http header is invalid]");
}

TEST(TzSoapHttpClient, FurtherHeaderLinesReplaceOthers) {
    const CannedService service(200, "text/xml", goodAnswer());
    TzSoapHttpOptions options;
    options.headers = {{"X-Empty", ""}, {"X-Own", "a: b"}, {"user-agent", "me"}};
    TzSoapHttpClient(service.url(), options).call(requestOf("a"));
    EXPECT_EQ(service.header("X-Own"), "a: b");
    EXPECT_EQ(service.header("X-Empty"), "");
    EXPECT_EQ(service.header("User-Agent"), "me");
}

TEST(TzSoapHttpClient, ALargeRequestDoesNotWaitForLeave) {
    const CannedService service(200, "text/xml", goodAnswer());
    TzSoapHttpClient(service.url()).call(requestOf(std::string(3U << 20U, 'x')));
    EXPECT_EQ(service.header("Expect"), "");
    EXPECT_GT(service.body().size(), 3U << 20U);
}

TEST(TzSoapHttpClient, ARequestIsMadeByTheOptions) {
    TzSoapHttpOptions options;
    options.version = TzSoapVersion::V1_2Rec;
    options.style = TzSoapStyle::Literal;
    const TzSoapMessage request =
        TzSoapHttpClient("http://localhost/", options)
            .makeRequest(TzSoapSimpleType("a", "text", TzSoapType::xsdString, true));
    EXPECT_EQ(request.getVersion(), TzSoapVersion::V1_2Rec);
    EXPECT_EQ(request.getStyle(), TzSoapStyle::Literal);
    EXPECT_EQ(textIn(request), "text");
}

TEST(TzSoapHttpClient, TheEnvironmentNamesNoProxy) {
    const CannedService service(200, "text/xml", goodAnswer());
    for (const char* name : {"http_proxy", "all_proxy", "ALL_PROXY"}) {
        setenv(name, "http://127.0.0.1:1/", 1);
    }
    EXPECT_EQ(textIn(TzSoapHttpClient(service.url()).call(requestOf("a"))), "good");
    for (const char* name : {"http_proxy", "all_proxy", "ALL_PROXY"}) {
        unsetenv(name);
    }
}

TEST(TzSoapHttpClient, NoPasswordComesFromANetrc) {
    const std::string home = testing::TempDir() + "tzsoap-home";
    std::filesystem::create_directories(home);
    std::ofstream(home + "/.netrc") << "machine 127.0.0.1 login me password secret\n";
    const char* const before = std::getenv("HOME");
    const std::string kept = before == nullptr ? "" : before;
    setenv("HOME", home.c_str(), 1);
    const CannedService service(200, "text/xml", goodAnswer());
    TzSoapHttpClient(service.url()).call(requestOf("a"));
    setenv("HOME", kept.c_str(), 1);
    EXPECT_EQ(service.header("Authorization"), "");
}

TEST(TzSoapHttpClient, AProxyOfTheOptionsIsAsked) {
    const CannedService proxy(200, "text/xml", goodAnswer());
    TzSoapHttpOptions options;
    options.proxy = proxy.url();
    options.proxyCredentials = {"me", "secret"};
    setenv("no_proxy", "*", 1);
    TzSoapHttpClient("http://service.invalid/a", options).call(requestOf("a"));
    unsetenv("no_proxy");
    EXPECT_EQ(proxy.target(), "http://service.invalid/a");
    EXPECT_EQ(proxy.header("Proxy-Authorization"), "Basic bWU6c2VjcmV0");
}

TEST(TzSoapHttpClient, CredentialsAreShown) {
    const CannedService service(200, "text/xml", goodAnswer());
    TzSoapHttpOptions options;
    options.credentials = {"me", "secret"};
    TzSoapHttpClient(service.url(), options).call(requestOf("a"));
    EXPECT_EQ(service.header("Authorization"), "Basic bWU6c2VjcmV0");
    options.credentials = {"", "token", TzSoapHttpOptions::Bearer};
    TzSoapHttpClient(service.url(), options).call(requestOf("a"));
    EXPECT_EQ(service.header("Authorization"), "Bearer token");
    std::string url = service.url();
    url.insert(url.find("//") + 2, "me:secr%65t@");
    const TzSoapHttpClient client(url);
    client.call(requestOf("a"));
    EXPECT_EQ(service.header("Authorization"), "Basic bWU6c2VjcmV0");
    EXPECT_EQ(client.getUrl(), service.url() + "/");
}

TEST(TzSoapHttpClient, ADigestIsAgreedOn) {
    const TestService service([](const auto& request, auto& response) {
        if (!request.get_header_value("Authorization").starts_with("Digest username=\"me\"")) {
            response.status = 401;
            response.set_header("WWW-Authenticate",
                                "Digest realm=\"r\", nonce=\"n\", qop=\"auth\"");
            return;
        }
        echo(request, response);
    });
    TzSoapHttpOptions options;
    options.credentials = {"me", "secret", TzSoapHttpOptions::Digest};
    EXPECT_EQ(textIn(TzSoapHttpClient(service.url(), options).call(requestOf("a"))), "a");
    options.credentials.authentication = TzSoapHttpOptions::Any;
    EXPECT_EQ(textIn(TzSoapHttpClient(service.url(), options).call(requestOf("b"))), "b");
}

TEST(TzSoapHttpClient, CookiesGoBackWhereTheOptionsSaySo) {
    std::vector<std::string> sent;
    const TestService service([&sent](const auto& request, auto& response) {
        sent.push_back(request.get_header_value("Cookie"));
        response.set_header("Set-Cookie", "id=7");
        echo(request, response);
    });
    for (const bool kept : {false, true}) {
        TzSoapHttpOptions options;
        options.cookies = kept;
        const TzSoapHttpClient client(service.url(), options);
        client.call(requestOf("a"));
        client.call(requestOf("a"));
    }
    EXPECT_EQ(sent, (std::vector<std::string>{"", "", "", "id=7"}));
}

TEST(TzSoapHttpClient, AConnectionIsUsedAgain) {
    std::set<int> ports;
    const TestService service([&ports](const auto& request, auto& response) {
        ports.insert(request.remote_port);
        echo(request, response);
    });
    const TzSoapHttpClient client(service.url());
    for (int i = 0; i < 3; ++i) {
        client.call(requestOf("a"));
    }
    EXPECT_EQ(ports.size(), 1U);
}

TEST(TzSoapHttpClient, AnswersMayBeCompressed) {
    const std::string text(10000, 'x');
    const TestService service(echo);
    std::vector<std::string> encodings;
    TzSoapHttpOptions options;
    options.watch = [&encodings](const TzSoapHttpText& seen) {
        const auto found = seen.headers.find("Content-Encoding");
        if (seen.isAnswer) {
            encodings.push_back(found == seen.headers.end() ? "" : found->second);
        }
    };
    EXPECT_EQ(textIn(TzSoapHttpClient(service.url(), options).call(requestOf(text))), text);
    options.compression = false;
    EXPECT_EQ(textIn(TzSoapHttpClient(service.url(), options).call(requestOf(text))), text);
    EXPECT_EQ(encodings, (std::vector<std::string>{"gzip", ""}));
}

TEST(TzSoapHttpClient, ManyCallsAtOnce) {
    const TestService service(echo);
    const TzSoapHttpClient client(service.url());
    std::atomic<int> good = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 200; ++i) {
        threads.emplace_back([&client, &good, i] {
            const std::string text = "call " + std::to_string(i);
            const TzSoapHttpResult result = client.tryCall(requestOf(text));
            if (const auto* const failure = result.findFailure()) {
                ADD_FAILURE() << failure->what();
            } else {
                good += textIn(result.getAnswer()) == text ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(good, 200);
}

TEST(TzSoapHttpClient, ItMoves) {
    const CannedService service(200, "text/xml", goodAnswer());
    TzSoapHttpClient first(service.url());
    TzSoapHttpClient second = std::move(first);
    EXPECT_EQ(textIn(second.call(requestOf("a"))), "good");
}
