// SPDX-License-Identifier: MIT
// A program that checks users with an installed copy of the library for WS-Security.
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapWsSecurity.h>
#include <soap/TzSoapWsVerifier.h>

#include <iostream>

int main() {
    TzSoapMessage message(TzSoapVersion::V1_1);
    TzSoapWsSecurity().addPasswordDigest("ann", "s3cret").write(message);
    const TzSoapWsVerifier verifier([](const TzCString&) { return TzCString("s3cret"); });
    std::cout << verifier.verify(message) << '\n';
}
