// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapReadLimits.h>
#include <soap/TzSoapStyle.h>
#include <soap/TzSoapTypeRegistry.h>
#include <soap/TzSoapVersion.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

/// One direction of a call as it travels, secrets masked; see `TzSoapHttpOptions::watch`.
struct TzSoapHttpText {
    bool isAnswer = false; ///< Whether this is the answer and not the request.
    TzCString url;         ///< Without user and password.
    int status = 0;        ///< Of an answer.
    /// The header lines. Of the request those that the binding, the options and the credentials
    /// lead to; others, such as "Host", are not listed.
    TzSoapHttpTransportContext headers;
    TzCString body; ///< Of an answer: decompressed.
};

/// How a `TzSoapHttpClient` calls. A plain value. Nothing else has influence: no environment
/// variable names a proxy or authorities, no file holds passwords. What libcurl and OpenSSL do by
/// variables of their own, such as SSLKEYLOGFILE and OPENSSL_CONF, no option turns off.
struct TzSoapHttpOptions {
    /// How credentials are shown to a server or a proxy.
    enum Authentication {
        Basic,     ///< As text; only over TLS, or where everyone may read it.
        Digest,    ///< As a digest.
        Ntlm,      ///< For Windows domains. Handed to libcurl; not tested here.
        Negotiate, ///< Kerberos; user and password may be empty. As for NTLM.
        Any,       ///< The best that the server offers, which costs a round trip.
        Bearer,    ///< The password is a token.
    };
    /// Which versions of HTTP are spoken.
    enum HttpVersion {
        Negotiated,          ///< HTTP/2 where a TLS server agrees to it, HTTP/1.1 otherwise.
        Http1,               ///< HTTP/1.1 only.
        Http2WithoutUpgrade, ///< HTTP/2 from the first byte; for servers known to speak it.
    };
    /// Who calls.
    struct Credentials {
        TzCString user = {};                   ///< "" for none, but for Bearer and Negotiate.
        TzCString password = {};               ///< The password or the token.
        Authentication authentication = Basic; ///< How they are shown.
    };

    /// Longest time to connect, TLS included; 0 leaves it to `timeout`.
    std::chrono::milliseconds connectTimeout = std::chrono::seconds(10);
    /// Longest time for the whole call, redirects included; 0 for no limit.
    std::chrono::milliseconds timeout = std::chrono::seconds(60);
    /// Most bytes of an answer, counted after it was decompressed.
    std::size_t largestAnswer = 64U << 20U;
    /// Most bytes of an answer's header lines.
    std::size_t largestHeader = 256U << 10U;
    /// Most idle connections that are kept for the next calls. Calls that run at the same time use
    /// one connection each.
    std::size_t idleConnections = 8;
    /// Most redirects that are followed, whose requests are the same POST; 0 for none. A redirect
    /// never leads from https to http. To another host, port or scheme go neither credentials, nor
    /// cookies of other hosts, nor the client's certificate, nor `headers`; a message with a
    /// WS-Security header does not go there at all.
    unsigned int redirects = 0;
    /// Further header lines for each request. They replace those that the client makes.
    std::vector<std::pair<TzCString, TzCString>> headers = {};
    /// Whether answers may be compressed, by gzip or deflate.
    bool compression = true;
    /// Whether cookies that servers set go with later calls of the same client.
    bool cookies = false;
    /// Which versions of HTTP are spoken.
    HttpVersion httpVersion = Negotiated;

    /// Who calls; a user in the URL goes first.
    Credentials credentials = {};
    /// The URL of a proxy, http, https, socks5 or socks5h; "" for none.
    TzCString proxy = {};
    /// Who calls the proxy.
    Credentials proxyCredentials = {};

    /// A file with the certificates of the authorities that are trusted, PEM; "" for those of the
    /// system.
    TzCString caFile = {};
    /// The server's public key as "sha256//" and Base64, several with ";" between; "" for any.
    TzCString pinnedKey = {};
    /// A file with the client's certificate, PEM; "" for none.
    TzCString certificateFile = {};
    /// A file with the key of that certificate, PEM; "" where the same file holds it.
    TzCString keyFile = {};
    /// The password of that key.
    TzCString keyPassword = {};
    /// Whether anyone may pose as the server: certificates and their names are not checked. For
    /// tests only.
    bool insecure = false;

    /// What the messages of the value and struct forms of a call are.
    TzSoapVersion::Version version = TzSoapVersion::V1_1;
    /// What the messages of the value and struct forms of a call are.
    TzSoapStyle style = TzSoapStyle::Encoded;
    /// The namespace of the operations of the struct form that state none.
    TzCString serviceNamespace = {};
    /// What answers may hold.
    TzSoapReadLimits readLimits = {};
    /// The types of elements of answers that state none.
    TzSoapTypeRegistry types = {};
    /// The names of elements of answers that are kept as markup, see
    /// `TzSoapMessage::setMarkupElements`.
    std::vector<TzXmlName> markupElements = {};

    /// Is given both directions of each call, on the thread that calls: the request before it is
    /// sent, the answer as soon as it is complete, whatever it holds; of a call with redirects the
    /// first request and the last answer. What it throws leaves the call.
    ///
    /// Masked are the values of the header lines Authorization, Proxy-Authorization, Cookie,
    /// Set-Cookie, WWW-Authenticate, Proxy-Authenticate, Authentication-Info and of
    /// `secretHeaders`, and in texts in encodings like ASCII the content of every element with the
    /// local name "Password" or "BinarySecurityToken", whatever its namespace.
    std::function<void(const TzSoapHttpText&)> watch = {};
    /// The names of further header lines whose values are masked.
    std::vector<TzCString> secretHeaders = {};
};
