// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapFaultError.h>
#include <soap/TzSoapHttpExport.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapTransportError.h>

#include <utility>
#include <variant>

/// What came of a call: a message, a fault, a failure of the transport, or nothing, because the
/// service took the request and does not answer it. A value.
class TZSOAP_HTTP_API TzSoapHttpResult {
public:
    /// No answer.
    TzSoapHttpResult() = default;
    /// A message without a fault.
    explicit TzSoapHttpResult(TzSoapMessage answer) : result_(std::move(answer)) {}
    /// A fault.
    explicit TzSoapHttpResult(TzSoapFaultError fault) : result_(std::move(fault)) {}
    /// A failure.
    explicit TzSoapHttpResult(TzSoapTransportError failure) : result_(std::move(failure)) {}

    /// Whether there is a message without a fault.
    bool hasAnswer() const noexcept { return std::holds_alternative<TzSoapMessage>(result_); }
    /// Whether the service took the request and sent no message.
    bool isEmpty() const noexcept { return std::holds_alternative<std::monostate>(result_); }
    /// The fault; null for any other result. Valid as long as the result.
    const TzSoapFaultError* findFault() const noexcept {
        return std::get_if<TzSoapFaultError>(&result_);
    }
    /// The failure of the transport; null for any other result. Valid as long as the result.
    const TzSoapTransportError* findFailure() const noexcept {
        return std::get_if<TzSoapTransportError>(&result_);
    }
    /// The message, shared. Throws the fault or the failure; `TzSoapMissingError` when there is no
    /// answer.
    TzSoapMessage getAnswer() const;

private:
    std::variant<std::monostate, TzSoapMessage, TzSoapFaultError, TzSoapTransportError> result_;
};
