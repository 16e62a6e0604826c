// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>
#include <soap/TzSoapWsExport.h>
#include <tz/tools/TzCString.h>

#include <chrono>
#include <vector>

class TzSoapMessage;

/// The Security entry that a client puts into the header of its requests: a timestamp, a user with
/// a password or with its digest (OASIS Web Services Security, UsernameToken Profile 1.0).
///
/// Nothing is signed or encrypted: whoever can change a message on its way can move the entry into
/// another one. Use it over TLS. A plain value; not locked.
class TZSOAP_WS_API TzSoapWsSecurity {
public:
    /// The clock that the entry is made by.
    using Time = std::chrono::system_clock::time_point;

    /// The namespace of Security and UsernameToken.
    static constexpr char Namespace[] =
        "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-secext-1.0.xsd";
    /// The namespace of Timestamp, Created and Expires.
    static constexpr char UtilityNamespace[] =
        "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-utility-1.0.xsd";
    /// Bytes of a nonce.
    static constexpr std::size_t NonceSize = 16;

    /// Adds a Timestamp: made at `now`, good for `lifetime`. Returns this.
    TzSoapWsSecurity& addTimestamp(std::chrono::seconds lifetime = std::chrono::minutes(5),
                                   Time now = std::chrono::system_clock::now());
    /// Adds a user with the password as it is. Returns this.
    TzSoapWsSecurity& addPassword(const TzCString& user, const TzCString& password);
    /// Adds a user with the digest of a password: Base64(SHA-1(nonce + created + password)), with a
    /// random nonce. Returns this. `std::runtime_error` when the system gives no random bytes.
    TzSoapWsSecurity& addPasswordDigest(const TzCString& user, const TzCString& password,
                                        Time now = std::chrono::system_clock::now());

    /// Puts the entry into the header of `message`, in place of one that was there without actor.
    /// A digest is good for one message: receivers refuse it when they see it again.
    void write(TzSoapMessage& message, bool mustUnderstand = true) const;

private:
    std::vector<TzSoapType> tokens_;
};
