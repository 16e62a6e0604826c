// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapHttpAnswer.h>

#include <string>

class TzSoapHttpTransportContext;
class TzSoapMessage;

/// Posts `body` with these header lines to `url`, which is http or https. Waits a minute for the
/// answer and takes one of up to a gibibyte. `std::runtime_error` without one.
TzSoapHttpAnswer httpPost(const std::string& url, const TzSoapHttpTransportContext& headers,
                          const std::string& body);

/// Reads the message in `answer` into `message`. Errors are those of `TzSoapHttpBinding::unpack`; a
/// status of failure is one of their details.
void readAnswer(const TzSoapHttpAnswer& answer, TzSoapMessage& message);
