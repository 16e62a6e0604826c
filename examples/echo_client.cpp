// SPDX-License-Identifier: MIT
//
// Calls the echo service with an order, shows what travels both ways and what came back.
//
//     echo_client URL [1.1|1.2|1.2-2002 [ATTACHMENT]]      exit status 1 for faults and failures
#include "Order.h"

#include <soap/TzSoapHttpClient.h>

#include <iostream>

int main(int argc, char** argv) {
    const std::string version = argc > 2 ? argv[2] : "1.1";
    if (argc < 2 || (version != "1.1" && version != "1.2" && version != "1.2-2002")) {
        std::cerr << "usage: echo_client URL [1.1|1.2|1.2-2002 [ATTACHMENT]]\n";
        return 1;
    }
    try {
        TzSoapHttpOptions options;
        options.serviceNamespace = "urn:example:echo";
        options.version = version == "1.1"   ? TzSoapVersion::V1_1
                          : version == "1.2" ? TzSoapVersion::V1_2Rec
                                             : TzSoapVersion::V1_2;
        options.timeout = std::chrono::seconds(10);
        options.watch = [](const TzSoapHttpText& text) {
            const std::string status = ", status " + std::to_string(text.status);
            std::cout << (text.isAnswer ? "--- answer" + status : "--- request") << " ---\n"
                      << text.headers.asString() + '\n' + text.body + '\n';
        };
        const TzSoapHttpClient client(argv[1], options);
        const auto answer =
            client.call<EchoedOrder>("echoOrder", makeOrder(argc > 3 ? argv[3] : ""));
        std::cout << "--- the order in the answer ---\n" << describe(answer.order) << '\n';
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "echo_client: " << error.what() << '\n';
        return 1;
    }
}
