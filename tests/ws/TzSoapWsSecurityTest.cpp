// SPDX-License-Identifier: MIT
#include "ws/WsMessages.h"

#include <soap/TzSoapWsSecurity.h>
#include <soap/TzSoapWsVerifier.h>

#include "TzSoapWsReplays.h"

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Time = TzSoapWsVerifier::Time;
using Version = TzSoapVersion::Version;

/// 2026-11-22T10:00:00Z
const Time Noon = std::chrono::sys_days(std::chrono::year(2026) / 11 / 22) + 10h;

const std::string Profile =
    "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-username-token-profile-1.0";

std::optional<TzCString> passwordOf(const TzCString& user) {
    return user == "ann" ? std::optional<TzCString>("s3cret") : std::nullopt;
}

TzSoapWsVerifier::Options plain() { return {.plainPasswords = true}; }

/// A Security entry with the digest that `digest` states, made at `created`.
std::string withDigest(const std::string& created = "2026-11-22T10:00:00Z",
                       const std::string& digest = "3/vCR7721di5+GaROLNXgqS2IIA=",
                       const std::string& user = "ann") {
    return "<wsse:Security><wsse:UsernameToken><wsse:Username>" + user +
           "</wsse:Username><wsse:Password Type='" + Profile + "#PasswordDigest'>" + digest +
           "</wsse:Password><wsse:Nonce>MDEyMzQ1Njc4OWFiY2RlZg==</wsse:Nonce><wsu:Created>" +
           created + "</wsu:Created></wsse:UsernameToken></wsse:Security>";
}

/// A Security entry with a password as it is, and `more` beside the token.
std::string withPassword(const std::string& password, const std::string& more = "") {
    return "<wsse:Security>" + more +
           "<wsse:UsernameToken><wsse:Username>ann</wsse:Username><wsse:Password>" + password +
           "</wsse:Password></wsse:UsernameToken></wsse:Security>";
}

std::string timestamp(const std::string& created, const std::string& expires = "") {
    return "<wsu:Timestamp><wsu:Created>" + created + "</wsu:Created>" +
           (expires.empty() ? "" : "<wsu:Expires>" + expires + "</wsu:Expires>") +
           "</wsu:Timestamp>";
}

std::string refusal(const TzSoapWsVerifier& verifier, const std::string& header, Time now = Noon,
                    Version version = TzSoapVersion::V1_1) {
    const TzSoapMessage message = messageWithHeader(version, header);
    return faultThrown([&] { verifier.verify(message, now); });
}

std::string wsse(const std::string& code, Version version = TzSoapVersion::V1_1) {
    return faultOf(version, {code}, TzSoapWsSecurity::Namespace);
}
std::string expired() {
    return faultOf(TzSoapVersion::V1_1, {"MessageExpired"}, TzSoapWsSecurity::UtilityNamespace);
}

} // namespace

TEST(TzSoapWsVerifier, KnowsADigestThatAnotherProgramComputed) {
    const TzSoapWsVerifier verifier(passwordOf);
    for (const Version version :
         {TzSoapVersion::V1_1, TzSoapVersion::V1_2, TzSoapVersion::V1_2Rec}) {
        const TzSoapWsVerifier fresh(passwordOf);
        EXPECT_EQ(fresh.verify(messageWithHeader(version, withDigest()), Noon), "ann");
    }
    EXPECT_EQ(refusal(verifier, withDigest("2026-11-22T10:00:01Z")), wsse("FailedAuthentication"));
    EXPECT_EQ(refusal(verifier,
                      withDigest("2026-11-22T10:00:00Z", "3/vCR7721di5+GaROLNXgqS2IIA=", "bob")),
              wsse("FailedAuthentication"));
}

TEST(TzSoapWsVerifier, WhatTheClientWritesIsAccepted) {
    const TzSoapWsVerifier verifier(passwordOf, plain());
    for (const Version version :
         {TzSoapVersion::V1_1, TzSoapVersion::V1_2, TzSoapVersion::V1_2Rec}) {
        for (const TzSoapStyle style : {TzSoapStyle::Encoded, TzSoapStyle::Literal}) {
            TzSoapMessage message(version);
            message.setStyle(style);
            TzSoapWsSecurity().addTimestamp().addPasswordDigest("ann", "s3cret").write(message);
            EXPECT_EQ(verifier.verify(again(message)), "ann");
            TzSoapWsSecurity().addTimestamp().addPassword("ann", "s3cret").write(message);
            EXPECT_EQ(message.getSoapHeader().entryCount(), 1U) << "the first entry is replaced";
            EXPECT_EQ(verifier.verify(again(message)), "ann");
        }
    }
}

TEST(TzSoapWsVerifier, ADigestIsGoodForOneMessage) {
    const TzSoapWsVerifier verifier(passwordOf);
    const TzSoapMessage message = messageWithHeader(TzSoapVersion::V1_2Rec, withDigest());
    EXPECT_EQ(verifier.verify(message, Noon), "ann");
    EXPECT_EQ(faultThrown([&] { verifier.verify(message, Noon); }),
              wsse("FailedAuthentication", TzSoapVersion::V1_2Rec));
    EXPECT_EQ(faultThrown([&] { verifier.verify(message, Noon + 6min); }),
              wsse("FailedAuthentication", TzSoapVersion::V1_2Rec));
    EXPECT_EQ(
        faultThrown([&] { verifier.verify(message, Noon + 6min + 1s); }),
        faultOf(TzSoapVersion::V1_2Rec, {"MessageExpired"}, TzSoapWsSecurity::UtilityNamespace));
}

TEST(TzSoapWsVerifier, ADigestIsFreshForAWhile) {
    for (const auto& [now, good] :
         {std::pair(Noon - 1min, true), std::pair(Noon - 1min - 1s, false),
          std::pair(Noon + 6min, true), std::pair(Noon + 6min + 1s, false)}) {
        const TzSoapWsVerifier verifier(passwordOf);
        EXPECT_EQ(refusal(verifier, withDigest(), now), good ? "" : expired())
            << (now - Noon).count();
    }
}

TEST(TzSoapWsVerifier, PlainPasswordsAreAcceptedOnDemand) {
    EXPECT_EQ(refusal(TzSoapWsVerifier(passwordOf), withPassword("s3cret")),
              wsse("UnsupportedSecurityToken"));
    const TzSoapWsVerifier verifier(passwordOf, plain());
    EXPECT_EQ(refusal(verifier, withPassword("s3cret")), "");
    for (const char* wrong : {"", "s3cre", "s3cretx", "S3cret", " s3cret"}) {
        EXPECT_EQ(refusal(verifier, withPassword(wrong)), wsse("FailedAuthentication")) << wrong;
    }
}

TEST(TzSoapWsVerifier, AnUnknownUserHasNoPassword) {
    const TzSoapWsVerifier verifier([](const TzCString&) { return std::nullopt; }, plain());
    EXPECT_EQ(refusal(verifier, withPassword("")), wsse("FailedAuthentication"));
}

TEST(TzSoapWsVerifier, ARequestWithoutUserIsRefused) {
    const TzSoapWsVerifier verifier(passwordOf, plain());
    for (const char* header :
         {"", "<wsse:Security/>", "<wsse:Security>text</wsse:Security>",
          "<wsse:Security><wsse:Other/></wsse:Security>", "<Security/>",
          "<wsse:Security env:actor='urn:other'><wsse:UsernameToken><wsse:Username>ann"
          "</wsse:Username><wsse:Password>s3cret</wsse:Password></wsse:UsernameToken>"
          "</wsse:Security>"}) {
        EXPECT_EQ(refusal(verifier, header), wsse("FailedAuthentication")) << header;
    }
}

TEST(TzSoapWsVerifier, WhatStandsTwiceIsRefused) {
    const TzSoapWsVerifier verifier(passwordOf, plain());
    const std::string token = "<wsse:UsernameToken><wsse:Username>ann</wsse:Username>"
                              "<wsse:Password>s3cret</wsse:Password></wsse:UsernameToken>";
    EXPECT_EQ(refusal(verifier, withPassword("s3cret") + withPassword("s3cret")),
              wsse("InvalidSecurity"));
    EXPECT_EQ(refusal(verifier, withPassword("s3cret", token)), wsse("InvalidSecurity"));
    const std::string time = timestamp("2026-11-22T10:00:00Z");
    EXPECT_EQ(refusal(verifier, withPassword("s3cret", time + time)), wsse("InvalidSecurity"));
}

TEST(TzSoapWsVerifier, AnIncompleteTokenIsRefused) {
    const TzSoapWsVerifier verifier(passwordOf, plain());
    for (const char* left : {"<wsse:Nonce>MDEyMzQ1Njc4OWFiY2RlZg==</wsse:Nonce>",
                             "<wsu:Created>2026-11-22T10:00:00Z</wsu:Created>",
                             "<wsse:Username>ann</wsse:Username>"}) {
        std::string header = withDigest();
        header.erase(header.find(left), std::string(left).size());
        EXPECT_EQ(refusal(verifier, header), wsse("InvalidSecurity")) << left;
    }
    EXPECT_EQ(refusal(verifier, withDigest("noon")), wsse("InvalidSecurity"));
    EXPECT_EQ(refusal(verifier, withDigest("2026-11-22T10:00:00Z", "!")), wsse("InvalidSecurity"));
    EXPECT_EQ(refusal(verifier, withDigest("2026-11-22T10:00:00Z", "")),
              wsse("FailedAuthentication"));
}

TEST(TzSoapWsVerifier, APasswordOfAnotherKindIsRefused) {
    std::string header = withDigest();
    header.replace(header.find("#PasswordDigest"), 15, "#PasswordOther");
    EXPECT_EQ(refusal(TzSoapWsVerifier(passwordOf, plain()), header),
              wsse("UnsupportedSecurityToken"));
}

TEST(TzSoapWsVerifier, ATimestampLimitsTheMessage) {
    const TzSoapWsVerifier verifier(passwordOf, plain());
    const auto at = [&](const std::string& time) {
        return refusal(verifier, withPassword("s3cret", time));
    };
    EXPECT_EQ(at(timestamp("2026-11-22T10:00:00Z", "2026-11-22T10:05:00Z")), "");
    EXPECT_EQ(at(timestamp("2026-11-22T09:00:00Z", "2026-11-22T09:59:00Z")), "") << "skew";
    EXPECT_EQ(at(timestamp("2026-11-22T09:00:00Z", "2026-11-22T09:58:59Z")), expired());
    EXPECT_EQ(at(timestamp("2026-11-22T10:01:01Z", "2026-11-22T11:00:00Z")), expired());
    EXPECT_EQ(at(timestamp("2026-11-22T12:00:00+02:00")), "") << "the same instant";
    EXPECT_EQ(at(timestamp("2026-11-22T09:53:59Z")), expired());
    EXPECT_EQ(at("<wsu:Timestamp/>"), expired());
    EXPECT_EQ(at(timestamp("yesterday")), wsse("InvalidSecurity"));
}

TEST(TzSoapWsVerifier, FreshnessMayBeWithoutLimit) {
    TzSoapWsVerifier::Options options = plain();
    options.freshness = std::chrono::seconds::max();
    options.clockSkew = std::chrono::seconds::max();
    const TzSoapWsVerifier verifier(passwordOf, options);
    EXPECT_EQ(refusal(verifier, withPassword("s3cret", timestamp("2020-11-22T10:00:00Z"))), "");
    EXPECT_EQ(refusal(verifier, withPassword("s3cret", timestamp("2030-11-22T10:00:00Z"))), "");
    const std::string last = timestamp("2026-11-22T10:00:00Z", "2261-12-31T23:59:59Z");
    EXPECT_EQ(refusal(verifier, withPassword("s3cret", last)), "");
    EXPECT_EQ(refusal(verifier, withDigest()), "");
    EXPECT_EQ(refusal(verifier, withDigest(), Noon + 24h), wsse("FailedAuthentication"));
}

TEST(TzSoapWsVerifier, ATimestampCanBeDemanded) {
    TzSoapWsVerifier::Options options = plain();
    options.timestampRequired = true;
    const TzSoapWsVerifier verifier(passwordOf, options);
    EXPECT_EQ(refusal(verifier, withPassword("s3cret")), wsse("InvalidSecurity"));
    EXPECT_EQ(refusal(verifier, withPassword("s3cret", timestamp("2026-11-22T10:00:00Z"))), "");
}

TEST(TzSoapWsVerifier, OfManyThreadsOneIsAccepted) {
    const TzSoapWsVerifier verifier(passwordOf);
    std::vector<std::future<bool>> tries;
    for (int i = 0; i < 8; ++i) {
        tries.push_back(std::async(
            std::launch::async, [&verifier] { return refusal(verifier, withDigest()).empty(); }));
    }
    int accepted = 0;
    for (std::future<bool>& each : tries) {
        accepted += each.get() ? 1 : 0;
    }
    EXPECT_EQ(accepted, 1);
}

TEST(TzSoapWsVerifier, WrongPasswordsDoNotFillTheCache) {
    TzSoapWsVerifier::Options options;
    options.replayLimit = 1;
    const TzSoapWsVerifier verifier(passwordOf, options);
    for (const char* seconds : {"01", "02", "03"}) {
        EXPECT_EQ(refusal(verifier, withDigest(std::string("2026-11-22T10:00:") + seconds + "Z")),
                  wsse("FailedAuthentication"));
    }
    EXPECT_EQ(refusal(verifier, withDigest()), "");
}

TEST(TzSoapWsReplays, ForgetsWhatIsOverAndNothingElse) {
    using Result = TzSoapWsReplays::Result;
    TzSoapWsReplays replays(2);
    EXPECT_EQ(replays.add("a", Noon + 2s, Noon), Result::New);
    EXPECT_EQ(replays.add("b", Noon + 1s, Noon), Result::New);
    EXPECT_EQ(replays.add("c", Noon + 9s, Noon), Result::Full);
    EXPECT_EQ(replays.add("a", Noon + 2s, Noon + 1s), Result::Repeated);
    EXPECT_EQ(replays.add("b", Noon + 1s, Noon + 1s), Result::Repeated) << "its end has not passed";
    EXPECT_EQ(replays.add("c", Noon + 9s, Noon + 2s), Result::New) << "b has ended";
    EXPECT_EQ(replays.add("a", Noon + 2s, Noon + 2s), Result::Repeated);
}

TEST(TzSoapWsReplays, WhatMayHaveBeenForgottenIsNotNew) {
    using Result = TzSoapWsReplays::Result;
    TzSoapWsReplays replays(9);
    EXPECT_EQ(replays.add("a", Noon + 2s, Noon), Result::New);
    EXPECT_EQ(replays.add("b", Noon + 9s, Noon + 3s), Result::New) << "a is forgotten";
    // The clock was put back, or this thread looked at it earlier.
    EXPECT_EQ(replays.add("a", Noon + 2s, Noon + 1s), Result::Repeated);
    EXPECT_EQ(replays.add("c", Noon + 3s, Noon + 1s), Result::New);
}

TEST(TzSoapWsVerifier, ADigestStaysUsedWhenTheClockGoesBack) {
    const TzSoapWsVerifier verifier(passwordOf);
    TzSoapMessage later;
    TzSoapWsSecurity().addPasswordDigest("ann", "s3cret", Noon + 7min).write(later);
    EXPECT_EQ(refusal(verifier, withDigest()), "");
    EXPECT_EQ(verifier.verify(later, Noon + 7min), "ann");
    EXPECT_EQ(refusal(verifier, withDigest(), Noon + 5min), wsse("FailedAuthentication"));
}

TEST(TzSoapWsSecurity, WritesTheEntryThatReceiversKnow) {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setStyle(TzSoapStyle::Literal);
    TzSoapWsSecurity().addTimestamp(5min, Noon + 123ms).addPassword("ann", "<&>").write(message);
    EXPECT_EQ(
        message.asString(),
        R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/" xmlns:wsse="http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-secext-1.0.xsd" xmlns:wsu="http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-utility-1.0.xsd"><SOAP-ENV:Header>)"
        R"(<wsse:Security SOAP-ENV:mustUnderstand="1"><wsu:Timestamp><wsu:Created>2026-11-22T10:00:00.123Z</wsu:Created><wsu:Expires>2026-11-22T10:05:00.123Z</wsu:Expires></wsu:Timestamp>)"
        R"(<wsse:UsernameToken><wsse:Username>ann</wsse:Username><wsse:Password Type="http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-username-token-profile-1.0#PasswordText">&lt;&amp;&gt;</wsse:Password></wsse:UsernameToken></wsse:Security>)"
        R"(</SOAP-ENV:Header><SOAP-ENV:Body></SOAP-ENV:Body></SOAP-ENV:Envelope>)");
}
