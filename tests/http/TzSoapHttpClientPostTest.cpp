// SPDX-License-Identifier: MIT
//
// Texts that exist already.
#include "http/CannedService.h"
#include "http/HttpClientTesting.h"
#include "http/RawService.h"

#include <soap/TzSoapHttpBinding.h>
#include <tz/xml/TzXmlBadArgError.h>

#include "support/Throws.h"

namespace {

TzSoapHttpTransportContext described() {
    TzSoapHttpTransportContext context;
    context.setSoapAction("urn:act");
    TzSoapHttpBinding::describe(TzSoapVersion::V1_1, "utf-8", context);
    return context;
}

} // namespace

TEST(TzSoapHttpClientPost, TheTextTravelsAsItStands) {
    const CannedService service(200, "text/xml", goodAnswer());
    const std::string text = "<!-- as it stands -->\r\n" + goodAnswer() + "\n\n";
    const TzSoapHttpAnswer answer = TzSoapHttpClient(service.url()).post(text, described());
    EXPECT_EQ(service.body(), text);
    EXPECT_EQ(service.header("Content-Type"), "text/xml; charset=utf-8");
    EXPECT_EQ(service.header("SOAPAction"), "\"urn:act\"");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.body, goodAnswer());
    TzSoapMessage read;
    TzSoapHttpBinding::unpack(answer.headers, answer.body, read);
    EXPECT_EQ(textIn(read), "good");
}

TEST(TzSoapHttpClientPost, WhateverComesIsTheAnswer) {
    for (const auto& [status, type, body] : std::vector<std::tuple<int, std::string, std::string>>{
             {404, "text/html", "<html>"}, {500, "text/xml", "<a"}, {202, "", ""}}) {
        const CannedService service(status, type, body);
        const TzSoapHttpAnswer answer = TzSoapHttpClient(service.url()).post("<a/>", described());
        EXPECT_EQ(answer.status, status);
        const auto found = answer.headers.find("Content-Type");
        EXPECT_EQ(found == answer.headers.end() ? "" : found->second, type);
        EXPECT_EQ(answer.body, body);
    }
}

TEST(TzSoapHttpClientPost, TheFirstContentTypeHolds) {
    const std::string good = goodAnswer();
    const RawService service("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-type: "
                             "text/html\r\nContent-Length: " +
                                 std::to_string(good.size()) + "\r\n\r\n" + good,
                             "");
    const TzSoapHttpAnswer answer = TzSoapHttpClient(service.url()).post("<a/>", described());
    TzSoapMessage read;
    TzSoapHttpBinding::unpack(answer.headers, answer.body, read);
    EXPECT_EQ(textIn(read), "good");
}

TEST(TzSoapHttpClientPost, NoAnswerIsThrown) {
    EXPECT_THROW(TzSoapHttpClient("http://localhost:1/").post("<a/>", described()),
                 TzSoapTransportError);
}

TEST(TzSoapHttpClientPost, HeaderLinesThatNoRequestHasAreRefused) {
    const CannedService service(200, "text/xml", goodAnswer());
    for (const auto& [name, value] : std::vector<std::pair<std::string, std::string>>{
             {"X\r\nY", "a"}, {"X", "a\r\nY: b"}, {"", "a"}}) {
        TzSoapHttpTransportContext context;
        context.add(name, value);
        EXPECT_EQ(textThrown<TzXmlBadArgError>(
                      [&] { TzSoapHttpClient(service.url()).post("<a/>", context); }),
                  "[INVALID_HTTP_HEADER][Http header is invalid]");
    }
    EXPECT_EQ(service.target(), "");
}

TEST(TzSoapHttpClientPost, LeavesTheHostForNoRedirect) {
    const CannedService target(200, "text/xml", goodAnswer());
    const TestService service([&target](const auto&, auto& response) {
        response.status = 307;
        response.set_header("Location", target.url());
    });
    TzSoapHttpOptions options;
    options.redirects = 1;
    const TzSoapHttpClient client(service.url(), options);
    EXPECT_EQ(textThrown<TzSoapTransportError>([&] { client.post("<a/>", described()); }),
              service.url() + ": the answer with status 307 is a redirect to \"" + target.url() +
                  "\", another host, which must not see a text whose secrets are not known");
    EXPECT_EQ(target.target(), "");
}

TEST(TzSoapHttpClientPost, TheHookSeesIt) {
    const CannedService service(404, "text/html", "<html>");
    std::vector<std::string> bodies;
    TzSoapHttpOptions options;
    options.watch = [&bodies](const TzSoapHttpText& text) { bodies.push_back(text.body); };
    TzSoapHttpClient(service.url(), options).post("<Password>a</Password>", described());
    EXPECT_EQ(bodies, (std::vector<std::string>{"<Password>***</Password>", "<html>"}));
}
