// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapHttpAnswer.h>
#include <soap/TzSoapHttpExport.h>
#include <soap/TzSoapHttpOptions.h>
#include <soap/TzSoapHttpResult.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMaking.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapType.h>
#include <soap/TzSoapView.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <memory>
#include <stop_token>

class TzSoapHttpCaller;

/// Calls a service over HTTP.
///
///     TzSoapHttpClient client("https://example.org/rates");
///     TzSoapMessage answer = client.call(request, "urn:example:rates#getRate");
///
/// Any number of threads may call through one client at the same time, each with a request of its
/// own, because writing a message is a change of it. Each call runs on the thread that makes it and
/// uses one connection: an idle one of the client if it has one, otherwise a new one. Calls share
/// DNS answers, TLS sessions and cookies. The client must live until its calls have ended. It
/// blocks SIGPIPE on the thread of a call as long as the call runs.
class TZSOAP_HTTP_API TzSoapHttpClient {
public:
    /// A client of the service at `url`, http or https; nothing is sent yet. `TzXmlBadArgError`
    /// with a detail for any other URL, and INVALID_HTTP_HEADER for options with a header line
    /// that no request can have.
    explicit TzSoapHttpClient(const TzCString& url, TzSoapHttpOptions options = {});
    TzSoapHttpClient(TzSoapHttpClient&&) noexcept;
    TzSoapHttpClient& operator=(TzSoapHttpClient&&) noexcept;
    ~TzSoapHttpClient();

    /// Sends `request` and returns the answer, in the style of the request and in whatever version
    /// it is; its attachments are `getMimeMultipart()`. Errors:
    ///
    /// - `TzSoapFaultError` for a fault, whatever the status;
    /// - `TzSoapTransportError` for everything else that is not a message, an empty answer
    /// included;
    /// - those of `TzSoapHttpBinding::pack` for a request that cannot be written or an action that
    ///   does not fit into a header line; nothing is sent then.
    ///
    /// `stop` cancels the call from another thread. Blocks until the answer is there; O(request +
    /// answer).
    TzSoapMessage call(const TzSoapMessage& request, const TzCString& action = {},
                       const std::stop_token& stop = {}) const;
    /// A message of the options' version and style whose only body entry is `operation`, shared:
    /// for calls that need more, such as header entries.
    TzSoapMessage makeRequest(const TzSoapType& operation) const;
    /// Calls with `makeRequest(operation)`; returns the first body entry of the answer.
    /// `TzSoapMissingError` for an answer without one; other errors are those of the other `call`.
    TzSoapType call(const TzSoapType& operation, const TzCString& action = {},
                    const std::stop_token& stop = {}) const;
    /// Calls `operation` with a struct that has `TzSoapFields`, or whatever else `tzSoapValue`
    /// takes, and returns what `TzSoapView::as` makes of the answer's first body entry:
    ///
    ///     const auto rate = client.call<Rate>("GetRate", RateRequest{"EUR", "JPY"});
    ///
    /// A name without a namespace stands in that of the options. `TzSoapMissingError` and
    /// `TzXmlBadArgError`, with the path, for an answer that is not an `Answer`; other errors are
    /// those of the other `call`.
    template <typename Answer, typename Request>
    Answer call(const TzXmlName& operation, const Request& request, const TzCString& action = {},
                const std::stop_token& stop = {}) const {
        const TzSoapType value = tzSoapValue(request, fullName(operation), getOptions().style);
        return TzSoapView(call(value, action, stop)).template as<Answer>();
    }
    /// Does what `call` does and returns faults and failures of the transport as results. An empty
    /// answer with a status of success, such as 202 to a one-way request, is a result without an
    /// answer. Throws the errors of a request that cannot be written.
    TzSoapHttpResult tryCall(const TzSoapMessage& request, const TzCString& action = {},
                             const std::stop_token& stop = {}) const;

    /// Posts `body`, which exists already, with the header lines of `context`, such as those of
    /// `TzSoapHttpBinding::describe`, and returns what came, whatever its status and its content:
    /// for texts that must travel as they stand. Redirects lead to no other host.
    ///
    /// `TzSoapTransportError` without an answer, for one that is larger than the options allow, and
    /// for a redirect that is not followed; INVALID_HTTP_HEADER for a header line that no request
    /// can have. `stop` as for `call`. O(body + answer).
    TzSoapHttpAnswer post(const TzCString& body, const TzSoapHttpTransportContext& context,
                          const std::stop_token& stop = {}) const;

    /// Cancels the calls that run now, from any thread: each ends with a `TzSoapTransportError`.
    /// Later calls are not affected.
    void cancel() const;

    /// The URL without user and password.
    const TzCString& getUrl() const noexcept;
    /// The options.
    const TzSoapHttpOptions& getOptions() const noexcept;

private:
    TzXmlName fullName(const TzXmlName& operation) const;

    std::unique_ptr<TzSoapHttpCaller> caller_;
};
