// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapHttpTransportContext.h>

#include <string>

class TzSoapMessage;

/// What came back for a request over HTTP.
struct HttpReply {
    int status = 0;
    TzSoapHttpTransportContext headers; ///< The content type, if there is one.
    std::string body;

    /// Reads the message into `message`. Errors are those of `TzSoapHttpBinding::unpack`; a status
    /// of failure is one of their details.
    void read(TzSoapMessage& message) const;
};

/// Posts `body` with these header lines to `url`, which is http or https. Waits a minute for the
/// answer. `std::runtime_error` without one.
HttpReply httpPost(const std::string& url, const TzSoapHttpTransportContext& headers,
                   const std::string& body);
