// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapHttpExport.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/Tzxmsg.h>

#include <memory>

/// A call that ended without an answer, or with one that is not a message.
///
/// The text names the URL, without user and password, and the cause: "http://example.org/: no
/// answer: Could not resolve host: example.org", "http://example.org/: the answer with status 404
/// is not a message: ...". A value; copies share what was received.
class TZSOAP_HTTP_API TzSoapTransportError : public Tzxmsg {
public:
    /// What the call was at.
    enum Phase {
        Resolve, ///< The host's or the proxy's name has no address.
        Connect, ///< No connection, or none to the proxy.
        Tls,     ///< The server is not who it should be, or no encryption was agreed on.
        Send,    ///< The request did not get through.
        Receive, ///< No answer, not all of it, or one that is larger than allowed.
        Status,  ///< An answer whose status says failure, without a fault; a redirect.
        Content, ///< An answer that says success and is not a message.
    };
    /// What ended the call.
    enum Cause {
        Failed,    ///< What the text says.
        TimedOut,  ///< The time for connecting or for the whole call is over.
        Cancelled, ///< The program cancelled it.
        TooLarge,  ///< The answer or its header is larger than the options allow.
    };
    /// What was received of the answer.
    struct Received {
        int status = 0;        ///< The HTTP status, 0 when none came.
        TzCString contentType; ///< The header line "Content-Type", "" without one.
        TzCString body;        ///< The bytes, decompressed; not of an answer that is too large.
    };

    /// An error of a call to `url`, which must hold no secrets, that says `text`.
    TzSoapTransportError(Phase phase, Cause cause, const TzCString& url, const TzCString& text,
                         Received received);
    TzSoapTransportError(const TzSoapTransportError&) = default;
    TzSoapTransportError& operator=(const TzSoapTransportError&) = default;
    ~TzSoapTransportError() override;

    /// What the call was at.
    Phase getPhase() const noexcept { return phase_; }
    /// What ended the call.
    Cause getCause() const noexcept { return cause_; }
    /// The URL that was asked last, without user and password.
    const TzCString& getUrl() const noexcept { return *url_; }
    /// The HTTP status, 0 when none came.
    int getHttpStatus() const noexcept { return received_->status; }
    /// What came in place of a message, such as the page of a proxy; valid as long as the error.
    const Received& getReceived() const noexcept { return *received_; }

private:
    Phase phase_;
    Cause cause_;
    std::shared_ptr<const TzCString> url_;
    std::shared_ptr<const Received> received_;
};
