// SPDX-License-Identifier: MIT
#include "HttpPost.h"

#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpClient.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapTransportError.h>
#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <stdexcept>

namespace {

using Error = TzSoapTransportError;

constexpr std::size_t LargestAnswer = 1U << 30U;
constexpr int FirstFailure = 300;

TzSoapHttpClient clientOf(const std::string& url) {
    TzSoapHttpOptions options;
    options.largestAnswer = LargestAnswer;
    try {
        return TzSoapHttpClient(url, options);
    } catch (const TzXmlBadArgError&) {
        throw std::runtime_error("is no URL of http or https");
    }
}

/// Why there is no answer, in the words that scripts know; the client's own where it has to say
/// more.
std::string reasonOf(const Error& error) {
    const bool isLate = error.getCause() == Error::TimedOut;
    switch (error.getCause() == Error::TooLarge ? Error::Content : error.getPhase()) {
    case Error::Resolve:
    case Error::Connect:
        return isLate ? "no answer: ConnectionTimeout" : "no answer: Connection";
    case Error::Send:
        return "no answer: Write";
    case Error::Receive:
        return "no answer: Read";
    default:
        return error.asString().substr(error.getUrl().size() + 2);
    }
}

} // namespace

TzSoapHttpAnswer httpPost(const std::string& url, const TzSoapHttpTransportContext& headers,
                          const std::string& body) {
    const TzSoapHttpClient client = clientOf(url);
    try {
        return client.post(body, headers);
    } catch (const Error& error) {
        throw std::runtime_error(reasonOf(error));
    }
}

void readAnswer(const TzSoapHttpAnswer& answer, TzSoapMessage& message) {
    try {
        TzSoapHttpBinding::unpack(answer.headers, answer.body, message);
    } catch (Tzxmsg& error) {
        if (answer.status >= FirstFailure) {
            error.addDetail("HTTP status " + std::to_string(answer.status));
        }
        throw;
    }
}
