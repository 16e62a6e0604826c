// SPDX-License-Identifier: MIT
#pragma once

#include <tz/tools/TzCString.h>

/// What a service was sent over HTTP, whichever server received it. A plain value.
struct TzSoapHttpRequest {
    TzCString contentType; ///< The header line "Content-Type", "" without one.
    TzCString action; ///< The header line "SOAPAction", with or without quotes, "" without one.
    TzCString body;   ///< The bytes, decompressed.
};
