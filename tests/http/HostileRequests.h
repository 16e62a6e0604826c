// SPDX-License-Identifier: MIT
#pragma once

#include "http/EchoServer.h"

#include <string>
#include <vector>

/// A request that no service should do anything for.
struct HostileRequest {
    std::string what;
    std::string contentType;
    std::string body;
};

/// Requests that are well-formed HTTP and nothing else.
const std::vector<HostileRequest>& hostileRequests();

/// Whether the answer refuses the request as it should be refused: a fault of the sender's with
/// status 500, or status 400 or 415.
bool isRefusal(const HttpAnswer& answer);

/// Fails the test when `answer` does not refuse `request`.
void expectRefused(const HostileRequest& request, const HttpAnswer& answer);

/// Texts that are not HTTP.
const std::vector<std::string>& brokenHttp();
