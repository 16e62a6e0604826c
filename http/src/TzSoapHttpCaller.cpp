// SPDX-License-Identifier: MIT
#include "TzSoapHttpCaller.h"

#include "TzSoapHttpSecrets.h"

#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapHttpBinding.h>
#include <tz/tools/TzMessage.h>
#include <tz/xml/TzThrow.h>
#include <tz/xml/TzXmlBadArgError.h>

#include <algorithm>
#include <chrono>
#include <iterator>

namespace {

using Clock = std::chrono::steady_clock;
using Error = TzSoapTransportError;

constexpr char SecurityNamespace[] =
    "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-secext-1.0.xsd";
constexpr int Redirects[] = {301, 302, 303, 307, 308};

bool isSuccess(int status) noexcept { return status / 100 == 2; }

bool isRedirect(const TzSoapHttpReply& reply) noexcept {
    return !reply.location.empty() && std::find(std::begin(Redirects), std::end(Redirects),
                                                reply.status) != std::end(Redirects);
}

bool isTokenCharacter(char character) noexcept {
    constexpr std::string_view Others = "!#$%&'*+-.^_`|~";
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
           (character >= 'A' && character <= 'Z') ||
           Others.find(character) != std::string_view::npos;
}

bool breaksLine(char character) noexcept {
    return character == '\r' || character == '\n' || character == '\0';
}

TzSoapHttpUrl parsed(const TzCString& text) {
    std::optional<TzSoapHttpUrl> url = TzSoapHttpUrl::parse(text);
    if (!url) {
        throw tzWithDetail(TzXmlBadArgError(TzMessage(TzCString("The URL is not one of http or "
                                                                "https"))),
                           tzQuoted(TzSoapHttpUrl::shown(text)));
    }
    return *std::move(url);
}

/// Throws for lines that no request can have.
template <typename Lines> void checkLines(const Lines& lines) {
    for (const auto& [name, value] : lines) {
        if (name.empty() || !std::all_of(name.begin(), name.end(), isTokenCharacter) ||
            std::any_of(value.begin(), value.end(), breaksLine)) {
            TzThrow(tzWithDetail(TzXmlBadArgError(TzMessage(tzsoap_INVALID_HTTP_HEADER())),
                                 tzQuoted(name)));
        }
    }
}

/// What in `message` no other host must see; null for nothing.
const char* secretOf(const TzSoapMessage& message) {
    const TzSoapHeader& header = message.getSoapHeader();
    const bool isSecured = std::any_of(header.begin(), header.end(), [](const TzSoapType& entry) {
        return entry.getName().getUri() == SecurityNamespace;
    });
    return isSecured ? "the WS-Security header of the request" : nullptr;
}

Error failure(Error::Phase phase, const TzSoapHttpUrl& url, const TzSoapHttpReply& reply,
              const TzCString& text) {
    return {phase,
            Error::Failed,
            url.text,
            "the answer with status " + std::to_string(reply.status) + ' ' + text,
            {reply.status, reply.contentType, reply.body}};
}

} // namespace

TzSoapHttpCaller::TzSoapHttpCaller(const TzCString& url, TzSoapHttpOptions options)
    : url_(parsed(url)), options_(std::move(options)), credentials_(options_.credentials),
      pool_(options_.idleConnections, options_.cookies) {
    if (!url_.user.empty()) {
        credentials_.user = std::move(url_.user);
        credentials_.password = std::move(url_.password);
    }
    checkLines(options_.headers);
}

/// The header lines of a request; those of the options replace others of their names.
TzSoapHttpCaller::Lines TzSoapHttpCaller::linesOf(const TzSoapHttpTransportContext& context,
                                                  bool withOptions) const {
    Lines lines(context.begin(), context.end());
    lines.emplace_back("User-Agent", "TzSoap");
    if (withOptions) {
        for (const auto& [name, value] : options_.headers) {
            std::erase_if(lines, [&name = name](const auto& line) {
                return tzEqualIgnoreCase(line.first, name);
            });
        }
        lines.insert(lines.end(), options_.headers.begin(), options_.headers.end());
    }
    return lines;
}

std::stop_token TzSoapHttpCaller::clientStop() {
    const std::lock_guard guard(mutex_);
    return stop_.get_token();
}

void TzSoapHttpCaller::cancel() {
    std::stop_source stopped;
    {
        const std::lock_guard guard(mutex_);
        std::swap(stopped, stop_);
    }
    stopped.request_stop();
}

TzSoapHttpResult TzSoapHttpCaller::call(const TzSoapMessage& request, const TzCString& action,
                                        const std::stop_token& stop) {
    TzSoapHttpTransportContext context;
    context.setSoapAction(action);
    const TzCString body = TzSoapHttpBinding::pack(request, context);
    Journey journey{linesOf(context, true), linesOf(context, false), body, url_, secretOf(request)};
    watchRequest(journey);
    TzSoapHttpReply reply;
    try {
        reply = travel(journey, stop);
    } catch (const Error& error) {
        return TzSoapHttpResult(error);
    }
    watchAnswer(journey.url, reply);
    return read(request, journey.url, reply);
}

TzSoapHttpAnswer TzSoapHttpCaller::post(const TzCString& body,
                                        const TzSoapHttpTransportContext& context,
                                        const std::stop_token& stop) {
    checkLines(context);
    Journey journey{linesOf(context, true), linesOf(context, false), body, url_,
                    "a text whose secrets are not known"};
    watchRequest(journey);
    TzSoapHttpReply reply = travel(journey, stop);
    watchAnswer(journey.url, reply);
    return {reply.status, std::move(reply.headers), std::move(reply.body)};
}

void TzSoapHttpCaller::watchRequest(const Journey& journey) const {
    if (!options_.watch) {
        return;
    }
    TzSoapHttpText text;
    text.url = journey.url.text;
    for (const auto& [name, value] : journey.headers) {
        text.headers.add(name, value);
    }
    if (!credentials_.user.empty() || !credentials_.password.empty()) {
        text.headers.add("Authorization", TzSoapHttpSecrets::Mask);
    }
    TzSoapHttpSecrets::mask(text.headers, options_.secretHeaders);
    text.body = TzSoapHttpSecrets::masked(journey.body);
    options_.watch(text);
}

void TzSoapHttpCaller::watchAnswer(const TzSoapHttpUrl& url, const TzSoapHttpReply& reply) const {
    if (!options_.watch) {
        return;
    }
    TzSoapHttpText text{true, url.text, reply.status, reply.headers,
                        TzSoapHttpSecrets::masked(reply.body)};
    TzSoapHttpSecrets::mask(text.headers, options_.secretHeaders);
    options_.watch(text);
}

/// Posts the request, and posts it again where redirects lead.
TzSoapHttpReply TzSoapHttpCaller::travel(Journey& journey, const std::stop_token& stop) {
    const std::array<std::stop_token, 2> stops{stop, clientStop()};
    const Clock::time_point begin = Clock::now();
    for (unsigned int followed = 0;; ++followed) {
        const bool isOrigin = journey.url.sameOrigin(url_);
        std::chrono::milliseconds left = options_.timeout;
        if (left.count() > 0) {
            const auto spent =
                std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
            left = std::max(left - spent, std::chrono::milliseconds(1));
        }
        TzSoapHttpReply reply = TzSoapHttpTransfer::run(
            pool_, {journey.url, isOrigin ? journey.headers : journey.bareHeaders, journey.body,
                    options_, credentials_, isOrigin, left, stops});
        if (!isRedirect(reply)) {
            return reply;
        }
        if (followed == options_.redirects) {
            throw failure(Error::Status, journey.url, reply,
                          "is a redirect to " + tzQuoted(TzSoapHttpUrl::shown(reply.location)) +
                              ", which is not followed" +
                              (followed > 0 ? " after " + std::to_string(followed) + " others"
                                            : TzCString()));
        }
        journey.url = next(journey, reply);
    }
}

/// Where a redirect leads.
TzSoapHttpUrl TzSoapHttpCaller::next(const Journey& journey, const TzSoapHttpReply& reply) const {
    const auto refuse = [&](const TzCString& why) {
        return failure(Error::Status, journey.url, reply,
                       "is a redirect to " + tzQuoted(TzSoapHttpUrl::shown(reply.location)) + ", " +
                           why);
    };
    std::optional<TzSoapHttpUrl> url = TzSoapHttpUrl::parse(reply.location, &journey.url);
    if (!url) {
        throw refuse("which is not a URL of http or https");
    }
    if (journey.url.isSecure() && !url->isSecure()) {
        throw refuse("which is not encrypted");
    }
    if (!url->sameOrigin(url_) && journey.stays != nullptr) {
        throw refuse(TzCString("another host, which must not see ") + journey.stays);
    }
    return *std::move(url);
}

TzSoapHttpResult TzSoapHttpCaller::read(const TzSoapMessage& request, const TzSoapHttpUrl& url,
                                        const TzSoapHttpReply& reply) const {
    const bool good = isSuccess(reply.status);
    const Error::Phase phase = good ? Error::Content : Error::Status;
    if (reply.body.empty()) {
        return good ? TzSoapHttpResult() : TzSoapHttpResult(failure(phase, url, reply, "is empty"));
    }
    TzSoapHttpTransportContext context;
    if (!reply.contentType.empty()) {
        context.add(TzSoapHttpBinding::getContentTypeLabel(), reply.contentType);
    }
    TzSoapMessage answer(request.getVersion());
    answer.setStyle(request.getStyle());
    answer.setReadLimits(options_.readLimits);
    answer.setTypeRegistry(options_.types);
    answer.setMarkupElements(options_.markupElements);
    try {
        TzSoapHttpBinding::unpack(context, reply.body, answer);
    } catch (const Tzxmsg& error) {
        return TzSoapHttpResult(
            failure(phase, url, reply, "is not a message: " + error.describe()));
    }
    if (answer.getSoapBody().hasFaultElement()) {
        return TzSoapHttpResult(TzSoapFaultError(answer, reply.status));
    }
    return good ? TzSoapHttpResult(answer)
                : TzSoapHttpResult(failure(phase, url, reply, "holds no fault"));
}
