// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapHttpTransportContext.h>
#include <tz/tools/TzCString.h>

/// What a service answers over HTTP, whichever server sends it. A plain value.
struct TzSoapHttpAnswer {
    int status = 0;                     ///< The HTTP status.
    TzSoapHttpTransportContext headers; ///< The header lines, without "Content-Length".
    TzCString body;                     ///< The bytes; none after a one-way operation.
};
