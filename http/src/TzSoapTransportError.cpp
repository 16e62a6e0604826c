// SPDX-License-Identifier: MIT
#include <soap/TzSoapTransportError.h>

#include <utility>

TzSoapTransportError::TzSoapTransportError(Phase phase, Cause cause, const TzCString& url,
                                           const TzCString& text, Received received)
    : Tzxmsg(url + ": " + text), phase_(phase), cause_(cause),
      url_(std::make_shared<const TzCString>(url)),
      received_(std::make_shared<const Received>(std::move(received))) {}

TzSoapTransportError::~TzSoapTransportError() = default;
