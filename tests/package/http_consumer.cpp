// SPDX-License-Identifier: MIT
// A program that calls with an installed copy of the HTTP client; nothing listens where it calls.
#include <soap/TzSoapHttpClient.h>

#include <iostream>

int main() {
    const TzSoapHttpResult result =
        TzSoapHttpClient("http://127.0.0.1:1/").tryCall(TzSoapMessage(TzSoapVersion::V1_1));
    if (const TzSoapTransportError* const failure = result.findFailure()) {
        std::cout << failure->getUrl() << '\n';
        return 0;
    }
    return 1;
}
