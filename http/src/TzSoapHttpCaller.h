// SPDX-License-Identifier: MIT
#pragma once

#include "TzSoapHttpPool.h"
#include "TzSoapHttpTransfer.h"
#include "TzSoapHttpUrl.h"

#include <soap/TzSoapHttpAnswer.h>
#include <soap/TzSoapHttpOptions.h>
#include <soap/TzSoapHttpResult.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>

#include <mutex>
#include <stop_token>
#include <utility>
#include <vector>

/// What a `TzSoapHttpClient` does: from the message to the post, through redirects, and back.
class TzSoapHttpCaller {
public:
    TzSoapHttpCaller(const TzCString& url, TzSoapHttpOptions options);

    const TzSoapHttpUrl& url() const noexcept { return url_; }
    const TzSoapHttpOptions& options() const noexcept { return options_; }
    TzSoapHttpResult call(const TzSoapMessage& request, const TzCString& action,
                          const std::stop_token& stop);
    TzSoapHttpAnswer post(const TzCString& body, const TzSoapHttpTransportContext& context,
                          const std::stop_token& stop);
    void cancel();

private:
    using Lines = std::vector<std::pair<TzCString, TzCString>>;

    /// A request on its way through redirects.
    struct Journey {
        Lines headers;
        Lines bareHeaders; ///< Without those of the options.
        const TzCString& body;
        TzSoapHttpUrl url;
        const char* stays; ///< What no other host must see; null for nothing.
    };

    Lines linesOf(const TzSoapHttpTransportContext& context, bool withOptions) const;
    void watchRequest(const Journey& journey) const;
    void watchAnswer(const TzSoapHttpUrl& url, const TzSoapHttpReply& reply) const;
    TzSoapHttpReply travel(Journey& journey, const std::stop_token& stop);
    TzSoapHttpUrl next(const Journey& journey, const TzSoapHttpReply& reply) const;
    TzSoapHttpResult read(const TzSoapMessage& request, const TzSoapHttpUrl& url,
                          const TzSoapHttpReply& reply) const;
    std::stop_token clientStop();

    TzSoapHttpUrl url_;
    TzSoapHttpOptions options_;
    TzSoapHttpOptions::Credentials credentials_;
    TzSoapHttpPool pool_;
    std::mutex mutex_;
    std::stop_source stop_;
};
