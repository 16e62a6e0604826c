// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapNode.h>
#include <soap/TzSoapWsExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>

class TzSoapMessage;
class TzSoapWsReplays;

/// Checks the Security entry of requests: who sent them, and that they are neither old nor seen
/// before.
///
/// Every refusal is a `TzSoapFaultError` with the code that Web Services Security: SOAP Message
/// Security 1.0 (12) prescribes, and never says which part of user and password is wrong. Any
/// number of threads may verify at once; the replay cache is locked.
class TZSOAP_WS_API TzSoapWsVerifier {
public:
    /// The clock that requests are judged by.
    using Time = std::chrono::system_clock::time_point;
    /// The password of a user, empty for an unknown one. Called on the thread that verifies.
    using Passwords = std::function<std::optional<TzCString>(const TzCString& user)>;

    /// What is accepted.
    struct Options {
        /// Longest freshness and clock skew; longer ones are shortened to it.
        static constexpr std::chrono::hours Longest{24 * 365 * 10};

        /// How old a digest or a timestamp without Expires may be.
        std::chrono::seconds freshness = std::chrono::minutes(5);
        /// How much the clock of a sender may be ahead of this one, or behind it.
        std::chrono::seconds clockSkew = std::chrono::minutes(1);
        /// Most digests remembered at once; when they are that many, further ones are refused until
        /// the oldest are no longer fresh.
        std::size_t replayLimit = 100000;
        /// Whether a password may come as it is, which needs TLS.
        bool plainPasswords = false;
        /// Whether a request without Timestamp is refused.
        bool timestampRequired = false;
        /// The role that the service acts in.
        TzSoapNode node = {};
    };

    /// A verifier that asks `passwords`.
    explicit TzSoapWsVerifier(Passwords passwords);
    /// A verifier that asks `passwords` and accepts what `options` say.
    TzSoapWsVerifier(Passwords passwords, Options options);
    TzSoapWsVerifier(const TzSoapWsVerifier&) = delete;
    TzSoapWsVerifier& operator=(const TzSoapWsVerifier&) = delete;
    ~TzSoapWsVerifier();

    /// The name of the entry, for `TzSoapNode::addUnderstood`.
    static const TzXmlName& entryName();

    /// The user who sent `message`. `TzSoapFaultError`: FailedAuthentication for an unknown user, a
    /// wrong password, a digest that was seen before and a request without user; MessageExpired
    /// for one that is too old or from the future; InvalidSecurity for an entry that stands twice
    /// or is not as it should be; UnsupportedSecurityToken for a password of another kind.
    /// O(entry + log remembered digests).
    TzCString verify(const TzSoapMessage& message,
                     Time now = std::chrono::system_clock::now()) const;

    /// The name in the token that `verify` looks at, "" without one: the user, once `verify`
    /// accepted `message`. `TzSoapFaultError` InvalidSecurity for an entry that stands twice.
    /// O(entry).
    TzCString userOf(const TzSoapMessage& message) const;

private:
    class Check;

    Passwords passwords_;
    Options options_;
    std::unique_ptr<TzSoapWsReplays> replays_;
};
