// SPDX-License-Identifier: MIT
#include "http/CannedService.h"
#include "http/HttpClientTesting.h"

#include <stdexcept>

namespace {

/// What the hook was given by one call.
std::vector<TzSoapHttpText> watched(const std::string& url, const TzSoapMessage& request,
                                    TzSoapHttpOptions options = {}) {
    std::vector<TzSoapHttpText> texts;
    options.watch = [&texts](const TzSoapHttpText& text) { texts.push_back(text); };
    TzSoapHttpClient(url, options).tryCall(request, "urn:act");
    EXPECT_EQ(texts.size(), 2U);
    texts.resize(2);
    return texts;
}

/// How the hook shows `element` in a request.
std::string shown(const std::string& element) {
    const CannedService service(200, "text/xml", element);
    return watched(service.url(), requestOf("a")).at(1).body;
}

} // namespace

TEST(TzSoapHttpClientWatch, SeesBothDirections) {
    const CannedService service(200, "text/xml", goodAnswer());
    const std::vector<TzSoapHttpText> texts = watched(service.url(), requestOf("a"));
    EXPECT_FALSE(texts[0].isAnswer);
    EXPECT_EQ(texts[0].headers.asString(), "Content-Type:text/xml; charset=utf-8\n"
                                           "SOAPAction:\"urn:act\"\nUser-Agent:TzSoap\n");
    EXPECT_EQ(texts[0].body, requestOf("a").asText(TzSoapLayout::Compact));
    EXPECT_TRUE(texts[1].isAnswer);
    EXPECT_EQ(texts[1].status, 200);
    EXPECT_EQ(texts[1].body, goodAnswer());
    EXPECT_EQ(texts[1].url, service.url() + "/");
}

TEST(TzSoapHttpClientWatch, MasksHeaders) {
    const TestService service([](const auto& request, auto& response) {
        response.set_header("Set-Cookie", "id=secret");
        response.set_header("X-Token", "secret");
        echo(request, response);
    });
    TzSoapHttpOptions options;
    options.headers = {{"Cookie", "a=secret"}, {"x-key", "secret"}};
    options.credentials = {"me", "secret"};
    options.secretHeaders = {"X-Key", "x-token"};
    const std::vector<TzSoapHttpText> texts = watched(service.url(), requestOf("a"), options);
    for (const TzSoapHttpText& text : texts) {
        EXPECT_EQ(text.headers.asString().find("secret"), std::string::npos)
            << text.headers.asString();
    }
    EXPECT_NE(texts[0].headers.asString().find("Authorization:***\n"), std::string::npos);
    EXPECT_NE(texts[1].headers.asString().find("Set-Cookie:***\n"), std::string::npos);
}

TEST(TzSoapHttpClientWatch, MasksPasswords) {
    EXPECT_EQ(shown("<a><Password>secret</Password><b>c</b></a>"),
              "<a><Password>***</Password><b>c</b></a>");
    EXPECT_EQ(shown("<w:Password Type='a>b'>secret</w:Password >"),
              "<w:Password Type='a>b'>***</w:Password >");
    EXPECT_EQ(shown("<w:Password><![CDATA[secret]]></w:Password>"), "<w:Password>***</w:Password>");
    EXPECT_EQ(shown("<w:Password/><b>c</b><x:BinarySecurityToken\n>secret</x:BinarySecurityToken>"),
              "<w:Password/><b>c</b><x:BinarySecurityToken\n>***</x:BinarySecurityToken>");
    EXPECT_EQ(shown("<Passwords>shown</Passwords><a:Pass>shown</a:Pass>"),
              "<Passwords>shown</Passwords><a:Pass>shown</a:Pass>");
    EXPECT_EQ(shown("<Password>secret"), "<Password>***");
    EXPECT_EQ(shown("<Password"), "<Password***");
}

TEST(TzSoapHttpClientWatch, SeesAnswersThatAreNoMessages) {
    const CannedService service(404, "text/html", "<html>");
    EXPECT_EQ(watched(service.url(), requestOf("a"))[1].body, "<html>");
}

TEST(TzSoapHttpClientWatch, WhatItThrowsLeavesTheCall) {
    const CannedService service(200, "text/xml", goodAnswer());
    TzSoapHttpOptions options;
    options.watch = [](const TzSoapHttpText&) { throw std::runtime_error("enough"); };
    EXPECT_THROW(TzSoapHttpClient(service.url(), options).tryCall(requestOf("a")),
                 std::runtime_error);
}
