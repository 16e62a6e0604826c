// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>
#include <soap/TzSoapWsExport.h>
#include <tz/tools/TzCString.h>

#include <vector>

/// An endpoint reference (WS-Addressing 1.0 - Core, 2): where messages go, and what they carry so
/// that the receiver finds its way. Metadata is not kept.
///
/// A plain value. Copies share the reference parameters.
struct TZSOAP_WS_API TzSoapWsEndpoint {
    /// The address of whoever waits for the answer on the same connection.
    static constexpr char Anonymous[] = "http://www.w3.org/2005/08/addressing/anonymous";
    /// The address where messages are thrown away.
    static constexpr char None[] = "http://www.w3.org/2005/08/addressing/none";

    /// The URI of the endpoint.
    TzCString address = Anonymous;
    /// Header entries that every message to the endpoint carries.
    std::vector<TzSoapType> referenceParameters;

    /// Whether messages go back on the connection that the request came on.
    bool isAnonymous() const noexcept { return address == Anonymous; }
    /// Whether messages to it are not to be sent at all.
    bool isNone() const noexcept { return address == None; }
};
