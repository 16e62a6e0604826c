// SPDX-License-Identifier: MIT
#include <soap/TzSoapHttpClient.h>

#include "TzSoapHttpCaller.h"

#include <utility>

TzSoapHttpClient::TzSoapHttpClient(const TzCString& url, TzSoapHttpOptions options)
    : caller_(std::make_unique<TzSoapHttpCaller>(url, std::move(options))) {}

TzSoapHttpClient::TzSoapHttpClient(TzSoapHttpClient&&) noexcept = default;

TzSoapHttpClient& TzSoapHttpClient::operator=(TzSoapHttpClient&&) noexcept = default;

TzSoapHttpClient::~TzSoapHttpClient() = default;

TzSoapMessage TzSoapHttpClient::call(const TzSoapMessage& request, const TzCString& action,
                                     const std::stop_token& stop) const {
    const TzSoapHttpResult result = tryCall(request, action, stop);
    if (result.isEmpty()) {
        throw TzSoapTransportError(TzSoapTransportError::Content, TzSoapTransportError::Failed,
                                   getUrl(), "the answer is empty", {});
    }
    return result.getAnswer();
}

TzSoapMessage TzSoapHttpClient::makeRequest(const TzSoapType& operation) const {
    const TzSoapHttpOptions& options = getOptions();
    TzSoapMessage request(options.version);
    request.setStyle(options.style);
    request.setProlog(TzXmlProlog());
    if (options.style == TzSoapStyle::Encoded) {
        request.declareTypeNamespaces();
    }
    request.getSoapBody().appendEntry(operation);
    return request;
}

TzSoapType TzSoapHttpClient::call(const TzSoapType& operation, const TzCString& action,
                                  const std::stop_token& stop) const {
    return call(makeRequest(operation), action, stop).getSoapBody().getFirstEntry();
}

TzSoapHttpResult TzSoapHttpClient::tryCall(const TzSoapMessage& request, const TzCString& action,
                                           const std::stop_token& stop) const {
    return caller_->call(request, action, stop);
}

TzSoapHttpAnswer TzSoapHttpClient::post(const TzCString& body,
                                        const TzSoapHttpTransportContext& context,
                                        const std::stop_token& stop) const {
    return caller_->post(body, context, stop);
}

void TzSoapHttpClient::cancel() const { caller_->cancel(); }

const TzCString& TzSoapHttpClient::getUrl() const noexcept { return caller_->url().text; }

const TzSoapHttpOptions& TzSoapHttpClient::getOptions() const noexcept {
    return caller_->options();
}

TzXmlName TzSoapHttpClient::fullName(const TzXmlName& operation) const {
    const TzCString& uri = getOptions().serviceNamespace;
    return operation.getUri().empty() && !uri.empty()
               ? TzXmlName(operation.getLocalName(), TzXmlNamespace("m", uri))
               : operation;
}
