// SPDX-License-Identifier: MIT
#include "HttpPost.h"

#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapMessage.h>
#include <tz/tools/Tzxmsg.h>

#include <httplib.h>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>

namespace {

constexpr std::chrono::seconds ConnectPatience(10);
constexpr std::chrono::seconds AnswerPatience(60);
constexpr int FirstFailure = 300;

/// A URL as an HTTP client wants it.
struct Address {
    std::string server; ///< Scheme, host and port.
    std::string path;   ///< With the query.
};

Address split(const std::string& url) {
    const std::size_t host = url.find("://");
    if (!url.starts_with("http://") && !url.starts_with("https://")) {
        throw std::runtime_error("is no URL of http or https");
    }
    const std::size_t path = url.find_first_of("/?", host + 3);
    if (path == std::string::npos) {
        return {url, "/"};
    }
    const std::string rest = url.substr(path, url.find('#', path) - path);
    return {url.substr(0, path), rest.starts_with('/') ? rest : '/' + rest};
}

} // namespace

void HttpReply::read(TzSoapMessage& message) const {
    try {
        TzSoapHttpBinding::unpack(headers, body, message);
    } catch (Tzxmsg& error) {
        if (status >= FirstFailure) {
            error.addDetail("HTTP status " + std::to_string(status));
        }
        throw;
    }
}

HttpReply httpPost(const std::string& url, const TzSoapHttpTransportContext& headers,
                   const std::string& body) {
    const Address address = split(url);
    std::atomic<bool> answers = false;
    httplib::Request request;
    request.method = "POST";
    request.path = address.path;
    request.headers = httplib::Headers(headers.begin(), headers.end());
    request.body = body;
    request.response_handler = [&answers](const httplib::Response&) {
        answers = true;
        return true;
    };
    httplib::Client http(address.server);
    http.set_connection_timeout(ConnectPatience);
    http.set_read_timeout(AnswerPatience);
    std::future<httplib::Result> posting =
        std::async(std::launch::async, [&] { return http.send(request); });
    while (posting.wait_for(AnswerPatience) == std::future_status::timeout) {
        if (!answers) {
            http.stop(); // header lines may go on without end
        }
    }
    const httplib::Result result = posting.get();
    if (!result) {
        throw std::runtime_error("no answer: " + httplib::to_string(result.error()));
    }
    const std::string contentType = TzSoapHttpBinding::getContentTypeLabel();
    HttpReply reply;
    reply.status = result->status;
    if (result->has_header(contentType)) {
        reply.headers.add(contentType, result->get_header_value(contentType));
    }
    reply.body = result->body;
    return reply;
}
