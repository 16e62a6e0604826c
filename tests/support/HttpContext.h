// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapHttpTransportContext.h>

/// The header of an HTTP message that says only of which type its body is.
inline TzSoapHttpTransportContext contextOf(const char* contentType) {
    TzSoapHttpTransportContext context;
    context.add("Content-Type", contentType);
    return context;
}
